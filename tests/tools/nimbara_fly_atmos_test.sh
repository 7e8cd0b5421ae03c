#!/usr/bin/env bash
# nimbara-fly atmos against the 1976 standard atmosphere from sea level to 20 km, then a
# warm day with a high barometer, and Mars against its own table.
set -u
fly=$1
fail() { echo "FAIL: $*"; exit 1; }
# km, T (K), P (Pa), rho (kg/m3), a (m/s): the published standard atmosphere.
std="0 288.15 101325 1.2250 340.29
1 281.65 89876 1.1117 336.43
2 275.15 79501 1.0066 332.53
3 268.65 70121 0.90925 328.58
4 262.15 61660 0.81935 324.58
5 255.65 54048 0.73643 320.53
6 249.15 47217 0.66011 316.43
7 242.65 41105 0.59002 312.27
8 236.15 35651 0.52579 308.06
9 229.65 30800 0.46706 303.79
10 223.15 26500 0.41351 299.46
11 216.65 22700 0.36480 295.07
12 216.65 19399 0.31194 295.07
14 216.65 14170 0.22786 295.07
16 216.65 10352 0.16647 295.07
18 216.65 7565.2 0.12165 295.07
20 216.65 5529.3 0.088910 295.07"
alts=$(echo "$std" | awk '{ printf "%s%.3f", (NR > 1 ? "," : ""), $1 * 1000 / 0.3048 }')
out=$("$fly" atmos --planet earth --alt-ft "$alts") || fail "atmos failed"
[ "$(echo "$out" | head -1)" = "alt_ft T_cel P_pas rho_kgm3 a_ms" ] || fail "header"
# The model interpolates density linearly in 10000 ft steps: within 3 %.
paste <(echo "$std") <(echo "$out" | tail -n +2) | awk '{
	dT = ($7 + 273.15) - $2; eP = ($8 - $3) / $3; er = ($9 - $4) / $4; ea = ($10 - $5) / $5
	if (dT < -0.5 || dT > 0.5) { print "FAIL: temperature at " $1 " km off by " dT " K"; exit 1 }
	if (eP < -0.03 || eP > 0.03) { print "FAIL: pressure at " $1 " km off by " eP; exit 1 }
	if (er < -0.03 || er > 0.03) { print "FAIL: density at " $1 " km off by " er; exit 1 }
	if (ea < -0.003 || ea > 0.003) { print "FAIL: speed of sound at " $1 " km off by " ea; exit 1 }
}' || exit 1
# A day 10 degrees warmer with 30.50 inHg: every height 10 degrees warmer, sea-level
# density by the gas law (p / T), and the pressure at sea level what the barometer says.
warm=$("$fly" atmos --planet earth --alt-ft 0,36152 --temp-c 25 --baro-inhg 30.50 | tail -n +2)
echo "$warm" | awk 'NR == 1 {
	if ($2 != "25.00") { print "FAIL: warm sea level " $2; exit 1 }
	want = 1.2250 * (30.50 / 29.92) * 288.15 / 298.15
	if (($4 - want) / want > 0.002 || ($4 - want) / want < -0.002) { print "FAIL: warm density " $4 " not " want; exit 1 }
	if (($3 - 103285) / 103285 > 0.002 || ($3 - 103285) / 103285 < -0.002) { print "FAIL: warm pressure " $3; exit 1 }
} NR == 2 { if ($2 != "-46.50") { print "FAIL: warm tropopause " $2; exit 1 } }' || exit 1
mars=$("$fly" atmos --planet mars --alt-ft 0,16404.2 | tail -n +2)
echo "$mars" | awk 'NR == 1 { if ($4 != "0.015050" || $2 != "-60.00") { print "FAIL: Mars surface " $0; exit 1 } }
NR == 2 { if ($4 < 0.00985 || $4 > 0.00987) { print "FAIL: Mars at 5 km " $0; exit 1 } }' || exit 1
"$fly" atmos --planet venus --alt-ft 0 2>/dev/null && fail "took a third planet"
"$fly" atmos --planet earth --alt-ft 1,x 2>/dev/null && fail "took a bad altitude"
"$fly" --help | grep -q "atmos --planet" || fail "help"
echo "standard atmosphere, warm day and Mars agree"
