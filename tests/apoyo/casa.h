// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Test trees: a scratch home under the temporary folder, removed with
// everything in it when the object goes.

#include "nucleo/entorno.h"
#include "nucleo/formato.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace apoyo {

namespace fs = std::filesystem;

class CasaPrueba {
public:
    // In memory (a tmpfs) where the system allows it, for thousands of small trees.
    explicit CasaPrueba(bool enMemoria = false);
    ~CasaPrueba();
    CasaPrueba(const CasaPrueba&) = delete;
    CasaPrueba& operator=(const CasaPrueba&) = delete;

    const fs::path& raiz() const { return raiz_; }
    fs::path ruta(std::string_view relativa) const { return raiz_ / relativa; }
    // A test-mode run in this home.
    Entorno entorno() const { return Entorno{raiz_, true}; }

    // Each creates its parents and returns the absolute path.
    fs::path crearDir(std::string_view relativa);
    // `bytes` bytes of data, flushed, so that its allocated size is final.
    fs::path archivo(std::string_view relativa, int64_t bytes, char relleno = 'x');
    fs::path archivoCon(std::string_view relativa, std::string_view contenido);
    // `bytes` bytes allocated, never written (fallocate).
    fs::path reservado(std::string_view relativa, int64_t bytes);
    // That length, no data blocks at all.
    fs::path disperso(std::string_view relativa, int64_t longitud);
    fs::path enlace(std::string_view relativa, const fs::path& destino);
    fs::path enlaceDuro(std::string_view relativa, std::string_view existente);
    // n files of `bytes` bytes each in one folder, made even for n = 0.
    void muchos(std::string_view carpeta, int n, int64_t bytes);
    // Mode 000 (the removal at the end puts the rights back).
    void sinPermisos(std::string_view relativa);
    // Modification and access time, the link itself if it is one.
    void fecha(std::string_view relativa, Fecha cuando);

private:
    fs::path raiz_;
};

// Allocated bytes of one entry (st_blocks * 512), links not followed.
int64_t asignado(const fs::path& p);

// What `du -B1 -s` says of a path: the reference for sizes.
int64_t du(const fs::path& p);

// The whole content of a file; empty if it can't be read.
std::string leer(const fs::path& p);

// Relative path ("" for itself) -> kind, mode and content of everything at
// and below the path, unfollowed: equal maps, a tree untouched byte for byte.
std::map<std::string, std::string> huellas(const fs::path& raiz);

// The Trash under a data home: original path -> name in files/, from the
// .trashinfo files; one that isn't well formed fails the test.
std::map<std::string, std::string> papelera(const fs::path& datos);

// For a test program's main: HOME and the XDG homes in a scratch folder, the
// program's own variables unset and the source texts' language, so that no
// test touches the machine's real home or depends on its user's language.
fs::path aislarProceso();

// A unique scratch folder, in memory if asked, and its removal.
fs::path carpetaTemporal(std::string_view prefijo, bool enMemoria = false);
void borrarArbol(const fs::path& p);

} // namespace apoyo
