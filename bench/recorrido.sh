#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The home walk: `vorlano --scan` on a generated home where the other stages
# find nothing to do (no Library, none of the five personal folders but a few
# sparse films), against `find <casa> -type f -size +250M` and `du -s <casa>`,
# which walk the same tree.
#   bench/recorrido.sh [archivos (200000)] [rondas (5)]
# Warm cache: one untimed run of each first; runs alternate so all see the
# same machine. Prints the medians of elapsed and of CPU time (user + system,
# steadier on a shared machine), the ratios and the peak memories.
set -euo pipefail
source "$(dirname "$0")/comun.sh"

archivos="${1:-200000}"
rondas="${2:-5}"
base="${VORLANO_BENCH_DIR:-/tmp/vorlano-bench}"
casa="$base/recorrido-$archivos"
tiempos="$(mktemp)"
trap 'rm -f "$tiempos"' EXIT

mkdir -p "$base"
generar "$casa" --archivos "$archivos" --caches 0 --logs 0 --node-modules 0.02 \
  --personales Music,Proyectos,Developer/src,Notas,Trabajo --semilla 11

du -s "$casa" >/dev/null
find "$casa" -type f -size +250M >/dev/null
VORLANO_HOME="$casa" "$build/vorlano" --scan >/dev/null
for ((i = 0; i < rondas; i++)); do
  medir du du -s "$casa"
  medir find find "$casa" -type f -size +250M
  VORLANO_HOME="$casa" medir vorlano "$build/vorlano" --scan
done

read -r t_du m_du <<<"$(resumen du)"
read -r t_f m_f <<<"$(resumen find)"
read -r t_v m_v <<<"$(resumen vorlano)"
echo "casa: $casa ($archivos archivos), $rondas rondas, caché $( [ "${VORLANO_FRIO:-0}" = 1 ] && echo fría || echo caliente)"
c_du="$(cpu du)" c_f="$(cpu find)" c_v="$(cpu vorlano)"
printf "%-28s %7s s   cpu %7s s   pico %7s MB\n" "du -s" "$t_du" "$c_du" "$m_du" \
  "find -type f -size +250M" "$t_f" "$c_f" "$m_f" "vorlano --scan" "$t_v" "$c_v" "$m_v"
awk -v v="$t_v" -v d="$t_du" -v f="$t_f" -v cv="$c_v" -v cd="$c_du" -v cf="$c_f" 'BEGIN {
  printf "razón vorlano / du: %.2f, en cpu %.2f (objetivo <= 1.20)\n", v / d, cv / cd
  printf "razón vorlano / find: %.2f, en cpu %.2f\n", v / f, cv / cf }'
