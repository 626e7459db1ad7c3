#!/usr/bin/env bash
# vellpaint on bad command lines and files: each gets a non-zero exit, one
# line on stderr and no picture. Then good runs write PNGs of the right size.
set -uo pipefail
tool=$1
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
cd "$dir" || exit 1

le32() { printf '\\x%02x' $(($1 & 255)) $(($1 >> 8 & 255)) $(($1 >> 16 & 255)) $(($1 >> 24 & 255)); }
bmp() {  # width height file: a 24-bit grey picture
  local size=$((($1 * 3 + 3) / 4 * 4 * $2))
  { printf 'BM'; printf "$(le32 $((54 + size)))$(le32 0)$(le32 54)$(le32 40)$(le32 "$1")$(le32 "$2")"
    printf "\\x01\\x00\\x18\\x00$(le32 0)$(le32 $size)$(le32 0)$(le32 0)$(le32 0)$(le32 0)"
    head -c $size /dev/zero | tr '\0' '\200'; } >"$3"
}
bmp 7 5 pic.bmp
bmp 6 5 narrow.bmp
head -c 60 pic.bmp >short.bmp
echo 'not a picture' >text.bmp
printf 'mix = 1\nangle 30\n' >noequals.txt
printf '# fine\ntype = 4\ncolours = #ff0000,#00ff00\n' >unknownkey.txt

failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }
while read -r line; do
  set -f; args=($line); set +f
  "$tool" "${args[@]}" 2>err.txt; status=$?
  if [ $status -eq 0 ] || [ "$(wc -l <err.txt)" -ne 1 ] || ! grep -q '^vellpaint: ' err.txt ||
     [ -e out.png ]; then
    fail "vellpaint $line (exit $status): $(cat err.txt)"
    rm -f out.png
  fi
done <<'TABLE'
-o out.png
sparkle -o out.png
gradation
gradation --bogus 1 -o out.png
gradation -o
gradation --set mix=abc -o out.png
gradation --set colour=#ff0000 -o out.png
gradation --set colors=#ff0000 -o out.png
gradation --set colors=#ff0000,#00ff00, -o out.png
tile --set seamColor=red -o out.png
tile --set coloring=99999999999 -o out.png
gradation --size 0x10 -o out.png
gradation --size 20000x10 -o out.png
gradation --threads 100 -o out.png
gradation noequals.txt -o out.png
gradation unknownkey.txt -o out.png
gradation missing.txt -o out.png
invert --picture missing.bmp -o out.png
invert --picture text.bmp -o out.png
invert --picture short.bmp -o out.png
invert --picture pic.bmp --mask narrow.bmp -o out.png
invert --mask pic.bmp -o out.png
invert --picture pic.bmp --size 8x8 -o out.png
blur -o missing-dir/out.png
pattern --set colors= -o out.png
pattern --image missing.bmp -o out.png
mapping --image text.bmp -o out.png
tile --image pic.bmp -o out.png
TABLE

png_size() { od -An -tu1 -j16 -N8 "$1" | awk '{ print $3 * 256 + $4 "x" $7 * 256 + $8 }'; }
check_good() {  # expected size, arguments...
  local expected=$1; shift
  "$tool" "$@" -o good.png && [ "$(png_size good.png)" = "$expected" ] ||
    fail "vellpaint $* gave no $expected PNG"
}
check_good 64x48 tile --size 64x48 --set colors=#ff0000,#0000ff --seed 3 --threads 2
check_good 7x5 edge --picture pic.bmp --mask pic.bmp --set width=1.5
check_good 64x48 pattern --size 64x48 --set patternType=4 --set referencePoints=5 \
  --set colors=#ff0000,#00ff00,#0000ff --set borderColor=#000000 --seed 9 --threads 2
check_good 64x48 pattern --size 64x48 --set patternType=15 --set imageSize=20
check_good 7x5 mapping --picture pic.bmp --image narrow.bmp --set angle=30 \
  --set scale=0.5 --set stretch=1
exit $((failures > 0))
