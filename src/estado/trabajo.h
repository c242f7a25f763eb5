// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// How the state objects use other threads: the blocking engines run on a
// worker with copies of what they need, and whatever comes back is applied on
// the main thread, where the state lives. No lock guards the state.

#include <QCoreApplication>
#include <QMetaObject>
#include <QPointer>
#include <QThreadPool>

#include <utility>

// The workers of the engines. Never destroyed: the program doesn't wait for a
// running analysis when it ends.
QThreadPool* grupoDeTrabajo();

// Runs trabajo on a worker, then aplicar with its result on the main thread,
// unless contexto is gone by then. aplicar always comes through the event
// loop, never inside this call, however fast the worker is.
template <typename Trabajo, typename Aplicar>
void enSegundoPlano(QObject* contexto, Trabajo trabajo, Aplicar aplicar)
{
    grupoDeTrabajo()->start([yo = QPointer<QObject>(contexto), trabajo, aplicar]() mutable {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [yo, aplicar, r = trabajo()]() mutable {
                if (yo)
                    aplicar(std::move(r));
            },
            Qt::QueuedConnection);
    });
}

// From any thread: f(objeto) later on the main thread, if the object still
// lives then. The pointer must have been taken on the main thread.
template <typename T, typename F>
void enHiloPrincipal(const QPointer<T>& objeto, F f)
{
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [objeto, f = std::move(f)]() mutable {
            if (objeto)
                f(objeto.data());
        },
        Qt::QueuedConnection);
}
