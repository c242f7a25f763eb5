// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Real child processes for tests: the vorlano binary and other programs, with
// both outputs captured and the exit status.

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace apoyo {

struct Salida {
    int estado = -1; // exit status, or -1 if it didn't exit normally
    std::string salida;
    std::string errores;
};

// Runs a program with the test's environment plus `entorno` (a value of
// nullopt removes the variable), waits for it, and returns what it wrote.
Salida ejecutarPrograma(const std::string& programa, const std::vector<std::string>& argumentos,
                        const std::map<std::string, std::optional<std::string>>& entorno = {});

// The built vorlano binary, in test mode on the given home unless the
// environment given says otherwise.
Salida ejecutarVorlano(const std::filesystem::path& home, const std::vector<std::string>& argumentos,
                       std::map<std::string, std::optional<std::string>> entorno = {});

// The same, run as the unprivileged user "nobody" when the tests run as root
// (root ignores file modes); the home is made traversable for that user.
Salida ejecutarVorlanoSinPrivilegios(const std::filesystem::path& home, const std::vector<std::string>& argumentos,
                                     std::map<std::string, std::optional<std::string>> entorno = {});

// Runs f in a child process as the unprivileged user "nobody" when the tests
// run as root (root ignores file modes), otherwise in this process; true if f
// returned true. The folder is made traversable for that user first. The child
// is a fork: f must not use the parallel loop or start threads.
bool comoUsuarioSinPrivilegios(const std::filesystem::path& carpeta, const std::function<bool()>& f);

// Runs f in a child process with a mount namespace of its own, so that what
// it mounts vanishes with it, and returns f's result as the child's exit
// status; sinMontajes when the system allows no such namespace (f may return
// it too, when a mount it needs is refused). The child is a fork: f must not
// use the parallel loop or start threads.
inline constexpr int sinMontajes = 77;
int conMontajesPropios(const std::function<int()>& f);

// The children of this process still present (alive or zombie), by pid.
std::vector<int> hijosVivos();

} // namespace apoyo
