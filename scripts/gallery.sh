#!/usr/bin/env bash
# Renders the gallery: vellpaint paints every gradation type, tile shape and
# coloring, stripe direction and texture, isoline pattern type, mapping
# placement and operation on its sample scene into docs/gallery/, and
# docs/gallery.md shows them with their parameters. The seeds are fixed: a
# second run writes the same files. VELLPAINT=path uses that vellpaint
# instead of building build/native.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
tool=${VELLPAINT:-}
if [ -z "$tool" ]; then
  ensure_tools
  configure_and_build "$build/native" >/dev/null
  tool="$build/native/vellpaint"
fi
out="$root/docs/gallery"
mkdir -p "$out"
rm -f "$out"/*.png

cells=()
# picture NAME CAPTION EFFECT [vellpaint arguments...]: docs/gallery/NAME.png,
# seed 7 unless the arguments give another.
picture() {
  local name=$1 caption=$2
  shift 2
  "$tool" --size 256x192 --seed 7 "$@" -o "$out/$name.png"
  cells+=("![$name](gallery/$name.png)<br>$caption")
}
# The pictures so far as a table, COLUMNS (default 3) to a row.
table() {
  local columns=${1:-3} i j row
  printf '\n|%s\n|%s\n' "$(printf ' |%.0s' $(seq "$columns"))" \
    "$(printf -- '---|%.0s' $(seq "$columns"))"
  for ((i = 0; i < ${#cells[@]}; i += columns)); do
    row='|'
    for ((j = i; j < i + columns; j++)); do row+=" ${cells[j]:-} |"; done
    printf '%s\n' "$row"
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

pattern_names=('' gradation isolines 'radial lines' 'isolines and radial lines' check dots
  'square stripes' 'circular stripes' brick fluctuation jagged hair 'image cells' 'image tiles'
  'image kaleidoscope')
pattern() {  # name caption [arguments...]
  local name=$1 caption=$2
  shift 2
  picture "pattern-$name" "$caption" pattern --set colors="$corners" --set referencePoints=6 \
    --set borderColor='#1d1d1d' --set borderWidth=0.3 --set isolineWidth=12 \
    --set radialLines=16 --set imageSize=40 "$@"
}

mapping() {  # name caption [arguments...]
  local name=$1 caption=$2
  shift 2
  picture "mapping-$name" "$caption" mapping "$@"
}

{
  cat <<'INTRO'
# Gallery of the reference renderer

Written by `scripts/gallery.sh`, which runs `vellpaint` (tools/vellpaint) on
its sample scene, 256 x 192, seed 7 unless a caption gives another: a soft
diagonal blend with a few shapes, and a rounded five-lobed star as the part.
Outside the star nothing changes; its edge is anti-aliased. Run the script
again after changing the renderer.

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

  cat <<'PATTERNS'

## Isoline pattern

Six reference points, colors #264653, #2a9d8f, #e9c46a, #e76f51, border
#1d1d1d of width 0.3, isolineWidth 12, radialLines 16, imageSize 40, each
type at two seeds; the points move with the seed. The image types take
vellpaint's demo picture, a landscape with a sun on the left and a house on
the right.
PATTERNS
  for type in $(seq 1 15); do
    for seed in 7 8; do
      pattern "$type-seed-$seed" "**$type** ${pattern_names[type]}, seed $seed" \
        --set patternType="$type" --seed "$seed"
    done
  done
  table 4
  printf '\nOne field of the isolines and radial lines (type 4, seed 7) changed:\n'
  pattern swirl '**4** swirl 0.5' --set patternType=4 --set swirl=0.5
  pattern roughness '**4** roughness 0.5' --set patternType=4 --set roughness=0.5
  pattern blur '**4** blurDirection 3: both sides' --set patternType=4 --set blurDirection=3
  pattern invert '**4** invertColors 1' --set patternType=4 --set invertColors=1
  pattern jaggies '**4** removeJaggies 0' --set patternType=4 --set removeJaggies=0
  table

  cat <<'MAPPINGS'

## Mapping

vellpaint's demo picture, 128 x 96, placed on the star: scale 1 and angle 0
and no stretch unless the caption says otherwise.
MAPPINGS
  mapping one 'one copy (repeat 0), as it is' --set repeat=0
  mapping one-rotated 'one copy, angle 20' --set repeat=0 --set angle=20
  mapping fit 'fitWhole 1 (repeat 0)' --set repeat=0 --set fitWhole=1
  mapping repeat 'repeat 1' --set repeat=1
  mapping seamless 'repeat 1, seamless 1' --set repeat=1 --set seamless=1
  mapping repeat-turned 'repeat 1, scale 0.5, angle 30' --set repeat=1 --set scale=0.5 \
    --set angle=30
  mapping stretch-half "one copy, stretch 0.5: halfway to the box's aspect" --set repeat=0 \
    --set stretch=0.5
  mapping stretch-full "one copy, stretch 1: the box's aspect" --set repeat=0 --set stretch=1
  mapping scale-10 'repeat 1, scale 0.1' --set repeat=1 --set scale=0.1
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
