#!/usr/bin/env bash
# The trainer's engine at full throttle low down over the sea, leaned to best power: rpm and power
# close to its rated 2700 rpm and 180 hp (less the thinner air at 1000 ft), and fuel flow
# close to power times its specific fuel consumption of 0.45 lb per hp per hour.
set -u
fly=$1
tree=$2
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
"$fly" run --aircraft "$tree/Aircraft/General Aviation/Wren 180/Wren 180.acf" --lat 33.5 --lon -118.8 --alt-ft 1000 --kias 105 --throttle 1 \
	--mixture 0.77 --calm --seconds 8 --fields ENGN_tacrad[0],ENGN_power[0],ENGN_FF_kgs[0],ENGN_sigma[0] --csv "$tmp/e.csv" ||
	{ echo "FAIL: the run failed"; exit 1; }
tail -1 "$tmp/e.csv" | awk -F, '{
	rpm = $2 * 60 / 6.2831853; hp = $3 / 745.7; ff = $4; sfc = 0.45 * 0.45359237 / 3600 / 745.7
	rated = 180 * 0.971   # the density ratio at 1000 ft
	if (rpm < 2565 || rpm > 2835) { printf "FAIL: %.0f rpm\n", rpm; exit 1 }
	if (hp < 0.9 * rated || hp > 1.1 * rated) { printf "FAIL: %.0f hp against %.0f\n", hp, rated; exit 1 }
	if (ff < 0.9 * $3 * sfc || ff > 1.1 * $3 * sfc) { printf "FAIL: fuel flow %.5f kg/s against %.5f\n", ff, $3 * sfc; exit 1 }
	printf "trainer: %.0f rpm, %.0f hp, %.1f lb/h\n", rpm, hp, ff * 3600 / 0.45359237
}'
