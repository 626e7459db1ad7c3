# Shared by the scripts: where things are, and the Wine environment.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build="$root/build"

# The Windows tests run the 32-bit DLL under 32-bit Wine. Some machines cannot
# execute 32-bit x86 code at all (a hypervisor without a 32-bit user mode);
# there the tests run a 64-bit build of the same sources under 64-bit Wine.
# VELL_WINE_BITS=32 or 64 skips the check.
wine_env() {
  local bits=${VELL_WINE_BITS:-}
  if [ -z "$bits" ]; then
    bits=32
    if [ -x /usr/lib/wine/wine64 ] && ! /usr/lib/wine/wine --version >/dev/null 2>&1; then
      bits=64
    fi
  fi
  if [ "$bits" = 64 ]; then
    windows_build="$build/windows64"
    wine_loader=/usr/lib/wine/wine64
    export WINEARCH=win64 WINELOADER=$wine_loader
  else
    windows_build="$build/windows"
    wine_loader=wine
    export WINEARCH=win32
  fi
  wine_bits=$bits
  export WINEPREFIX="${VELL_WINEPREFIX:-$windows_build/wineprefix}"
}
wine_env
export WINEDEBUG="${WINEDEBUG:--all}"
# No Mono or Gecko install prompts in a fresh prefix, and no debugger waiting
# on a crashed program: it just ends, and its test fails.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=;winedbg.exe=d}"
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
  # Without 32-bit execution the tests need the 64-bit toolchain and Wine.
  if ! /usr/lib/wine/wine --version >/dev/null 2>&1; then
    command -v x86_64-w64-mingw32-g++-posix >/dev/null 2>&1 || return 0
    [ -x /usr/lib/wine/wine64 ] || return 0
  fi
  return 1
}

ensure_tools() {
  tools_missing || return 0
  if [ "$(id -u)" -eq 0 ]; then
    "$root/scripts/setup.sh"
    wine_env
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

# The 32-bit build always; the 64-bit one too where the tests need it.
build_windows() {
  configure_and_build "$build/windows" -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-i686.cmake"
  if [ "$wine_bits" = 64 ]; then
    configure_and_build "$build/windows64" -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-x86_64.cmake"
  fi
}
