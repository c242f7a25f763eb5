// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace plataforma {

// A descriptor that becomes readable when the child process ends, so its end
// can be awaited with poll beside a pipe; -1 where the system has none. The
// caller closes it.
int descriptorDeFin(pid_t hijo);

// The folders where the system installs programs, in the order to look in
// them after a caller's own candidates.
const std::vector<std::string>& carpetasDeProgramas();

} // namespace plataforma
