// SPDX-License-Identifier: GPL-3.0-or-later
#include "consola.h"

#include "escaner/escaner.h"
#include "limpieza/limpiador.h"
#include "mapa/medidor.h"
#include "nucleo/formato.h"
#include "nucleo/textos.h"

#include <chrono>
#include <cstdio>

namespace Consola {

namespace {

constexpr size_t anchoColumna = 10;
constexpr size_t elementosPorCategoria = 8;
constexpr size_t carpetasDelMapa = 8;
constexpr size_t subcarpetasDelMapa = 3;

void imprimir(const std::string& s)
{
    std::fwrite(s.data(), 1, s.size(), stdout);
}

std::string segundosConUnDecimal(double segundos)
{
    char tiempo[32];
    std::snprintf(tiempo, sizeof tiempo, "%.1f", segundos);
    return tiempo;
}

} // namespace

std::string columna(const std::string& texto)
{
    std::string r;
    size_t n = 0;
    for (size_t i = 0; i < texto.size() && n < anchoColumna; ++n) {
        // Copy one whole character (a lead byte and its continuation bytes).
        size_t j = i + 1;
        while (j < texto.size() && (static_cast<unsigned char>(texto[j]) & 0xC0) == 0x80)
            ++j;
        r.append(texto, i, j - i);
        i = j;
    }
    r.append(anchoColumna - n, ' ');
    return r;
}

std::string informe(const std::vector<Categoria>& categorias, const Entorno& entorno, double segundos)
{
    std::string r = tr("Carpeta: ") + textoVisible(entorno.home.native());
    if (entorno.prueba)
        r += tr(" (PRUEBA)");
    r += '\n';
    r += rellenar(tr("Análisis en {s} s"), {{"s", segundosConUnDecimal(segundos)}}) + "\n\n";

    int64_t seleccionado = 0;
    for (const Categoria& c : categorias) {
        seleccionado += c.tamanoSeleccionado();
        r += rellenar(tr("■ {titulo} — {tamano} [{etiqueta}] seleccionado: {seleccionado}"),
                      {{"titulo", textoVisible(c.titulo)},
                       {"tamano", formatoBytes(c.tamano())},
                       {"etiqueta", etiqueta(c.nivel)},
                       {"seleccionado", formatoBytes(c.tamanoSeleccionado())}}) +
             '\n';
        for (size_t i = 0; i < c.elementos.size() && i < elementosPorCategoria; ++i) {
            const Elemento& e = c.elementos[i];
            r += e.seleccionado ? "   [x] " : "   [ ] ";
            r += columna(formatoBytes(e.tamano)) + ' ' + textoVisible(e.nombre);
            if (e.detalle)
                r += " — " + textoVisible(*e.detalle);
            if (e.enUso)
                r += rellenar(tr(" ⚠︎ abierto: {app}"), {{"app", textoVisible(*e.enUso)}});
            r += '\n';
        }
        if (c.elementos.size() > elementosPorCategoria)
            r += rellenar(tr("   … y {n} más"), {{"n", std::to_string(c.elementos.size() - elementosPorCategoria)}}) +
                 '\n';
    }
    r += '\n' + rellenar(tr("Seleccionado por defecto: {bytes}"), {{"bytes", formatoBytes(seleccionado)}}) + '\n';
    return r;
}

void ejecutar(bool limpiar, bool todo)
{
    const Entorno entorno = Entorno::actual();
    const auto inicio = std::chrono::steady_clock::now();
    // A terminal run shows no progress.
    std::vector<Categoria> categorias = Escaner(entorno).escanear([](const std::string&) {});
    const double segundos = std::chrono::duration<double>(std::chrono::steady_clock::now() - inicio).count();
    imprimir(informe(categorias, entorno, segundos));
    if (!limpiar)
        return;
    if (!entorno.prueba) {
        imprimir('\n' +
                 tr("Limpiar desde la terminal solo funciona con VORLANO_HOME (carpeta de prueba). Usa la app para "
                    "limpiar.") +
                 '\n');
        return;
    }
    // Every item, those in use by an open app too.
    if (todo)
        for (Categoria& c : categorias)
            for (Elemento& e : c.elementos)
                e.seleccionado = true;
    // A terminal cleaning leaves no trace in the history.
    const Resultado r = Limpiador(entorno).limpiar(std::move(categorias), [](const std::string&) {});
    imprimir('\n' +
             rellenar(tr("Borrado: {borrado} · A la Papelera: {enPapelera}"),
                      {{"borrado", formatoBytes(r.borrado)}, {"enPapelera", formatoBytes(r.enPapelera)}}) +
             '\n');
    for (const std::string& error : r.errores)
        imprimir(rellenar(tr("  error: {texto}"), {{"texto", textoVisible(error)}}) + '\n');
}

std::string informeMapa(const NodoDisco& raiz, double segundos)
{
    std::string r = rellenar(tr("Mapa en {s} s · total {bytes}"),
                             {{"s", segundosConUnDecimal(segundos)}, {"bytes", formatoBytes(raiz.tamano)}}) +
                    '\n';
    for (size_t i = 0; i < raiz.hijos.size() && i < carpetasDelMapa; ++i) {
        const NodoDisco& h = *raiz.hijos[i];
        r += "  " + columna(formatoBytes(h.tamano)) + ' ' + textoVisible(h.nombre) + '\n';
        for (size_t j = 0; j < h.hijos.size() && j < subcarpetasDelMapa; ++j)
            r += "      " + columna(formatoBytes(h.hijos[j]->tamano)) + ' ' + textoVisible(h.hijos[j]->nombre) + '\n';
    }
    r += tr("No medidas (protegidas): ");
    const auto& protegidas = MedidorMapa::protegidasEncontradas(raiz);
    for (size_t i = 0; i < protegidas.size(); ++i)
        r += (i > 0 ? ", " : "") + textoVisible(protegidas[i]);
    return r + '\n';
}

void mapa()
{
    const auto inicio = std::chrono::steady_clock::now();
    const auto raiz = MedidorMapa(Entorno::actual()).medir();
    const double segundos = std::chrono::duration<double>(std::chrono::steady_clock::now() - inicio).count();
    imprimir(informeMapa(*raiz, segundos));
}

} // namespace Consola
