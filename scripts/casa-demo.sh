#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds a realistic scratch home for trying Vorlano in test mode:
#   scripts/casa-demo.sh <carpeta>
#   VORLANO_HOME=<carpeta> VORLANO_GRANDE_MB=20 build/vorlano --scan
# (the large files here are tens of MB, so the floor is lowered to 20 MB)
#   VORLANO_HOME=<carpeta> build/vorlano --mapa
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

# archivo <ruta> <KiB>: a file with that many KiB of real (allocated) data,
# random so that no two files are copies of each other by chance.
archivo() {
  mkdir -p "$(dirname "$1")"
  dd if=/dev/urandom of="$1" bs=1024 count="$2" status=none
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

# Category "dev": development caches known by name.
varios ".npm/_cacache/content-v2" 20 256
varios ".cache/pip/http" 8 300
varios "Library/Caches/Homebrew/downloads" 3 2048
varios "Library/Developer/Xcode/DerivedData/MiApp-abcdef/Build" 10 512
varios ".gradle/caches/modules-2" 6 400
varios "Library/Application Support/Code/CachedExtensionVSIXs" 2 1500

# Category "redescarga": tools and models fetched again when next used.
varios "Library/Caches/ms-playwright/chromium-1091" 8 1024
varios ".cache/huggingface/hub" 3 4096
varios ".ollama/models/blobs" 2 6000
varios ".m2/repository/org" 10 200

# Electron-style applications: their cache folders join "apps"; their data
# (IndexedDB, Local Storage) is never offered. "Sin firma" lacks the telltale
# Code Cache and GPUCache folders and isn't one.
varios "Library/Application Support/Slack/Cache/Cache_Data" 12 200
varios "Library/Application Support/Slack/Code Cache/js" 6 150
varios "Library/Application Support/Slack/GPUCache" 2 100
varios "Library/Application Support/Slack/IndexedDB" 4 200
varios "Library/Application Support/Code/Cache/Cache_Data" 5 200
varios "Library/Application Support/Code/CachedData/1a2b3c" 3 300
varios "Library/Application Support/Code/Code Cache/js" 3 100
varios "Library/Application Support/Sin firma/Cache" 4 200

# VS Code's state of each project it opened: two projects that are gone (one
# row, pre-selected), one unopened for five months, one in use today.
url_de() { # the file URL of an absolute path, percent-encoded
  local LC_ALL=C s="$1" r="" c i
  for ((i = 0; i < ${#s}; i++)); do
    c="${s:i:1}"
    case "$c" in
    [A-Za-z0-9/._~-]) r+="$c" ;;
    *) r+=$(printf '%%%02X' "'$c") ;;
    esac
  done
  printf 'file://%s' "$r"
}
estado_vscode() { # estado_vscode <id> <proyecto> <fecha para touch -d>
  local d="Library/Application Support/Code/User/workspaceStorage/$1"
  mkdir -p "$d"
  printf '{"folder":"%s"}\n' "$(url_de "$2")" >"$d/workspace.json"
  archivo "$d/state.vscdb" 400
  touch -d "$3" "$d/state.vscdb" "$d/workspace.json" "$d"
}
mkdir -p "Proyectos/web" "Proyectos/tesis 2023"
estado_vscode 1f3e9a "$PWD/Proyectos/web" "1 hour ago"
estado_vscode 77aa01 "$PWD/Proyectos/tesis 2023" "150 days ago"
estado_vscode 9c01bb "$PWD/Proyectos/borrado" "10 days ago"
estado_vscode 4d2b7e "$PWD/Proyectos/movido" "200 days ago"

# Downloads. Old ones are judged by the date they were made (the birth time),
# which Linux can't set back (touch -d changes only the modification time), so
# this home has no old downloads to offer: an old modification date counts for
# nothing.
archivo "Downloads/factura.pdf" 300
archivo "Downloads/instalador.tar.gz" 4000
touch -d "1 year ago" "Downloads/instalador.tar.gz"

# Applications in ~/Applications, with their Library. Info.plist is XML, or
# binary where plistutil (libplist-utils) is at hand, as a Mac mostly has it.
app() { # app <carpeta.app> <identificador> <nombre> <binario: si|no>
  mkdir -p "$1/Contents/MacOS"
  cat >"$1/Contents/Info.plist" <<PLIST
<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
  <key>CFBundleIdentifier</key><string>$2</string>
  <key>CFBundleName</key><string>$3</string>
  <key>CFBundleExecutable</key><string>$3</string>
  <key>CFBundleShortVersionString</key><string>2.1</string>
</dict>
</plist>
PLIST
  archivo "$1/Contents/MacOS/$3" 900
  if [ "$4" = si ] && command -v plistutil >/dev/null; then
    plistutil -i "$1/Contents/Info.plist" -o "$1/Contents/Info.bin" -f bin
    mv "$1/Contents/Info.bin" "$1/Contents/Info.plist"
  fi
}
app "Applications/Pintor.app" com.pintor.app Pintor si
app "Applications/Estudio/Notas Rápidas.app" org.notasrapidas.mac NotasRapidas no
varios "Library/Application Support/Pintor" 4 128
archivo "Library/Preferences/com.pintor.app.plist" 8
archivo "Library/Application Support/com.pintor.helper/estado.db" 300
mkdir -p "Library/Saved Application State/org.notasrapidas.mac.savedState"

# Category "huerfanos": what applications deleted by hand left behind; some of
# it under one identifier in several places.
varios "Library/Application Support/com.viejoeditor.app" 6 256
archivo "Library/Preferences/com.viejoeditor.app.plist" 12
archivo "Library/Saved Application State/com.viejoeditor.app.savedState/ventanas.plist" 40
archivo "Library/HTTPStorages/net.lectorrss.Lector/httpstorages.sqlite" 160
archivo "Library/WebKit/net.lectorrss.Lector/WebsiteData/datos.db" 600
archivo "Library/Application Support/io.juegoviejo.Juego/partidas.dat" 2400
archivo "Library/Preferences/com.apple.dock.plist" 90

# Ordinary personal files, which no category offers.
varios "Documents/Facturas" 20 24
varios "Pictures/Vacaciones" 25 180
archivo "Desktop/notas.txt" 4

# Categories "compilaciones" and "dependencias": build output and installed
# dependencies beside the file that marks their project. A build folder with
# no marker is an ordinary folder, and a dist that git tracks is left alone.
archivo "Proyectos/tienda-web/package.json" 1
varios "Proyectos/tienda-web/node_modules/react/cjs" 30 64
varios "Proyectos/tienda-web/dist/assets" 8 100
varios "Proyectos/tienda-web/.next/cache" 10 80
archivo "Proyectos/api-python/pyproject.toml" 1
varios "Proyectos/api-python/.venv/lib/python3.12/site-packages" 20 60
archivo "Proyectos/motor-rust/Cargo.toml" 1
varios "Proyectos/motor-rust/target/debug" 6 400
archivo "Proyectos/app-android/build.gradle.kts" 1
varios "Proyectos/app-android/build/intermediates" 10 150
varios "Proyectos/apuntes/build" 3 100
if command -v git >/dev/null; then
  archivo "Proyectos/sitio-git/package.json" 1
  varios "Proyectos/sitio-git/dist" 4 100
  git -C "Proyectos/sitio-git" -c init.defaultBranch=main init -q
  git -C "Proyectos/sitio-git" add -A
  git -C "Proyectos/sitio-git" -c user.name=Demo -c user.email=demo@example.org commit -q -m inicio
fi

# Category "instaladores": disk images and packages, in any case.
archivo "Downloads/Firefox 128.dmg" 2400
archivo "Downloads/Zoom.pkg" 900
archivo "Downloads/Xcode_15.xip" 3100
archivo "Desktop/Instalador.DMG" 700

# Category "grandes", above the lowered floor: space reserved, not written.
mkdir -p Movies Documents/Máquinas
fallocate -l 60M "Movies/boda.mov"
fallocate -l 35M "Documents/Máquinas/debian.img"

# Category "duplicados": identical copies across the personal folders.
archivo "Documents/Contrato alquiler.pdf" 300
cp "Documents/Contrato alquiler.pdf" "Downloads/Contrato alquiler.pdf"
cp "Documents/Contrato alquiler.pdf" "Downloads/Contrato alquiler (1).pdf"
cp "Pictures/Vacaciones/archivo-3.bin" "Desktop/archivo-3 copia.bin"

# For the disk map (--mapa): music above 1 MB, and places the map never
# enters, mail and a photo library.
varios "Music/Albumes/Primero" 4 2500
varios "Music/Albumes/Segundo" 3 1800
varios "Library/Mail/V10/INBOX.mbox" 6 500
varios "Pictures/Fotos.photoslibrary/originals" 5 800

echo "Casa de demostración en $casa ($(find . -type f | wc -l) archivos)"
