// SPDX-License-Identifier: GPL-3.0-or-later
// What the disk refuses: read-only and unreadable folders (as an unprivileged
// user, since root ignores modes), immutable files, mounts inside a cache
// folder, and a Trash that is elsewhere, full or read-only. Each refusal
// becomes its message and nothing else is touched.
#include "limpieza/limpiador.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "limpieza/comun.h"
#include "plataforma/papelera.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <sstream>

using apoyo::CasaPrueba;
using apoyo::leer;
using prueba::categoria;
using prueba::elemento;
using prueba::existe;
namespace fs = std::filesystem;

namespace {

// Gives the tree to the unprivileged user, so that only the modes set by the
// test stand in its way.
void deNadie(const fs::path& raiz)
{
    if (::geteuid() != 0)
        return;
    ::lchown(raiz.c_str(), 65534, 65534);
    for (const auto& e : fs::recursive_directory_iterator(raiz))
        ::lchown(e.path().c_str(), 65534, 65534);
}

// Runs f where the caller says (as another user, in another mount namespace)
// and brings back the lines it returns through a pipe, so that the checks
// stay in this process. Absent when the child failed or was skipped.
template <typename Lanzar>
std::optional<std::vector<std::string>> lineasDe(Lanzar lanzar, const std::function<std::vector<std::string>()>& f)
{
    int tubo[2];
    if (::pipe(tubo) != 0)
        return std::nullopt;
    const bool ok = lanzar([&] {
        std::string texto;
        for (const auto& l : f())
            texto += l + '\n';
        return ::write(tubo[1], texto.data(), texto.size()) == ssize_t(texto.size());
    });
    ::close(tubo[1]);
    std::string texto;
    char buf[4096];
    for (ssize_t n; (n = ::read(tubo[0], buf, sizeof buf)) > 0;)
        texto.append(buf, size_t(n));
    ::close(tubo[0]);
    if (!ok)
        return std::nullopt;
    std::vector<std::string> lineas;
    std::istringstream s(texto);
    for (std::string l; std::getline(s, l);)
        lineas.push_back(l);
    return lineas;
}

std::optional<std::vector<std::string>> comoNadie(const fs::path& casa,
                                                  const std::function<std::vector<std::string>()>& f)
{
    return lineasDe([&](const std::function<bool()>& g) { return apoyo::comoUsuarioSinPrivilegios(casa, g); }, f);
}

// In a mount namespace of its own; sinMontajes when mounting isn't allowed.
int conMontajes(const std::function<std::vector<std::string>()>& f, std::vector<std::string>& lineas)
{
    int estado = -1;
    auto r = lineasDe(
        [&](const std::function<bool()>& g) {
            estado = apoyo::conMontajesPropios([&] { return g() ? 0 : 1; });
            return estado == 0;
        },
        f);
    if (r)
        lineas = *r;
    return estado;
}

bool montar(const fs::path& donde, const char* opciones = nullptr)
{
    fs::create_directories(donde);
    return ::mount("tmpfs", donde.c_str(), "tmpfs", 0, opciones) == 0;
}

std::vector<std::string> limpiarSinAvisos(const Entorno& entorno, std::vector<Categoria> cs)
{
    return Limpiador(entorno).limpiar(std::move(cs), [](const std::string&) {}).errores;
}

} // namespace

TEST(Fallos, SoloLecturaYSinPermisosComoUsuarioComun)
{
    CasaPrueba casa;
    const fs::path app = casa.crearDir("Library/Caches/app");
    casa.archivo("Library/Caches/app/suelto", 4096);
    casa.archivo("Library/Caches/app/sub/ok", 4096);
    casa.archivo("Library/Caches/app/ro/dentro", 4096);
    casa.archivo("Library/Caches/app/cerrada/secreto", 4096);
    casa.crearDir("Library/Caches/app/vacia-cerrada");
    const fs::path todoRo = casa.crearDir("Library/Caches/todo-ro");
    casa.archivo("Library/Caches/todo-ro/a", 4096);
    casa.archivo("Library/Caches/todo-ro/b", 4096);
    const fs::path ilegible = casa.archivo("Library/Caches/ilegible/x", 4096).parent_path();
    const fs::path fijo = casa.archivo("Library/Caches/fija/archivo", 4096);
    deNadie(casa.ruta("Library/Caches"));
    ::chmod(casa.ruta("Library/Caches/app/ro").c_str(), 0555);
    casa.sinPermisos("Library/Caches/app/cerrada");
    casa.sinPermisos("Library/Caches/app/vacia-cerrada");
    ::chmod(todoRo.c_str(), 0555);
    casa.sinPermisos("Library/Caches/ilegible");
    ::chmod(fijo.parent_path().c_str(), 0555);

    const auto errores = comoNadie(casa.raiz(), [&] {
        return limpiarSinAvisos(casa.entorno(), {categoria(Modo::borrar,
                                                           {elemento(app, "app"), elemento(todoRo, "todo-ro"),
                                                            elemento(ilegible, "ilegible"), elemento(fijo, "archivo")})});
    });
    ASSERT_TRUE(errores);
    EXPECT_EQ(*errores,
              (std::vector<std::string>{
                  "app: 2 de 5 elementos no se pudieron borrar (en uso o protegidos)",
                  "todo-ro: 2 de 2 elementos no se pudieron borrar (en uso o protegidos)",
                  std::string("ilegible: no se pudo abrir (") + std::strerror(EACCES) + ")",
                  std::string("archivo: ") + std::strerror(EACCES),
              }));
    // What could go went, hidden behind a mode 000 folder or not; what was
    // protected stayed.
    EXPECT_FALSE(existe(app / "suelto"));
    EXPECT_FALSE(existe(app / "sub"));
    EXPECT_FALSE(existe(app / "vacia-cerrada"));
    EXPECT_TRUE(existe(app / "ro/dentro"));
    EXPECT_TRUE(existe(app / "cerrada/secreto"));
    EXPECT_TRUE(existe(todoRo / "a"));
    EXPECT_TRUE(existe(ilegible / "x"));
    EXPECT_TRUE(existe(fijo));
}

