// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the cleaning tests share: selected items, a folder outside the home
// that must never lose a byte, and a cleaning run that keeps its messages.

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "limpieza/limpiador.h"
#include "plataforma/borrado.h"
#include "plataforma/papelera.h"

#include <gtest/gtest.h>

#include <sys/mount.h>

#include <atomic>
#include <fstream>
#include <functional>
#include <thread>

namespace prueba {

namespace fs = std::filesystem;
using apoyo::CasaPrueba;

inline Elemento elemento(const fs::path& ruta, std::string nombre, int64_t tamano = 0)
{
    return Elemento{.url = ruta, .nombre = std::move(nombre), .tamano = tamano, .seleccionado = true};
}

inline Categoria categoria(Modo modo, std::vector<Elemento> elementos)
{
    return Categoria{.modo = modo, .elementos = std::move(elementos)};
}

inline bool existe(const fs::path& p)
{
    return fs::exists(fs::symlink_status(p));
}

inline bool vacia(const fs::path& carpeta)
{
    return fs::is_directory(fs::symlink_status(carpeta)) && fs::is_empty(carpeta);
}

// dato, sub/hondo and victima/dato, outside every scratch home.
struct Fuera {
    fs::path raiz;
    std::map<std::string, std::string> antes;
    explicit Fuera(bool enMemoria = false) : raiz(apoyo::carpetaTemporal("vorlano-fuera", enMemoria))
    {
        fs::create_directories(raiz / "sub");
        fs::create_directories(raiz / "victima");
        std::ofstream(raiz / "dato") << "no se toca";
        std::ofstream(raiz / "sub/hondo") << "hondo";
        std::ofstream(raiz / "victima/dato") << "tampoco";
        antes = apoyo::huellas(raiz);
    }
    ~Fuera() { apoyo::borrarArbol(raiz); }
    bool intacto() const { return apoyo::huellas(raiz) == antes; }
};

// A home in memory with its own Trash, and a folder outside it on the same
// mount, so that only the refusal to cross links and mounts keeps a removal
// out of it. Pauses a test sets in the removal are taken away at its end.
class EnMemoria : public ::testing::Test {
protected:
    CasaPrueba casa{true};
    Fuera fuera{true};
    apoyo::Variable datos{"XDG_DATA_HOME", casa.ruta(".local/share").string()};
    void TearDown() override
    {
        plataforma::pruebas::pausaTrasListar = nullptr;
        plataforma::pruebas::pausaAntesDeMover = nullptr;
    }
};

inline Resultado limpiar(const Entorno& entorno, std::vector<Categoria> cs, std::vector<std::string>* avisos = nullptr)
{
    return Limpiador(entorno).limpiar(std::move(cs), [&](const std::string& t) {
        if (avisos)
            avisos->push_back(t);
    });
}

using Lineas = std::vector<std::string>;

// f runs in a child with a mount namespace of its own, and its failures fail
// the test; the test is skipped where there is no such namespace.
inline void conMontajes(const std::function<void()>& f)
{
    const int estado = apoyo::conMontajesPropios([&] {
        f();
        return ::testing::Test::HasFailure() ? 1 : 0;
    });
    if (estado == apoyo::sinMontajes)
        GTEST_SKIP() << "no se pueden montar sistemas de archivos aquí";
    EXPECT_EQ(estado, 0);
}

// Only inside conMontajes: a tmpfs, or `origen` bound there.
inline void montar(const fs::path& donde, const char* opciones = nullptr, const fs::path& origen = {})
{
    fs::create_directories(donde);
    const int r = origen.empty() ? ::mount("tmpfs", donde.c_str(), "tmpfs", 0, opciones)
                                 : ::mount(origen.c_str(), donde.c_str(), nullptr, MS_BIND, nullptr);
    if (r != 0)
        std::_Exit(apoyo::sinMontajes);
}

// A thread that calls cambio(0), cambio(1), ... as fast as it can while a
// removal runs, and holds still between removals with all put back.
class Rival {
public:
    explicit Rival(std::function<void(long)> cambio)
        : hilo_([this, cambio = std::move(cambio)] {
              for (int e; (e = estado_) != fin;) {
                  if (e == corre)
                      cambio(cambios_++);
                  else if (int p = pausa; !estado_.compare_exchange_strong(p, pausado))
                      std::this_thread::yield();
              }
          })
    {
    }
    ~Rival() { estado_ = fin; }

    // f with the rival under way before it starts; back when the rival holds still.
    void durante(const std::function<void()>& f)
    {
        const long antes = cambios_;
        estado_ = corre;
        while (cambios_ < antes + 2)
            std::this_thread::yield();
        f();
        estado_ = pausa;
        while (estado_ != pausado)
            std::this_thread::yield();
    }

private:
    enum { corre, pausa, pausado, fin };
    std::atomic<int> estado_{pausa};
    std::atomic<long> cambios_{0};
    std::jthread hilo_; // last: it starts once the rest exists
};

} // namespace prueba
