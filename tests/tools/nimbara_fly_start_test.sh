#!/usr/bin/env bash
# Flight starts through the runner: each end of a runway puts the trainer at rest on its
# centre line just past the threshold the airport database gives, on its gear at the
# field's elevation, and its take-off roll follows the runway; a 10 nm approach starts on
# the extended centre line on a 3 degree path, engines running, flaps half out; a carrier
# start with no ship about says so and starts on the runway; cold and dark on the runway
# with the brake set; in the air the engines run and the gear is up; a tow start waits
# for its tow plane; wrong airports, runway ends, start codes and positions are refused.
set -u
fly=$1
tree=$2
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
wren="$tree/Aircraft/General Aviation/Wren 180/Wren 180.acf"
airliner="$tree/Aircraft/Heavy Metal/Meridian 320/Meridian 320.acf"
# KSBD's runway from the database: centre, true heading, length, elevation.
rwy=$("$fly" nav --tree "$tree" find --type apt KSBD | awk '$1 == "apt" { e = $4 } $1 == "rwy" && $2 == "06" { print $3, $4, $5, $6 * 0.3048, e * 0.3048 }')
[ -n "$rwy" ] || fail "KSBD 06 is not in the database"
read -r clat clon hdg len elev <<< "$rwy"
for end in 06 24; do
	"$fly" run --aircraft "$wren" --airport KSBD --runway $end --calm --seconds 5 --every 50 \
		--fields dob_lat,dob_lon,dob_ele,vx,vy,vz,onground_all,parkbrake,y_agl_mtr,veh.h_eqlbm --csv "$tmp/r.csv" || fail "the runway $end start"
	awk -F, -v clat="$clat" -v clon="$clon" -v hdg="$hdg" -v len="$len" -v elev="$elev" -v end=$end 'END {
		h = (end == "06" ? hdg : hdg + 180) * 0.0174533
		dn = ($2 - clat) * 111195; de = ($3 - clon) * 111195 * cos(clat * 0.0174533)
		along = dn * cos(h) + de * sin(h) + len / 2   # from the threshold toward the far end
		across = -dn * sin(h) + de * cos(h)
		if (along < 0 || along > 30) { printf "FAIL: %s: %.1f m past the threshold\n", end, along; exit 1 }
		if (across ^ 2 > 1) { printf "FAIL: %s: %.2f m off the centre line\n", end, across; exit 1 }
		if (($4 - $11 - elev) ^ 2 > 0.1 ^ 2 || $10 ^ 2 > 0.05 ^ 2) { printf "FAIL: %s: its gear stands at %.2f m, the field is at %.2f m\n", end, $4 - $11, elev; exit 1 }
		if ($8 != 1 || $9 != 1 || sqrt($5 ^ 2 + $6 ^ 2 + $7 ^ 2) > 0.02) { printf "FAIL: %s: not at rest on its gear with the brake set\n", end; exit 1 }
		printf "runway %s: %.1f m past the threshold, %.2f m off the centre line, gear at %.2f m on a %.2f m field\n", end, along, across, $4 - $11, elev
	}' "$tmp/r.csv" || exit 1
	# The take-off roll keeps to the runway's true heading.
	"$fly" run --aircraft "$wren" --airport KSBD --runway $end --throttle 1 --brakes 0 --calm --yoke-pitch 0.4 --rotate-kias 53 \
		--seconds 20 --every 25 --fields dob_lat,dob_lon,onground_any --csv "$tmp/t.csv" || fail "the take-off from $end"
	awk -F, -v hdg="$hdg" -v end=$end 'NR == 2 { la = $2; lo = $3 } NR > 2 && $4 == 1 { n = ($2 - la) * 111195; e = ($3 - lo) * 111195 * cos(la * 0.0174533) }
	END {
		want = end == "06" ? hdg : hdg + 180; trk = atan2(e, n) * 57.29578; if (trk < 0) trk += 360
		d = trk - want; if (d > 180) d -= 360; if (d < -180) d += 360
		if (d ^ 2 > 1.5 ^ 2 || n ^ 2 + e ^ 2 < 100 ^ 2) { printf "FAIL: the roll from %s ran %.0f m at %.1f deg, the runway is %.1f\n", end, sqrt(n * n + e * e), trk, want; exit 1 }
	}' "$tmp/t.csv" || exit 1
done
# Ten miles out on the approach: on the centre line, on a 3 degree path to the
# threshold, engines running though asked off, flaps half out.
"$fly" run --aircraft "$wren" --airport KSBD --runway 06 --approach 10 --engines-off --seconds 0 \
	--fields dob_lat,dob_lon,dob_ele,ENGN_burning_fuel[0],flap_rat,onground_any --csv "$tmp/a.csv" || fail "the approach start"
