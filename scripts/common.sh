# Shared by the scripts: where things are, and the Wine environment.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build="$root/build"
export WINEPREFIX="${WINEPREFIX:-$build/windows/wineprefix}"
export WINEARCH=win32
export WINEDEBUG="${WINEDEBUG:--all}"
# No Mono or Gecko install prompts in a fresh prefix.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=}"
# The library is made for Japanese Windows: Wine runs in a Japanese locale
# (code page 932, Japanese system fonts).
in_wine_locale() { LANG=ja_JP.UTF-8 LC_ALL=ja_JP.UTF-8 "$@"; }
jobs=$(nproc 2>/dev/null || echo 2)

tools_missing() {
  local t
  for t in cmake g++ clang i686-w64-mingw32-g++ i686-w64-mingw32-windres wine Xvfb; do
    command -v "$t" >/dev/null 2>&1 || return 0
  done
  [ -d /usr/src/googletest ] || return 0
  return 1
}

ensure_tools() {
  tools_missing || return 0
  if [ "$(id -u)" -eq 0 ]; then
    "$root/scripts/setup.sh"
  else
    echo "Tools are missing; run 'sudo scripts/setup.sh' once." >&2
    exit 1
  fi
}

configure_and_build() {  # dir, cmake arguments...
  local dir=$1
  shift
  cmake -S "$root" -B "$dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
  cmake --build "$dir" -j "$jobs"
}

build_windows() {
  configure_and_build "$build/windows" -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-i686.cmake"
}
