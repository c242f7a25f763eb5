// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Waiting for a state object: its signals arrive through the event loop, after
// a worker has done the engine's part.

#include <gtest/gtest.h>

#include <QSignalSpy>

// Runs the event loop until the object emits the signal; a generous bound
// only keeps a broken test from hanging, it is no measure of speed.
template <typename Objeto, typename Senal>
bool esperar(Objeto* objeto, Senal senal)
{
    QSignalSpy espia(objeto, senal);
    return espia.wait(120'000);
}

// The same, for a signal that may already have come: the spy is made first.
inline bool esperar(QSignalSpy& espia, int veces = 1)
{
    while (espia.count() < veces)
        if (!espia.wait(120'000))
            return false;
    return true;
}
