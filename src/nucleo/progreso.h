// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

// Progress texts of a long operation (an analysis, a cleaning). The operation
// says on which threads it calls it.
using Progreso = std::function<void(const std::string&)>;
