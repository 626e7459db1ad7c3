#!/usr/bin/env bash
# Renders the gallery: vellpaint paints every gradation type, tile shape and
# coloring, stripe direction and texture, and operation on its sample scene
# into docs/gallery/, and docs/gallery.md shows them with their parameters.
# The seed is fixed: a second run writes the same files.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
ensure_tools
configure_and_build "$build/native" >/dev/null
tool="$build/native/vellpaint"
out="$root/docs/gallery"
mkdir -p "$out"
rm -f "$out"/*.png

cells=()
# picture NAME CAPTION EFFECT [vellpaint arguments...]: docs/gallery/NAME.png
picture() {
  local name=$1 caption=$2
  shift 2
  "$tool" "$@" --size 256x192 --seed 7 -o "$out/$name.png"
  cells+=("![$name](gallery/$name.png)<br>$caption")
}
# The pictures so far as a table, three to a row.
table() {
  local i
  printf '\n| | | |\n|---|---|---|\n'
  for ((i = 0; i < ${#cells[@]}; i += 3)); do
    printf '| %s | %s | %s |\n' "${cells[i]}" "${cells[i + 1]:-}" "${cells[i + 2]:-}"
  done
  cells=()
}

ramp='#264653,#2a9d8f,#e9c46a'
corners='#264653,#2a9d8f,#e9c46a,#e76f51'
gradation() {  # type caption [arguments...]
  local type=$1 caption=$2
  shift 2
  picture "gradation-$type" "**$type** $caption" gradation --set type="$type" \
    --set colors="$ramp" --set mix=1 --set angle=30 "$@"
}

tile() {  # name caption [arguments...]
  local name=$1 caption=$2
  shift 2
  picture "tile-$name" "$caption" tile --set colors="$corners" --set width=20 --set height=20 \
    --set seamWidth=2 --set seamColor='#f4f1de' --set coloring=1 "$@"
}

stripe() {  # name caption [arguments...]
  local name=$1 caption=$2
  shift 2
  picture "stripe-$name" "$caption" stripe --set colors='#e63946,#457b9d' --set interval=24 \
    --set patternWidth=0.5 --set backgroundColor='#f1faee' "$@"
}

{
  cat <<'INTRO'
# Gallery of the reference renderer

Written by `scripts/gallery.sh`, which runs `vellpaint` (tools/vellpaint) on
its sample scene, 256 x 192, seed 7: a soft diagonal blend with a few shapes,
and a rounded five-lobed star as the part. Outside the star nothing changes;
its edge is anti-aliased. Run the script again after changing the renderer.

## Gradation

Colors #264653, #2a9d8f, #e9c46a, mix 1, angle 30 (circle, outline and
contour lines ignore the angle).
INTRO
  gradation 0 'horizontal'
  gradation 1 'vertical'
  gradation 3 'outline: 0 at the edge, 1 deepest'
  gradation 4 'circle'
  gradation 5 'ellipse at the box aspect'
  gradation 6 'rectangle'
  gradation 7 'four corners, colors #264653, #2a9d8f, #e9c46a, #e76f51' --set colors="$corners"
  gradation 8 'spiral, spiralAngle 360'
  gradation 101 'contour lines, repeat 1: 8 terraces'
  gradation 104 'slope lit from the left'
  gradation 105 'slope lit from the top'
  gradation 106 'slope lit from the upper left'
  gradation 107 'slope round the circumference'
  gradation 108 'change of slope: the ridges'
  table

  cat <<'TILES'

## Tile

Colors #264653, #2a9d8f, #e9c46a, #e76f51, block 20, seam 2 in #f4f1de, and,
after the colorings, coloring 1 (at random). Triangle and hexagon heights are
the ones the tile panel gives a block of 20 with a seam of 2.
TILES
  tile coloring-0 'square (shape 0), coloring 0: two colors alternately' --set coloring=0
  tile coloring-1 'square, coloring 1: all colors at random' --set coloring=1
  tile coloring-2 'square, coloring 2: between two colors, channels apart' --set coloring=2
  tile coloring-3 'square, coloring 3: between two colors' --set coloring=3
  tile coloring-4 "square, coloring 4: the part's own colors" --set coloring=4
  tile brick 'brick: shape 0, 20 x 12, rowShift 0.5' --set height=12 --set rowShift=0.5
  tile circle 'circle (shape 1)' --set shape=1
  tile triangle 'triangle (shape 2), height 34.64' --set shape=2 --set height=34.64
  tile hexagon 'hexagon (shape 3), height 23.09' --set shape=3 --set height=23.09
  tile rounded 'square, roundCorners 1, cornerCut 0.4, angle 15' --set roundCorners=1 \
    --set cornerCut=0.4 --set angle=15
  tile transparent 'square, transparentSeam 1' --set transparentSeam=1
  table

  cat <<'STRIPES'

## Stripe

Colors #e63946, #457b9d, interval 24, patternWidth 0.5, intersectionBrightness
0.5, background #f1faee (backgroundMode 0) unless the caption says otherwise.
STRIPES
  for direction in 1 2 3 4 5 6; do
    stripe "direction-$direction" "direction $direction, texture 0" --set direction="$direction"
  done
  for texture in 0 1 2 3 4 5 6 7; do
    stripe "texture-$texture" "texture $texture, direction 4, interval 32" --set direction=4 \
      --set interval=32 --set texture="$texture"
  done
  stripe background-part "direction 3, backgroundMode 1: the part's own colors" --set direction=3 \
    --set backgroundMode=1
  table

  cat <<'OPERATIONS'

## Operations
OPERATIONS
  picture scene 'the sample scene as it is (blur of radius 0)' blur --set radius=0
  picture uniform 'uniform, color #e76f51' uniform --set color='#e76f51'
  picture blur 'blur, radius 6' blur --set radius=6
  picture invert 'invert' invert
  picture edge 'edge, color #264653, width 4' edge --set color='#264653' --set width=4
  table
} >"$root/docs/gallery.md"
echo "Gallery written: $root/docs/gallery.md"
