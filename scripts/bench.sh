#!/usr/bin/env bash
# Builds and runs the benchmarks (decoding, the texture samples, the
# renderer); each closing table gives the results as ratios against
# baselines measured in the same run. Then, under Wine in a virtual display, the open latency against
# the bare templates (VELL_OPEN_ROUNDS rounds, default 30) and the window
# server requests of both, counted in the trace of a fresh wineserver, the demo host's
# paint latency against the renderer alone and one blit of the canvas
# (VELL_PAINT_ROUNDS rounds, default 30) and the long soak (1000
# open-update-read-close cycles, 10 000 reads of every effect).
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
ensure_tools
configure_and_build "$build/native" -DVELL_BENCH=ON >/dev/null
"$build/native/vell_bench" --benchmark_min_time="${VELL_BENCH_MIN_TIME:-1}" "$@"
"$build/native/vell_texture_bench" --benchmark_min_time="${VELL_BENCH_MIN_TIME:-1}" "$@"
"$build/native/vell_render_bench" --benchmark_min_time="${VELL_BENCH_MIN_TIME:-1}" "$@"

build_windows >/dev/null
bin="$windows_build/bin"
# The request count needs a wineserver of its own, started with the trace on.
VELL_XVFB=1 "$root/scripts/with-display.sh" bash -ec "
  '$root/scripts/wine-prefix.sh'
  '$root/scripts/wine-run.sh' '$bin/OpenBench.exe' ${VELL_OPEN_ROUNDS:-30}
  wineserver -k || true; wineserver -w
  cd '$bin'
  WINEDEBUG=+server '$root/scripts/wine-run.sh' ./OpenBench.exe --requests server.log 5 2>server.log ||
    { rm -f server.log; exit 1; }
  rm -f server.log
  wineserver -k || true; wineserver -w
  '$root/scripts/wine-run.sh' '$bin/HostPaintBench.exe' ${VELL_PAINT_ROUNDS:-30}
  VELL_SOAK_CYCLES=1000 VELL_SOAK_READS=10000 '$root/scripts/wine-run.sh' '$bin/win_soak_tests.exe'"
