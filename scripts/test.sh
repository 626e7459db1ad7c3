#!/usr/bin/env bash
# Runs every test: the portable core natively, again under AddressSanitizer
# and UndefinedBehaviorSanitizer, the fuzz targets for a bounded time, and
# the Windows tests under Wine in a virtual display. Exits non-zero on any
# failure. VELL_FUZZ_SECONDS sets each fuzzer's time (default 60).
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
ensure_tools
fuzz_seconds=${VELL_FUZZ_SECONDS:-60}

step() { printf '\n== %s\n' "$*"; }

step "native build and tests"
configure_and_build "$build/native" -DVELL_BENCH=ON
ctest --test-dir "$build/native" --output-on-failure

step "native tests under AddressSanitizer and UndefinedBehaviorSanitizer"
configure_and_build "$build/sanitize" -DVELL_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir "$build/sanitize" --output-on-failure

step "fuzzing, ${fuzz_seconds}s per target"
CC=clang CXX=clang++ configure_and_build "$build/fuzz" -DVELL_FUZZ=ON -DVELL_SANITIZE=ON
corpus="$build/fuzz/corpus"
"$build/native/vell_make_samples" "$corpus"
for target in dib_reader path_splitter color_set_text render; do
  mkdir -p "$build/fuzz/findings/$target"
  "$build/fuzz/fuzz_$target" -max_total_time="$fuzz_seconds" -print_final_stats=1 \
    -artifact_prefix="$build/fuzz/findings/$target/" "$corpus/$target" 2>&1 |
    grep -E 'stat::number_of_executed_units|stat::average_exec_per_sec|ERROR|SUMMARY|Done' || true
  # libFuzzer leaves a crash, leak or timeout file behind for every finding.
  if [ -n "$(ls -A "$build/fuzz/findings/$target")" ]; then
    echo "fuzz_$target found a problem:" >&2
    ls "$build/fuzz/findings/$target" >&2
    exit 1
  fi
done

step "Windows build and tests under ${wine_bits}-bit Wine"
if [ "$wine_bits" = 64 ]; then
  echo "This machine cannot execute 32-bit code: the 32-bit DLL is built, and the"
  echo "tests run a 64-bit build of the same sources."
fi
build_windows
# Always a private virtual display: a known screen size, and nothing on a
# real desktop can take the focus from the tests.
VELL_XVFB=1 "$root/scripts/with-display.sh" bash -c "
  '$root/scripts/wine-prefix.sh' &&
  ctest --test-dir '$windows_build' --output-on-failure"
