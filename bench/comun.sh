# SPDX-License-Identifier: GPL-3.0-or-later
# Shared by the benchmark scripts: timing whole commands side by side.

raiz="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${VORLANO_BUILD:-$raiz/build}"

# medir <nombre> <comando...>: runs it once under /usr/bin/time and appends
# "<nombre> <segundos> <KB de pico>" to $tiempos.
medir() {
  local nombre="$1"; shift
  local t
  t="$(mktemp)"
  /usr/bin/time -f "%e %M" -o "$t" "$@" >/dev/null 2>&1 || true
  echo "$nombre $(cat "$t")" >>"$tiempos"
  rm -f "$t"
}

# resumen <nombre>: "mediana_s pico_MB" of the runs of that command.
resumen() {
  awk -v n="$1" '$1 == n { t[++k] = $2; if ($3 > m) m = $3 }
    END { if (k == 0) { print "? ?"; exit }
          asort(t); med = (k % 2) ? t[(k + 1) / 2] : (t[k / 2] + t[k / 2 + 1]) / 2
          printf "%.3f %.1f\n", med, m / 1024 }' "$tiempos"
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
