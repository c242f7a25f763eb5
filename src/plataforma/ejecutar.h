// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Running outside programs for their answer, with a bound on the wait.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace plataforma {

struct SalidaPrograma {
    // Exit status, or the signal number for a program killed by a signal.
    int32_t codigo = 0;
    // Standard output as UTF-8; empty if the bytes aren't valid UTF-8.
    std::string salida;
};

// Starts the program with no shell: standard input from /dev/null, standard
// output drained through a pipe while it runs, standard error to /dev/null,
// only descriptors 0-2 inherited, in a process group of its own.
//
// Absent when the program isn't an executable file, can't be started, or
// doesn't end within `limite` seconds. On time-out the group is asked to
// terminate and the call returns at once; a background reaper kills the group
// after a short grace and reaps the child, so nothing is left behind.
//
// The limit also bounds the wait for the output: a descendant that keeps the
// pipe open after the program ended is given until the limit, then its group
// is treated as on a time-out, and the program's status is returned with the
// output read so far.
//
// Blocking; safe to call from several threads at once.
//
// With `conErrores`, standard error goes into the same pipe as standard
// output, for programs whose complaints are the answer.
std::optional<SalidaPrograma> ejecutar(const std::string& programa, const std::vector<std::string>& argumentos,
                                       double limite = 15, bool conErrores = false);

// Runs the program as ejecutar does, but with both outputs to /dev/null and
// no time limit, for programs whose exit status is the whole answer. Absent
// when it isn't an executable file, can't be started, or is killed by a signal.
// Blocking; safe to call from several threads at once.
std::optional<int32_t> codigoDeSalida(const std::string& programa, const std::vector<std::string>& argumentos);

// The first path of the list that is an executable file, or absent.
std::optional<std::string> buscarPrograma(const std::vector<std::string>& candidatos);

} // namespace plataforma
