// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Waiting for a state object: its signals arrive through the event loop, after
// a worker has done the engine's part. The generous bounds only keep a broken
// test from hanging; they are no measure of speed.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QSignalSpy>

#include <functional>

// Runs the event loop until the spy has seen the signal that many times.
inline bool esperar(QSignalSpy& espia, int veces = 1)
{
    while (espia.count() < veces)
        if (!espia.wait(120'000))
            return false;
    return true;
}

// Runs the event loop until cond holds.
inline bool hasta(const std::function<bool()>& cond)
{
    QDeadlineTimer limite(120'000);
    while (!cond() && !limite.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    return cond();
}
