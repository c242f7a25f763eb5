#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Debian package from a build folder and checks it the way a
# distribution would: its contents, lintian, the desktop entries, the
# AppStream data; then installs it with dpkg into an empty root, runs the
# installed program there, purges it and looks for anything left behind.
#   scripts/comprobar-paquete.sh [build folder]
set -euo pipefail

raiz="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$(cd "${1:-$raiz/build}" && pwd)"
tmp="$(mktemp -d)"
trap 'rm -rf "$tmp"' EXIT
fallos=0
falla() { echo "FALLO: $*" >&2; fallos=$((fallos + 1)); }

(cd "$build" && cpack -G DEB -B "$tmp/cpack" >/dev/null)
deb="$(ls "$tmp"/cpack/vorlano_*.deb)"
echo "paquete: $(basename "$deb") ($(du -k "$deb" | cut -f1) KB)"

# The files a desktop needs, where it looks for them.
dpkg-deb -c "$deb" | awk '{print $6}' > "$tmp/contenido"
for f in ./usr/bin/vorlano ./usr/share/applications/vorlano.desktop \
  ./usr/share/icons/hicolor/scalable/apps/vorlano.svg ./usr/share/icons/hicolor/48x48/apps/vorlano.png \
  ./usr/share/icons/hicolor/256x256/apps/vorlano.png ./usr/share/metainfo/app.vorlano.Vorlano.metainfo.xml \
  ./usr/share/man/man1/vorlano.1.gz ./usr/share/doc/vorlano/copyright ./usr/share/doc/vorlano/changelog.gz; do
  grep -qxF "$f" "$tmp/contenido" || falla "falta $f en el paquete"
done
# The libraries dpkg-shlibdeps found, and what the program loads at run time.
depende="$(dpkg-deb -f "$deb" Depends)"
for p in libqt6quick6 libqt6core6 libicu72 qml6-module-qtquick-controls qt6-qpa-plugins \
  fonts-material-design-icons-iconfont; do
  [[ "$depende" == *"$p"* ]] || falla "Depends no nombra $p: $depende"
done

# lintian: no errors (warnings are printed for a reader).
lintian --fail-on error --tag-display-limit 0 "$deb" || falla "lintian da errores"

dpkg-deb -x "$deb" "$tmp/extraido"
for e in "$tmp"/extraido/usr/share/applications/*.desktop; do
  desktop-file-validate "$e" || falla "desktop-file-validate: $(basename "$e")"
done
grep -q '^MimeType=.*x-scheme-handler/vorlano;' "$tmp/extraido/usr/share/applications/vorlano.desktop" ||
  falla "la entrada no declara los enlaces vorlano://"
appstreamcli validate --no-net "$tmp"/extraido/usr/share/metainfo/*.xml || falla "appstreamcli validate"

# An empty root with nothing but dpkg's database: the package's own files
# must be enough for the program, and purging must take them all.
r="$tmp/raiz"
mkdir -p "$r/var/lib/dpkg/info" "$r/var/lib/dpkg/updates"
touch "$r/var/lib/dpkg/status"
find "$r" | sort > "$tmp/antes"
dpkg --root="$r" --log=/dev/null --force-depends -i "$deb" >"$tmp/dpkg.log" 2>&1 || falla "dpkg -i: $(cat "$tmp/dpkg.log")"
[ "$(dpkg-query --admindir="$r/var/lib/dpkg" -W -f='${Status}' vorlano)" = "install ok installed" ] ||
  falla "dpkg no lo dejó instalado"
vorlano="$r/usr/bin/vorlano"
casa="$tmp/casa"
mkdir -p "$casa/.cache/thumbnails/large"
head -c 200000 /dev/urandom > "$casa/.cache/thumbnails/large/a.png"
[ "$("$vorlano" --version)" = "vorlano $(dpkg-deb -f "$deb" Version)" ] || falla "--version"
LANG=C.UTF-8 VORLANO_HOME="$casa" "$vorlano" --scan > "$tmp/informe"
grep -q "^Carpeta: $casa (PRUEBA)" "$tmp/informe" && grep -q '^Seleccionado por defecto: ' "$tmp/informe" ||
  falla "--scan: $(cat "$tmp/informe")"
grep -q 'thumbnails' "$tmp/informe" || falla "--scan no encontró las miniaturas: $(cat "$tmp/informe")"
LANG=en_US.UTF-8 VORLANO_HOME="$casa" "$vorlano" --scan | grep -q '^Selected by default: ' || falla "--scan en inglés"
if "$vorlano" --help | grep -q -- '--widget-png'; then
  VORLANO_HOME="$casa" "$vorlano" --widget-png "$tmp/widget" --ejemplo >/dev/null
  ls "$tmp"/widget/widget-*.png >/dev/null || falla "--widget-png no escribió imágenes"
fi
dpkg --root="$r" --log=/dev/null --purge vorlano >/dev/null
find "$r" -not -path "$r/var/lib/dpkg/*" | sort > "$tmp/despues"
grep -v "^$r/var/lib/dpkg/" "$tmp/antes" | diff - "$tmp/despues" || falla "la purga dejó archivos"

[ "$fallos" -eq 0 ] || exit 1
echo "paquete correcto"
