// SPDX-License-Identifier: GPL-3.0-or-later
// What has lain in Downloads for a long time, judged at the first level only.
#include "escaner/escaner.h"

#include "nucleo/textos.h"
#include "plataforma/archivos.h"

#include <dirent.h>

std::vector<Elemento> Escaner::descargasAntiguas() const
{
    return descargasAntiguas(std::chrono::system_clock::now());
}

std::vector<Elemento> Escaner::descargasAntiguas(Fecha ahora) const
{
    std::vector<Elemento> r;
    const std::filesystem::path& carpeta = personales[plataforma::Personal::descargas];
    DIR* d = ::opendir(carpeta.c_str());
    if (d == nullptr)
        return r;
    const Fecha limite = ahora - std::chrono::seconds(int64_t(diasDescargas) * 86400);
    const std::string plantilla = tr("descargado {hace}");
    while (const dirent* entrada = ::readdir(d)) {
        const std::string_view nombre = entrada->d_name;
        if (nombre.starts_with('.'))
            continue;
        const std::filesystem::path p = carpeta / nombre;
        // The date it arrived in Downloads, else the date it was made; never
        // the modification date, which a download may bring from its source.
        auto fecha = plataforma::fechaLlegada(p);
        if (!fecha)
            fecha = plataforma::fechaCreacion(p);
        if (!fecha || *fecha >= limite)
            continue;
        Elemento e;
        e.url = p;
        e.nombre = std::string(nombre);
        e.detalle = rellenar(plantilla, {{"hace", haceCuanto(*fecha, ahora, localeApp())}});
        r.push_back(std::move(e));
    }
    ::closedir(d);
    return r;
}
