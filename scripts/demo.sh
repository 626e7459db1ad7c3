#!/usr/bin/env bash
# The main job: builds what is missing and opens the demo host, a small
# drawing program, with the remote control beside it. Without a display it
# runs under a virtual one: the host paints a scripted sequence of effects
# through the remote control, a screenshot of the screen is saved and its
# path printed. VELL_SHOW=tile (or another effect's notification name)
# instead opens that effect and presses update once;
# VELL_SHOW=picture_list opens the picture list of the image mapping effect;
# VELL_SHOW=picture_pattern picks an image-based isoline pattern with a
# picture put on the clipboard.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
ensure_tools
build_windows >/dev/null
host="$windows_build/bin/VellDemoHost.exe"

if [ -n "${DISPLAY:-}" ] && [ "${VELL_XVFB:-0}" != 1 ]; then
  "$root/scripts/wine-prefix.sh"
  exec "$root/scripts/with-display.sh" "$root/scripts/wine-run.sh" "$host"
fi

shot="${VELL_SCREENSHOT:-$build/remote-control.png}"
run_and_shoot() {
  "$root/scripts/wine-prefix.sh"
  (cd "$(dirname "$host")" && "$root/scripts/wine-run.sh" "$host" --quit-after 15000 \
    $([ -n "${VELL_SHOW:-}" ] && echo --show "$VELL_SHOW" || echo --script)) &
  local pid=$!
  sleep "${VELL_SHOT_DELAY:-6}"
  import -window root "$shot"
  wait "$pid"
}
export -f run_and_shoot
export host shot root
"$root/scripts/with-display.sh" bash -c run_and_shoot
echo "Screenshot saved: $shot"
