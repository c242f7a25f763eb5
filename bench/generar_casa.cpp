// SPDX-License-Identifier: GPL-3.0-or-later
// Deterministic synthetic homes for benchmarks: the same options and seed give
// the same tree, byte for byte.
//
//   generar-casa <carpeta> [--archivos N] [--profundidad D] [--semilla S]
//                [--caches F] [--cache-linux F] [--logs F] [--node-modules F]
//                [--hijos-caches K] [--dispersos K] [--duplicados K] [--medianos K]
//                [--personales A,B,…]
//
// Fractions say where the files go; the rest lands in Documents, Projects and
// the like. --caches fills Library/Caches; --cache-linux fills what a Linux
// desktop has: the cache home's children (eight tenths), the caches of
// Electron-style apps in the config home and Flatpak's per-app caches. Tiny files hold 1 to 3000 bytes; sparse files are 300 MB to 2 GB
// long with no data. --duplicados adds K groups of identical files of
// 100 KB to 2 MB in Documents, Downloads and Pictures; --medianos adds K
// files of 100 KB to 4 MB with content of their own across the five personal
// folders, many of one size. --personales names the folders that take the rest
// of the files (by default Documents, Desktop, Pictures, Music, Developer/src).
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Opciones {
    std::string carpeta;
    long archivos = 100000;
    int profundidad = 6;
    uint64_t semilla = 1;
    double caches = 0.5, cacheLinux = 0, logs = 0.1, nodeModules = 0.1;
    int hijosCaches = 200;
    int dispersos = 10;
    int duplicados = 0;
    int medianos = 0;
    std::vector<std::string> personales{"Documents", "Desktop", "Pictures", "Music", "Developer/src"};
};

std::vector<std::string> lista(const char* texto)
{
    std::vector<std::string> r;
    std::istringstream in(texto);
    for (std::string parte; std::getline(in, parte, ',');)
        if (!parte.empty())
            r.push_back(parte);
    return r;
}

// splitmix64: small, fast and the same everywhere.
struct Azar {
    uint64_t s;
    uint64_t siguiente()
    {
        uint64_t z = (s += 0x9e3779b97f4a7c15ULL);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
        return z ^ (z >> 31);
    }
    long entre(long a, long b) { return a + long(siguiente() % uint64_t(b - a + 1)); }
};

[[noreturn]] void fallar(const std::string& que)
{
    std::fprintf(stderr, "generar-casa: %s: %s\n", que.c_str(), std::strerror(errno));
    std::exit(1);
}

void mkdirs(const std::string& p)
{
    for (size_t i = 1; i <= p.size(); ++i)
        if (i == p.size() || p[i] == '/') {
            const std::string parte = p.substr(0, i);
            if (::mkdir(parte.c_str(), 0755) != 0 && errno != EEXIST)
                fallar(parte);
        }
}

void escribir(const std::string& p, const char* datos, size_t n)
{
    const int fd = ::open(p.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0)
        fallar(p);
    while (n > 0) {
        const ssize_t w = ::write(fd, datos, n);
        if (w <= 0)
            fallar(p);
        datos += w;
        n -= size_t(w);
    }
    ::close(fd);
}

// Files spread over a tree of subfolders up to `profundidad` deep, 40 files
// and 6 folders a level at most.
void arbol(Azar& az, const std::string& base, long n, int profundidad, const std::vector<char>& relleno)
{
    mkdirs(base);
    long puestos = 0;
    long carpeta = 0;
    std::string dir = base;
    while (puestos < n) {
        const long aqui = std::min(n - puestos, az.entre(10, 40));
        for (long i = 0; i < aqui; ++i)
            escribir(dir + "/f" + std::to_string(puestos + i) + ".dat", relleno.data(), size_t(az.entre(1, 3000)));
        puestos += aqui;
        // The next folder: a new branch below the current one, or back up to base.
        const int nivel = int(az.entre(1, profundidad));
        dir = base;
        for (int k = 0; k < nivel; ++k)
            dir += "/d" + std::to_string(az.entre(0, 5));
        dir += "/c" + std::to_string(carpeta++);
        mkdirs(dir);
    }
}

Opciones leer(int argc, char** argv)
{
    Opciones o;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        auto valor = [&]() -> const char* {
            if (i + 1 >= argc) {
                std::fprintf(stderr, "generar-casa: falta el valor de %s\n", a.c_str());
                std::exit(2);
            }
            return argv[++i];
        };
        if (a == "--archivos") o.archivos = std::atol(valor());
        else if (a == "--profundidad") o.profundidad = std::max(1, std::atoi(valor()));
        else if (a == "--semilla") o.semilla = std::strtoull(valor(), nullptr, 10);
        else if (a == "--caches") o.caches = std::atof(valor());
        else if (a == "--cache-linux") o.cacheLinux = std::atof(valor());
        else if (a == "--logs") o.logs = std::atof(valor());
        else if (a == "--node-modules") o.nodeModules = std::atof(valor());
        else if (a == "--hijos-caches") o.hijosCaches = std::max(1, std::atoi(valor()));
        else if (a == "--dispersos") o.dispersos = std::atoi(valor());
        else if (a == "--duplicados") o.duplicados = std::atoi(valor());
        else if (a == "--medianos") o.medianos = std::atoi(valor());
        else if (a == "--personales") o.personales = lista(valor());
        else if (!a.empty() && a[0] != '-' && o.carpeta.empty()) o.carpeta = a;
        else {
            std::fprintf(stderr, "generar-casa: opción desconocida %s\n", a.c_str());
            std::exit(2);
        }
    }
    if (o.carpeta.empty()) {
        std::fprintf(stderr, "uso: generar-casa <carpeta> [--archivos N] [--profundidad D] [--semilla S] "
                             "[--caches F] [--cache-linux F] [--logs F] [--node-modules F] [--hijos-caches K] [--dispersos K] "
                             "[--duplicados K] [--medianos K] [--personales A,B,...]\n");
        std::exit(2);
    }
    return o;
}

} // namespace

