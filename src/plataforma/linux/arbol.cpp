// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/arbol.h"

#include "plataforma/carpetas.h"

#include <fcntl.h>
#include <unistd.h>

#include <memory>
#include <string>
#include <vector>

namespace plataforma {

namespace {

TipoEntrada tipoDe(mode_t modo)
{
    if (S_ISDIR(modo))
        return TipoEntrada::carpeta;
    if (S_ISREG(modo))
        return TipoEntrada::archivo;
    return S_ISLNK(modo) ? TipoEntrada::enlace : TipoEntrada::otro;
}

class Caminante {
public:
    Caminante(const VisitaArbol& visitar, std::string raiz) : visitar_(visitar), ruta_(std::move(raiz)) {}

    void recorrer()
    {
        struct stat st;
        if (::lstat(ruta_.c_str(), &st) != 0)
            return;
        dispositivo_ = st.st_dev;
        // Opened as a child would be, with the whole path as its name.
        ver(AT_FDCWD, ruta_.c_str(), 0, ruta_.rfind('/'), st);
    }

private:
    // The entry whose path is ruta_, with its last "/" at `barra` (npos for
    // none), known as `nombre` in the folder open as `dir`. Reports it and,
    // for a folder, what it holds and its end. False once the walk stops.
    bool ver(int dir, const char* nombre, int nivel, size_t barra, const struct stat& st)
    {
        const TipoEntrada tipo = tipoDe(st.st_mode);
        const Paso paso = informar(tipo, nivel, barra, st);
        if (paso != Paso::seguir || tipo != TipoEntrada::carpeta)
            return paso != Paso::parar;
        TipoEntrada fin = TipoEntrada::finCarpeta;
        if (nivel >= profundidadMaxima) {
            fin = TipoEntrada::ilegible;
        } else if (st.st_dev == dispositivo_) {
            // O_NOFOLLOW: a folder swapped for a link since the stat is not entered.
            const int fd = ::openat(dir, nombre, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
            if (fd < 0)
                fin = TipoEntrada::ilegible;
            else if (!entrar(fd, nivel + 1))
                return false;
        }
        return informar(fin, nivel, barra, st) != Paso::parar;
    }

    // Reports what the folder open as `fd` holds and closes it; ruta_ is the
    // folder's path before and after. False once the walk stops.
    bool entrar(int fd, int nivel)
    {
        // One listing buffer per level, kept for the whole walk.
        if (buffers_.size() < size_t(nivel))
            buffers_.push_back(std::make_unique_for_overwrite<char[]>(plataforma::ListadoCarpeta::tamanoBuffer));
        plataforma::ListadoCarpeta listado(fd, {buffers_[nivel - 1].get(), plataforma::ListadoCarpeta::tamanoBuffer});
        const size_t largo = ruta_.size();
        // Below "/" the children are "/name": the folder's "/" is theirs.
        const size_t base = largo == 1 && ruta_[0] == '/' ? 0 : largo;
        bool sigue = true;
        while (sigue) {
            const char* n = listado.siguiente();
            if (n == nullptr)
                break;
            if (n[0] == '.' && (n[1] == '\0' || (n[1] == '.' && n[2] == '\0')))
                continue;
            struct stat st;
            if (::fstatat(fd, n, &st, AT_SYMLINK_NOFOLLOW) != 0)
                continue;
            ruta_.resize(base);
            ruta_ += '/';
            ruta_ += n;
            sigue = ver(fd, n, nivel, base, st);
        }
        ::close(fd);
        ruta_.resize(largo);
        return sigue;
    }

    Paso informar(TipoEntrada tipo, int nivel, size_t barra, const struct stat& st) const
    {
        const std::string_view ruta(ruta_);
        const size_t padre = barra == std::string::npos ? 0 : barra;
        const size_t nombre = barra == std::string::npos ? 0 : barra + 1;
        return visitar_(EntradaArbol{tipo, nivel, ruta.substr(nombre), ruta, ruta.substr(0, padre), st});
    }

    const VisitaArbol& visitar_;
    dev_t dispositivo_ = 0;
    std::string ruta_;
    std::vector<std::unique_ptr<char[]>> buffers_;
};

} // namespace

void recorrerArbol(const std::filesystem::path& raiz, const VisitaArbol& visitar)
{
    std::string ruta = raiz.native();
    while (ruta.size() > 1 && ruta.back() == '/')
        ruta.pop_back();
    Caminante(visitar, std::move(ruta)).recorrer();
}

} // namespace plataforma
