// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/ejecutar.h"

#include "plataforma/idioma.h"
#include "plataforma/procesos.h"

#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <mutex>
#include <set>
#include <thread>

extern char** environ;

namespace plataforma {

namespace {

using Reloj = std::chrono::steady_clock;

// What a group asked to terminate gets before it is killed.
constexpr auto gracia = std::chrono::seconds(2);

// Groups asked to terminate and not yet killed. Should the program exit
// within the grace, they are killed on the way out rather than left running.
struct Pendientes {
    std::mutex cerrojo;
    std::set<pid_t> grupos;
};

Pendientes& pendientes()
{
    // Never destroyed: the exit handler below may still need it.
    static Pendientes* p = new Pendientes;
    return *p;
}

void matarPendientes()
{
    Pendientes& p = pendientes();
    std::lock_guard g(p.cerrojo);
    for (pid_t grupo : p.grupos)
        ::kill(-grupo, SIGKILL);
}

bool esEjecutable(const std::string& ruta)
{
    struct stat st;
    return ::stat(ruta.c_str(), &st) == 0 && S_ISREG(st.st_mode) && ::access(ruta.c_str(), X_OK) == 0;
}

// Starts the program with no shell: standard input from /dev/null, standard
// output to `salida` (/dev/null when it is -1), standard error to /dev/null or
// with the output, only descriptors 0-2 inherited, default signals, in a
// process group of its own. The pid, or -1 if it couldn't be started.
pid_t lanzar(const std::string& programa, const std::vector<std::string>& argumentos, int salida,
             bool conErrores = false)
{
    posix_spawn_file_actions_t acciones;
    posix_spawn_file_actions_init(&acciones);
    posix_spawn_file_actions_addopen(&acciones, 0, "/dev/null", O_RDONLY, 0);
    if (salida >= 0)
        posix_spawn_file_actions_adddup2(&acciones, salida, 1);
    else
        posix_spawn_file_actions_addopen(&acciones, 1, "/dev/null", O_WRONLY, 0);
    if (conErrores && salida >= 0)
        posix_spawn_file_actions_adddup2(&acciones, salida, 2);
    else
        posix_spawn_file_actions_addopen(&acciones, 2, "/dev/null", O_WRONLY, 0);
    // Whatever else this process has open, even without close-on-exec, stays here.
    posix_spawn_file_actions_addclosefrom_np(&acciones, 3);

    posix_spawnattr_t atributos;
    posix_spawnattr_init(&atributos);
    sigset_t vacio, todas;
    sigemptyset(&vacio);
    sigfillset(&todas);
    posix_spawnattr_setflags(&atributos, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    posix_spawnattr_setpgroup(&atributos, 0);
    posix_spawnattr_setsigmask(&atributos, &vacio);
    posix_spawnattr_setsigdefault(&atributos, &todas);

    std::vector<std::string> textos{programa};
    textos.insert(textos.end(), argumentos.begin(), argumentos.end());
    std::vector<char*> argv;
    for (auto& t : textos)
        argv.push_back(t.data());
    argv.push_back(nullptr);

    pid_t pid = -1;
    const int rc = ::posix_spawn(&pid, programa.c_str(), &acciones, &atributos, argv.data(), environ);
    posix_spawn_file_actions_destroy(&acciones);
    posix_spawnattr_destroy(&atributos);
    return rc == 0 ? pid : -1;
}

// Whether the child has ended, without reaping it (its pid, and so the group
// id, stay reserved until we reap).
bool haTerminado(pid_t pid, siginfo_t* info = nullptr)
{
    siginfo_t i{};
    if (::waitid(P_PID, id_t(pid), &i, WEXITED | WNOHANG | WNOWAIT) != 0)
        return true; // no such child: nothing left to wait for
    if (info)
        *info = i;
    return i.si_pid != 0;
}

int32_t codigoDe(const siginfo_t& i)
{
    return i.si_status;
}

// Waits for the end of the child at most `hasta`; true if it ended.
bool esperarFin(pid_t pid, int fin, Reloj::time_point hasta)
{
    while (!haTerminado(pid)) {
        const auto quedan = std::chrono::duration_cast<std::chrono::milliseconds>(hasta - Reloj::now()).count();
        if (quedan <= 0)
            return false;
        if (fin >= 0) {
            pollfd f{fin, POLLIN, 0};
            ::poll(&f, 1, int(std::min<long long>(quedan, INT_MAX)));
        } else {
            std::this_thread::sleep_for(std::chrono::milliseconds(std::min<long long>(quedan, 20)));
        }
    }
    return true;
}

// The group was asked to terminate: in the background, kill it after the
// grace and reap the child. The leader is reaped last so that its group id
// can't be reused while we still signal it.
void rematar(pid_t pid, int fin, int tubo)
{
    {
        static std::once_flag registrado;
        std::call_once(registrado, [] { std::atexit(matarPendientes); });
        Pendientes& p = pendientes();
        std::lock_guard g(p.cerrojo);
        p.grupos.insert(pid);
    }
    std::thread([pid, fin, tubo] {
        esperarFin(pid, fin, Reloj::now() + gracia);
        {
            Pendientes& p = pendientes();
            std::lock_guard g(p.cerrojo);
            ::kill(-pid, SIGKILL);
            p.grupos.erase(pid);
        }
        ::waitpid(pid, nullptr, 0);
        if (fin >= 0)
            ::close(fin);
        ::close(tubo);
    }).detach();
}

} // namespace

std::optional<SalidaPrograma> ejecutar(const std::string& programa, const std::vector<std::string>& argumentos,
                                       double limite, bool conErrores)
{
    if (!esEjecutable(programa))
        return std::nullopt;
    int tubo[2];
    if (::pipe2(tubo, O_CLOEXEC) != 0)
        return std::nullopt;

    const pid_t pid = lanzar(programa, argumentos, tubo[1], conErrores);
    ::close(tubo[1]);
    if (pid < 0) {
        ::close(tubo[0]);
        return std::nullopt;
    }

    const int fin = plataforma::descriptorDeFin(pid);
    const double segundos = limite > 0 ? std::min(limite, 1e9) : 0;
    const auto plazo = Reloj::now() + std::chrono::duration_cast<Reloj::duration>(std::chrono::duration<double>(segundos));

    // Drain the output while the program runs; the pipe and the end of the
    // process are awaited together, so nothing is polled on a timer.
    std::string salida;
    bool terminado = false, cerrado = false;
    char buf[65536];
    while (!(terminado && cerrado)) {
        const auto quedan = std::chrono::duration_cast<std::chrono::milliseconds>(plazo - Reloj::now()).count();
        if (quedan <= 0)
            break;
        pollfd fds[2];
        nfds_t n = 0;
        if (!cerrado)
            fds[n++] = {tubo[0], POLLIN, 0};
        const nfds_t iFin = n;
        if (!terminado && fin >= 0)
            fds[n++] = {fin, POLLIN, 0};
        // Without an end descriptor the end is checked every 20 ms.
        const int espera = int(std::min<long long>(quedan, (!terminado && fin < 0) ? 20 : INT_MAX));
        if (::poll(fds, n, espera) < 0 && errno != EINTR)
            break;
        if (!cerrado && fds[0].revents != 0) {
            const ssize_t leido = ::read(tubo[0], buf, sizeof buf);
            if (leido > 0)
                salida.append(buf, size_t(leido));
            else if (leido == 0 || (errno != EINTR && errno != EAGAIN))
                cerrado = true;
        }
        if (!terminado && ((fin >= 0 && iFin < n && fds[iFin].revents != 0) || (fin < 0 && haTerminado(pid))))
            terminado = true;
    }

    if (!terminado) {
        ::kill(-pid, SIGTERM);
        rematar(pid, fin, tubo[0]);
        return std::nullopt;
    }

    SalidaPrograma r;
    siginfo_t info{};
    haTerminado(pid, &info);
    r.codigo = codigoDe(info);
    if (cerrado) {
        ::waitpid(pid, nullptr, 0);
        if (fin >= 0)
            ::close(fin);
        ::close(tubo[0]);
    } else {
        // The program ended in time but something it started still holds the
        // pipe: that group goes the way of a time-out.
        ::kill(-pid, SIGTERM);
        rematar(pid, fin, tubo[0]);
    }
    r.salida = esUtf8(salida) ? std::move(salida) : std::string();
    return r;
}

std::optional<std::string> buscarPrograma(const std::vector<std::string>& candidatos)
{
    for (const auto& c : candidatos)
        if (esEjecutable(c))
            return c;
    return std::nullopt;
}

std::optional<int32_t> codigoDeSalida(const std::string& programa, const std::vector<std::string>& argumentos)
{
    if (!esEjecutable(programa))
        return std::nullopt;
    const pid_t pid = lanzar(programa, argumentos, -1);
    if (pid < 0)
        return std::nullopt;
    int estado = 0;
    while (::waitpid(pid, &estado, 0) < 0)
        if (errno != EINTR)
            return std::nullopt;
    if (!WIFEXITED(estado))
        return std::nullopt;
    return WEXITSTATUS(estado);
}

} // namespace plataforma
