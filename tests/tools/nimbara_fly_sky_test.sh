#!/usr/bin/env bash
# nimbara-fly sky: a header and a line per time, the sun high at local noon on the June
# solstice and down at midnight, the light and the lamps following it; a bad date refused.
set -u
fly=$1
fail() { echo "FAIL: $*"; exit 1; }
out=$("$fly" sky --lat 40 --lon -105 --date 2026-06-21 --time-utc 19:01,07:01) || fail "exit $?"
[ "$(echo "$out" | head -1)" = "utc sun_elev sun_azi moon_elev moon_azi moon_phase amb_r amb_g amb_b dir_r dir_g dir_b lite_rat_on glare_rat" ] || fail "header: $out"
[ "$(echo "$out" | wc -l)" = 3 ] || fail "a line per time: $out"
echo "$out" | awk 'NR==2 { if ($2 < 73.2 || $2 > 73.7 || $3 < 175 || $3 > 185 || $7 < 0.3 || $13 != 0) exit 1 }' || fail "noon: $out"
echo "$out" | awk 'NR==3 { if ($2 > -20 || $7 > 0.1 || $13 != 1 || $14 != 0) exit 1 }' || fail "midnight: $out"
if "$fly" sky --lat 40 --lon -105 --date 2026-02-30 --time-utc 12:00 2> /dev/null; then fail "30 February was taken"; fi
if "$fly" sky --lat 40 --lon -105 --date 2026-06-21 --time-utc 25:00 2> /dev/null; then fail "25:00 was taken"; fi
echo "nimbara-fly sky: noon and midnight of the solstice, bad dates refused"
