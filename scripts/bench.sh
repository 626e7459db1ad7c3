#!/usr/bin/env bash
# Builds and runs the benchmarks; the closing table gives each result as a
# ratio against the baselines measured in the same run.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
ensure_tools
configure_and_build "$build/native" -DVELL_BENCH=ON >/dev/null
"$build/native/vell_bench" --benchmark_min_time="${VELL_BENCH_MIN_TIME:-1}" "$@"
