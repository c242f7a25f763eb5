// SPDX-License-Identifier: GPL-3.0-or-later
// Identical files in the folders where people keep their own: compared by
// size, then by a hash of both ends, and only then by a hash of every byte.
#include "escaner/escaner.h"

#include "plataforma/arbol.h"
#include "nucleo/paralelo.h"
#include "nucleo/textos.h"
#include "plataforma/archivos.h"

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <unordered_map>

namespace fs = std::filesystem;

namespace {

using plataforma::Personal;
constexpr Personal personalesBuscadas[] = {Personal::escritorio, Personal::documentos, Personal::descargas,
                                         Personal::imagenes, Personal::videos};

std::string_view ultimoComponente(std::string_view ruta)
{
    return ruta.substr(ruta.find_last_of('/') + 1);
}

// Two names of one file are one candidate: the first met stays.
void quitarEnlacesDuros(std::vector<Candidato>& lista)
{
    std::set<std::pair<uint64_t, uint64_t>> vistos;
    std::erase_if(lista, [&](const Candidato& c) { return !vistos.insert({c.dispositivo, c.inodo}).second; });
}

// Each group split by logical length, in order; only parts of two or more
// files are kept.
std::vector<std::vector<Candidato>> porTamanoDe(std::vector<std::vector<Candidato>> grupos)
{
    std::vector<std::vector<Candidato>> r;
    for (auto& g : grupos) {
        std::map<int64_t, std::vector<Candidato>> partes;
        for (auto& c : g)
            partes[c.tamano].push_back(std::move(c));
        for (auto& [t, parte] : partes)
            if (parte.size() > 1)
                r.push_back(std::move(parte));
    }
    return r;
}

// The birth time where the file system records one, in whole seconds;
// elsewhere the modification time taken by the walk stays.
void fecharCreacion(Candidato& c)
{
    if (const auto f = plataforma::fechaCreacion(c.ruta))
        c.creado = std::chrono::floor<std::chrono::seconds>(*f);
}

} // namespace

std::vector<fs::path> Escaner::carpetasDeCopias() const
{
    std::vector<fs::path> r;
    for (size_t i = 0; i < std::size(personalesBuscadas); ++i) {
        const fs::path& c = personales[personalesBuscadas[i]];
        bool cubierta = false;
        for (size_t j = 0; j < std::size(personalesBuscadas) && !cubierta; ++j) {
            const fs::path& otra = personales[personalesBuscadas[j]];
            cubierta = j != i && (dentroDe(c, otra) || (c == otra && j < i));
        }
        if (!cubierta)
            r.push_back(c);
    }
    return r;
}

bool Escaner::entraEnCopias(std::string_view nombre, std::string_view padre, const char* ruta)
{
    return !(nombre.starts_with('.') || clasificar(nombre, padre) || esPaquete(nombre, ruta));
}

std::optional<Candidato> Escaner::candidatoDe(const plataforma::EntradaArbol& e)
{
    if (e.tipo != plataforma::TipoEntrada::archivo || e.st.st_size < minimoDuplicado || e.nombre.starts_with('.'))
        return std::nullopt;
    // The modification time stands in for the creation time until the file
    // turns out to have a copy.
    return Candidato{.ruta = std::string(e.ruta),
                     .tamano = e.st.st_size,
                     .bloques = int64_t(e.st.st_blocks) * 512,
                     .dispositivo = uint64_t(e.st.st_dev),
                     .inodo = uint64_t(e.st.st_ino),
                     .creado = Fecha(std::chrono::seconds(e.st.st_mtim.tv_sec))};
}

void Escaner::recogerCopias(const fs::path& carpeta, std::vector<Candidato>& candidatos)
{
    plataforma::recorrerArbol(carpeta, [&](const plataforma::EntradaArbol& e) {
        if (e.nivel == 0)
            return plataforma::Paso::seguir;
        if (e.tipo == plataforma::TipoEntrada::carpeta)
            return entraEnCopias(e.nombre, e.padre, e.ruta.data()) ? plataforma::Paso::seguir : plataforma::Paso::podar;
        if (auto c = candidatoDe(e))
            candidatos.push_back(std::move(*c));
        return plataforma::Paso::seguir;
    });
}

