// SPDX-License-Identifier: GPL-3.0-or-later
// The fixed data of the eleven categories, safest first.
#include "escaner/escaner.h"

#include "nucleo/formato.h"
#include "nucleo/textos.h"

namespace {

struct FilaCategoria {
    const char* id;
    const char* titulo;
    const char* descripcion;
    const char* icono;
    Nivel nivel;
    Modo modo;
};

constexpr FilaCategoria tabla[] = {
    {"apps", QT_TRANSLATE_NOOP("Vorlano", "Cachés de aplicaciones"),
     QT_TRANSLATE_NOOP("Vorlano", "Archivos temporales que las apps vuelven a crear solas."), "square.stack.3d.up",
     Nivel::seguro, Modo::borrar},
    {"logs", QT_TRANSLATE_NOOP("Vorlano", "Registros (logs)"),
     QT_TRANSLATE_NOOP("Vorlano", "Historiales de apps e informes de fallos antiguos."), "doc.text", Nivel::seguro,
     Modo::borrar},
    {"dev", QT_TRANSLATE_NOOP("Vorlano", "Cachés de programación"),
     QT_TRANSLATE_NOOP("Vorlano", "npm, uv, pip, Homebrew, Xcode… se regeneran al instalar o compilar."), "hammer",
     Nivel::seguro, Modo::borrar},
    {"redescarga", QT_TRANSLATE_NOOP("Vorlano", "Herramientas descargadas"),
     QT_TRANSLATE_NOOP("Vorlano", "Navegadores de prueba, modelos, imágenes de VM. Se bajan de nuevo cuando se usen."),
     "icloud.and.arrow.down", Nivel::redescarga, Modo::borrar},
    {"compilaciones", QT_TRANSLATE_NOOP("Vorlano", "Compilaciones de proyectos"),
     QT_TRANSLATE_NOOP("Vorlano", ".next, dist, build… se regeneran al compilar. Van a la Papelera."), "shippingbox",
     Nivel::revisar, Modo::papelera},
    {"dependencias", QT_TRANSLATE_NOOP("Vorlano", "Dependencias de proyectos"),
     QT_TRANSLATE_NOOP("Vorlano",
                       "node_modules y entornos virtuales. Se recuperan con npm install. Van a la Papelera."),
     "cube.box", Nivel::revisar, Modo::papelera},
    {"instaladores", QT_TRANSLATE_NOOP("Vorlano", "Instaladores"),
     QT_TRANSLATE_NOOP("Vorlano",
                       "Archivos .dmg, .pkg y .xip que ya no se necesitan después de instalar. Van a la Papelera."),
     "opticaldiscdrive", Nivel::revisar, Modo::papelera},
    {"grandes", QT_TRANSLATE_NOOP("Vorlano", "Archivos grandes"),
     QT_TRANSLATE_NOOP("Vorlano",
                       "Los archivos más pesados de tu carpeta personal (más de {bytes}). Van a la Papelera."),
     "doc.badge.ellipsis", Nivel::revisar, Modo::papelera},
    {"huerfanos", QT_TRANSLATE_NOOP("Vorlano", "Restos de apps desinstaladas"),
     QT_TRANSLATE_NOOP("Vorlano", "Preferencias y datos de apps que ya no están en tu Mac. Van a la Papelera."),
     "puzzlepiece.extension", Nivel::revisar, Modo::papelera},
    {"duplicados", QT_TRANSLATE_NOOP("Vorlano", "Archivos duplicados"),
     QT_TRANSLATE_NOOP("Vorlano",
                       "Copias idénticas en Escritorio, Documentos, Descargas, Imágenes y Películas. Se conserva "
                       "la más antigua. Van a la Papelera."),
     "doc.on.doc", Nivel::revisar, Modo::papelera},
    {"descargas", QT_TRANSLATE_NOOP("Vorlano", "Descargas antiguas"),
     QT_TRANSLATE_NOOP("Vorlano", "Archivos en Descargas con más de {dias} días. Van a la Papelera."),
     "arrow.down.circle", Nivel::revisar, Modo::papelera},
};

} // namespace

Categoria Escaner::categoria(std::string_view id, std::vector<Elemento> elementos) const
{
    for (const FilaCategoria& f : tabla) {
        if (id != f.id)
            continue;
        Categoria c;
        c.id = f.id;
        c.titulo = tr(f.titulo);
        c.descripcion = rellenar(tr(f.descripcion), {{"bytes", formatoBytes(minimoGrande())},
                                                     {"dias", std::to_string(diasDescargas)}});
        c.icono = f.icono;
        c.nivel = f.nivel;
        c.modo = f.modo;
        c.elementos = std::move(elementos);
        return c;
    }
    // Only the ids of the table are ever asked for.
    return Categoria{std::string(id), {}, {}, {}, Nivel::revisar, Modo::papelera, std::move(elementos)};
}
