// SPDX-License-Identifier: GPL-3.0-or-later
#include "estado/trabajo.h"

QThreadPool* grupoDeTrabajo()
{
    // Enough for one engine of each state object at once; the engines spread
    // their own inner loops over the cores.
    static QThreadPool* grupo = [] {
        auto* g = new QThreadPool;
        g->setMaxThreadCount(4);
        return g;
    }();
    return grupo;
}
