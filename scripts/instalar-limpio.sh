#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the package with apt on a fresh Debian 12 (a debootstrap of its
# minimal base, kept between runs under /var/tmp), in a chroot of a mount and
# process namespace of its own; runs the installed program there, in the
# terminal, offscreen and on a virtual X display where xdg-open hands it a
# vorlano:// link; then purges it and checks that its files, and nothing
# else, went.
# Needs root and Debian's archive; takes minutes, so CI runs the quicker
# dpkg --root check of scripts/comprobar-paquete.sh instead.
#   scripts/instalar-limpio.sh build/vorlano_<version>_<arch>.deb
set -euo pipefail

deb="$(realpath "$1")"
base="${VORLANO_DEBIAN_BASE:-/var/tmp/vorlano-bookworm}"
archivo="${VORLANO_DEBIAN_ARCHIVO:-http://deb.debian.org/debian}"

if [ ! -x "$base/usr/bin/apt-get" ]; then
  command -v debootstrap >/dev/null || apt-get install -y -qq --no-install-recommends debootstrap
  rm -rf "$base.nuevo"
  debootstrap --variant=minbase bookworm "$base.nuevo" "$archivo" >/dev/null
  mv "$base.nuevo" "$base"
fi

r="$(mktemp -d /var/tmp/vorlano-raiz.XXXXXX)"
trap 'rm -rf "$r"' EXIT
cp -a "$base/." "$r/"
cp "$deb" "$r/tmp/"
cp /etc/resolv.conf "$r/etc/resolv.conf"

cat > "$r/tmp/dentro.sh" <<'DENTRO'
set -euo pipefail
export DEBIAN_FRONTEND=noninteractive LANG=C.UTF-8 PATH=/usr/sbin:/usr/bin:/sbin:/bin
mount -t proc proc /proc
fallos=0
falla() { echo "FALLO: $*" >&2; fallos=$((fallos + 1)); }
archivos() {
  find / -xdev \( -path /proc -o -path /tmp -o -path /var/cache -o -path /var/lib/apt -o -path /var/lib/dpkg \
    -o -path /var/log -o -path /root -o -path /run \) -prune -o -print | sort
}

apt-get update -qq
apt-get install -y -qq --no-install-recommends xdg-utils desktop-file-utils xvfb xdotool procps >/dev/null

apt-get install -y -qq /tmp/vorlano_*.deb >/dev/null
echo "instalado: $(dpkg-query -W -f='${Package} ${Version}' vorlano), $(dpkg-query -W -f='${Installed-Size}' vorlano) KB"
archivos > /tmp/instalado
dpkg -L vorlano | sort > /tmp/propios

casa=/tmp/casa
mkdir -p "$casa/.cache/thumbnails/large"
head -c 200000 /dev/urandom > "$casa/.cache/thumbnails/large/a.png"
export VORLANO_HOME="$casa" XDG_RUNTIME_DIR=/tmp/run
mkdir -m 700 -p "$XDG_RUNTIME_DIR"

vorlano --version
vorlano --scan > /tmp/informe && grep -q 'thumbnails' /tmp/informe || falla "--scan: $(cat /tmp/informe)"
LANG=en_US.UTF-8 vorlano --scan | grep -q '^Selected by default: ' || falla "--scan en inglés"
LANG=es_ES.UTF-8 vorlano --help | grep -q '^Uso: vorlano' || falla "--help en español"
if vorlano --help | grep -q -- '--widget-png'; then
  vorlano --widget-png /tmp/widget --ejemplo >/dev/null
  ls /tmp/widget/widget-*.png || falla "--widget-png no escribió imágenes"
fi
man -w vorlano >/dev/null 2>&1 || [ -f /usr/share/man/man1/vorlano.1.gz ] || falla "sin manual"

# The window, offscreen: it opens and stays open until asked to end.
QT_QPA_PLATFORM=offscreen vorlano > /tmp/app.log 2>&1 &
app=$!
sleep 8
kill -0 "$app" 2>/dev/null || falla "la aplicación (offscreen) terminó: $(cat /tmp/app.log)"
kill "$app" 2>/dev/null || true
wait "$app" 2>/dev/null || true

# The desktop database knows the handler, and xdg-open hands the link to the
# running program, whose window then shows the map.
[ "$(xdg-mime query default x-scheme-handler/vorlano)" = "vorlano.desktop" ] || falla "xdg-mime no conoce vorlano://"
Xvfb :7 -screen 0 1280x800x24 >/dev/null 2>&1 &
x=$!
export DISPLAY=:7
sleep 2
vorlano > /tmp/app.log 2>&1 &
app=$!
timeout 30 xdotool search --sync --name '^Resumen$' >/dev/null || falla "la ventana no se abrió: $(cat /tmp/app.log)"
timeout 30 xdg-open vorlano://mapa || falla "xdg-open terminó con error"
timeout 30 xdotool search --sync --name '^Mapa del disco$' >/dev/null || falla "el enlace no llevó al mapa"
[ "$(pgrep -c -x vorlano)" = 1 ] || falla "el enlace abrió otra instancia"
kill "$app" "$x" 2>/dev/null || true
wait 2>/dev/null || true

# The purge takes every file of the package (the folders it shares stay),
# adds nothing and leaves everything else, its dependencies too, in place.
apt-get remove --purge -y -qq vorlano >/dev/null
archivos > /tmp/despues
quedan="$(comm -12 /tmp/propios /tmp/despues | while read -r f; do [ -d "$f" ] || echo "$f"; done)"
[ -z "$quedan" ] || falla "la purga dejó: $quedan"
nuevos="$(comm -13 /tmp/instalado /tmp/despues)"
[ -z "$nuevos" ] || falla "tras la purga aparecieron: $nuevos"
# The desktop's indexes (icon-theme.cache, mimeinfo.cache) are rebuilt, or
# dropped, by the triggers of the packages that own them.
faltan="$(comm -23 /tmp/instalado /tmp/propios | comm -23 - /tmp/despues | grep -v '\.cache$' || true)"
[ -z "$faltan" ] || falla "la purga quitó archivos ajenos: $faltan"
echo "purgado: $(wc -l < /tmp/propios) rutas del paquete, $(dpkg -l | grep -c '^ii') paquetes siguen instalados"
umount /proc
[ "$fallos" -eq 0 ] && echo "instalación limpia correcta"
exit "$fallos"
DENTRO

# The system's devices (apt wants /dev/pts), seen only in this namespace.
unshare --mount --pid --fork --propagation private sh -c \
  'mount --rbind /dev "$1/dev" && exec chroot "$1" /bin/bash /tmp/dentro.sh' sh "$r"
