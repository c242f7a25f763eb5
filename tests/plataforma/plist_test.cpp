// SPDX-License-Identifier: GPL-3.0-or-later
// Property lists: ordinary ones read, binary and XML; lists nested far deeper
// than any Info.plist give nothing, on a worker's small stack, never a crash.
#include "plataforma/plist.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <cstdint>

using plataforma::leerPlist;

namespace {

void bigEndian(std::string& s, uint64_t v, int bytes)
{
    for (int i = bytes - 1; i >= 0; --i)
        s += char(v >> (8 * i) & 0xFF);
}

// A binary list of n arrays, each holding the next and the last empty, or
// the last holding the first again.
std::string arraysBinarios(uint32_t n, bool ciclo = false)
{
    std::string s = "bplist00";
    std::string tabla;
    for (uint32_t i = 0; i < n; ++i) {
        bigEndian(tabla, s.size(), 4);
        if (i + 1 < n || ciclo) {
            s += '\xA1';
            bigEndian(s, i + 1 < n ? i + 1 : 0, 4);
        } else {
            s += '\xA0';
        }
    }
    const uint64_t inicioTabla = s.size();
    s += tabla;
    s += std::string(6, '\0');
    s += char(4); // bytes of an offset
    s += char(4); // bytes of a reference
    bigEndian(s, n, 8);
    bigEndian(s, 0, 8);
    bigEndian(s, inicioTabla, 8);
    return s;
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
    };
    for (const std::string& contenido : abiertos) {
        const auto p = casa.archivoCon("hondo.plist", contenido);
        std::optional<plataforma::DiccionarioPlist> d;
        apoyo::conPilaPequena([&] { d = leerPlist(p); });
        EXPECT_FALSE(d) << contenido.substr(0, 40);
    }
}
