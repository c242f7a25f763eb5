// SPDX-License-Identifier: GPL-3.0-or-later
// What the disk refuses becomes its message, and nothing else is touched.
// Checks made in a child process (another user, another mount namespace) fail
// the test through its exit status.
#include "limpieza/comun.h"

#include "plataforma/papelera.h"

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

using namespace prueba;

TEST(Fallos, SoloLecturaInmutableYSinPermisosComoUsuarioComun)
{
    CasaPrueba casa;
    const fs::path app = casa.crearDir("Library/Caches/app");
    for (const char* p : {"suelto", "sub/ok", "ro/dentro", "ajena/dentro", "cerrada/secreto", "inmutable"})
        casa.archivo(std::string("Library/Caches/app/") + p, 4096);
    casa.crearDir("Library/Caches/app/vacia-cerrada");
    const fs::path ilegible = casa.archivo("Library/Caches/ilegible/x", 4096).parent_path();
    const fs::path fijo = casa.archivo("Library/Caches/fija/archivo", 4096);
    // Owned by the unprivileged user, so that only the modes stand in its
    // way, but for one read-only folder of another user's (root's).
    const bool root = ::geteuid() == 0;
    if (root) {
        for (const auto& e : fs::recursive_directory_iterator(casa.ruta("Library/Caches")))
            ::lchown(e.path().c_str(), 65534, 65534);
        for (const char* p : {"ajena", "ajena/dentro"})
            ::lchown((app / p).c_str(), 0, 0);
    }
    for (const fs::path& p : {app / "ro", app / "ajena", fijo.parent_path()})
        ::chmod(p.c_str(), 0555);
    for (const char* p : {"Library/Caches/app/cerrada", "Library/Caches/app/vacia-cerrada", "Library/Caches/ilegible"})
        casa.sinPermisos(p);
    const auto chattr = [&](const char* modo) {
        return apoyo::ejecutarPrograma("/usr/bin/chattr", {modo, (app / "inmutable").string()}).estado == 0;
    };
    const bool inmutable = chattr("+i");

    const bool hijo = apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        const Resultado r = limpiar(casa.entorno(), {categoria(Modo::borrar, {elemento(app, "app"),
                                                                             elemento(ilegible, "ilegible"),
                                                                             elemento(fijo, "archivo")})});
        EXPECT_EQ(r.errores, (Lineas{"app: " + std::to_string(1 + root + inmutable) +
                                         " de 7 elementos no se pudieron borrar (en uso o protegidos)",
                                     "ilegible: no se pudo abrir (" + std::string(std::strerror(EACCES)) + ")",
                                     "archivo: " + std::string(std::strerror(EACCES))}));
        return !::testing::Test::HasFailure();
    });
    chattr("-i");
    EXPECT_TRUE(hijo);
    // What could go went, hidden behind a mode 000 folder or not; a folder
    // of the user's that was made read-only went too, another user's stayed
    // as it was.
    for (const char* ido : {"suelto", "sub", "vacia-cerrada", "ro"})
        EXPECT_FALSE(existe(app / ido)) << ido;
    EXPECT_EQ(existe(app / "ajena/dentro"), root);
    EXPECT_EQ(fs::status(app / "ajena").permissions() == fs::perms(0555), root);
    EXPECT_TRUE(existe(app / "cerrada/secreto"));
    EXPECT_EQ(existe(app / "inmutable"), inmutable);
    EXPECT_TRUE(existe(ilegible / "x"));
    EXPECT_TRUE(existe(fijo));
    if (!inmutable)
        GTEST_SKIP() << "este sistema de archivos no admite chattr +i: el resto se comprobó";
}

// The home and its Trash on one small tmpfs, so that the Trash can fill up.
TEST(Fallos, PapeleraEnOtroSistemaLlenaODeSoloLectura)
{
    const fs::path home = std::getenv("HOME");
    const fs::path papelera = plataforma::carpetaPapelera();
    const fs::path docs = home / "casa/Documents";
    ASSERT_TRUE(papelera.native().starts_with(home.native()));
    conMontajes([&] {
        montar(home, "size=1m,nr_inodes=64");
        for (const fs::path& c : {docs, papelera / "files", papelera / "info"})
            fs::create_directories(c);
        for (const char* nombre : {"lleno.pdf", "ro.pdf"})
            std::ofstream(docs / nombre) << nombre;
        // The message, and the item and the Trash as they were: nothing moved
        // or copied, and no other Trash made.
        auto intentar = [&](const fs::path& p, const std::string& motivo) {
            fs::create_directories(papelera / "files");
            fs::create_directories(papelera / "info");
            const auto errores = limpiar(Entorno{home, true}, {categoria(Modo::papelera, {elemento(p, "e")})}).errores;
            ASSERT_EQ(errores.size(), 1u);
            EXPECT_TRUE(errores[0].starts_with("e: ") && errores[0].find(motivo) != std::string::npos) << errores[0];
            EXPECT_TRUE(existe(p) && fs::is_empty(papelera / "files") && fs::is_empty(papelera / "info"));
        };
        const std::string otro = "No se puede mover a la Papelera porque está en otro sistema de archivos";
        // Inodes and blocks used up.
        for (int i = 0; i < 100; ++i)
            std::ofstream(home / ("relleno" + std::to_string(i))) << std::string(i == 0 ? 1 << 20 : 0, 'x');
        intentar(docs / "lleno.pdf", std::strerror(ENOSPC));
        // Room again, but the Trash read-only.
        fs::remove(home / "relleno0");
        if (::mount(papelera.c_str(), papelera.c_str(), nullptr, MS_BIND, nullptr) != 0 ||
            ::mount(nullptr, papelera.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) != 0)
            std::_Exit(apoyo::sinMontajes);
        intentar(docs / "ro.pdf", std::strerror(EROFS));
        // The Trash on a file system of its own, with or without the item.
        montar(papelera);
        std::ofstream(papelera / "suelto") << "x";
        intentar(docs / "ro.pdf", otro);
        // What is in the Trash is never a cleaning's to move.
        intentar(papelera / "suelto", "ruta no permitida");
    });
}
