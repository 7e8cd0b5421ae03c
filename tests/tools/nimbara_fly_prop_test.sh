#!/usr/bin/env bash
# Propellers and rotors: the trainer's static thrust is plausible and its torque rolls it
# against the propeller's rotation; at full throttle the energy it gains is the work of
# its thrust less its drag; the helicopter's rotor on a stand settles on the far-wake
# speed of momentum theory with a figure of merit real rotors reach; at rest, starting and
# stopping nothing goes bad.
set -u
fly=$1
tree=$2
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
wren="$tree/Aircraft/General Aviation/Wren 180/Wren 180.acf"
heli="$tree/Aircraft/Helicopters/Hornet 250/Hornet 250.acf"
"$fly" run --aircraft "$wren" --lat 33.5 --lon -118.8 --alt-ft 1000 --kias 0 --throttle 1 --mixture 0.77 --hold-still --seconds 10 \
	--fields ENGN_tacrad[0],POINT_thrust[0],L --csv "$tmp/s.csv" || fail "static run"
tail -1 "$tmp/s.csv" | awk -F, '{
	if ($3 < 1500 || $3 > 4500) { printf "FAIL: static thrust %.0f N\n", $3; exit 1 }
	if ($4 >= 0) { printf "FAIL: a clockwise propeller should roll the aircraft left, L %.0f\n", $4; exit 1 }
	printf "trainer on the stand: %.0f rpm, %.0f N of thrust\n", $2 * 9.5493, $3 }' || exit 1
"$fly" run --aircraft "$wren" --lat 33.5 --lon -118.8 --alt-ft 3000 --kias 90 --throttle 1 --mixture 0.77 --calm --seconds 30 \
	--fields drag_path_axis,AV_msc,m_total,dob_ele,vx,vy,vz,alpha,faxil_prop_acf,fnrml_prop_acf --csv "$tmp/c.csv" || fail "climb run"
awk -F, 'NR == 1 || $4 == 0 { next }
{
	n++; Es = $5 + ($6 * $6 + $7 * $7 + $8 * $8) / (2 * 9.79)
	if (n == 1) E0 = Es; else W += ((-$10 * cos($9 * 0.0174533) + $11 * sin($9 * 0.0174533)) * $3 - $2 * $3) / ($4 * 9.79) * ($1 - pt)
	pt = $1
}
END {
	if (Es - E0 < 50) { printf "FAIL: gained only %.1f m of energy height at full throttle\n", Es - E0; exit 1 }
	if ((Es - E0) / W < 0.97 || (Es - E0) / W > 1.03) { printf "FAIL: gained %.1f m, thrust less drag gives %.1f m\n", Es - E0, W; exit 1 }
	printf "trainer at full throttle: %.0f ft/min of energy climb, matching thrust less drag\n", (Es - E0) / 30 * 196.85
}' "$tmp/c.csv" || exit 1
"$fly" run --aircraft "$heli" --lat 33.5 --lon -118.8 --alt-ft 1000 --kias 0 --throttle 0.8 --collective 0.15 --hold-still --seconds 20 \
	--fields POINT_tac_rad[0],POINT_thrust[0],POINT_DVinc[0],POINT_drag_TRQ[0],dob_ele --csv "$tmp/h.csv" || fail "rotor run"
tail -1 "$tmp/h.csv" | awk -F, '{
	rho = 1.1901; A = 3.14159265 * (16.65 * 0.3048) ^ 2; T = $3; P = $5 * $2
	far = sqrt(T / (rho * A)); FM = T * sqrt(T / (2 * rho * A)) / P
	if (T < 5000) { printf "FAIL: rotor thrust %.0f N\n", T; exit 1 }
	if ($4 < 0.97 * far || $4 > 1.03 * far) { printf "FAIL: wash %.2f m/s against the far wake %.2f\n", $4, far; exit 1 }
	if (FM < 0.5 || FM > 0.8) { printf "FAIL: figure of merit %.2f\n", FM; exit 1 }
	printf "rotor: %.0f N, wash %.2f m/s against %.2f, figure of merit %.2f\n", T, $4, far, FM }' || exit 1
for a in "$wren" "$heli"; do
	"$fly" run --aircraft "$a" --lat 33.5 --lon -118.8 --alt-ft 1000 --kias 0 --engines-off --hold-still --seconds 5 --csv "$tmp/r.csv" || fail "rest"
	"$fly" run --aircraft "$a" --lat 33.5 --lon -118.8 --alt-ft 1000 --kias 60 --throttle 1 --mixture 0 --seconds 30 --csv "$tmp/t.csv" || fail "stop"
	grep -qiE 'nan|inf' "$tmp/r.csv" "$tmp/t.csv" && fail "a number went bad at rest or stopping in $a"
done
echo "propellers and rotors behave"
