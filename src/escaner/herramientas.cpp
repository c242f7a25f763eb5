// SPDX-License-Identifier: GPL-3.0-or-later
// Space that a tool owns and gives back through its own command: the data of
// Xcode simulators and Docker's unused images and caches. The items carry the
// command; their path is only a handle for showing and measuring.
#include "escaner/escaner.h"

#include "plataforma/ejecutar.h"
#include "plataforma/lectura.h"
#include "nucleo/textos.h"
#include "plataforma/procesos.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>

namespace {

// "com.apple.CoreSimulator.SimRuntime.iOS-17-2" reads "iOS 17.2".
std::string etiquetaDeRuntime(const std::string& clave)
{
    const auto puntos = trozos(clave, '.');
    const auto partes = trozos(puntos.empty() ? std::string_view() : puntos.back(), '-');
    if (partes.empty())
        return clave;
    std::string r = std::string(partes[0]) + ' ';
    for (size_t i = 1; i < partes.size(); ++i) {
        if (i > 1)
            r += '.';
        r += partes[i];
    }
    return r;
}

// Whether "devices" maps each runtime to a list of objects, as simctl writes it.
bool dispositivosBienFormados(const nlohmann::ordered_json& dispositivos)
{
    if (!dispositivos.is_object())
        return false;
    for (const auto& lista : dispositivos)
        if (!lista.is_array() || !std::all_of(lista.begin(), lista.end(), [](const auto& d) { return d.is_object(); }))
            return false;
    return true;
}

const std::string* textoDe(const nlohmann::ordered_json& objeto, const char* clave)
{
    const auto it = objeto.find(clave);
    return it != objeto.end() && it->is_string() ? &it->get_ref<const std::string&>() : nullptr;
}

} // namespace

std::optional<std::string> Escaner::buscarSimctl(const std::string& xcodeSelect)
{
    const auto r = plataforma::ejecutar(xcodeSelect, {"-p"}, 5);
    if (!r || r->codigo != 0)
        return std::nullopt;
    constexpr const char* blancos = " \t\n\r\v\f";
    const size_t inicio = r->salida.find_first_not_of(blancos);
    const std::string carpeta =
        inicio == std::string::npos ? "" : r->salida.substr(inicio, r->salida.find_last_not_of(blancos) + 1 - inicio);
    return plataforma::buscarPrograma({carpeta + "/usr/bin/simctl"});
}

const std::optional<std::string>& Escaner::simctl()
{
    static const std::optional<std::string> ruta = buscarSimctl("/usr/bin/xcode-select");
    return ruta;
}

const std::optional<std::string>& Escaner::programaDocker()
{
    static const std::optional<std::string> ruta = [] {
        std::vector<std::string> candidatos{"/opt/homebrew/bin/docker", "/usr/local/bin/docker",
                                            "/Applications/Docker.app/Contents/Resources/bin/docker"};
        for (const std::string& carpeta : plataforma::carpetasDeProgramas())
            if (std::find(candidatos.begin(), candidatos.end(), carpeta + "/docker") == candidatos.end())
                candidatos.push_back(carpeta + "/docker");
        return plataforma::buscarPrograma(candidatos);
    }();
    return ruta;
}

std::vector<Elemento> Escaner::simuladores() const
{
    if (entorno.prueba || !simctl())
        return {};
    return simuladoresCon(*simctl());
}

std::vector<Elemento> Escaner::simuladoresCon(const std::string& simctl, double limite) const
{
    std::vector<Elemento> r;
    if (!plataforma::existe(entorno.ruta("Library/Developer/CoreSimulator/Devices")))
        return r;
    const auto salida = plataforma::ejecutar(simctl, {"list", "devices", "-j"}, limite);
    if (!salida || salida->codigo != 0)
        return r;
    // Ordered: runtimes are offered in the order simctl lists them.
    const auto json = nlohmann::ordered_json::parse(salida->salida, nullptr, false);
    if (!json.is_object() || !json.contains("devices") || !dispositivosBienFormados(json["devices"]))
        return r;
    const std::string plantillaNombre = tr("Simulador: {name}");
    const std::string plantillaDetalle = tr("{runtime} · se borran sus apps y datos; el simulador queda");
    for (const auto& [clave, lista] : json["devices"].items()) {
        const std::string runtime = etiquetaDeRuntime(clave);
        for (const auto& dispositivo : lista) {
            const std::string* udid = textoDe(dispositivo, "udid");
            const std::string* nombre = textoDe(dispositivo, "name");
            const std::string* datos = textoDe(dispositivo, "dataPath");
            if (!udid || !nombre || !datos || !std::filesystem::path(*datos).is_absolute() || !plataforma::existe(*datos))
                continue;
            const std::string* estado = textoDe(dispositivo, "state");
            Elemento e;
            e.url = *datos;
            e.nombre = rellenar(plantillaNombre, {{"name", *nombre}});
            e.detalle = rellenar(plantillaDetalle, {{"runtime", runtime}});
            if (estado && *estado == "Booted")
                e.enUso = tr("Simulator");
            e.accion = Accion{simctl, {"erase", *udid}, e.url};
            r.push_back(std::move(e));
        }
    }
    return r;
}

