#!/usr/bin/env bash
# nimbara-fly tex under a virtual X server: the sizes line, the driver's texels written as
# PNG and BMP, a composed panel, a cut file refused with its alert, and no display refused.
set -u
if [ -z "${NIMBARA_IN_XVFB:-}" ]; then
	NIMBARA_IN_XVFB=1 exec timeout 240 "$(dirname "$0")/../support/xvfb_run.sh" bash "$0" "$@"
fi
fly=$1
pngmake=$2
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
fail() { echo "FAIL: $*"; exit 1; }

# Three bytes of a BMP at column x, row y from the bottom, as decimal blue green red.
bmp_px() { od -An -tu1 -j $((54 + ($4 * $2 + $3) * 3)) -N3 "$1" | tr -s ' ' | sed 's/^ //'; }

printf 'size 300 100\nfill 255 0 0 255\nrect 0 0 10 10 0 0 255 255\n' > "$dir/pic.txt"
"$pngmake" "$dir/pic.txt" "$dir/pic.png" || fail "pngmake"
line=$("$fly" tex "$dir/pic.png" --id 7942 --png "$dir/out.png" --bmp "$dir/out.bmp") || fail "tex exited $?"
[ "$line" = "300 100 512 128 196608" ] || fail "sizes line '$line'"
[ "$(head -c 8 "$dir/out.png" | od -An -tx1 | tr -d ' ')" = "89504e470d0a1a0a" ] || fail "--png wrote no PNG"
[ "$(head -c 2 "$dir/out.bmp")" = "BM" ] || fail "--bmp wrote no BMP"
[ "$(stat -c %s "$dir/out.bmp")" = $((54 + 512 * 128 * 3)) ] || fail "BMP size $(stat -c %s "$dir/out.bmp")"
[ "$(bmp_px "$dir/out.bmp" 512 3 95)" = "255 0 0" ] || fail "the picture's top-left blue: $(bmp_px "$dir/out.bmp" 512 3 95)"
[ "$(bmp_px "$dir/out.bmp" 512 20 50)" = "0 0 255" ] || fail "red: $(bmp_px "$dir/out.bmp" 512 20 50)"
[ "$(bmp_px "$dir/out.bmp" 512 400 50)" = "0 0 0" ] || fail "beyond the picture: $(bmp_px "$dir/out.bmp" 512 400 50)"

# Mip level 2 of a mipmapped texture is a quarter each way.
"$fly" tex "$dir/pic.png" --id 500 --filter -108 --level 2 --png "$dir/l2.png" > /dev/null || fail "mip level"
w=$(od -An -tu1 -j 16 -N8 "$dir/l2.png" | awk '{print $3*256+$4, $7*256+$8}')
[ "$w" = "128 32" ] || fail "level 2 is $w"

# A panel: black background, a white layer at half alpha: the middle grey.
printf 'size 1024 768\nfill 0 0 0 255\n' > "$dir/panel.txt"
printf 'size 1024 1024\nfill 255 255 255 128\n' > "$dir/layer.txt"
"$pngmake" "$dir/panel.txt" "$dir/panel.png" && "$pngmake" "$dir/layer.txt" "$dir/layer.png" || fail "pngmake"
"$fly" tex "$dir/panel.png" --id 480 --over "$dir/layer.png" --bmp "$dir/panel.bmp" > /dev/null || fail "panel"
[ "$(stat -c %s "$dir/panel.bmp")" = $((54 + 1024 * 1024 * 3)) ] || fail "panel BMP size"
[ "$(bmp_px "$dir/panel.bmp" 1024 500 300)" = "128 128 128" ] || fail "panel midpoint $(bmp_px "$dir/panel.bmp" 1024 500 300)"

# A cut PNG: its alert and a failure.
head -c 100 "$dir/pic.png" > "$dir/cut.png"
if "$fly" tex "$dir/cut.png" --id 500 > /dev/null 2> "$dir/err"; then fail "a cut PNG was taken"; fi
grep -q "PING-FILE ERROR!" "$dir/err" || fail "no alert for the cut PNG: $(cat "$dir/err")"

# No display at all: said, and a failure.
if env -u DISPLAY "$fly" tex "$dir/pic.png" --id 500 > /dev/null 2> "$dir/err"; then fail "ran without a display"; fi
grep -qi "display" "$dir/err" || fail "did not say there is no display: $(cat "$dir/err")"
# draw: a white square where the panel space puts it, read back through tex and --bmp.
printf '# a square\nOGL_fillrect 0 1 100 100 50 50\nOGL_string 0 10 700 "Hello" 9999 100\n' > "$dir/draw.txt"
"$fly" draw --size 1024x768 --script "$dir/draw.txt" --png "$dir/draw.png" 2> "$dir/err" || fail "draw: $(cat "$dir/err")"
"$fly" tex "$dir/draw.png" --id 500 --bmp "$dir/draw.bmp" > /dev/null 2>&1 || fail "reading the drawing back"
[ "$(bmp_px "$dir/draw.bmp" 1024 125 125)" = "255 255 255" ] || fail "the square: $(bmp_px "$dir/draw.bmp" 1024 125 125)"
[ "$(bmp_px "$dir/draw.bmp" 1024 200 125)" = "0 0 0" ] || fail "beside the square: $(bmp_px "$dir/draw.bmp" 1024 200 125)"
printf 'OGL_fillrect 0 1 1 1 1 1\nOGL_fillrect 0 1 nope 1 1 1\n' > "$dir/bad.txt"
if "$fly" draw --size 64x64 --script "$dir/bad.txt" --png "$dir/bad.png" 2> "$dir/err"; then fail "a bad line was taken"; fi
grep -q "bad.txt:2:" "$dir/err" || fail "the error does not name line 2: $(cat "$dir/err")"
echo "nimbara-fly tex and draw: sizes, texels, mip levels, a panel, a drawing, bad input and no display"
