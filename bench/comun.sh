# SPDX-License-Identifier: GPL-3.0-or-later
# Shared by the benchmark scripts: timing whole commands side by side.

raiz="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${VORLANO_BUILD:-$raiz/build}"

# medir <nombre> <comando...>: runs it once under /usr/bin/time and appends
# "<nombre> <segundos> <KB de pico> <s de usuario> <s de sistema>" to $tiempos.
# With VORLANO_FRIO=1 (root only) the page cache is dropped before each run,
# so every command reads the disk cold.
medir() {
  local nombre="$1"; shift
  local t
  t="$(mktemp)"
  if [ "${VORLANO_FRIO:-0}" = 1 ]; then
    sync
    echo 3 >/proc/sys/vm/drop_caches
  fi
  /usr/bin/time -f "%e %M %U %S" -o "$t" "$@" >/dev/null 2>&1 || true
  echo "$nombre $(cat "$t")" >>"$tiempos"
  rm -f "$t"
}

# mediana: the median of the numbers on standard input, or "?" for none.
mediana() {
  sort -n | awk '{ t[NR] = $1 } END { if (NR == 0) print "?"; else if (NR % 2) printf "%.3f", t[(NR + 1) / 2];
                                      else printf "%.3f", (t[NR / 2] + t[NR / 2 + 1]) / 2 }'
}

# resumen <nombre>: "mediana_s pico_MB" of the runs of that command.
resumen() {
  local med pico
  med="$(awk -v n="$1" '$1 == n { print $2 }' "$tiempos" | mediana)"
  pico="$(awk -v n="$1" '$1 == n && $3 > m { m = $3 } END { printf "%.1f", m / 1024 }' "$tiempos")"
  echo "$med $pico"
}

# cpu <nombre>: median CPU seconds (user + system) of the runs of that command;
# steadier than elapsed time on a machine others are using too.
cpu() {
  awk -v n="$1" '$1 == n { print $4 + $5 }' "$tiempos" | mediana
}

# generar <carpeta> <opciones...>: a synthetic home, reused while the options
# are the same (the options are stored beside it).
generar() {
  local carpeta="$1"; shift
  if [ -f "$carpeta.opciones" ] && [ "$(cat "$carpeta.opciones")" = "$*" ]; then
    return 0
  fi
  rm -rf -- "$carpeta" "$carpeta.opciones"
  "$build/generar-casa" "$carpeta" "$@"
  echo "$*" >"$carpeta.opciones"
}