int main(int argc, char** argv)
{
    const Opciones o = leer(argc, argv);
    Azar az{o.semilla};
    std::vector<char> relleno(4 << 20);
    for (auto& c : relleno)
        c = char('a' + az.siguiente() % 26);

    const long enCaches = long(double(o.archivos) * o.caches);
    const long enLinux = long(double(o.archivos) * o.cacheLinux);
    const long enLogs = long(double(o.archivos) * o.logs);
    const long enNode = long(double(o.archivos) * o.nodeModules);
    const long resto = std::max(0L, o.archivos - enCaches - enLinux - enLogs - enNode);

    // Library/Caches: many children, each a small tree.
    for (int h = 0; enCaches > 0 && h < o.hijosCaches; ++h) {
        const long n = enCaches / o.hijosCaches + (h < enCaches % o.hijosCaches ? 1 : 0);
        arbol(az, o.carpeta + "/Library/Caches/org.ejemplo.app" + std::to_string(h), n, o.profundidad, relleno);
    }
    // A Linux desktop: the cache home's children, then Electron-style apps
    // (Cache beside the Code Cache that marks them) and Flatpak caches.
    const long enCacheHome = enLinux * 8 / 10, enElectron = enLinux / 10, enFlatpak = enLinux - enCacheHome - enElectron;
    for (int h = 0; enCacheHome > 0 && h < o.hijosCaches; ++h) {
        const long n = enCacheHome / o.hijosCaches + (h < enCacheHome % o.hijosCaches ? 1 : 0);
        arbol(az, o.carpeta + "/.cache/app" + std::to_string(h), n, o.profundidad, relleno);
    }
    for (int h = 0; enElectron > 0 && h < 10; ++h) {
        const std::string app = o.carpeta + "/.config/App" + std::to_string(h);
        mkdirs(app + "/Code Cache");
        arbol(az, app + "/Cache", enElectron / 10 + (h < enElectron % 10 ? 1 : 0), 3, relleno);
    }
    for (int h = 0; enFlatpak > 0 && h < 10; ++h)
        arbol(az, o.carpeta + "/.var/app/org.ejemplo.App" + std::to_string(h) + "/cache",
              enFlatpak / 10 + (h < enFlatpak % 10 ? 1 : 0), o.profundidad, relleno);
    for (int h = 0; enLogs > 0 && h < 20; ++h) {
        const long n = enLogs / 20 + (h < enLogs % 20 ? 1 : 0);
        arbol(az, o.carpeta + "/Library/Logs/registro" + std::to_string(h), n, 2, relleno);
    }
    // Projects with deep node_modules trees beside a package.json.
    const int proyectos = 10;
    for (int p = 0; p < proyectos; ++p) {
        const std::string dir = o.carpeta + "/Projects/proyecto" + std::to_string(p);
        mkdirs(dir);
        escribir(dir + "/package.json", "{}\n", 3);
        const long n = enNode / proyectos + (p < enNode % proyectos ? 1 : 0);
        arbol(az, dir + "/node_modules", n, o.profundidad + 4, relleno);
    }
    const long carpetas = long(std::max<size_t>(o.personales.size(), 1));
    for (size_t k = 0; k < o.personales.size(); ++k) {
        const long n = resto / carpetas + (long(k) < resto % carpetas ? 1 : 0);
        arbol(az, o.carpeta + "/" + o.personales[k], n, o.profundidad, relleno);
    }
    // Large sparse files: long, with no data blocks.
    mkdirs(o.carpeta + "/Movies");
    for (int s = 0; s < o.dispersos; ++s) {
        const std::string p = o.carpeta + "/Movies/pelicula" + std::to_string(s) + ".mov";
        const int fd = ::open(p.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (fd < 0 || ::ftruncate(fd, off_t(az.entre(300, 2000)) * 1'000'000) != 0)
            fallar(p);
        ::close(fd);
    }
    // Groups of identical files across the personal folders.
    const char* destinos[] = {"Documents/copias", "Downloads", "Pictures/copias"};
    for (int g = 0; g < o.duplicados; ++g) {
        const size_t n = size_t(az.entre(100'000, 2'000'000));
        const size_t desde = size_t(az.siguiente() % (relleno.size() - n));
        const int copias = int(az.entre(2, 3));
        for (int c = 0; c < copias; ++c) {
            const std::string dir = o.carpeta + "/" + destinos[c];
            mkdirs(dir);
            escribir(dir + "/dup" + std::to_string(g) + "_" + std::to_string(c) + ".bin", relleno.data() + desde, n);
        }
    }
    // Unique medium files; sizes in whole 4 KiB blocks, so that many share one.
    const char* cinco[] = {"Desktop", "Documents", "Downloads", "Pictures", "Movies"};
    for (int m = 0; m < o.medianos; ++m) {
        const size_t n = size_t(az.entre(25, 1000)) * 4096;
        const size_t desde = size_t(az.siguiente() % (relleno.size() - n));
        const std::string dir = o.carpeta + "/" + cinco[m % 5] + "/medianos" + std::to_string(m % 7);
        mkdirs(dir);
        escribir(dir + "/m" + std::to_string(m) + ".jpg", relleno.data() + desde, n);
    }
    std::printf("%s: %ld archivos\n", o.carpeta.c_str(), o.archivos + o.dispersos);
    return 0;
}
