#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The duplicate search (`buscar-duplicados`, the scan's stage alone) against
# `jdupes -r` and `fdupes -r` over the same five personal folders of a
# generated home, and whether all three find the same duplicate files within
# the search's scope: files of at least 100,000 bytes (the generated folders
# hold no hidden, package or project-artefact folders). For a like-for-like
# view both also run with the same 100,000-byte floor, as a second pair of lines.
#   bench/duplicados.sh [archivos (200000)] [rondas (5)]
# Installs jdupes and fdupes if they are missing. Warm cache, alternating runs.
set -euo pipefail
source "$(dirname "$0")/comun.sh"

archivos="${1:-200000}"
rondas="${2:-5}"
base="${VORLANO_BENCH_DIR:-/tmp/vorlano-bench}"
casa="$base/duplicados-$archivos"
tiempos="$(mktemp)"
trabajo="$(mktemp -d)"
trap 'rm -rf "$tiempos" "$trabajo"' EXIT

if ! command -v jdupes >/dev/null || ! command -v fdupes >/dev/null; then
  sudo=()
  [ "$(id -u)" -ne 0 ] && sudo=(sudo)
  DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq jdupes fdupes >/dev/null
fi

mkdir -p "$base"
generar "$casa" --archivos "$archivos" --caches 0.2 --logs 0.05 --node-modules 0.02 \
  --duplicados 300 --medianos 1000 --semilla 13
carpetas=()
for c in Desktop Documents Downloads Pictures Movies; do
  [ -d "$casa/$c" ] && carpetas+=("$casa/$c")
done

# The same answer? Every file in a group, kept copy included, one per line.
"$build/buscar-duplicados" "$casa" | tr '\t' '\n' | sort -u >"$trabajo/vorlano"
for otro in jdupes fdupes; do
  "$otro" -r -q "${carpetas[@]}" | grep -v '^$' | xargs -r -d '\n' stat -c '%s/%n' |
    awk -F/ '$1 >= 100000' | cut -d/ -f2- | sort -u >"$trabajo/$otro"
done

for ((i = 0; i < rondas; i++)); do
  medir jdupes jdupes -r -q "${carpetas[@]}"
  medir fdupes fdupes -r -q "${carpetas[@]}"
  medir jdupes-suelo jdupes -r -q -X size+=:100000 "${carpetas[@]}"
  medir fdupes-suelo fdupes -r -q -G 100000 "${carpetas[@]}"
  medir vorlano "$build/buscar-duplicados" "$casa"
done

read -r t_j m_j <<<"$(resumen jdupes)"
read -r t_f m_f <<<"$(resumen fdupes)"
read -r t_v m_v <<<"$(resumen vorlano)"
read -r t_js m_js <<<"$(resumen jdupes-suelo)"
read -r t_fs m_fs <<<"$(resumen fdupes-suelo)"
echo "casa: $casa ($archivos archivos), $rondas rondas, caché $( [ "${VORLANO_FRIO:-0}" = 1 ] && echo fría || echo caliente)"
c_j="$(cpu jdupes)" c_f="$(cpu fdupes)" c_js="$(cpu jdupes-suelo)" c_fs="$(cpu fdupes-suelo)" c_v="$(cpu vorlano)"
printf "%-28s %7s s   cpu %7s s   pico %7s MB\n" "jdupes -r" "$t_j" "$c_j" "$m_j" "fdupes -r" "$t_f" "$c_f" "$m_f" \
  "jdupes -r -X size+=:100000" "$t_js" "$c_js" "$m_js" "fdupes -r -G 100000" "$t_fs" "$c_fs" "$m_fs" \
  "buscar-duplicados" "$t_v" "$c_v" "$m_v"
razones() { # razones <título> <t vorlano> <t jdupes> <t fdupes>
  awk -v n="$1" -v v="$2" -v j="$3" -v f="$4" 'BEGIN { printf "%s: vorlano / jdupes %.2f, vorlano / fdupes %.2f\n", n, v / j, v / f }'
}
razones "razón (objetivo < 1 en ambas)" "$t_v" "$t_j" "$t_f"
razones "razón en cpu" "$c_v" "$c_j" "$c_f"
razones "con el mismo suelo" "$t_v" "$t_js" "$t_fs"
razones "con el mismo suelo, en cpu" "$c_v" "$c_js" "$c_fs"
for otro in jdupes fdupes; do
  if cmp -s "$trabajo/vorlano" "$trabajo/$otro"; then
    echo "mismos archivos duplicados que $otro: sí ($(wc -l <"$trabajo/vorlano") archivos)"
  else
    echo "mismos archivos duplicados que $otro: NO; diferencias:"
    diff "$trabajo/vorlano" "$trabajo/$otro" | head -20
  fi
done
