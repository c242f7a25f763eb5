// SPDX-License-Identifier: GPL-3.0-or-later
// Test main: before any test runs, HOME and the XDG homes point into a scratch
// folder of this process, so no test can write into the real home of the machine.
#include "apoyo/casa.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <clocale>
#include <cstdlib>

int main(int argc, char** argv)
{
    const auto casa = apoyo::aislarProceso();

    QCoreApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    ::testing::InitGoogleTest(&argc, argv);
    const int r = RUN_ALL_TESTS();
    apoyo::borrarArbol(casa);
    return r;
}
