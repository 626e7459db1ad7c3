#!/usr/bin/env bash
# Creates the build's private Wine prefix once, with the Japanese dialog fonts
# mapped to the IPA gothic fonts. Windows are drawn by Wine itself rather
# than left to a window manager: a virtual display has none, and Wine would
# then wait two seconds for every window it hides. Needs a display (see
# with-display.sh).
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
[ -f "$WINEPREFIX/.vellcolor-ready" ] && exit 0
mkdir -p "$WINEPREFIX"
in_wine_locale "$wine_loader" wineboot --init >/dev/null 2>&1 || true
# A program started before the prefix settles can fail to create windows.
wineserver -w
# Wine's own fonts (Marlett draws the caption buttons) where this Wine does
# not find them by itself.
if [ -d /usr/share/wine/fonts ]; then
  cp -n /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null || true
fi
reg="$WINEPREFIX/fonts.reg"
{
  printf '\xff\xfe'
  printf 'Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]\r\n"ＭＳ Ｐゴシック"="IPAPGothic"\r\n"ＭＳ ゴシック"="IPAGothic"\r\n\r\n[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]\r\n"Managed"="N"\r\n' |
    iconv -f UTF-8 -t UTF-16LE
} >"$reg"
in_wine_locale "$wine_loader" regedit /S "$reg" >/dev/null 2>&1
wineserver -w
touch "$WINEPREFIX/.vellcolor-ready"
