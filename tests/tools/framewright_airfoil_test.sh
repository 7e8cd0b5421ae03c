#!/usr/bin/env bash
# framewright airfoil eval on each airfoil we ship: the output's form, a lift slope near
# 0.1 per degree, a stall (lift falls past its peak), a flat plate's drag at +-90 and
# lift of 1.17 at +-45 degrees; then gen refuses a bad parameter file.
set -u
fw=$1
dir=$2
fail() { echo "FAIL: $*"; exit 1; }
count=0
for f in "$dir"/*.afl; do
	out=$("$fw" airfoil eval "$f" --re 3000000 --alpha -90,-45,-2,2,45,90) || fail "eval failed on $f"
	[ "$(echo "$out" | head -1)" = "alpha cl cd cm" ] || fail "header of $f"
	[ "$(echo "$out" | wc -l)" = 7 ] || fail "rows of $f"
	echo "$out" | awk -v f="$f" 'NR > 1 { cl[$1] = $2; cd[$1] = $3 }
		END {
			slope = (cl["2"] - cl["-2"]) / 4
			if (slope < 0.09 || slope > 0.115) { print "FAIL: lift slope " slope " of " f; exit 1 }
			if (cd["90"] != 1.28 || cd["-90"] != 1.28) { print "FAIL: drag at 90 of " f; exit 1 }
			if (cl["45"] != 1.17 || cl["-45"] != -1.17) { print "FAIL: lift at 45 of " f; exit 1 }
		}' || exit 1
	# Past the stall the lift falls: the peak lies below 25 degrees.
	curve=$("$fw" airfoil eval "$f" --re 3000000 --alpha 4,6,8,10,12,14,16,18,20,22,24) || fail "eval failed"
	echo "$curve" | awk -v f="$f" 'NR > 1 { if ($2 > best) { best = $2; at = $1 } last = $2 }
		END { if (at >= 24 || last >= best) { print "FAIL: no stall in " f; exit 1 } }' || exit 1
	count=$((count + 1))
done
[ "$count" -ge 5 ] || fail "only $count airfoils"
ls "$dir" | grep -q "^NACA 0009 (symmetrical).afl$" || fail "no NACA 0009 (symmetrical).afl"
tmp=$(mktemp -d)
printf 're_num 3\nclM oops\n' > "$tmp/bad.txt"
"$fw" airfoil gen "$tmp/bad.txt" "$tmp/bad.afl" 2>/dev/null && fail "gen took a bad parameter file"
"$fw" airfoil eval "$tmp/nothing.afl" --re 3000000 --alpha 0 2>/dev/null && fail "eval read a missing file"
"$fw" airfoil eval "$f" --re 3 --alpha x 2>/dev/null && fail "eval took a bad angle"
"$fw" --help | grep -q "airfoil eval" || fail "help"
rm -rf "$tmp"
echo "$count airfoils evaluated"
