#!/usr/bin/env bash
# Builds and runs the benchmarks (decoding, then the texture samples); each
# closing table gives the results as ratios against baselines measured in the
# same run.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
ensure_tools
configure_and_build "$build/native" -DVELL_BENCH=ON >/dev/null
"$build/native/vell_bench" --benchmark_min_time="${VELL_BENCH_MIN_TIME:-1}" "$@"
"$build/native/vell_texture_bench" --benchmark_min_time="${VELL_BENCH_MIN_TIME:-1}" "$@"
