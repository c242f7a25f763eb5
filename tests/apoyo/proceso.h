// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Real child processes for tests: the vorlano binary and other programs, with
// both outputs captured and the exit status.

#include <gtest/gtest.h>

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

// Runs a program with the test's environment plus `entorno` (nullopt removes
// a variable) and waits for it to exit.
Salida ejecutarPrograma(const std::string& programa, const std::vector<std::string>& argumentos,
                        const std::map<std::string, std::optional<std::string>>& entorno = {});

// The built vorlano binary, in test mode on the given home unless `entorno`
// says otherwise.
Salida ejecutarVorlano(const std::filesystem::path& home, const std::vector<std::string>& argumentos,
                       std::map<std::string, std::optional<std::string>> entorno = {});

// The same as "nobody" when the tests run as root (who ignores file modes);
// the home is made traversable for that user.
Salida ejecutarVorlanoSinPrivilegios(const std::filesystem::path& home, const std::vector<std::string>& argumentos,
                                     std::map<std::string, std::optional<std::string>> entorno = {});

// f as "nobody" in a forked child when the tests run as root, else here; true
// if f returned true. The folder is made traversable first. f must not use the
// parallel loop, whose workers stay in the parent.
bool comoUsuarioSinPrivilegios(const std::filesystem::path& carpeta, const std::function<bool()>& f);

// f in a forked child with a mount namespace of its own, so its mounts vanish
// with it; f's result, or sinMontajes when the system allows no such namespace
// (f may return it too when a mount is refused). No parallel loop in f.
inline constexpr int sinMontajes = 77;
int conMontajesPropios(const std::function<int()>& f);

// f on a thread of its own with a 512 KiB stack, which is what a secondary
// thread gets on macOS: where deep recursion would overflow a worker's stack.
void conPilaPequena(const std::function<void()>& f);

// The children of this process still present (alive or zombie), by pid.
std::vector<int> hijosVivos();

// Whether f is true, asked until it is or for 6 s, longer than the grace of a
// timed-out program.
bool alFin(const std::function<bool()>& f);

// Tests that leave no child of this process behind, alive or zombie.
class SinHijos : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_TRUE(alFin([] { return hijosVivos().empty(); })); }
};

// The demo home of scripts/casa-demo.sh in an empty folder; throws if the
// script fails.
void crearCasaDemo(const std::filesystem::path& carpeta);

// A real program running from a path of our choosing (a copy of sleep), so
// that the system lists it as that program, until the object goes.
class ProgramaEnMarcha {
public:
    explicit ProgramaEnMarcha(const std::filesystem::path& ejecutable);
    ~ProgramaEnMarcha();
    ProgramaEnMarcha(const ProgramaEnMarcha&) = delete;
    ProgramaEnMarcha& operator=(const ProgramaEnMarcha&) = delete;
    int pid() const { return pid_; }

private:
    int pid_ = -1;
};

// An environment variable of this process set (nullopt: removed) for the life
// of the object.
class Variable {
public:
    Variable(std::string nombre, const std::optional<std::string>& valor);
    ~Variable();
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    std::string nombre_;
    std::optional<std::string> antes_;
};

} // namespace apoyo
