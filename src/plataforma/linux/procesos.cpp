// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/procesos.h"

#include <sys/syscall.h>
#include <unistd.h>

namespace plataforma {

int descriptorDeFin(pid_t hijo)
{
    // pidfd_open (Linux 5.3): readable once the process has ended, without
    // reaping it; close-on-exec by default.
#ifdef SYS_pidfd_open
    return int(::syscall(SYS_pidfd_open, hijo, 0));
#else
    (void)hijo;
    return -1;
#endif
}

const std::vector<std::string>& carpetasDeProgramas()
{
    static const std::vector<std::string> carpetas{"/usr/bin", "/usr/local/bin"};
    return carpetas;
}

} // namespace plataforma
