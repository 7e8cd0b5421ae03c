#!/usr/bin/env bash
# The sailplane released in calm air glides: the energy it loses is the work of its drag,
# its mean glide angle is its mean drag over lift, it flies at about 1 g, and its
# lift-to-drag ratio lies where a sailplane's polar puts it. Then every aircraft of the
# fleet flies a minute at the longest step with every number finite.
set -u
fly=$1
tree=$2
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
"$fly" run --aircraft "$tree/Aircraft/Gliders/Kestrel 15/Kestrel 15.acf" --alt-ft 9000 --kias 70 --calm \
	--seconds 220 --dt 0.02 --fields vx,vy,vz,drag_path_axis,AV_msc,m_total,dob_ele,l_o_d,g_total --csv "$tmp/glide.csv" ||
	fail "the run failed"
# Energy against the planet's gravity at this height, drag work by the trapezoid rule.
# The glide between two moments of equal airspeed a whole number of phugoid periods
# apart (the sailplane's phugoid is barely damped): height lost over distance flown,
# against drag over lift along the same path.
awk -F, 'NR == 1 || $7 == 0 { next }   # the masses are summed by the first pass
{
	n++; t[n] = $1; vh[n] = sqrt($2 * $2 + $4 * $4); h[n] = $8; V[n] = $6; ld[n] = $9; g[n] = $10
	V2 = $2 * $2 + $3 * $3 + $4 * $4; E = $7 * (9.7952 * $8 + 0.5 * V2); P = $5 * $6
	if (n == 1) E0 = E; else W += 0.5 * (P + pP) * (t[n] - t[n - 1])
	pP = P
}
END {
	r = (E0 - E) / W
	if (r < 0.99 || r > 1.01) { printf "FAIL: energy lost %.0f J against drag work %.0f J\n", E0 - E, W; exit 1 }
	for (i = 1; i <= n; i++) if (t[i] >= 60) { m += V[i]; c++ }
	m /= c
	for (i = 2; i <= n; i++) if (t[i] >= 60 && V[i - 1] < m && V[i] >= m) { if (!a) a = i; b = i }
	if (!a || b == a) { print "FAIL: no whole phugoid period"; exit 1 }
	for (i = a + 1; i <= b; i++) { d = vh[i] * (t[i] - t[i - 1]); s += d; dl += d / ld[i]; gs += g[i]; gn++; if (g[i] < gmin || gn == 1) gmin = g[i]; if (g[i] > gmax) gmax = g[i] }
	gam = (h[a] - h[b]) / s; inv = dl / s; gs /= gn
	if (gam / inv < 0.97 || gam / inv > 1.03) { printf "FAIL: glide angle %.5f against drag over lift %.5f\n", gam, inv; exit 1 }
	if (gs < 0.97 || gs > 1.03 || gmin < 0.85 || gmax > 1.15) { printf "FAIL: load %.3f (%.3f..%.3f)\n", gs, gmin, gmax; exit 1 }
	if (1 / inv < 35 || 1 / inv > 55) { printf "FAIL: L/D %.1f is not a sailplane s\n", 1 / inv; exit 1 }
	printf "sailplane: L/D %.1f, glide ratio flown %.1f over %.0f s, energy lost / drag work %.4f\n", 1 / inv, 1 / gam, t[b] - t[a], r
}' "$tmp/glide.csv" || exit 1
while IFS= read -r -d '' f; do
	"$fly" run --aircraft "$f" --alt-ft 5000 --kias 100 --seconds 60 --dt 0.08 --csv "$tmp/f.csv" || fail "run of $f"
	[ "$(wc -l < "$tmp/f.csv")" -eq 752 ] || fail "rows of $f"
	grep -qiE 'nan|inf' "$tmp/f.csv" && fail "a number went bad flying $f"
done < <(find "$tree/Aircraft" -name '*.acf' -print0)
"$fly" run --aircraft "$tree/Aircraft/Gliders/Kestrel 15/Kestrel 15.acf" --alt-ft 100 --kias 50 --csv "$tmp/x.csv" --fields nothing 2>/dev/null && fail "took an unknown field"
"$fly" run --aircraft /nowhere.acf --alt-ft 100 --kias 50 --csv "$tmp/x.csv" 2>/dev/null && fail "took a missing aircraft"
echo "the fleet flies"
