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
    if (esAscii(bytes))
        return std::string(bytes);
    return QString::fromUtf8(bytes.data(), qsizetype(bytes.size())).toStdString();
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