bool Escaner::pareceCopia(std::string_view ruta)
{
    static const std::regex copia(R"(\(\d+\)$|[ _-](copia|copy|clon|clone)( \d+)?$)");
    const std::string_view nombre = ultimoComponente(ruta);
    const size_t punto = nombre.find_last_of('.');
    const std::string base = minusculas(punto == std::string_view::npos || punto == 0 ? nombre : nombre.substr(0, punto));
    return std::regex_search(base, copia);
}

bool Escaner::conservarAntes(const Candidato& a, const Candidato& b) const
{
    if (a.creado != b.creado)
        return a.creado < b.creado;
    const std::string descargas = personales[Personal::descargas].native() + '/';
    const bool da = a.ruta.starts_with(descargas), db = b.ruta.starts_with(descargas);
    if (da != db)
        return !da;
    const bool ca = pareceCopia(a.ruta), cb = pareceCopia(b.ruta);
    if (ca != cb)
        return !ca;
    const size_t la = caracteres(ultimoComponente(a.ruta)), lb = caracteres(ultimoComponente(b.ruta));
    if (la != lb)
        return la < lb;
    return a.ruta < b.ruta;
}

std::vector<std::vector<Candidato>>
Escaner::agrupar(const std::vector<Candidato>& candidatos,
                 const std::function<std::optional<std::string>(const std::string&)>& clave)
{
    std::vector<std::optional<std::string>> claves(candidatos.size());
    // Each iteration writes its own slot only.
    enParalelo(candidatos.size(), [&](size_t i) { claves[i] = clave(candidatos[i].ruta); });

    std::vector<std::vector<Candidato>> grupos;
    std::unordered_map<std::string, size_t> indice;
    for (size_t i = 0; i < candidatos.size(); ++i) {
        if (!claves[i])
            continue;
        const auto [it, nuevo] = indice.try_emplace(*claves[i], grupos.size());
        if (nuevo)
            grupos.emplace_back();
        grupos[it->second].push_back(candidatos[i]);
    }
    return grupos;
}

std::vector<Elemento> Escaner::duplicados() const
{
    std::vector<Candidato> candidatos;
    for (const fs::path& c : carpetasDeCopias())
        recogerCopias(c, candidatos);
    return duplicados(std::move(candidatos));
}

std::vector<Elemento> Escaner::duplicados(std::vector<Candidato> candidatos) const
{
    std::map<int64_t, std::vector<Candidato>> porTamano;
    for (Candidato& c : candidatos)
        porTamano[c.tamano].push_back(std::move(c));

    // Only sizes with several files are hashed. All of them go through one
    // parallel pass per hash rather than one per size, so that the workers
    // stay busy when most sizes have two or three files; groups are split
    // by size afterwards, since equal ends don't make equal lengths.
    std::vector<Candidato> varios;
    for (auto& [tamano, lista] : porTamano) {
        if (lista.size() < 2)
            continue;
        quitarEnlacesDuros(lista);
        if (lista.size() > 1)
            std::move(lista.begin(), lista.end(), std::back_inserter(varios));
    }
    std::vector<Candidato> parecidos;
    for (auto& g : porTamanoDe(agrupar(varios, huellaParcial)))
        std::move(g.begin(), g.end(), std::back_inserter(parecidos));

    std::vector<Elemento> r;
    for (auto& grupo : porTamanoDe(agrupar(parecidos, huellaCompleta))) {
        std::for_each(grupo.begin(), grupo.end(), fecharCreacion);
        std::sort(grupo.begin(), grupo.end(),
                  [this](const Candidato& a, const Candidato& b) { return conservarAntes(a, b); });
        const std::string conservado = relativa(grupo.front().ruta);
        for (size_t i = 1; i < grupo.size(); ++i) {
            const Candidato& c = grupo[i];
            // A clone shares its blocks with the kept copy: removing it may free nothing.
            const std::string plantilla = plataforma::esClon(c.ruta)
                                              ? tr("Igual a {conservado} · copia clonada: puede no liberar espacio")
                                              : tr("Igual a {conservado}");
            r.push_back(Elemento{.url = c.ruta,
                                 .nombre = relativa(c.ruta),
                                 .detalle = rellenar(plantilla, {{"conservado", conservado}}),
                                 .tamano = c.bloques});
        }
    }
    return r;
}
