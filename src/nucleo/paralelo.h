// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>

// The one blocking parallel loop: calls f(i) for every i in [0, n) on as many
// threads as the machine offers, and returns when all calls have ended.
// f must be safe to call concurrently; it is never called with a lock held.
void enParalelo(size_t n, const std::function<void(size_t)>& f);
