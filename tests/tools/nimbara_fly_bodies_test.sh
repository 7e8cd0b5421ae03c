#!/usr/bin/env bash
# Bodies and other drag, measured from outside on an aircraft that is one body alone: met
# head-on its drag is the dynamic pressure times its frontal area times its drag
# coefficient; a fuselage speedbrake adds a flat plate's drag square to the flow; a drag
# chute opens over two seconds to its own. Every aircraft of the fleet, and the body,
# fly a minute at the longest step with speedbrake and chute out, every number finite.
set -u
fly=$1
fw=$2
tree=$(cd "$3" && pwd)
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
# A data tree of our own: the real one's folders, and its aircraft beside the body.
mkdir -p "$tmp/tree/Aircraft" "$tmp/tree/Output"
for d in "$tree"/*/; do n=$(basename "$d"); [ "$n" = Aircraft ] || [ "$n" = Output ] || ln -s "$d" "$tmp/tree/$n"; done
for d in "$tree"/Aircraft/*/; do ln -s "$d" "$tmp/tree/Aircraft/$(basename "$d")"; done
# A cylinder of 2 ft radius, its stations sixteen-sided: frontal area 8 R^2 sin(45 deg / 2).
awk 'BEGIN {
	print "tailnum \"NBBODY\""; print "Vne_kts 900"; print "throt_max_FWD 1"; print "h_eqlbm 2"
	print "num_engines 0"; print "part_eq[44] 1"; print "fuse_cd 0.1"; print "m_empty 2000"; print "m_max 2000"; print "cgZ 9.5"
	print "brake_area 10"; print "brake_Y 0"; print "brake_Z 12"; print "chute_area 50"; print "chute_Y 0"; print "chute_Z 19"
	pi = atan2(0, -1)
	for (s = 0; s < 20; s++) {
		k = (s + 1) / 4; if ((20 - s) / 4 < k) k = (20 - s) / 4; if (k > 1) k = 1; R = 2 * k
		for (r = 0; r < 18; r++) {
			q = r < 9 ? r : 17 - r; x = R * sin(q * pi / 8); if (r >= 9) x = -x
			printf "body_X[44][%d][%d] %.6f\nbody_Y[44][%d][%d] %.6f\nbody_Z[44][%d][%d] %d\n", s, r, x, s, r, R * cos(q * pi / 8), s, r, s
		}
	}
}' > "$tmp/body.txt"
body="$tmp/tree/Aircraft/body.acf"
"$fw" build "$tmp/body.txt" "$body" || fail "the body did not build"
rho=$("$fly" atmos --planet earth --alt-ft 5000 | awk 'NR == 2 { print $4 }')
S=$(awk 'BEGIN { print 8 * 4 * sin(atan2(0, -1) / 8) * 0.09290304 }')
run() { "$fly" run --aircraft "$body" --alt-ft 5000 --ktas 100 --calm --fields faxil_aero_acf,AV_msc,alpha "$@"; }
# Head-on, at the first pass of a very short step, before it has fallen into any angle.
run --dt 0.001 --seconds 0.001 --csv "$tmp/a.csv" || fail "the body alone did not fly"
run --dt 0.001 --seconds 0.001 --speedbrake 1 --csv "$tmp/b.csv" || fail "the speedbrake run failed"
d0=$(awk -F, 'END { print $2 }' "$tmp/a.csv")
awk -F, -v rho="$rho" -v S="$S" -v d0="$d0" 'END {
	q = 0.5 * rho * $3 * $3; want = q * S * 0.1
	if ((d0 - want) ^ 2 > (0.01 * want) ^ 2) { printf "FAIL: head-on drag %.2f N, q S cd gives %.2f N\n", d0, want; exit 1 }
	plate = 1.23 * q * 10 * 0.09290304
	if (($2 - d0 - plate) ^ 2 > (0.01 * plate) ^ 2) { printf "FAIL: the speedbrake adds %.1f N, a flat plate %.1f N\n", $2 - d0, plate; exit 1 }
	printf "body head-on: %.2f N against q S cd %.2f N; speedbrake %.1f N against a flat plate %.1f N\n", d0, want, $2 - d0, plate
}' "$tmp/b.csv" || exit 1
# The chute: closed at the start, half open after a second, fully open after two; the
# body's own drag rides along in proportion to the dynamic pressure.
run --dt 0.01 --seconds 3 --every 50 --chute --csv "$tmp/c.csv" || fail "the chute run failed"
awk -F, -v rho="$rho" -v S="$S" 'NR == 2 { next } {
	q = 0.5 * rho * $3 * $3; full = 1.2 * q * 50 * 0.09290304; open = ($2 - q * S * 0.1) / full
	want = $1 / 2 > 1 ? 1 : $1 / 2
	if ((open - want) ^ 2 > 0.02 ^ 2) { printf "FAIL: the chute is %.3f open at %s s\n", open, $1; exit 1 }
}
END { printf "the chute opens over two seconds to %.0f N\n", $2 }' "$tmp/c.csv" || exit 1
# At the longest step, with everything out: also the body alone, through the speed of sound.
"$fly" run --aircraft "$body" --alt-ft 30000 --ktas 700 --calm --dt 0.08 --seconds 60 --speedbrake 1 --chute --csv "$tmp/s.csv" ||
	fail "the body through the speed of sound"
grep -qiE 'nan|inf' "$tmp/s.csv" && fail "a number went bad in the body's run"
while IFS= read -r -d '' a; do
	"$fly" run --aircraft "$a" --alt-ft 8000 --kias 150 --throttle 0.5 --dt 0.08 --seconds 60 --speedbrake 1 --chute --csv "$tmp/f.csv" ||
		fail "run of $a"
	grep -qiE 'nan|inf' "$tmp/f.csv" && fail "a number went bad flying $a with speedbrake and chute"
done < <(find "$tree/Aircraft" -name '*.acf' -print0)
echo "bodies and other drag behave"
