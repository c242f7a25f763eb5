// SPDX-License-Identifier: GPL-3.0-or-later
// Reading desktop entries: the [Desktop Entry] group of a small key file.
#include "plataforma/entradas.h"

#include "plataforma/idioma.h"
#include "plataforma/lectura.h"
#include "plataforma/linux/xdg.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <set>

namespace fs = std::filesystem;

namespace plataforma {
namespace {

// Subfolders of an applications folder worth entering; deeper ones are no
// desktop's.
constexpr int profundidadEntradas = 3;

std::string resolver(const std::string& p)
{
    char buf[PATH_MAX];
    if (::realpath(p.c_str(), buf) == nullptr)
        return {};
    return buf;
}

// An absolute program, or the first executable of that name on PATH, links
// resolved.
std::string buscarEnPath(const std::string& programa)
{
    if (programa.empty())
        return {};
    if (programa.find('/') != std::string::npos)
        return programa.front() == '/' && ::access(programa.c_str(), X_OK) == 0 ? resolver(programa) : std::string();
    const char* path = std::getenv("PATH");
    std::string_view resto = path != nullptr ? path : "/usr/local/bin:/usr/bin:/bin";
    while (!resto.empty()) {
        const size_t dos = resto.find(':');
        const std::string dir(resto.substr(0, dos));
        resto = dos == std::string_view::npos ? std::string_view() : resto.substr(dos + 1);
        if (dir.empty())
            continue;
        const std::string c = dir + "/" + programa;
        if (::access(c.c_str(), X_OK) == 0)
            return resolver(c);
    }
    return {};
}

// The escapes of a string value: \s, \n, \t, \r and \\.
std::string desescapar(std::string_view v)
{
    std::string r;
    r.reserve(v.size());
    for (size_t i = 0; i < v.size(); ++i) {
        if (v[i] != '\\' || i + 1 == v.size()) {
            r += v[i];
            continue;
        }
        switch (const char c = v[++i]) {
        case 's': r += ' '; break;
        case 'n': r += '\n'; break;
        case 't': r += '\t'; break;
        case 'r': r += '\r'; break;
        default: r += c; // "\\" and what the standard doesn't define
        }
    }
    return r;
}

std::string_view recortar(std::string_view s)
{
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
        s.remove_suffix(1);
    return s;
}

// "%%" becomes "%"; every other field code goes.
std::string sinCodigos(const std::string& palabra)
{
    std::string r;
    for (size_t i = 0; i < palabra.size(); ++i) {
        if (palabra[i] != '%' || i + 1 == palabra.size())
            r += palabra[i];
        else if (palabra[++i] == '%')
            r += '%';
    }
    return r;
}

} // namespace

std::vector<std::string> palabrasDeExec(std::string_view exec)
{
    const std::string texto = desescapar(exec);
    std::vector<std::string> r;
    std::string actual;
    bool comillas = false, hay = false, codigo = false;
    auto cerrar = [&] {
        // A word that was only field codes stands for arguments the desktop
        // would add; it is no word of ours.
        if (hay) {
            std::string w = codigo ? sinCodigos(actual) : std::move(actual);
            if (!codigo || !w.empty())
                r.push_back(std::move(w));
        }
        actual.clear();
        hay = codigo = false;
    };
    for (size_t i = 0; i < texto.size(); ++i) {
        const char c = texto[i];
        if (c == '"') {
            comillas = !comillas;
            hay = true;
        } else if (c == '\\' && comillas && i + 1 < texto.size()) {
            actual += texto[++i];
        } else if ((c == ' ' || c == '\t' || c == '\n') && !comillas) {
            cerrar();
        } else {
            codigo |= c == '%' && !comillas;
            actual += c;
            hay = true;
        }
    }
    cerrar();
    return r;
}

std::optional<EntradaEscritorio> leerEntrada(const fs::path& archivo, std::string id)
{
    const auto texto = leerArchivo(archivo, maximoEntrada);
    if (!texto)
        return std::nullopt;
    EntradaEscritorio e;
    e.archivo = archivo;
    e.id = std::move(id);
    std::string exec, tryExec;
    bool grupo = false, hallado = false, oculta = false;
    std::string_view resto = *texto;
    while (!resto.empty()) {
        const size_t fin = resto.find('\n');
        const std::string_view linea = recortar(resto.substr(0, fin));
        resto = fin == std::string_view::npos ? std::string_view() : resto.substr(fin + 1);
        if (linea.empty() || linea.front() == '#')
            continue;
        if (linea.front() == '[') {
            grupo = linea == "[Desktop Entry]";
            hallado |= grupo;
            continue;
        }
        const size_t igual = linea.find('=');
        if (!grupo || igual == std::string_view::npos)
            continue;
        const std::string_view clave = recortar(linea.substr(0, igual));
        const std::string valor = desescapar(recortar(linea.substr(igual + 1)));
        if (clave == "Name")
            e.nombre = esUtf8(valor) ? valor : std::string();
        else if (clave == "Icon")
            e.icono = valor;
        else if (clave == "StartupWMClass")
            e.claseVentana = valor;
        else if (clave == "X-AppImage-Version")
            e.version = esUtf8(valor) ? valor : std::string();
        else if (clave == "Exec")
            exec = std::string(recortar(linea.substr(igual + 1))); // its own quoting comes after the escapes
        else if (clave == "TryExec")
            tryExec = valor;
        else if (clave == "Type")
            e.aplicacion = valor == "Application";
        else if ((clave == "NoDisplay" || clave == "Hidden") && valor == "true")
            oculta = true;
    }
    if (!hallado)
        return std::nullopt;

    const std::vector<std::string> palabras = palabrasDeExec(exec);
    size_t i = 0;
    if (i < palabras.size() && palabras[i] == "env")
        for (++i; i < palabras.size() && palabras[i].find('=') != std::string::npos;)
            ++i;
    if (i < palabras.size())
        e.programa = buscarEnPath(palabras[i]);
    e.visible = !oculta && (tryExec.empty() || !buscarEnPath(tryExec).empty());
    return e;
}

bool esIcono(const fs::path& archivo)
{
    // The largest real ones are SVGs of a few hundred KB.
    constexpr off_t maximoIcono = 4 << 20;
    struct stat st;
    return ::stat(archivo.c_str(), &st) == 0 && S_ISREG(st.st_mode) && st.st_size <= maximoIcono;
}

fs::path iconoDeTema(const fs::path& share, const std::string& nombre)
{
    if (nombre.empty() || nombre.find('/') != std::string::npos)
        return {};
    for (const char* tam : {"scalable", "512x512", "256x256", "128x128", "96x96", "64x64", "48x48", "32x32"})
        for (const char* ext : {".svg", ".png"})
            if (const fs::path p = share / "icons/hicolor" / tam / "apps" / (nombre + ext); esIcono(p))
                return p;
    return {};
}

std::vector<EntradaEscritorio> entradasDe(const fs::path& carpeta)
{
    std::vector<EntradaEscritorio> r;
    std::error_code ec;
    for (fs::recursive_directory_iterator it(carpeta, fs::directory_options::skip_permission_denied, ec), fin;
         !ec && it != fin; it.increment(ec)) {
        if (it.depth() >= profundidadEntradas)
            it.disable_recursion_pending();
        const fs::path& p = it->path();
        std::error_code ec2;
        if (p.extension() != ".desktop" || !it->is_regular_file(ec2))
            continue;
        // A link is read where it leads (packages link their entries), and
        // stays the entry's place.
        const fs::path real = it->is_symlink(ec2) ? fs::canonical(p, ec2) : p;
        if (auto e = ec2 ? std::nullopt : leerEntrada(real, idDeEntrada(carpeta, p))) {
            e->archivo = p;
            r.push_back(std::move(*e));
        }
    }
    return r;
}

} // namespace plataforma