TEST(Fallos, ArchivoInmutable)
{
    CasaPrueba casa;
    const fs::path app = casa.crearDir("Library/Caches/app");
    casa.archivo("Library/Caches/app/a", 4096);
    casa.archivo("Library/Caches/app/b/c", 4096);
    const fs::path fijo = casa.archivo("Library/Caches/app/fijo", 4096);
    const fs::path solo = casa.archivo("Library/Logs/solo.log", 4096);
    const auto chattr = [&](const char* modo) {
        return apoyo::ejecutarPrograma("/usr/bin/chattr", {modo, fijo.string(), solo.string()}).estado == 0;
    };
    if (!chattr("+i"))
        GTEST_SKIP() << "este sistema de archivos no admite chattr +i";
    struct Quitar {
        std::function<bool(const char*)> chattr;
        ~Quitar() { chattr("-i"); }
    } quitar{chattr};

    const int64_t tam = 4096 * 4;
    const Resultado r = Limpiador(casa.entorno()).limpiar(
        {categoria(Modo::borrar, {elemento(app, "app", tam), elemento(solo, "solo.log", 4096)})},
        [](const std::string&) {});
    EXPECT_EQ(r.errores, (std::vector<std::string>{"app: 1 de 3 elementos no se pudieron borrar (en uso o protegidos)",
                                                   std::string("solo.log: ") + std::strerror(EPERM)}));
    EXPECT_TRUE(existe(fijo));
    EXPECT_TRUE(existe(solo));
    EXPECT_FALSE(existe(app / "a"));
    EXPECT_FALSE(existe(app / "b"));
    // Only what really went counts: the folder and the immutable file stay.
    EXPECT_EQ(r.borrado, tam - apoyo::asignado(app) - apoyo::asignado(fijo));
}

TEST(Fallos, UnMontajeDentroDeLaCacheNoSeRecorre)
{
    CasaPrueba casa;
    const fs::path fuera = apoyo::carpetaTemporal("vorlano-fuera");
    std::ofstream(fuera / "vecino") << "no se toca";
    const fs::path app = casa.crearDir("Library/Caches/app");
    casa.archivo("Library/Caches/app/normal/x", 4096);
    casa.crearDir("Library/Caches/app/tmpfs");
    casa.crearDir("Library/Caches/app/enlazada");

    std::vector<std::string> lineas;
    const int estado = conMontajes(
        [&] {
            // A tmpfs (another device) and a bind mount of a folder outside
            // the home (the same device: only the mount id tells it apart).
            if (!montar(app / "tmpfs") ||
                ::mount(fuera.c_str(), (app / "enlazada").c_str(), nullptr, MS_BIND, nullptr) != 0)
                std::_Exit(apoyo::sinMontajes);
            std::ofstream(app / "tmpfs/dato") << "en memoria";
            std::vector<std::string> errores;
            Limpiador(casa.entorno()).vaciar(app, "app", errores);
            errores.push_back(leer(app / "tmpfs/dato"));
            errores.push_back(leer(app / "enlazada/vecino"));
            return errores;
        },
        lineas);
    if (estado == apoyo::sinMontajes)
        GTEST_SKIP() << "no se pueden montar sistemas de archivos aquí";
    ASSERT_EQ(estado, 0);
    EXPECT_EQ(lineas, (std::vector<std::string>{"app: 2 de 3 elementos no se pudieron borrar (en uso o protegidos)",
                                                "en memoria", "no se toca"}));
    EXPECT_EQ(leer(fuera / "vecino"), "no se toca");
    EXPECT_FALSE(existe(app / "normal"));
    apoyo::borrarArbol(fuera);
}

