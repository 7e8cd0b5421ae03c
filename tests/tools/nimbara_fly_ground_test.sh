#!/usr/bin/env bash
# Each aircraft of the fleet started at rest on a runway with its brakes set, in calm air,
# settles and stays still where its resting height and pitch say, its contact forces
# carrying its weight; the trainer takes off and brakes in published distances. A ground
# start off the scenery, brakes beyond full or an unknown field are refused.
set -u
fly=$1
tree=$2
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
rwy="--lat 34.095402 --lon -117.234505 --heading 70.279"   # San Bernardino, runway 06
while IFS= read -r -d '' a; do
	"$fly" run --aircraft "$a" $rwy --brakes 1 --calm --engines-off --seconds 60 --every 25 \
		--fields vx,vy,vz,the,phi,onground_any,fnrml_gear_acf,m_total,tire_vrt_frc_veh[68],tire_vrt_frc_veh[69] --csv "$tmp/r.csv" ||
		fail "run of $a"
	grep -qiE 'nan|inf' "$tmp/r.csv" && fail "a number went bad resting $a"
	awk -F, -v name="$(basename "$a" .acf)" 'NR > 1 && $1 >= 45 {   # a glider first drops a wing
		v = sqrt($2 * $2 + $3 * $3 + $4 * $4); if (v > vmax) vmax = v
		if ($7 != 1) { printf "FAIL: %s left the ground at t %s\n", name, $1; exit 1 }
		w = $9 * 9.79; c = cos($5 * 0.0174533) * cos($6 * 0.0174533); r = $8 / (w * c)
		if (r < 0.97 || r > 1.03) { printf "FAIL: %s: contact force %.0f N against weight %.0f N\n", name, $8, w * c; exit 1 }
		m68 = $10; m69 = $11; n++
	}
	END {
		if (vmax > 0.02) { printf "FAIL: %s still moves at %.3f m/s\n", name, vmax; exit 1 }
		printf "%s rests: %.4f m/s at most, contact force / weight %.3f\n", name, vmax, r
		if (name == "Wren 180" && (m68 - m69) ^ 2 > (0.03 * m68) ^ 2) { printf "FAIL: the mains carry %.0f and %.0f N\n", m68, m69; exit 1 }
	}' "$tmp/r.csv" || exit 1
done < <(find "$tree/Aircraft" -name '*.acf' -print0)
wren="$tree/Aircraft/General Aviation/Wren 180/Wren 180.acf"
# Each settles where its drawing's resting height and pitch put it: started there, it neither
# sinks nor rises nor pitches (pitch is read against the first pass's, which is the_eqlbm).
while IFS= read -r -d '' a; do
	"$fly" run --aircraft "$a" $rwy --brakes 1 --calm --engines-off --seconds 25 --every 50 \
		--fields y_agl_mtr,the --csv "$tmp/e.csv" || fail "run of $a"
	awk -F, -v name="$(basename "$a" .acf)" 'NR == 2 { t0 = $3 } END {
		if ($2 ^ 2 > 0.03 ^ 2 || ($3 - t0) ^ 2 > 0.3 ^ 2) { printf "FAIL: %s settles %.3f m and %.2f deg from its resting height and pitch\n", name, $2, $3 - t0; exit 1 }
	}' "$tmp/e.csv" || exit 1
done < <(find "$tree/Aircraft" -name '*.acf' -print0)
# Its take-off at full throttle, rotating at 1.1 Vs (53 kt): a 180 hp trainer's published
# ground roll is about 1000 ft at 2550 lb and 1000 ft elevation; it runs as the weight
# squared, so about 700 ft at this one's 2120 lb. Lifting off a little faster than the
# published technique, 550 to 900 ft agrees.
"$fly" run --aircraft "$wren" $rwy --throttle 1 --brakes 0 --calm --yoke-pitch 0.4 --rotate-kias 53 --seconds 25 --every 5 \
	--fields dob_lat,dob_lon,v_ind_kts,onground_any --csv "$tmp/t.csv" || fail "the take-off run failed"
awk -F, 'NR == 2 { la = $2; lo = $3 } NR > 2 && !done && $5 != 1 {
	d = sqrt((($2 - la) * 111195) ^ 2 + (($3 - lo) * 111195 * cos(la * 0.0174533)) ^ 2) / 0.3048; done = 1
	if (d < 550 || d > 900) { printf "FAIL: lifted off after %.0f ft\n", d; exit 1 }
	printf "trainer lifts off at %.0f kt after %.0f ft, %s s\n", $4, d, $1
}
END { if (!done) { print "FAIL: the trainer did not lift off"; exit 1 } }' "$tmp/t.csv" || exit 1
# From 45 knots with full brakes and idle power the trainer stops in a landing roll's
# distance: a 2550 lb, 180 hp trainer's published rolls from such speeds run 400 to 700 ft.
"$fly" run --aircraft "$wren" $rwy --kias 45 --throttle 0 --brakes 1 --calm --seconds 30 --every 5 \
	--fields dob_lat,dob_lon,v_ind_kts,onground_all --csv "$tmp/b.csv" || fail "the braking run failed"
awk -F, 'NR == 2 { la = $2; lo = $3 } NR > 2 && !done && ($4 < 0.5 || $5 != 1) {
	if ($5 != 1) { printf "FAIL: the trainer left the ground braking at t %s\n", $1; exit 1 }
	d = sqrt((($2 - la) * 111195) ^ 2 + (($3 - lo) * 111195 * cos(la * 0.0174533)) ^ 2) / 0.3048; done = 1
	if (d < 400 || d > 700) { printf "FAIL: stopped from 45 kt in %.0f ft\n", d; exit 1 }
	printf "trainer stops from 45 kt in %.0f ft, %s s\n", d, $1
}
END { if (!done) { print "FAIL: the trainer did not stop"; exit 1 } }' "$tmp/b.csv" || exit 1
# Flown into the runway nose down at the longest step: hard, but every number stays finite.
for a in "$wren" "$tree/Aircraft/Heavy Metal/Meridian 320/Meridian 320.acf"; do
	"$fly" run --aircraft "$a" $rwy --alt-ft 1175 --kias 90 --pitch -20 --dt 0.08 --seconds 20 --csv "$tmp/h.csv" || fail "the hard landing run failed"
	grep -qiE 'nan|inf' "$tmp/h.csv" && fail "a number went bad in a hard landing of $a"
done
"$fly" run --aircraft "$wren" $rwy --brakes 1.5 --csv "$tmp/x.csv" 2>/dev/null && fail "took brakes beyond full"
"$fly" run --aircraft "$wren" --lat 10.5 --lon 100.5 --csv "$tmp/x.csv" 2>/dev/null && fail "started on the ground where no scenery loads"
"$fly" run --aircraft "$wren" $rwy --seconds 1 --fields no_such_field --csv "$tmp/x.csv" 2>/dev/null
[ $? -eq 2 ] || fail "an unknown field did not end with a plain error"
exit 0
