// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/apps_abiertas.h"

#include "apoyo/casa.h"
#include "plataforma/apps.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstdlib>

namespace {

AppsAbiertas con(std::initializer_list<std::pair<const char*, const char*>> apps)
{
    AppsAbiertas a;
    for (const auto& [bundle, nombre] : apps)
        a.apps.push_back(AppsAbiertas::describir(bundle, nombre ? std::optional<std::string_view>(nombre)
                                                                : std::nullopt));
    return a;
}

// A real program running from a path of our choosing: a copy of sleep.
class Programa {
public:
    explicit Programa(const std::filesystem::path& ejecutable)
    {
        std::filesystem::create_directories(ejecutable.parent_path());
        std::filesystem::copy_file("/bin/sleep", ejecutable);
        char* argv[] = {const_cast<char*>(ejecutable.c_str()), const_cast<char*>("30"), nullptr};
        ::posix_spawn(&pid_, ejecutable.c_str(), nullptr, nullptr, argv, environ);
        // Wait until the exec has happened, so /proc shows the new program.
        for (int i = 0; i < 200 && std::filesystem::read_symlink("/proc/" + std::to_string(pid_) + "/exe",
                                                                 error_) != ejecutable;
             ++i)
            ::usleep(5000);
    }
    ~Programa()
    {
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, nullptr, 0);
    }

private:
    pid_t pid_ = -1;
    std::error_code error_;
};

} // namespace

TEST(AppsAbiertas, Claves)
{
    const auto a = con({{"Com.Ejemplo.Big", "Big Editor"},
                        {"com.ejemplo.bigger", "Bigger Editor"},
                        {"com.microsoft.VSCode", "VS Code"},
                        {"org.espacios", "   Espacios  raros"},
                        {"org.sin.nombre", nullptr}});
    EXPECT_EQ(a.apps[0].bundle, "com.ejemplo.big");
    EXPECT_EQ(a.apps[0].clave, "");
    EXPECT_EQ(a.apps[1].clave, "bigger");
    EXPECT_EQ(a.apps[2].clave, "");
    EXPECT_EQ(a.apps[3].clave, "espacios");
    EXPECT_EQ(a.apps[4].nombre, "org.sin.nombre");
    EXPECT_EQ(a.apps[4].clave, "org.sin.nombre");
}

TEST(AppsAbiertas, QuienUsaPruebaAppPorApp)
{
    const auto a = con({{"com.ejemplo.bigger", "Bigger Editor"}, {"com.example.app", "Ejemplo"}});
    EXPECT_EQ(a.quienUsa("My.Bigger.Cache", {}), "Bigger Editor");       // by the name's first word
    EXPECT_EQ(a.quienUsa("COM.EXAMPLE.APP", {}), "Ejemplo");             // whole identifier, any case
    EXPECT_EQ(a.quienUsa("com.example.app.helper", {}), "Ejemplo");      // identifier and a point
    EXPECT_EQ(a.quienUsa("com.example.appx", {}), std::nullopt);         // the point is required
    EXPECT_EQ(a.quienUsa("Cache", {"COM.example.app"}), "Ejemplo");      // by owner
    // An earlier app matching loosely wins over a later exact owner.
    EXPECT_EQ(a.quienUsa("bigger-things", {"com.example.app"}), "Bigger Editor");
    EXPECT_EQ(a.quienUsa("", {}), std::nullopt);
    EXPECT_EQ(AppsAbiertas{}.quienUsa("com.example.app", {"com.example.app"}), std::nullopt);
}

TEST(AppsAbiertas, ProcesoDeUnPaqueteApp)
{
    apoyo::CasaPrueba casa;
    casa.archivoCon("Applications/Editor.app/Contents/Info.plist",
                    R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>
<key>CFBundleIdentifier</key><string>com.Ejemplo.Editor</string>
<key>CFBundleName</key><string>Bigger Editor</string>
</dict></plist>)");
    // The program's own bundle never counts.
    casa.archivoCon("Applications/Vorlano.app/Contents/Info.plist",
                    std::string(R"(<plist version="1.0"><dict><key>CFBundleIdentifier</key><string>)") +
                        plataforma::identificadorPropio + "</string></dict></plist>");
    Programa editor(casa.ruta("Applications/Editor.app/Contents/MacOS/editor"));
    Programa propio(casa.ruta("Applications/Vorlano.app/Contents/MacOS/vorlano"));

    const auto a = AppsAbiertas::actuales();
    int editores = 0;
    for (const auto& app : a.apps) {
        EXPECT_NE(app.bundle, "app.vorlano.vorlano");
        if (app.bundle == "com.ejemplo.editor") {
            ++editores;
            EXPECT_EQ(app.nombre, "Bigger Editor");
        }
    }
    EXPECT_EQ(editores, 1);
    EXPECT_EQ(a.quienUsa("biggerstuff", {}), "Bigger Editor");
}

TEST(AppsAbiertas, ProgramaDeUnaEntradaDeEscritorioVisible)
{
    apoyo::CasaPrueba casa;
    const auto visor = casa.ruta("bin/visor");
    const auto oculto = casa.ruta("bin/oculto");
    // XDG_DATA_HOME points into the test's own scratch folder (test main).
    const std::filesystem::path apps = std::string(std::getenv("XDG_DATA_HOME")) + "/applications";
    std::filesystem::create_directories(apps / "org");
    {
        std::FILE* f = std::fopen((apps / "org/ejemplo.Visor.desktop").c_str(), "w");
        std::fprintf(f, "[Desktop Entry]\nType=Application\nName=Visor de Fotos\nExec=\"%s\" %%U\n", visor.c_str());
        std::fclose(f);
        f = std::fopen((apps / "oculto.desktop").c_str(), "w");
        std::fprintf(f, "[Desktop Entry]\nType=Application\nName=Oculto\nNoDisplay=true\nExec=%s\n", oculto.c_str());
        std::fclose(f);
    }
    Programa a(visor), b(oculto);
    const auto abiertas = AppsAbiertas::actuales();
    bool visto = false;
    for (const auto& app : abiertas.apps) {
        EXPECT_NE(app.nombre, "Oculto");
        if (app.bundle == "org-ejemplo.visor") {
            visto = true;
            EXPECT_EQ(app.nombre, "Visor de Fotos");
        }
    }
    EXPECT_TRUE(visto);
    std::filesystem::remove_all(apps);
}
