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
# varios <carpeta> <n> <KiB>: n files of that size, archivo-01.bin and on,
# cut from one random stream (two processes, however many files).
varios() {
  mkdir -p "$1"
  head -c $(($2 * $3 * 1024)) /dev/urandom |
    split -b $(($3 * 1024)) -a 2 --numeric-suffixes=1 --additional-suffix=.bin - "$1/archivo-"
}

# Category "apps": caches of applications, some of the system's (never listed),
# some owned by the rule tables (listed elsewhere), one with a name that isn't UTF-8.
varios "Library/Caches/org.mozilla.firefox/cache2/entries" 40 64
varios "Library/Caches/com.spotify.client/Data" 12 256
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

# Descargas. Old ones are judged by the date they were made (the birth time),
# which Linux can't set back (touch -d changes only the modification time), so
# this home has no old downloads to offer: an old modification date counts for
# nothing.
archivo "Descargas/factura.pdf" 300
archivo "Descargas/instalador.tar.gz" 4000
touch -d "1 year ago" "Descargas/instalador.tar.gz"

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
varios "Documentos/Facturas" 20 24
varios "Imágenes/Vacaciones" 25 180
archivo "Escritorio/notas.txt" 4

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
archivo "Descargas/Firefox 128.dmg" 2400
archivo "Descargas/Zoom.pkg" 900
archivo "Descargas/Xcode_15.xip" 3100
archivo "Escritorio/Instalador.DMG" 700

# Category "grandes", above the lowered floor: space reserved, not written.
mkdir -p Vídeos Documentos/Máquinas
fallocate -l 60M "Vídeos/boda.mov"
fallocate -l 35M "Documentos/Máquinas/debian.img"

# Category "duplicados": identical copies across the personal folders, which
# user-dirs.dirs (below) names as a Spanish desktop does.
archivo "Documentos/Contrato alquiler.pdf" 300
cp "Documentos/Contrato alquiler.pdf" "Descargas/Contrato alquiler.pdf"
cp "Documentos/Contrato alquiler.pdf" "Descargas/Contrato alquiler (1).pdf"
cp "Imágenes/Vacaciones/archivo-03.bin" "Escritorio/archivo-03 copia.bin"

# What a Linux desktop adds. The user's folders by their Spanish names, as
# xdg-user-dirs writes them; the English ones are then ordinary folders.
mkdir -p .config
cat >.config/user-dirs.dirs <<'DIRS'
# This file is written by xdg-user-dirs-update
XDG_DESKTOP_DIR="$HOME/Escritorio"
XDG_DOWNLOAD_DIR="$HOME/Descargas"
XDG_TEMPLATES_DIR="$HOME/Plantillas"
XDG_PUBLICSHARE_DIR="$HOME/Público"
XDG_DOCUMENTS_DIR="$HOME/Documentos"
XDG_MUSIC_DIR="$HOME/Música"
XDG_PICTURES_DIR="$HOME/Imágenes"
XDG_VIDEOS_DIR="$HOME/Vídeos"
DIRS

