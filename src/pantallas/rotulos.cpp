// SPDX-License-Identifier: GPL-3.0-or-later
#include "pantallas/rotulos.h"

#include "nucleo/formato.h"
#include "nucleo/textos.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <set>

namespace rotulos {

namespace {

std::string conBytes(std::string texto, int64_t bytes)
{
    return rellenar(std::move(texto), {{"bytes", formatoBytes(bytes)}});
}

} // namespace

std::string tituloConfirmacion(int64_t seleccionado)
{
    return conBytes(tr("¿Limpiar {bytes}?"), seleccionado);
}

std::string mensajeConfirmacion(int64_t aBorrar, int64_t aPapelera, const std::vector<std::string>& appsAbiertas)
{
    std::vector<std::string> parrafos;
    if (aBorrar >= 1)
        parrafos.push_back(conBytes(tr("Se borrarán {bytes} de cachés y temporales. Se regeneran solos."), aBorrar));
    if (aPapelera >= 1)
        parrafos.push_back(conBytes(tr("{bytes} se moverán a la Papelera (puedes recuperarlos)."), aPapelera));
    if (appsAbiertas.size() == 1) {
        parrafos.push_back(rellenar(tr("Ojo: {app} está abierto. Ciérralo antes para evitar problemas."),
                                    {{"app", appsAbiertas[0]}}));
    } else if (appsAbiertas.size() > 1) {
        std::string apps;
        for (const std::string& a : appsAbiertas)
            apps += (apps.empty() ? "" : ", ") + a;
        parrafos.push_back(
            rellenar(tr("Ojo: {apps} están abiertos. Ciérralos antes para evitar problemas."), {{"apps", apps}}));
    }
    std::string r;
    for (const std::string& p : parrafos)
        r += (r.empty() ? "" : "\n\n") + p;
    return r;
}

std::string lineaResultado(int64_t borrado, int64_t enPapelera)
{
    if (borrado <= 0 && enPapelera != 0)
        return conBytes(tr("Moviste {bytes} a la Papelera"), enPapelera);
    return conBytes(tr("Liberaste {bytes}"), borrado);
}

std::string lineaEspacio(int64_t libreAntes, int64_t libreAhora)
{
    return rellenar(tr("Espacio libre: {antes} → {ahora}"),
                    {{"antes", formatoBytes(libreAntes)}, {"ahora", formatoBytes(libreAhora)}});
}

std::string avisos(int64_t n)
{
    return n == 1 ? tr("1 aviso") : rellenar(tr("{n} avisos"), {{"n", std::to_string(n)}});
}

std::string lineaPapelera(int64_t enPapelera)
{
    return conBytes(tr("{bytes} en la Papelera"), enPapelera);
}

std::string elementos(int64_t n)
{
    return n == 1 ? tr("1 elemento") : rellenar(tr("{n} elementos"), {{"n", std::to_string(n)}});
}

std::string libresDe(int64_t libre, int64_t total)
{
    return rellenar(tr("{libre} libres de {total}"), {{"libre", formatoBytes(libre)}, {"total", formatoBytes(total)}});
}

std::string unirLista(const std::vector<std::string>& nombres, const std::string& locale)
{
    QStringList lista;
    for (const std::string& n : nombres)
        lista.append(QString::fromStdString(textoVisible(n)));
    const QString unidos = QLocale(QString::fromStdString(locale)).createSeparatedList(lista);
    if (!unidos.isEmpty() || nombres.empty())
        return unidos.toStdString();
    std::string r;
    for (const std::string& n : nombres)
        r += (r.empty() ? "" : ", ") + n;
    return r;
}

LineaCategoria lineaCategoria(const Categoria& c, const std::string& locale)
{
    std::set<std::string> apps;
    int64_t bytesEnUso = 0;
    for (const Elemento& e : c.elementos)
        if (e.enUso) {
            apps.insert(*e.enUso);
            bytesEnUso += e.tamano;
        }
    LineaCategoria r;
    if (apps.empty()) {
        r.texto = c.descripcion;
        return r;
    }
    const std::string lista = unirLista({apps.begin(), apps.end()}, locale);
    r.todoEnUso = std::all_of(c.elementos.begin(), c.elementos.end(), [](const Elemento& e) { return e.enUso; });
    if (r.todoEnUso) {
        r.texto = rellenar(apps.size() == 1 ? tr("En uso por {apps}. Ciérrala y vuelve a analizar para limpiarlo.")
                                            : tr("En uso por {apps}. Ciérralas y vuelve a analizar para limpiarlo."),
                           {{"apps", lista}});
        return r;
    }
    r.texto = c.descripcion;
    r.enUso = rellenar(tr("{bytes} en uso por {apps}, no se marca."),
                       {{"bytes", formatoBytes(bytesEnUso)}, {"apps", lista}});
    return r;
}

std::string estadoTarjeta(int64_t tamanoSeleccionado, bool todoEnUso)
{
    if (tamanoSeleccionado >= 1)
        return conBytes(tr("{bytes} marcado"), tamanoSeleccionado);
    return todoEnUso ? tr("En uso por apps abiertas") : tr("Sin marcar");
}

int casoListo(bool hayResultado, int64_t borrado, int64_t enPapelera, int64_t seleccionado)
{
    if (hayResultado && (borrado > 0 || enPapelera >= 1))
        return 1;
    return seleccionado >= 1 ? 2 : 3;
}

} // namespace rotulos
