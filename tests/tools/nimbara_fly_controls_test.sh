#!/usr/bin/env bash
# The controls through the control laws: the trainer answers a short pull, roll and
# push of the pedals with the sign its axes define and settles when let go; flaps lower
# its stall speed; nose-up trim slows it. The helicopter hovers hands off under the
# vertical-speed hold: rotor thrust carries the weight, the governor holds rotor speed,
# the tail rotor holds the heading.
set -u
fly=$1
tree=$2
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
wren="$tree/Aircraft/General Aviation/Wren 180/Wren 180.acf"
hornet="$tree/Aircraft/Helicopters/Hornet 250/Hornet 250.acf"
cruise() { "$fly" run --aircraft "$wren" --alt-ft 5000 --kias 100 --calm --throttle 0.6 "$@"; }

# A one-second input, then hands off; each against the same flight without it.
for k in base pitch roll yaw; do
	case $k in base) o=() ;; pitch) o=(--yoke-pitch 0.5) ;; roll) o=(--yoke-roll 0.5) ;; yaw) o=(--yoke-yaw 0.5) ;; esac
	cruise "${o[@]}" --release-after 1 --seconds 8 --every 5 --fields P,Q,R --csv "$tmp/$k.csv" || fail "the $k run failed"
done
# Columns: t, base P Q R, run P Q R. Peak of the answer while held, its largest trace once let go.
answer() {
	paste -d, "$tmp/base.csv" "$tmp/$1.csv" | awk -F, -v c="$2" -v after="$3" -v name="$1" -v lo="$4" -v hi="$5" -v keep="$6" '
	NR == 1 { next }
	{ d = $(c + 5) - $(c + 1); if ($1 <= 1.0 && d > peak) peak = d; if ($1 >= after && (d < 0 ? -d : d) > late) late = d < 0 ? -d : d }
	END {
		if (peak < lo || peak > hi) { printf "FAIL: %s answered at %.1f deg/s, not %g to %g\n", name, peak, lo, hi; exit 1 }
		if (late > keep * peak) { printf "FAIL: %s still at %.1f deg/s after %g s, from a peak of %.1f\n", name, late, after, peak; exit 1 }
		printf "%s: %.1f deg/s, %.1f deg/s left after %g s\n", name, peak, late, after
	}' || exit 1
}
answer pitch 2 3 15 80 0.2   # pull: nose up (Q), the short period damped
answer roll 1 2 10 60 0.2    # right: right wing down (P), the roll stops
answer yaw 3 5 4 40 0.4      # right pedal: nose right (R), the dutch roll dies down

# Power off, the elevator holding level flight until it cannot: the slowest speed held.
for fl in 0 1; do
	cruise --kias 90 --throttle 0 --hold-vs 0 --flaps $fl --seconds 60 --every 5 --fields v_ind_kts,Vh_fpm --csv "$tmp/stall$fl.csv" ||
		fail "the stall run failed"
done
stall() { awk -F, 'NR > 1 && $1 > 5 { if ($3 < -500) { print v; exit } if (v == "" || $2 < v) v = $2 }' "$1"; }
clean=$(stall "$tmp/stall0.csv")
flaps=$(stall "$tmp/stall1.csv")
awk -v c="$clean" -v f="$flaps" 'BEGIN {
	if (c == "" || f == "" || c < 35 || c > 70 || f < 30 || f > c - 4) { printf "FAIL: stall at %s kt clean, %s kt with flaps\n", c, f; exit 1 }
	printf "stall: %.1f kt clean, %.1f kt with flaps\n", c, f
}' || exit 1

# Trim, wings held level: the mean speed over the phugoid after it has settled.
for tr in -0.1 0 0.1; do
	cruise --hold-bank 0 --trim-pitch $tr --seconds 200 --every 25 --fields v_ind_kts --csv "$tmp/trim$tr.csv" || fail "the trim run failed"
done
mean() { awk -F, 'NR > 1 && $1 >= 80 { s += $2; n++ } END { print s / n }' "$1"; }
awk -v d="$(mean "$tmp/trim-0.1.csv")" -v z="$(mean "$tmp/trim0.csv")" -v u="$(mean "$tmp/trim0.1.csv")" 'BEGIN {
	if (!(d > z + 3 && z > u + 3)) { printf "FAIL: trimmed speeds %.1f, %.1f, %.1f kt from nose-down to nose-up trim\n", d, z, u; exit 1 }
	printf "trim: %.1f, %.1f, %.1f kt from nose-down to nose-up\n", d, z, u
}' || exit 1

# The hover, out of ground effect. A flight started at rest starts its engine at idle:
# the governor's hold is judged once the engine has spooled up. The pilot holds the cyclic
# a little left against the tail rotor's push, and the heading with the pedals.
"$fly" run --aircraft "$hornet" --alt-ft 3000 --kias 0 --calm --hold-vs 0 --collective 0.3 --cyclic-roll -0.06 --hold-heading 0 --seconds 60 --every 10 \
	--fields POINT_thrust[0],m_total,POINT_tac_rad[0],psi,Vh_fpm --csv "$tmp/hover.csv" || fail "the hover run failed"
awk -F, 'NR == 2 { w0 = $4 } NR > 1 && $1 >= 6 {
	d = $4 / w0 - 1; if (d < 0) d = -d; if (d > dw) dw = d; if ($1 >= 20 && d > dw_late) dw_late = d
}
NR > 1 && $1 >= 20 {
	if (h0 == "") h0 = $5
	dh = $5 - h0; if (dh > 180) dh -= 360; if (dh < -180) dh += 360; if (dh < 0) dh = -dh; if (dh > turn) turn = dh
	t += $2; m += $3; n++; vs += $6 < 0 ? -$6 : $6
}
END {
	g = 9.80665 * (6371000 / (6371000 + 914.4)) ^ 2
	r = t / (m * g); vs /= n
	if (r < 0.97 || r > 1.03) { printf "FAIL: rotor thrust %.3f of the weight\n", r; exit 1 }
	if (dw > 0.03 || dw_late > 0.01) { printf "FAIL: rotor speed strayed %.1f%%, %.1f%% once settled\n", 100 * dw, 100 * dw_late; exit 1 }
	if (turn > 10) { printf "FAIL: heading wandered %.1f degrees\n", turn; exit 1 }
	if (vs > 100) { printf "FAIL: mean vertical speed %.0f fpm\n", vs; exit 1 }
	printf "hover: thrust %.3f of the weight, rotor speed within %.1f%% (%.1f%% settled), heading within %.1f deg, %.0f fpm\n", r, 100 * dw, 100 * dw_late, turn, vs
}' "$tmp/hover.csv" || exit 1
