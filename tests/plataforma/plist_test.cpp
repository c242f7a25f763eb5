// SPDX-License-Identifier: GPL-3.0-or-later
// Property lists: ordinary ones read, binary and XML; lists nested far deeper
// than any Info.plist give nothing, on a worker's small stack, never a crash.
#include "plataforma/plist.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

using plataforma::leerPlist;

namespace {

void bigEndian(std::string& s, uint64_t v, int bytes)
{
    for (int i = bytes - 1; i >= 0; --i)
        s += char(v >> (8 * i) & 0xFF);
}

// A binary list of the objects given, the first on top; offsets and
// references are `tam` bytes.
std::string binaria(const std::vector<std::string>& objetos, int tam = 4)
{
    std::string s = "bplist00";
    std::string tabla;
    for (const std::string& o : objetos) {
        bigEndian(tabla, s.size(), tam);
        s += o;
    }
    const uint64_t inicioTabla = s.size();
    s += tabla;
    s += std::string(6, '\0');
    s += char(tam); // bytes of an offset
    s += char(tam); // bytes of a reference
    bigEndian(s, objetos.size(), 8);
    bigEndian(s, 0, 8);
    bigEndian(s, inicioTabla, 8);
    return s;
}

// n arrays, each holding the next and the last empty, or the last holding
// the first again.
std::string arraysBinarios(uint32_t n, bool ciclo = false)
{
    std::vector<std::string> objetos(n);
    for (uint32_t i = 0; i < n; ++i) {
        if (i + 1 < n || ciclo) {
            objetos[i] = '\xA1';
            bigEndian(objetos[i], i + 1 < n ? i + 1 : 0, 4);
        } else {
            objetos[i] = '\xA0';
        }
    }
    return binaria(objetos);
}

// A dictionary of one key and its string value, both ASCII, or the value in
// UTF-16 (big-endian units, as written).
std::string unaClave(const std::string& clave, const std::string& valor, bool utf16 = false)
{
    return binaria({std::string("\xD1\x01\x02", 3), char(0x50 | clave.size()) + clave,
                    char((utf16 ? 0x60 : 0x50) | valor.size() / (utf16 ? 2 : 1)) + valor},
                   1);
}

std::string repetir(std::string_view trozo, int n)
{
    std::string r;
    r.reserve(trozo.size() * size_t(n));
    for (int i = 0; i < n; ++i)
        r += trozo;
    return r;
}

} // namespace

TEST(Plist, AnidadasSinFinNoDanNadaYLasNormalesSeLeen)
{
    apoyo::CasaPrueba casa;
    const std::string xml = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0"><dict>
  <!-- a comment with <array> in it -->
  <key>CFBundleIdentifier</key><string>org.ejemplo.<![CDATA[Editor</dict>]]></string>
  <key>Listas</key><array><array><dict><key>a</key><array/></dict></array></array>
</dict></plist>
)";
    const auto normal = casa.archivoCon("normal.plist", xml);
    const auto binaria = casa.ruta("binaria.plist");
    ASSERT_EQ(apoyo::ejecutarPrograma("/usr/bin/plistutil",
                                      {"-i", normal.string(), "-o", binaria.string(), "-f", "bin"})
                  .estado,
              0);
    for (const auto& p : {normal, binaria}) {
        const auto d = leerPlist(p);
        ASSERT_TRUE(d) << p;
        EXPECT_EQ(plataforma::textoDe(*d, "CFBundleIdentifier"), "org.ejemplo.Editor</dict>");
        EXPECT_EQ(d->count("Listas"), 1u);
    }

    const auto corta = leerPlist(casa.archivoCon("corta.plist", unaClave("CFBundleName", std::string("\0E\0d", 4), true)));
    ASSERT_TRUE(corta);
    EXPECT_EQ(plataforma::textoDe(*corta, "CFBundleName"), "Ed");

    // Larger than any Info.plist, though well formed: not read.
    std::string grande = xml;
    grande.insert(grande.find("</dict></plist>"), 16 << 20, ' ');
    EXPECT_FALSE(leerPlist(casa.archivoCon("grande.plist", grande)));

    const std::string abiertos[] = {
        "<plist>" + repetir("<array>", 200000) + repetir("</array>", 200000) + "</plist>",
        "<plist>" + repetir("<dict><key>k</key>", 400000) + "<dict/>" + repetir("</dict>", 400000) + "</plist>",
        // closing tags that close nothing don't make room for more depth
        "<plist><dict>" + repetir("</x>", 1000) + repetir("<array>", 200000) + "</dict></plist>",
        // a quoted "/>" doesn't close the tag
        "<plist>" + repetir("<array a=\"/>\">", 200000) + "</plist>",
        arraysBinarios(200000),
        arraysBinarios(3, true),
        // libplist aborts on a string or key with a NUL in it
        unaClave("CFBundleName", std::string("Edi\0tor", 7)),
        unaClave("CFBundleName", std::string("\0E\0\0", 4), true),
        unaClave(std::string("CF\0Bundle", 9), "Editor"),
    };
    for (const std::string& contenido : abiertos) {
        const auto p = casa.archivoCon("hondo.plist", contenido);
        std::optional<plataforma::DiccionarioPlist> d;
        apoyo::conPilaPequena([&] { d = leerPlist(p); });
        EXPECT_FALSE(d) << contenido.substr(0, 40);
    }
}
