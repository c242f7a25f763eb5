// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>

namespace plataforma {

// The names in an open folder, read in batches into a buffer the caller
// keeps, so that a walk that reuses its buffers allocates nothing per folder.
// "." and ".." come too, in no particular place. The descriptor stays the
// caller's to close.
class ListadoCarpeta {
public:
    // A buffer of this size takes most folders in one read.
    static constexpr size_t tamanoBuffer = 32768;

    // The buffer aligned as operator new aligns it.
    ListadoCarpeta(int fd, std::span<char> buffer) : fd_(fd), buffer_(buffer) {}

    // The next name, valid until the next call; null at the end, and from the
    // first read that fails on.
    const char* siguiente();

private:
    int fd_;
    std::span<char> buffer_;
    size_t pos_ = 0;
    size_t fin_ = 0;
};

} // namespace plataforma