TEST(Fallos, PapeleraEnOtroSistemaDeArchivos)
{
    CasaPrueba casa;
    const fs::path papelera = plataforma::carpetaPapelera();
    const fs::path informe = casa.archivoCon("Documents/informe.pdf", "pdf");
    const fs::path usb = casa.ruta("Documents/usb");

    std::vector<std::string> lineas;
    const int estado = conMontajes(
        [&] {
            if (!montar(papelera) || !montar(usb))
                std::_Exit(apoyo::sinMontajes);
            std::ofstream(usb / "foto.jpg") << "jpg";
            auto errores = limpiarSinAvisos(casa.entorno(), {categoria(Modo::papelera, {elemento(informe, "informe.pdf"),
                                                                                       elemento(usb / "foto.jpg", "foto.jpg")})});
            // Nothing was copied, and no Trash was made on the other file systems.
            errores.push_back(existe(usb / "foto.jpg") && fs::is_empty(papelera) && !existe(usb / ".Trash-0") &&
                                      !existe(usb / ".Trash")
                                  ? "en su sitio"
                                  : "movido");
            return errores;
        },
        lineas);
    if (estado == apoyo::sinMontajes)
        GTEST_SKIP() << "no se pueden montar sistemas de archivos aquí";
    ASSERT_EQ(estado, 0);
    const std::string motivo = "No se puede mover a la Papelera porque está en otro sistema de archivos";
    EXPECT_EQ(lineas,
              (std::vector<std::string>{"informe.pdf: " + motivo, "foto.jpg: " + motivo, "en su sitio"}));
    EXPECT_EQ(leer(informe), "pdf");
}

TEST(Fallos, PapeleraLlenaODeSoloLectura)
{
    // The home and its Trash on one small tmpfs, so that the Trash can fill.
    const fs::path home = std::getenv("HOME");
    const fs::path papelera = plataforma::carpetaPapelera();
    ASSERT_TRUE(papelera.native().starts_with(home.native()));
    std::vector<std::string> lineas;
    const int estado = conMontajes(
        [&] {
            if (!montar(home, "size=1m,nr_inodes=64"))
                std::_Exit(apoyo::sinMontajes);
            std::vector<std::string> r;
            const Entorno entorno{home / "casa", true};
            const fs::path lleno = home / "casa/Documents/lleno.pdf";
            const fs::path ro = home / "casa/Documents/ro.pdf";
            fs::create_directories(lleno.parent_path());
            std::ofstream(lleno) << "a";
            std::ofstream(ro) << "b";
            fs::create_directories(papelera / "files");
            fs::create_directories(papelera / "info");
            // Use up inodes and blocks.
            for (int i = 0; i < 100; ++i)
                std::ofstream(home / ("relleno" + std::to_string(i)));
            {
                std::ofstream f(home / "relleno0");
                const std::string mega(1 << 20, 'x');
                f << mega;
            }
            // The message, and whether the item and the Trash are as they were.
            auto intentar = [&](const fs::path& p) {
                for (const auto& e : limpiarSinAvisos(entorno, {categoria(Modo::papelera, {elemento(p, p.filename().string())})}))
                    r.push_back(e);
                r.push_back(existe(p) && fs::is_empty(papelera / "files") && fs::is_empty(papelera / "info")
                                ? "intacto"
                                : "tocado");
            };
            intentar(lleno);

            // Room again, but the Trash read-only.
            fs::remove(home / "relleno0");
            if (::mount(papelera.c_str(), papelera.c_str(), nullptr, MS_BIND, nullptr) != 0 ||
                ::mount(nullptr, papelera.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) != 0)
                std::_Exit(apoyo::sinMontajes);
            intentar(ro);
            return r;
        },
        lineas);
    if (estado == apoyo::sinMontajes)
        GTEST_SKIP() << "no se pueden montar sistemas de archivos aquí";
    ASSERT_EQ(estado, 0);
    ASSERT_EQ(lineas.size(), 4u);
    // GIO's description, with the system's reason in it.
    EXPECT_TRUE(lineas[0].starts_with("lleno.pdf: ")) << lineas[0];
    EXPECT_NE(lineas[0].find(std::strerror(ENOSPC)), std::string::npos) << lineas[0];
    EXPECT_EQ(lineas[1], "intacto");
    EXPECT_TRUE(lineas[2].starts_with("ro.pdf: ")) << lineas[2];
    EXPECT_NE(lineas[2].find(std::strerror(EROFS)), std::string::npos) << lineas[2];
    EXPECT_EQ(lineas[3], "intacto");
}
