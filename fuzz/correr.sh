#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the fuzz targets with clang in build-fuzz/ and runs the ones named
# (all by default) one after the other, each for SEGUNDOS seconds (300 unless
# set). Corpora grow in build-fuzz/corpus/<target>, findings land in
# build-fuzz/hallazgos/<target>.
set -euo pipefail

raiz="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${VORLANO_BUILD_FUZZ:-$raiz/build-fuzz}"
segundos="${SEGUNDOS:-300}"
objetivos=("$@")
[ ${#objetivos[@]} -eq 0 ] && objetivos=(historial espacios entrada userdirs plist)

cmake -S "$raiz" -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DVORLANO_FUZZ=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build "$build" --target "${objetivos[@]/#/fuzz-}"

for o in "${objetivos[@]}"; do
  case "$o" in
    historial | espacios) dic=json ;;
    *) dic="$o" ;;
  esac
  mkdir -p "$build/corpus/$o" "$build/hallazgos/$o"
  # Any input that takes 10 s is a hang.
  "$build/fuzz-$o" -max_total_time="$segundos" -timeout=10 -print_final_stats=1 \
    -dict="$raiz/fuzz/$dic.dict" -artifact_prefix="$build/hallazgos/$o/" \
    "$build/corpus/$o" "$raiz/fuzz/semillas/$o"
done
