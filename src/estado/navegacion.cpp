// SPDX-License-Identifier: GPL-3.0-or-later
#include "estado/navegacion.h"

#include <QJSEngine>

Navegacion& Navegacion::shared()
{
    static auto* n = new Navegacion;
    return *n;
}

Navegacion* Navegacion::create(QQmlEngine*, QJSEngine*)
{
    QJSEngine::setObjectOwnership(&shared(), QJSEngine::CppOwnership);
    return &shared();
}

void Navegacion::ir(Enlace enlace)
{
    // The same link again still counts: the screen serves it again.
    pendiente_ = enlace;
    Q_EMIT pendienteChanged();
}

std::optional<Enlace> Navegacion::tomarEnlace()
{
    auto r = pendiente_;
    if (r) {
        pendiente_.reset();
        Q_EMIT pendienteChanged();
    }
    return r;
}

QString Navegacion::tomar()
{
    const auto e = tomarEnlace();
    return e ? QString::fromStdString(valor(*e)) : QString();
}

QString Navegacion::pendienteTexto() const
{
    return pendiente_ ? QString::fromStdString(valor(*pendiente_)) : QString();
}
