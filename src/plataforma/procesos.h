// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

namespace plataforma {

// A descriptor that becomes readable when the child process ends, so its end
// can be awaited with poll beside a pipe; -1 where the system has none. The
// caller closes it.
int descriptorDeFin(pid_t hijo);

} // namespace plataforma
