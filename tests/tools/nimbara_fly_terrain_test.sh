#!/usr/bin/env bash
# An airliner flies east over the generated terrain across the block's margin: the block
# moves a degree (the local frame's x jumps back by a degree of longitude while latitude,
# longitude and height go on smoothly), and the ground the flight model finds under the
# aircraft, before and after, is the ground nimbara-fly terrain reports at those places.
set -u
fly=$1
tree=$2
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
"$fly" run --aircraft "$tree/Aircraft/Heavy Metal/Meridian 320/Meridian 320.acf" --lat 35.0 --lon -116.1 --alt-ft 12000 \
	--ktas 250 --heading 90 --throttle 0.7 --hold-vs 0 --hold-bank 0 --calm --seconds 150 --every 5 \
	--fields dob_lat,dob_lon,dob_ele,dob_x,dob_y,terrain_y_cg --csv "$tmp/east.csv" || fail "the run failed"
grep -qiE 'nan|inf' "$tmp/east.csv" && fail "a number went bad"
awk -F, -v pts="$tmp/pts.txt" -v want="$tmp/want.txt" 'NR == 1 { next }
{
	n++
	if (n > 1) {
		if ((($2 - la) ^ 2) ^ 0.5 > 1e-4 || (($3 - lo) ^ 2) ^ 0.5 > 2e-3 || (($4 - el) ^ 2) ^ 0.5 > 10) { printf "FAIL: a jump at t %s\n", $1; exit 1 }
		if ($5 - x < -50000) { jumps++; jump_lon = $3; dx = $5 - x }
	}
	la = $2; lo = $3; el = $4; x = $5
	if (n % 40 == 0) { printf "%.7f %.7f\n", $2, $3 > pts; printf "%.2f\n", $4 - ($6 - $7) > want }
}
END {
	if (jumps != 1) { printf "FAIL: the block moved %d times\n", jumps; exit 1 }
	if (jump_lon < -115.96 || jump_lon > -115.94) { printf "FAIL: the block moved at longitude %.4f, not at the margin\n", jump_lon; exit 1 }
	if (dx > -80000 || dx < -100000) { printf "FAIL: x moved by %.0f m, not a degree\n", dx; exit 1 }
	printf "the block moved a degree east at longitude %.4f; x went back %.0f m\n", jump_lon, -dx
}' "$tmp/east.csv" || exit 1
"$fly" terrain --tree "$tree" --points "$tmp/pts.txt" > "$tmp/got.txt" || fail "terrain failed"
[ "$(wc -l < "$tmp/got.txt")" -eq "$(wc -l < "$tmp/pts.txt")" ] || fail "terrain printed a line a point"
paste -d' ' "$tmp/want.txt" "$tmp/got.txt" | awk '{
	d = $1 - $4; if (d < 0) d = -d
	if (d > 2.0) { printf "FAIL: under the aircraft at %s %s the flight saw %.1f m, terrain says %.1f m\n", $2, $3, $1, $4; exit 1 }
	if (d > worst) worst = d; n++
}
END { printf "the ground under the aircraft agrees at %d places, within %.2f m\n", n, worst }' || exit 1
"$fly" terrain --tree "$tree" --lat 95 --lon 0 2>/dev/null && fail "took a latitude past the pole"
printf "1 2\nnot a place\n" > "$tmp/bad.txt"
"$fly" terrain --tree "$tree" --points "$tmp/bad.txt" 2>/dev/null && fail "took a bad points file"
exit 0
