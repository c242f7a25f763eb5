// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/idioma.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QString>
#include <QTranslator>

#include <unicode/locid.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>

namespace plataforma {

namespace {

bool esAscii(std::string_view t)
{
    for (unsigned char c : t)
        if (c >= 0x80)
            return false;
    return true;
}

bool esUtf8Valido(std::string_view t)
{
    int32_t i = 0;
    const auto n = int32_t(t.size());
    while (i < n) {
        UChar32 c;
        U8_NEXT(reinterpret_cast<const uint8_t*>(t.data()), i, n, c);
        if (c < 0)
            return false;
    }
    return true;
}

const QString carpetaTraducciones = QStringLiteral(":/i18n");

std::string elegirIdioma(const QStringList& preferidos, const std::vector<std::string>& disponibles)
{
    auto tiene = [&](const std::string& id) {
        for (const auto& d : disponibles)
            if (d == id)
                return true;
        return false;
    };
    for (const QString& p : preferidos) {
        // "es-MX" -> "es_MX", then the bare language "es".
        std::string completo = QString(p).replace(u'-', u'_').toStdString();
        if (tiene(completo))
            return completo;
        std::string idioma = completo.substr(0, completo.find('_'));
        if (tiene(idioma))
            return idioma;
    }
    return "es";
}

} // namespace

std::string tr(const char* clave)
{
    return QCoreApplication::translate("Vorlano", clave).toStdString();
}

std::string textoVisible(std::string_view bytes)
{
    const std::string utf8 =
        esAscii(bytes) ? std::string(bytes) : QString::fromUtf8(bytes.data(), qsizetype(bytes.size())).toStdString();
    // A control character in a name would move a terminal's cursor, clear its
    // screen or start an escape sequence: each one is shown as its picture
    // (U+2400 on), the C1 ones (U+0080 to U+009F) as U+FFFD.
    auto control = [](unsigned char c) { return c < 0x20 || c == 0x7F || c == 0xC2; };
    if (std::none_of(utf8.begin(), utf8.end(), control))
        return utf8;
    std::string r;
    for (size_t i = 0; i < utf8.size(); ++i) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        if (c < 0x20 || c == 0x7F) {
            const char32_t dibujo = c == 0x7F ? 0x2421 : 0x2400 + c;
            r += char(0xE0 | dibujo >> 12);
            r += char(0x80 | (dibujo >> 6 & 0x3F));
            r += char(0x80 | (dibujo & 0x3F));
        } else if (c == 0xC2 && i + 1 < utf8.size() && static_cast<unsigned char>(utf8[i + 1]) < 0xA0) {
            r += "\uFFFD";
            ++i;
        } else {
            r += char(c);
        }
    }
    return r;
}

std::vector<std::string> idiomasDisponibles()
{
    std::vector<std::string> r{"es"};
    // Compiled translations are embedded as :/i18n/vorlano_<locale>.qm.
    const QStringList qm = QDir(carpetaTraducciones).entryList({QStringLiteral("vorlano_*.qm")}, QDir::Files);
    for (const QString& f : qm)
        if (std::string id = f.mid(8, f.size() - 8 - 3).toStdString(); id != "es")
            r.push_back(std::move(id));
    return r;
}

const std::string& localeApp()
{
    static const std::string id = elegirIdioma(QLocale::system().uiLanguages(), idiomasDisponibles());
    return id;
}

void instalarTraducciones()
{
    // Spanish too: where the system has a Spanish catalogue, it rewords the
    // source texts that name another system's parts.
    if (QCoreApplication::instance() == nullptr)
        return;
    auto* t = new QTranslator(QCoreApplication::instance());
    if (t->load(QStringLiteral("vorlano_") + QString::fromStdString(localeApp()), carpetaTraducciones))
        QCoreApplication::installTranslator(t);
    else
        delete t;
}

std::string minusculas(std::string_view texto)
{
    if (esAscii(texto) || !esUtf8Valido(texto)) {
        std::string r(texto);
        for (char& c : r)
            if (c >= 'A' && c <= 'Z')
                c = char(c - 'A' + 'a');
        return r;
    }
    std::string r;
    icu::UnicodeString::fromUTF8(icu::StringPiece(texto.data(), int32_t(texto.size())))
        .toLower(icu::Locale::getRoot())
        .toUTF8String(r);
    return r;
}

size_t caracteres(std::string_view texto)
{
    size_t n = 0;
    for (unsigned char c : texto)
        if ((c & 0xC0) != 0x80)
            ++n;
    return n;
}

bool esUtf8(std::string_view bytes)
{
    return esAscii(bytes) || esUtf8Valido(bytes);
}

} // namespace plataforma
