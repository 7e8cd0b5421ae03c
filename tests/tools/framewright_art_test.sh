#!/usr/bin/env bash
# framewright art: a picture comes out at its size with its colours where they were put, a cut
# leaves a hole, and every malformed line is refused with its line number, never a hang.
set -u
fw=$1
fail() { echo "FAIL: $*"; exit 1; }
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
printf 'size 40 20\nrect 0 0 40 20 200 10 10\ncut rect 30 0 10 20 0 0 0\nticks 20 10 2 8 1 0 360 30 255 255 255\n' > "$tmp/ok.art"
timeout 60 "$fw" art "$tmp/ok.art" "$tmp/ok.png" || fail "a good picture was refused"
python3 - "$tmp/ok.png" <<'PY' || fail "the picture is not what was drawn"
import struct, sys, zlib
data = open(sys.argv[1], 'rb').read()
w, h, depth, kind = struct.unpack('>IIBB', data[16:26])
assert (w, h, depth, kind) == (40, 20, 8, 6), (w, h, depth, kind)
raw, pos = b'', 8
while pos < len(data):
    n, = struct.unpack('>I', data[pos:pos + 4])
    if data[pos + 4:pos + 8] == b'IDAT': raw += data[pos + 8:pos + 8 + n]
    pos += n + 12
rows = zlib.decompress(raw)
kind, row0 = rows[0], bytearray(rows[1:1 + 4 * w])   # the top row: only its left neighbour predicts
for i in range(4, len(row0)):
    left = row0[i - 4]
    row0[i] = (row0[i] + (left if kind in (1, 4) else left // 2 if kind == 3 else 0)) & 255
px = lambda x: tuple(row0[4 * x:4 * x + 4])
assert px(0)[3] == 255 and px(0)[0] > 150, px(0)       # the red rectangle
assert px(35)[3] == 0, px(35)                           # the cut
PY
bad=("size 40 20
ticks 20 10 2 8 1 0 360 0 255 255 255"
	"size 40 20
ticks 20 10 2 8 1 0 360 0.000001 255 255 255"
	"size 40 20
cut"
	"size 40 20
cut cut rect 0 0 1 1"
	"size 40 20
ring 20 10 5"
	"size 40 20
sector 20 10 2 8 0"
	"size 40 20
label 20 10 5 0 8 255"
	"size 40 20
frobnicate 1 2 3"
	"rect 0 0 1 1 0 0 0")
for b in "${bad[@]}"; do
	printf '%s\n' "$b" > "$tmp/bad.art"
	timeout 20 "$fw" art "$tmp/bad.art" "$tmp/bad.png" > "$tmp/out" 2>&1
	rc=$?
	[ "$rc" = 124 ] && fail "a hang on: $b"
	[ "$rc" = 0 ] && fail "accepted: $b"
	grep -q "bad.art:2:\|bad.art:1:" "$tmp/out" || fail "no line number for: $b ($(cat "$tmp/out"))"
done
echo ok
