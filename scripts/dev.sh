#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# One entry point for a fresh Debian or Ubuntu machine:
#   scripts/dev.sh demo    install what is missing, build, make a demo home, scan it and map it
#   scripts/dev.sh test    install what is missing, build, run every test
#   scripts/dev.sh build   install what is missing and build
#   scripts/dev.sh app     install what is missing, build, make the demo home and open the window on it
#   scripts/dev.sh capturas  run the screens' tests, which leave a PNG of each state in build/capturas
#   scripts/dev.sh package   build the Debian package into build/ (vorlano_<version>_<arch>.deb)
#   scripts/dev.sh instalar-limpio  install that package with apt on a fresh Debian 12 made by
#                            debootstrap (needs the archive; minutes), run it, purge it
#   scripts/dev.sh textos    add the program's new texts to the catalogues in translations/linux
#   scripts/dev.sh asan    build with AddressSanitizer and UndefinedBehaviorSanitizer in build-asan,
#                          run every test there
set -euo pipefail

raiz="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${VORLANO_BUILD:-$raiz/build}"

# Everything the build and the tests need, from Debian's archive.
paquetes=(
  build-essential cmake ninja-build pkg-config git
  qt6-base-dev qt6-base-dev-tools qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools
  libqt6svg6 qt6-svg-dev
  # the desktop application: Qt Quick and the QML modules its screens import,
  # and the icon font they draw with
  qt6-declarative-dev qt6-declarative-dev-tools
  qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript qml6-module-qtquick
  qml6-module-qtquick-controls qml6-module-qtquick-templates qml6-module-qtquick-layouts
  qml6-module-qtquick-shapes qml6-module-qtquick-window qml6-module-qttest
  fonts-material-design-icons-iconfont
  # the desktop widget: a rounded face for its figures, and the X11 library
  # through which it asks the window manager for its place
  fonts-quicksand libxcb1-dev
  libicu-dev libssl-dev libplist-dev libtbb-dev nlohmann-json3-dev libglib2.0-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  # the demo home writes binary property lists with plistutil
  libplist-utils
  # the package: the icon's sizes, the manual from --help, the catalogues'
  # extraction, and the checks a distribution runs on a package
  librsvg2-bin help2man python3 lintian desktop-file-utils appstream
  # used by the tests: a real session bus, the standard trash reader, chattr, a file
  # system that clones (xfs), setpriv,
  # a second duplicate finder to agree with
  dbus dbus-x11 trash-cli e2fsprogs xfsprogs util-linux time procps jdupes
)

instalar() {
  local faltan=()
  for p in "${paquetes[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || faltan+=("$p")
  done
  [ ${#faltan[@]} -eq 0 ] && return 0
  echo "Instalando: ${faltan[*]}"
  local sudo=()
  [ "$(id -u)" -ne 0 ] && sudo=(sudo)
  export DEBIAN_FRONTEND=noninteractive
  "${sudo[@]}" apt-get update -qq
  "${sudo[@]}" apt-get install -y -qq --no-install-recommends "${faltan[@]}"
}

compilar() {
  cmake -S "$raiz" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
  cmake --build "$build"
}

# Every test under AddressSanitizer and UndefinedBehaviorSanitizer, in a build
# folder of its own. Any report fails the test that caused it.
sanear() {
  local b="${VORLANO_BUILD_ASAN:-$raiz/build-asan}"
  local banderas="-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer"
  cmake -S "$raiz" -B "$b" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_CXX_FLAGS="$banderas" -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" \
    -DCMAKE_SHARED_LINKER_FLAGS="-fsanitize=address,undefined" >/dev/null
  cmake --build "$b"
  # The failure shim is preloaded into child programs ahead of the sanitizer's
  # runtime, which would otherwise refuse to start. Full stacks at every
  # allocation, so that the leak suppressions see the library's frames.
  ASAN_OPTIONS="verify_asan_link_order=0:detect_stack_use_after_return=1:strict_string_checks=1:fast_unwind_on_malloc=0" \
  UBSAN_OPTIONS="print_stacktrace=1" \
  LSAN_OPTIONS="suppressions=$raiz/scripts/lsan.supp:print_suppressions=0" \
    ctest --test-dir "$b" --output-on-failure -j"$(nproc)" --timeout 1200
}

case "${1:-}" in
  demo)
    instalar; compilar
    casa="${VORLANO_DEMO:-$build/casa-demo}"
    "$raiz/scripts/casa-demo.sh" "$casa"
    # The demo's large files are tens of MB: the floor comes down to 20 MB.
    VORLANO_HOME="$casa" VORLANO_GRANDE_MB=20 "$build/vorlano" --scan
    echo
    VORLANO_HOME="$casa" "$build/vorlano" --mapa
    ;;
  app)
    # The window needs a desktop; without one, QT_QPA_PLATFORM=offscreen
    # runs it unseen (the screenshots of `capturas` show it instead).
    if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
      echo "dev.sh app: no hay escritorio (DISPLAY o WAYLAND_DISPLAY); prueba scripts/dev.sh capturas" >&2
      exit 2
    fi
    instalar; compilar
    casa="${VORLANO_DEMO:-$build/casa-demo}"
    "$raiz/scripts/casa-demo.sh" "$casa"
    VORLANO_HOME="$casa" VORLANO_GRANDE_MB=20 exec "$build/vorlano"
    ;;
  test)
    instalar; compilar
    ctest --test-dir "$build" --output-on-failure -j"$(nproc)"
    ;;
  build)
    instalar; compilar
    ;;
  capturas)
    instalar; compilar
    rm -rf "$build/capturas"
    ctest --test-dir "$build" --output-on-failure -L pantallas -j"$(nproc)"
    echo "Capturas en $build/capturas"
    ;;
  package)
    instalar; compilar
    (cd "$build" && cpack -G DEB)
    ;;
  instalar-limpio)
    instalar; compilar
    (cd "$build" && cpack -G DEB)
    "$raiz/scripts/instalar-limpio.sh" "$build"/vorlano_*.deb
    ;;
  textos)
    instalar
    "$raiz/scripts/catalogos.py"
    ;;
  asan)
    instalar; sanear
    ;;
  *)
    echo "uso: scripts/dev.sh demo|app|test|build|capturas|asan|package|instalar-limpio|textos" >&2
    exit 2
    ;;
esac
