// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/carpetas.h"

#include <dirent.h>
#include <sys/types.h>

namespace plataforma {

// getdents64 writes struct dirent64 records back to back, each d_reclen long
// and aligned for the next. Unlike fdopendir, it costs no allocation, fstat
// or fcntl per folder.
const char* ListadoCarpeta::siguiente()
{
    if (pos_ >= fin_) {
        const ssize_t n = fd_ < 0 ? -1 : ::getdents64(fd_, buffer_.data(), buffer_.size());
        if (n <= 0) {
            fd_ = -1;
            return nullptr;
        }
        pos_ = 0;
        fin_ = size_t(n);
    }
    const auto* e = reinterpret_cast<const dirent64*>(buffer_.data() + pos_);
    pos_ += e->d_reclen;
    return e->d_name;
}

} // namespace plataforma
