#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds a realistic scratch home for trying Vorlano in test mode:
#   scripts/casa-demo.sh <carpeta>
#   VORLANO_HOME=<carpeta> build/vorlano --scan
# The folder is rebuilt from scratch each time; a folder that isn't an earlier
# demo home (it lacks the marker file) is never emptied.
set -euo pipefail

casa="${1:?uso: casa-demo.sh <carpeta>}"
marca=".casa-demo-vorlano"

if [ -e "$casa" ]; then
  if [ -f "$casa/$marca" ]; then
    chmod -R u+rwX "$casa"
    rm -rf -- "$casa"
  elif [ -n "$(ls -A "$casa")" ]; then
    echo "casa-demo: $casa existe y no es una casa de demostración; no la toco" >&2
    exit 1
  fi
fi
mkdir -p "$casa"
touch "$casa/$marca"
cd "$casa"

# archivo <ruta> <KiB>: a file with that many KiB of real (allocated) data.
archivo() {
  mkdir -p "$(dirname "$1")"
  dd if=/dev/zero of="$1" bs=1024 count="$2" status=none
}
# varios <carpeta> <n> <KiB>: n files of that size.
varios() {
  local i
  for ((i = 1; i <= $2; i++)); do archivo "$1/archivo-$i.bin" "$3"; done
}

# Category "apps": caches of applications, some of the system's (never listed),
# some owned by the rule tables (listed elsewhere), one with a name that isn't UTF-8.
varios "Library/Caches/org.mozilla.firefox/cache2/entries" 40 96
varios "Library/Caches/com.spotify.client/Data" 12 512
varios "Library/Caches/Google/Chrome/Default/Cache" 30 64
varios "Library/Caches/com.tinyspeck.slackmacgap" 6 300
varios "Library/Caches/org.videolan.vlc" 3 200
varios "Library/Caches/com.apple.Safari" 10 100
varios "Library/Caches/CloudKit" 5 100
archivo "Library/Caches/$(printf 'cach\xe9-antigua')/datos.bin" 700
archivo "Library/Caches/diminuta/x" 8
archivo "Library/Caches/.DS_Store" 12

# Category "logs": application logs and crash reports.
varios "Library/Logs/DiagnosticReports" 14 40
varios "Library/Logs/JetBrains/IdeaIC2024.1" 5 250
archivo "Library/Logs/install.log" 900
archivo "Library/Logs/fsck_hfs.log" 120
archivo "Library/Logs/.DS_Store" 12

# Ordinary personal files, which no category offers.
varios "Documents/Facturas" 20 24
varios "Pictures/Vacaciones" 25 180
archivo "Desktop/notas.txt" 4

echo "Casa de demostración en $casa ($(find . -type f | wc -l) archivos)"