awk -F, -v clat="$clat" -v clon="$clon" -v hdg="$hdg" -v len="$len" -v elev="$elev" 'END {
	h = hdg * 0.0174533; dn = ($2 - clat) * 111195; de = ($3 - clon) * 111195 * cos(clat * 0.0174533)
	out = -(dn * cos(h) + de * sin(h)) - len / 2; across = -dn * sin(h) + de * cos(h)
	if ((out / 1852 - 10) ^ 2 > 0.2 ^ 2 || across ^ 2 > 30 ^ 2) { printf "FAIL: %.2f nm out, %.0f m off the centre line\n", out / 1852, across; exit 1 }
	want = elev + out * sin(3 * 0.0174533) / cos(3 * 0.0174533)
	if (($4 - want) ^ 2 > 15 ^ 2) { printf "FAIL: %.0f m high, a 3 degree path is at %.0f m\n", $4, want; exit 1 }
	if ($5 != 1 || $6 != 0.5 || $7 != 0) { printf "FAIL: engines %s, flaps %s, on the ground %s\n", $5, $6, $7; exit 1 }
	printf "approach: %.2f nm out at %.0f m, the path is at %.0f m\n", out / 1852, $4, want
}' "$tmp/a.csv" || exit 1
# Cold and dark on the runway; in the air the engines run and a retractable gear is up.
"$fly" run --aircraft "$wren" --airport KSBD --runway 06 --engines-off --seconds 2 --every 50 \
	--fields ENGN_burning_fuel[0],ENGN_tacrad[0],parkbrake,stg.battery --csv "$tmp/c.csv" || fail "the cold start"
tail -1 "$tmp/c.csv" | awk -F, '{ if ($2 != 0 || $3 > 1 || $4 != 1) { print "FAIL: engines-off on the runway is not cold with the brake set:", $0; exit 1 } }' || exit 1
"$fly" run --aircraft "$airliner" --lat 34.5 --lon -117.5 --alt-ft 9000 --kias 250 --engines-off --seconds 0 \
	--fields ENGN_burning_fuel[0],gear_handle,veh.gear_deploy[68],parkbrake --csv "$tmp/h.csv" || fail "the start in the air"
tail -1 "$tmp/h.csv" | awk -F, '{ if ($2 != 1 || $3 != 0 || $4 != 0 || $5 != 0) { print "FAIL: in the air: engines, gear handle, gear, brake:", $0; exit 1 } }' || exit 1
# A carrier start inland: the alert, and the runway instead.
"$fly" run --aircraft "$wren" --airport KLAS --start 4204 --seconds 1 --every 50 --fields onground_all,parkbrake,env.over_carr \
	--csv "$tmp/k.csv" 2> "$tmp/k.err" || fail "the carrier start"
grep -q "I can't find one in the area!" "$tmp/k.err" || fail "no alert for a carrier start with no ship about"
tail -1 "$tmp/k.csv" | awk -F, '{ if ($2 != 1 || $3 != 1 || $4 != 0) { print "FAIL: the carrier start did not fall back to the runway:", $0; exit 1 } }' || exit 1
# A tow start: waiting, its tow plane 55 m ahead on the runway.
"$fly" run --aircraft "$wren" --start 4206 --seconds 0 --fields stg.tow_waiting,dob_x,dob_z,flt[1].dob_x,flt[1].dob_z,psi \
	--csv "$tmp/w.csv" 2> /dev/null || fail "the tow start"
tail -1 "$tmp/w.csv" | awk -F, '{ d = sqrt(($5 - $3) ^ 2 + ($6 - $4) ^ 2); if ($2 != 1 || (d - 55) ^ 2 > 1) { printf "FAIL: tow waiting %s, tow plane %.1f m ahead\n", $2, d; exit 1 } }' || exit 1
# Refusals name what was wrong.
out=$("$fly" run --aircraft "$wren" --airport KQQQ --csv "$tmp/x.csv" 2>&1) && fail "flew from an unknown airport"
echo "$out" | grep -q KQQQ || fail "the unknown airport is not named: $out"
out=$("$fly" run --aircraft "$wren" --airport KSBD --runway 09 --csv "$tmp/x.csv" 2>&1) && fail "flew from an unknown runway end"
echo "$out" | grep -q "06, 24" || fail "the runway's ends are not named: $out"
"$fly" run --aircraft "$wren" --start 4806 --csv "$tmp/x.csv" 2>/dev/null && fail "took an unlisted start code"
"$fly" run --aircraft "$wren" --lat 34 --lon -117 --airport KSBD --csv "$tmp/x.csv" 2>/dev/null && fail "took a place and an airport at once"
"$fly" run --aircraft "$wren" --ramp --runway 06 --csv "$tmp/x.csv" 2>/dev/null && fail "took a ramp and a runway at once"
[ -e "$tmp/x.csv" ] && fail "a refused start still wrote a flight"
echo "flight starts behave"
