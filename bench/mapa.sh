#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# `vorlano --mapa` against the disk-usage tools a user would otherwise run on
# the same generated home: `du -s`, `gdu -n` (non-interactive) and
# `ncdu -o /dev/null` (scan and export, no screen).
#   bench/mapa.sh [archivos... (100000 1000000)] [--rondas N (5)]
# Warm cache: one untimed run of each first. Runs alternate so all see the
# same machine. Prints medians of elapsed and CPU time, ratios to du and peak
# memory per home, then how much vorlano's peak grew from the smallest home to
# the largest.
set -euo pipefail
source "$(dirname "$0")/comun.sh"

rondas=5
tamanos=()
while [ $# -gt 0 ]; do
  case "$1" in
    --rondas) rondas="$2"; shift 2 ;;
    *) tamanos+=("$1"); shift ;;
  esac
done
[ ${#tamanos[@]} -eq 0 ] && tamanos=(100000 1000000)
base="${VORLANO_BENCH_DIR:-/tmp/vorlano-bench}"
tiempos="$(mktemp)"
trap 'rm -f "$tiempos"' EXIT

# gdu and ncdu come from Debian's archive; install them if missing.
faltan=()
command -v gdu >/dev/null || faltan+=(gdu)
command -v ncdu >/dev/null || faltan+=(ncdu)
if [ ${#faltan[@]} -gt 0 ]; then
  sudo=()
  [ "$(id -u)" -ne 0 ] && sudo=(sudo)
  DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends "${faltan[@]}" >/dev/null
fi

# calentar <nombre> <comando...>: one untimed run, for a warm cache.
calentar() {
  shift
  "$@" >/dev/null 2>&1 || true
}

mkdir -p "$base"
picos=()
for archivos in "${tamanos[@]}"; do
  casa="$base/mapa-$archivos"
  generar "$casa" --archivos "$archivos" --semilla 11
  : >"$tiempos"
  todos() { # todos <medir|calentar>: each command once
    "$1" du du -s "$casa"
    "$1" gdu gdu -n -p "$casa"
    "$1" ncdu ncdu -q -o /dev/null "$casa"
    VORLANO_HOME="$casa" "$1" vorlano "$build/vorlano" --mapa
  }
  todos calentar
  for ((i = 0; i < rondas; i++)); do todos medir; done

  read -r t_du m_du <<<"$(resumen du)"
  echo "casa: $casa ($archivos archivos), $rondas rondas, caché $( [ "${VORLANO_FRIO:-0}" = 1 ] && echo fría || echo caliente)"
  for nombre in du gdu ncdu vorlano; do
    read -r t m <<<"$(resumen "$nombre")"
    awk -v n="$nombre" -v t="$t" -v m="$m" -v d="$t_du" -v c="$(cpu "$nombre")" \
      'BEGIN { printf "  %-8s %8s s   %5.2f x du   cpu %7s s   pico %7s MB\n", n, t, t / d, c, m }'
    if [ "$nombre" = vorlano ]; then picos+=("$m"); fi
  done
  read -r t_v _ <<<"$(resumen vorlano)"
  awk -v a="$t_v" -v b="$t_du" 'BEGIN { printf "  razón vorlano / du: %.2f (objetivo <= 0.65)\n", a / b }'
done
if [ ${#picos[@]} -gt 1 ]; then
  awk -v a="${picos[0]}" -v b="${picos[-1]}" -v x="${tamanos[0]}" -v y="${tamanos[-1]}" \
    'BEGIN { printf "pico de vorlano: %s MB con %s archivos, %s MB con %s (+%.1f MB)\n", a, x, b, y, b - a }'
fi