std::vector<Elemento> Escaner::docker() const
{
    if (entorno.prueba || !programaDocker())
        return {};
    return dockerCon(*programaDocker());
}

std::vector<Elemento> Escaner::dockerCon(const std::string& programa, double limite) const
{
    const auto salida = plataforma::ejecutar(programa, {"system", "df", "--format", "{{json .}}"}, limite);
    if (!salida || salida->codigo != 0)
        return {};
    // One object a line, one line per kind of Docker object.
    int64_t total = 0;
    for (const std::string_view linea : trozos(salida->salida, '\n')) {
        const auto json = nlohmann::json::parse(linea, nullptr, false);
        if (!json.is_object())
            continue;
        const auto tipo = json.find("Type");
        // Volumes hold data; the prune command leaves them alone.
        if (tipo != json.end() && *tipo == "Local Volumes")
            continue;
        const auto recuperable = json.find("Reclaimable");
        if (recuperable == json.end() || !recuperable->is_string())
            continue;
        // A figure that would take the total past 64 bits counts for nothing.
        int64_t suma;
        if (!__builtin_add_overflow(total, bytesDeDocker(recuperable->get_ref<const std::string&>()), &suma))
            total = suma;
    }
    if (total < 1)
        return {};
    Elemento e;
    e.url = entorno.ruta(".docker");
    e.nombre = tr("Docker: imágenes y caché sin usar");
    e.detalle = tr("docker system prune -a (no toca volúmenes). Con Colima, el disco de la máquina virtual puede no "
                   "achicarse.");
    e.tamano = total;
    // With Colima the images live in the VM's disk; without it nothing
    // measures what the command freed.
    std::optional<std::filesystem::path> medir;
    if (const auto discos = entorno.ruta(".colima/_lima/_disks"); plataforma::existe(discos))
        medir = discos;
    e.accion = Accion{programa, {"system", "prune", "-af"}, medir};
    return {std::move(e)};
}

int64_t Escaner::bytesDeDocker(std::string_view texto)
{
    // "1.2GB (50%)": the first word counts, the share is ignored.
    const auto palabras = trozos(texto, ' ');
    const std::string_view pieza = palabras.empty() ? std::string_view() : palabras.front();
    // Tried in order: every suffix ends in "B".
    static constexpr std::pair<std::string_view, double> unidades[] = {
        {"TB", 1e12}, {"GB", 1e9}, {"MB", 1e6}, {"kB", 1e3}, {"KB", 1e3}, {"B", 1}};
    for (const auto& [sufijo, multiplicador] : unidades) {
        if (!pieza.ends_with(sufijo))
            continue;
        std::string_view numero = pieza.substr(0, pieza.size() - sufijo.size());
        if (numero.starts_with('+') && !numero.starts_with("+-"))
            numero.remove_prefix(1);
        double valor = 0;
        const auto [fin, error] = std::from_chars(numero.data(), numero.data() + numero.size(), valor);
        if (error != std::errc() || fin != numero.data() + numero.size())
            valor = 0;
        // Docker never states a figure beyond 64 bits (nor infinity or NaN):
        // such a text counts as 0 rather than as an absurd size.
        constexpr double tope = 9223372036854775808.0; // 2^63
        const double bytes = valor * multiplicador;
        return bytes > -tope && bytes < tope ? int64_t(bytes) : 0;
    }
    return 0;
}
