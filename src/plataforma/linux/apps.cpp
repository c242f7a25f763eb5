// SPDX-License-Identifier: GPL-3.0-or-later
// Open applications on Linux: processes of this user whose executable is the
// program of an installed application, either an .app bundle's
// Contents/MacOS/ executable or the program of a visible desktop entry.
#include "plataforma/apps.h"

#include "plataforma/plist.h"
#include "plataforma/linux/xdg.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <fstream>
#include <set>
#include <string_view>
#include <unordered_map>

namespace fs = std::filesystem;

namespace plataforma {
namespace {

struct Aplicacion {
    std::string id;
    std::string nombre;
};

std::string resolver(const std::string& p)
{
    char buf[PATH_MAX];
    if (::realpath(p.c_str(), buf) == nullptr)
        return {};
    return buf;
}

// First word of a desktop entry's Exec line, with "env VAR=..." skipped and
// quotes removed.
std::string programaDeExec(std::string_view exec)
{
    std::vector<std::string> palabras;
    std::string actual;
    bool comillas = false, hay = false;
    for (size_t i = 0; i < exec.size(); ++i) {
        const char c = exec[i];
        if (c == '"') {
            comillas = !comillas;
            hay = true;
        } else if (c == '\\' && comillas && i + 1 < exec.size()) {
            actual += exec[++i];
        } else if (c == ' ' && !comillas) {
            if (hay)
                palabras.push_back(std::move(actual));
            actual.clear();
            hay = false;
        } else {
            actual += c;
            hay = true;
        }
    }
    if (hay)
        palabras.push_back(std::move(actual));
    size_t i = 0;
    if (i < palabras.size() && palabras[i] == "env") {
        ++i;
        while (i < palabras.size() && palabras[i].find('=') != std::string::npos)
            ++i;
    }
    return i < palabras.size() ? palabras[i] : std::string();
}

std::string buscarEnPath(const std::string& programa)
{
    if (programa.empty())
        return {};
    if (programa.find('/') != std::string::npos)
        return resolver(programa);
    const char* path = std::getenv("PATH");
    std::string_view resto = path != nullptr ? path : "/usr/local/bin:/usr/bin:/bin";
    while (!resto.empty()) {
        const size_t dos = resto.find(':');
        const std::string dir(resto.substr(0, dos));
        resto = dos == std::string_view::npos ? std::string_view() : resto.substr(dos + 1);
        if (dir.empty())
            continue;
        const std::string c = dir + "/" + programa;
        if (::access(c.c_str(), X_OK) == 0)
            return resolver(c);
    }
    return {};
}

// Program (resolved) -> application, from the visible desktop entries. The
// first directory that holds an id wins, as desktop environments resolve them.
std::unordered_map<std::string, Aplicacion> programasDeEntradas()
{
    std::unordered_map<std::string, Aplicacion> r;
    std::set<std::string> vistos;
    for (const fs::path& base : carpetasDeEntradas()) {
        std::error_code ec;
        for (fs::recursive_directory_iterator it(base, fs::directory_options::skip_permission_denied, ec), fin;
             !ec && it != fin; it.increment(ec)) {
            const fs::path& p = it->path();
            if (p.extension() != ".desktop" || !it->is_regular_file(ec))
                continue;
            const std::string id = idDeEntrada(base, p);
            if (!vistos.insert(id).second)
                continue;

            std::ifstream in(p);
            std::string linea, nombre, exec, tipo;
            bool grupo = false, oculta = false;
            while (std::getline(in, linea)) {
                if (!linea.empty() && linea[0] == '[') {
                    grupo = linea == "[Desktop Entry]";
                    continue;
                }
                if (!grupo)
                    continue;
                const size_t igual = linea.find('=');
                if (igual == std::string::npos)
                    continue;
                std::string clave = linea.substr(0, igual), valor = linea.substr(igual + 1);
                while (!clave.empty() && clave.back() == ' ')
                    clave.pop_back();
                while (!valor.empty() && valor.front() == ' ')
                    valor.erase(0, 1);
                if (clave == "Name")
                    nombre = valor;
                else if (clave == "Exec")
                    exec = valor;
                else if (clave == "Type")
                    tipo = valor;
                else if ((clave == "NoDisplay" || clave == "Hidden") && valor == "true")
                    oculta = true;
            }
            if (tipo != "Application" || oculta || exec.empty())
                continue;
            const std::string programa = buscarEnPath(programaDeExec(exec));
            if (!programa.empty())
                r.try_emplace(programa, Aplicacion{id, nombre});
        }
    }
    return r;
}

// The application of an executable inside "X.app/Contents/MacOS/".
std::optional<AppAbierta> appDeBundle(const std::string& exe)
{
    const std::string marca = ".app/Contents/MacOS/";
    const size_t pos = exe.rfind(marca);
    if (pos == std::string::npos)
        return std::nullopt;
    const fs::path bundle = exe.substr(0, pos + 4);
    AppAbierta a;
    if (const auto d = leerPlist(bundle / "Contents/Info.plist")) {
        a.bundle = textoDe(*d, "CFBundleIdentifier");
        a.nombre = textoDe(*d, "CFBundleDisplayName");
        if (!a.nombre)
            a.nombre = textoDe(*d, "CFBundleName");
    }
    if (!a.nombre)
        a.nombre = bundle.stem().string();
    return a;
}

} // namespace

std::vector<AppAbierta> appsAbiertas()
{
    std::vector<AppAbierta> r;
    std::set<std::string> vistas;
    std::optional<std::unordered_map<std::string, Aplicacion>> entradas;
    const uid_t yo = ::getuid();
    const pid_t propio = ::getpid();

    DIR* proc = ::opendir("/proc");
    if (proc == nullptr)
        return r;
    while (const dirent* d = ::readdir(proc)) {
        char* fin = nullptr;
        const long pid = std::strtol(d->d_name, &fin, 10);
        if (*fin != '\0' || pid <= 0 || pid == propio)
            continue;
        const std::string dir = std::string("/proc/") + d->d_name;
        struct stat st;
        if (::stat(dir.c_str(), &st) != 0 || st.st_uid != yo)
            continue;
        char buf[PATH_MAX];
        const ssize_t n = ::readlink((dir + "/exe").c_str(), buf, sizeof buf - 1);
        if (n <= 0)
            continue;
        std::string exe(buf, size_t(n));
        if (const std::string borrado = " (deleted)"; exe.ends_with(borrado))
            exe.resize(exe.size() - borrado.size());

        std::optional<AppAbierta> app = appDeBundle(exe);
        if (!app) {
            if (!entradas)
                entradas = programasDeEntradas();
            if (const auto it = entradas->find(exe); it != entradas->end())
                app = AppAbierta{it->second.id, it->second.nombre.empty() ? std::nullopt
                                                                          : std::optional(it->second.nombre)};
        }
        if (!app)
            continue;
        // One entry per application, however many processes it runs.
        const std::string clave = app->bundle.value_or("") + '\n' + app->nombre.value_or("");
        if (vistas.insert(clave).second)
            r.push_back(std::move(*app));
    }
    ::closedir(proc);
    return r;
}

} // namespace plataforma
