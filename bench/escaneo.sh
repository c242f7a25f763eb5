#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# `vorlano --scan` against `du -s` of the folders whose files it measures, on
# a generated home whose files lie mostly under Library/Caches and
# Library/Logs and in a Linux desktop's cache home, Electron apps in the
# config home and Flatpak caches.
#   bench/escaneo.sh [archivos (1000000)] [rondas (5)]
# With VORLANO_ANTES naming the build folder of another version, its
# `vorlano --scan` runs in the same rounds, and the two reports are compared.
# Warm cache: one untimed run of each first (VORLANO_FRIO=1, as root: the page
# cache dropped before every run instead). Runs alternate so all see the
# same machine. Prints the medians of elapsed and of CPU time (user + system),
# the ratios and the peak memories; `du -s` of the whole home is the second
# yardstick, since the scan walks all of it.
set -euo pipefail
source "$(dirname "$0")/comun.sh"

archivos="${1:-1000000}"
rondas="${2:-5}"
base="${VORLANO_BENCH_DIR:-/tmp/vorlano-bench}"
casa="$base/escaneo-$archivos"
tiempos="$(mktemp)"
trap 'rm -f "$tiempos"' EXIT

mkdir -p "$base"
generar "$casa" --archivos "$archivos" --caches 0.4 --cache-linux 0.4 --logs 0.15 --node-modules 0.01 \
  --hijos-caches 400 --semilla 7
medidas=("$casa/Library" "$casa/.cache" "$casa/.config" "$casa/.var")

du -s "${medidas[@]}" >/dev/null
VORLANO_HOME="$casa" "$build/vorlano" --scan >/dev/null
for ((i = 0; i < rondas; i++)); do
  medir du du -s "${medidas[@]}"
  medir du-casa du -s "$casa"
  VORLANO_HOME="$casa" medir vorlano "$build/vorlano" --scan
  [ -n "${VORLANO_ANTES:-}" ] && VORLANO_HOME="$casa" medir antes "$VORLANO_ANTES/vorlano" --scan
done

read -r t_du m_du <<<"$(resumen du)"
read -r t_v m_v <<<"$(resumen vorlano)"
read -r t_dc m_dc <<<"$(resumen du-casa)"
echo "casa: $casa ($archivos archivos), $rondas rondas, caché $( [ "${VORLANO_FRIO:-0}" = 1 ] && echo fría || echo caliente)"
c_du="$(cpu du)" c_v="$(cpu vorlano)" c_dc="$(cpu du-casa)"
printf "%-26s %8s s   cpu %7s s   pico %7s MB\n" "du -s Library .cache …" "$t_du" "$c_du" "$m_du" \
  "du -s <casa>" "$t_dc" "$c_dc" "$m_dc" "vorlano --scan" "$t_v" "$c_v" "$m_v"
awk -v a="$t_v" -v b="$t_du" -v ca="$c_v" -v cb="$c_du" \
  'BEGIN { printf "razón vorlano / du: %.2f, en cpu %.2f (objetivo <= 0.70)\n", a / b, ca / cb }'
objetivo=0.60
[ "${VORLANO_FRIO:-0}" = 1 ] && objetivo=0.50
awk -v a="$t_v" -v b="$t_dc" -v ca="$c_v" -v cb="$c_dc" -v o="$objetivo" \
  'BEGIN { printf "razón vorlano / du de la casa: %.2f, en cpu %.2f (objetivo <= %s)\n", a / b, ca / cb, o }'
if [ -n "${VORLANO_ANTES:-}" ]; then
  read -r t_a m_a <<<"$(resumen antes)"
  printf "%-26s %8s s   cpu %7s s   pico %7s MB\n" "antes: vorlano --scan" "$t_a" "$(cpu antes)" "$m_a"
  # The reports less the line of the elapsed time and the ages, which move.
  informe() { VORLANO_HOME="$casa" "$1/vorlano" --scan | sed -E '/^Análisis en /d; s/hace [0-9]+ [a-z]+/hace N/g'; }
  if cmp -s <(informe "$build") <(informe "$VORLANO_ANTES"); then echo "informes iguales: sí"; else echo "informes iguales: NO"; fi
fi
