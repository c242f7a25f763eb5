// SPDX-License-Identifier: GPL-3.0-or-later
#include "apoyo/proceso.h"

#include "apoyo/casa.h"

#include <fcntl.h>
#include <signal.h>
#include <grp.h>
#include <pthread.h>
#include <sched.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

extern char** environ;

namespace apoyo {

namespace {

std::vector<char*> punteros(std::vector<std::string>& textos)
{
    std::vector<char*> r;
    for (auto& t : textos)
        r.push_back(t.data());
    r.push_back(nullptr);
    return r;
}

// What a child wrote into an anonymous file; closes it.
std::string contenido(int fd)
{
    std::string r = leer("/proc/self/fd/" + std::to_string(fd));
    ::close(fd);
    return r;
}

// f in a forked child: its result as the exit status, or -1.
int enHijo(const std::function<int()>& f)
{
    std::fflush(nullptr);
    const pid_t pid = ::fork();
    if (pid == 0) {
        const int r = f();
        std::fflush(nullptr);
        ::_exit(r);
    }
    int st = 0;
    ::waitpid(pid, &st, 0);
    return WIFEXITED(st) ? WEXITSTATUS(st) : -1;
}

} // namespace

Salida ejecutarPrograma(const std::string& programa, const std::vector<std::string>& argumentos,
                        const std::map<std::string, std::optional<std::string>>& entorno)
{
    std::vector<std::string> vars;
    for (char** e = environ; *e; ++e)
        if (const std::string_view v = *e; !entorno.contains(std::string(v.substr(0, v.find('=')))))
            vars.emplace_back(v);
    for (const auto& [k, v] : entorno)
        if (v)
            vars.push_back(k + "=" + *v);
    std::vector<std::string> args{programa};
    args.insert(args.end(), argumentos.begin(), argumentos.end());

    // Both outputs go to anonymous files, read once the program has exited:
    // nothing to drain while it runs.
    const int out = ::memfd_create("salida", MFD_CLOEXEC);
    const int err = ::memfd_create("errores", MFD_CLOEXEC);
    posix_spawn_file_actions_t fa;
    posix_spawn_file_actions_init(&fa);
    posix_spawn_file_actions_addopen(&fa, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&fa, out, 1);
    posix_spawn_file_actions_adddup2(&fa, err, 2);
    Salida s;
    pid_t pid = -1;
    if (::posix_spawn(&pid, programa.c_str(), &fa, nullptr, punteros(args).data(), punteros(vars).data()) == 0) {
        int st = 0;
        ::waitpid(pid, &st, 0);
        s.estado = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
    }
    posix_spawn_file_actions_destroy(&fa);
    s.salida = contenido(out);
    s.errores = contenido(err);
    return s;
}

void crearCasaDemo(const std::filesystem::path& carpeta)
{
    const auto demo = ejecutarPrograma(VORLANO_FUENTES "/scripts/casa-demo.sh", {carpeta.string()});
    if (demo.estado != 0)
        throw std::runtime_error("casa-demo.sh: " + demo.errores);
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
    return enHijo([&] {
        return ::setgroups(0, nullptr) == 0 && ::setresgid(65534, 65534, 65534) == 0 &&
                       ::setresuid(65534, 65534, 65534) == 0 && f()
                   ? 0
                   : 1;
    }) == 0;
}

int conMontajesPropios(const std::function<int()>& f)
{
    return enHijo([&] {
        // Private propagation: nothing mounted here reaches the parent's namespace.
        return ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
                   ? f()
                   : sinMontajes;
    });
}

std::vector<int> hijosVivos()
{
    std::vector<int> r;
    std::error_code ec;
    for (std::filesystem::directory_iterator it("/proc", ec), fin; !ec && it != fin; it.increment(ec)) {
        const std::string pid = it->path().filename();
        if (pid.find_first_not_of("0123456789") != std::string::npos)
            continue;
        // Field 4 of stat is the parent; the name in field 2 may hold blanks.
        const std::string stat = leer(it->path() / "stat");
        std::istringstream resto(stat.substr(stat.rfind(')') + 1));
        std::string estado;
        int padre = 0;
        resto >> estado >> padre;
        if (padre == ::getpid())
            r.push_back(std::stoi(pid));
    }
    return r;
}

bool alFin(const std::function<bool()>& f)
{
    for (int i = 0; i < 300 && !f(); ++i)
        ::usleep(20000);
    return f();
}

ProgramaEnMarcha::ProgramaEnMarcha(const std::filesystem::path& ejecutable)
{
    std::filesystem::create_directories(ejecutable.parent_path());
    std::filesystem::copy_file("/bin/sleep", ejecutable);
    char* argv[] = {const_cast<char*>(ejecutable.c_str()), const_cast<char*>("30"), nullptr};
    ::posix_spawn(&pid_, ejecutable.c_str(), nullptr, nullptr, argv, environ);
    // Until the exec has happened, /proc shows the old program.
    std::error_code error;
    for (int i = 0; i < 200 && std::filesystem::read_symlink("/proc/" + std::to_string(pid_) + "/exe", error) != ejecutable;
         ++i)
        ::usleep(5000);
}

ProgramaEnMarcha::~ProgramaEnMarcha()
{
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
}

Variable::Variable(std::string nombre, const std::optional<std::string>& valor) : nombre_(std::move(nombre))
{
    if (const char* v = std::getenv(nombre_.c_str()))
        antes_ = v;
    if (valor)
        ::setenv(nombre_.c_str(), valor->c_str(), 1);
    else
        ::unsetenv(nombre_.c_str());
}

Variable::~Variable()
{
    if (antes_)
        ::setenv(nombre_.c_str(), antes_->c_str(), 1);
    else
        ::unsetenv(nombre_.c_str());
}

void conPilaPequena(const std::function<void()>& f)
{
    pthread_attr_t a;
    ::pthread_attr_init(&a);
    ::pthread_attr_setstacksize(&a, 512 * 1024);
    pthread_t hilo;
    auto llamar = [](void* p) -> void* {
        (*static_cast<const std::function<void()>*>(p))();
        return nullptr;
    };
    if (::pthread_create(&hilo, &a, llamar, const_cast<std::function<void()>*>(&f)) != 0)
        throw std::runtime_error("pthread_create");
    ::pthread_join(hilo, nullptr);
    ::pthread_attr_destroy(&a);
}

} // namespace apoyo
