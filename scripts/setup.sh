#!/usr/bin/env bash
# Prepares a fresh Debian 12 machine (as root) to build and test VellColor.
# Idempotent: a second run only checks that everything is there.
set -euo pipefail

need_root() {
  if [ "$(id -u)" -ne 0 ]; then
    echo "setup: run as root (apt-get installs packages)" >&2
    exit 1
  fi
}

# cairo and GEGL are the renderer benchmark's yardsticks, nothing more.
packages_native=(cmake g++ clang googletest libgtest-dev libbenchmark-dev libstb-dev
                 libclang-rt-14-dev imagemagick pkg-config libcairo2-dev libgegl-dev)
packages_windows=(g++-mingw-w64-i686 binutils-mingw-w64-i686 mingw-w64-i686-dev
                  xvfb xauth fonts-ipafont-gothic fonts-wine locales-all)

missing() {
  local p out=()
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || out+=("$p")
  done
  echo "${out[@]:-}"
}

apt_updated=0
apt_update_once() {
  [ "$apt_updated" -eq 1 ] && return 0
  apt_updated=1
  # A failing mirror must not stop the setup; installs below say what is missing.
  apt-get update -q || echo "setup: apt-get update reported errors; continuing" >&2
}

install_list() {
  local todo
  todo=$(missing "$@")
  [ -z "$todo" ] && return 0
  apt_update_once
  # shellcheck disable=SC2086
  DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends $todo
}

install_wine32() {
  [ -z "$(missing wine wine32:i386)" ] && return 0
  apt_update_once
  if DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends wine wine32:i386; then
    return 0
  fi
  # Some mirrors serve i386 and amd64 security indexes at different versions,
  # and apt then calls wine32 "held broken packages". Rank the security suite
  # below the main suite for this one install.
  echo "setup: retrying wine32 with the security suite ranked lower" >&2
  local pref=/etc/apt/preferences.d/vellcolor-wine32
  cat >"$pref" <<'PREF'
Package: *
Pin: release l=Debian-Security
Pin-Priority: 100
PREF
  DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends \
    --allow-downgrades wine wine32:i386
}

need_root
if ! dpkg --print-foreign-architectures | grep -qx i386; then
  dpkg --add-architecture i386
  apt_updated=0
  apt_update_once
fi
install_list "${packages_native[@]}"
install_list "${packages_windows[@]}"
install_wine32

# A machine that cannot execute 32-bit code runs the Windows tests on a
# 64-bit build under 64-bit Wine (scripts/common.sh).
if ! /usr/lib/wine/wine --version >/dev/null 2>&1; then
  echo "setup: this machine cannot run 32-bit programs; adding the 64-bit Wine and toolchain"
  install_list wine64 g++-mingw-w64-x86-64 binutils-mingw-w64-x86-64 mingw-w64-x86-64-dev
fi

for tool in cmake g++ clang i686-w64-mingw32-g++ i686-w64-mingw32-windres wine Xvfb; do
  command -v "$tool" >/dev/null || { echo "setup: $tool is still missing" >&2; exit 1; }
done
echo "setup: ready"
