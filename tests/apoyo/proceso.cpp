// SPDX-License-Identifier: GPL-3.0-or-later
#include "apoyo/proceso.h"

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <grp.h>
#include <sched.h>
#include <spawn.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

extern char** environ;

namespace apoyo {

Salida ejecutarPrograma(const std::string& programa, const std::vector<std::string>& argumentos,
                        const std::map<std::string, std::optional<std::string>>& entorno)
{
    // The environment: ours, with the given variables replaced or removed.
    std::map<std::string, std::string> vars;
    for (char** e = environ; *e; ++e) {
        const char* igual = std::strchr(*e, '=');
        if (igual)
            vars[std::string(*e, size_t(igual - *e))] = igual + 1;
    }
    for (const auto& [k, v] : entorno) {
        if (v)
            vars[k] = *v;
        else
            vars.erase(k);
    }
    std::vector<std::string> textos;
    for (const auto& [k, v] : vars)
        textos.push_back(k + "=" + v);
    std::vector<char*> envp;
    for (auto& t : textos)
        envp.push_back(t.data());
    envp.push_back(nullptr);

    std::vector<std::string> args{programa};
    args.insert(args.end(), argumentos.begin(), argumentos.end());
    std::vector<char*> argv;
    for (auto& a : args)
        argv.push_back(a.data());
    argv.push_back(nullptr);

    int out[2], err[2];
    if (::pipe2(out, O_CLOEXEC) != 0 || ::pipe2(err, O_CLOEXEC) != 0)
        throw std::runtime_error("pipe falló");
    posix_spawn_file_actions_t fa;
    posix_spawn_file_actions_init(&fa);
    posix_spawn_file_actions_addopen(&fa, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&fa, out[1], 1);
    posix_spawn_file_actions_adddup2(&fa, err[1], 2);
    pid_t pid = -1;
    const int rc = ::posix_spawn(&pid, programa.c_str(), &fa, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&fa);
    ::close(out[1]);
    ::close(err[1]);
    Salida s;
    if (rc != 0) {
        ::close(out[0]);
        ::close(err[0]);
        return s;
    }
    pollfd fds[2] = {{out[0], POLLIN, 0}, {err[0], POLLIN, 0}};
    std::string* destino[2] = {&s.salida, &s.errores};
    int abiertos = 2;
    char buf[65536];
    while (abiertos > 0) {
        if (::poll(fds, 2, -1) < 0)
            break;
        for (int i = 0; i < 2; ++i) {
            if (fds[i].fd < 0 || fds[i].revents == 0)
                continue;
            const ssize_t n = ::read(fds[i].fd, buf, sizeof buf);
            if (n > 0) {
                destino[i]->append(buf, size_t(n));
            } else {
                ::close(fds[i].fd);
                fds[i].fd = -1;
                --abiertos;
            }
        }
    }
    int st = 0;
    ::waitpid(pid, &st, 0);
    s.estado = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
    return s;
}

Salida ejecutarVorlano(const std::filesystem::path& home, const std::vector<std::string>& argumentos,
                       std::map<std::string, std::optional<std::string>> entorno)
{
    entorno.try_emplace("VORLANO_HOME", home.string());
    return ejecutarPrograma(VORLANO_BIN, argumentos, entorno);
}

Salida ejecutarVorlanoSinPrivilegios(const std::filesystem::path& home, const std::vector<std::string>& argumentos,
                                     std::map<std::string, std::optional<std::string>> entorno)
{
    if (::geteuid() != 0)
        return ejecutarVorlano(home, argumentos, std::move(entorno));
    ::chmod(home.c_str(), 0755);
    entorno.try_emplace("VORLANO_HOME", home.string());
    std::vector<std::string> args{"--reuid=65534", "--regid=65534", "--clear-groups", VORLANO_BIN};
    args.insert(args.end(), argumentos.begin(), argumentos.end());
    return ejecutarPrograma("/usr/bin/setpriv", args, entorno);
}

bool comoUsuarioSinPrivilegios(const std::filesystem::path& carpeta, const std::function<bool()>& f)
{
    if (::geteuid() != 0)
        return f();
    ::chmod(carpeta.c_str(), 0755);
    std::fflush(nullptr);
    const pid_t pid = ::fork();
    if (pid == 0) {
        const bool ok = ::setgroups(0, nullptr) == 0 && ::setresgid(65534, 65534, 65534) == 0 &&
                        ::setresuid(65534, 65534, 65534) == 0 && f();
        std::fflush(nullptr);
        ::_exit(ok ? 0 : 1);
    }
    int st = 0;
    ::waitpid(pid, &st, 0);
    return WIFEXITED(st) && WEXITSTATUS(st) == 0;
}

int conMontajesPropios(const std::function<int()>& f)
{
    std::fflush(nullptr);
    const pid_t pid = ::fork();
    if (pid == 0) {
        // Private propagation: nothing mounted here reaches the parent's namespace.
        int r = sinMontajes;
        if (::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0)
            r = f();
        std::fflush(nullptr);
        ::_exit(r);
    }
    int st = 0;
    ::waitpid(pid, &st, 0);
    return WIFEXITED(st) ? WEXITSTATUS(st) : -1;
}

std::vector<int> hijosVivos()
{
    std::vector<int> r;
    const std::string yo = std::to_string(::getpid());
    DIR* d = ::opendir("/proc");
    if (d == nullptr)
        return r;
    while (const dirent* e = ::readdir(d)) {
        char* fin = nullptr;
        const long pid = std::strtol(e->d_name, &fin, 10);
        if (*fin != '\0' || pid <= 0)
            continue;
        // Field 4 of /proc/<pid>/stat is the parent; the name in field 2 may
        // hold blanks, so count from the closing parenthesis.
        std::ifstream f(std::string("/proc/") + e->d_name + "/stat");
        std::string linea;
        std::getline(f, linea);
        const size_t cierre = linea.rfind(')');
        if (cierre == std::string::npos)
            continue;
        std::istringstream resto(linea.substr(cierre + 2));
        std::string estado, padre;
        resto >> estado >> padre;
        if (padre == yo)
            r.push_back(int(pid));
    }
    ::closedir(d);
    return r;
}

} // namespace apoyo
