// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace plataforma {

// The ICU locale id that rules the user's dates (first day of the week,
// calendar): the locale chosen for times, else the general one.
std::string localeDeFechas();

} // namespace plataforma