# Category "apps": the cache home's folders (browsers, thumbnails, fonts), an
# Electron app's caches in the config home, a Flatpak app's cache and a
# snap's caches of two revisions. Never offered: Xfce's saved sessions, the
# app's data beside its caches, a browser's profile, Flatpak's config.
varios ".cache/mozilla/firefox/k3x9.default-release/cache2/entries" 30 160
varios ".cache/google-chrome/Default/Cache/Cache_Data" 20 200
varios ".cache/thumbnails/large" 40 80
varios ".cache/thumbnails/normal" 40 20
varios ".cache/fontconfig" 4 40
varios ".cache/sessions" 2 100
varios ".config/discord/Cache/Cache_Data" 10 300
varios ".config/discord/Code Cache/js" 4 150
varios ".config/discord/GPUCache" 2 100
varios ".config/discord/Local Storage/leveldb" 3 100
varios ".config/google-chrome/Default/Code Cache/js" 3 100
archivo ".config/google-chrome/Default/History" 300
# Beside the profiles, the browser's shader caches are offered; the profiles never.
varios ".config/google-chrome/GrShaderCache" 4 200
varios ".var/app/org.gimp.GIMP/cache/gimp" 6 600
# GIMP came from Flathub into the user's installation, so its data folder is
# an installed application's, never an orphan's.
gimp=.local/share/flatpak/app/org.gimp.GIMP/x86_64/stable
mkdir -p "$gimp/5a1b/export/share/applications"
printf '[Application]\nname=org.gimp.GIMP\n' >"$gimp/5a1b/metadata"
printf '[Desktop Entry]\nType=Application\nName=GIMP\nExec=gimp\n' >"$gimp/5a1b/export/share/applications/org.gimp.GIMP.desktop"
archivo "$gimp/5a1b/files/bin/gimp" 2000
ln -s 5a1b "$gimp/active"
ln -s x86_64/stable .local/share/flatpak/app/org.gimp.GIMP/current
varios ".var/app/org.gimp.GIMP/config/GIMP" 2 20
mkdir -p ".var/app/org.sin.Cache/data"
varios "snap/spotify/84/.cache/spotify" 5 600
varios "snap/spotify/common/.cache/datos" 2 200
ln -s 84 snap/spotify/current

# Categories "dev" and "redescarga" at their Linux places.
varios ".cache/yarn/v6" 6 500
varios ".cache/go-build/ab" 10 100
varios ".cache/JetBrains/IntelliJIdea2024.1/index" 5 400
varios ".local/share/pnpm/store/v3/files" 10 100
varios ".config/Code/CachedExtensionVSIXs" 2 1000
varios ".cache/ms-playwright/firefox-1447" 4 1500
varios "miniconda3/pkgs/numpy-1.26.4" 3 1200
# Go's module cache, read-only as Go leaves it.
varios "go/pkg/mod/github.com/ejemplo/web@v1.4.0" 4 300
chmod -R a-w "go/pkg/mod/github.com/ejemplo/web@v1.4.0"

# Category "logs": the X server's log of the last session and a logs folder
# of the Electron app; the running session's log stays, and so does
# .xsession-errors.old, as nothing directly in the home folder is ever removed.
archivo ".xsession-errors.old" 300
archivo ".local/share/xorg/Xorg.0.log.old" 200
archivo ".local/share/xorg/Xorg.0.log" 200
varios ".config/discord/logs" 3 100

# Category "instaladores": a package and a distribution's image.
archivo "Descargas/google-chrome-stable_current_amd64.deb" 1800
archivo "Descargas/debian-12.5.0-amd64-netinst.iso" 2600

# What no cleaning may touch: passwords, autostart entries, and the Trash
# with what is already in it (the map leaves it out and names it).
archivo ".local/share/keyrings/login.keyring" 8
mkdir -p .config/autostart .local/share/Trash/info
printf '[Desktop Entry]\nType=Application\nName=Notas\nExec=notas\n' >.config/autostart/notas.desktop
varios ".local/share/Trash/files/viejo" 3 500
ruta_viejo="$(url_de "$PWD/viejo")"
printf '[Trash Info]\nPath=%s\nDeletionDate=2024-01-10T10:00:00\n' "${ruta_viejo#file://}" >.local/share/Trash/info/viejo.trashinfo

# For the disk map (--mapa): music above 1 MB, and places the map never
# enters, mail and a photo library.
varios "Música/Albumes/Primero" 4 2500
varios "Música/Albumes/Segundo" 3 1800
varios "Library/Mail/V10/INBOX.mbox" 6 500
varios "Imágenes/Fotos.photoslibrary/originals" 5 800

echo "Casa de demostración en $casa ($(find . -type f | wc -l) archivos)"
