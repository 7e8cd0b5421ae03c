#!/usr/bin/env bash
# nimbara-fly nav find shows what the navigation files hold; a custom package's airport
# replaces the default one of the same id; a package with duplicate runways stops the
# load with the alert, on stderr, exit status 1; the licence notices stand.
set -u
fly=$1
tree=$(cd "$2" && pwd)
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
notice="$tree/Resources/Earth nav data/ODbL-NOTICE.txt"
grep -q "Open Database License" "$notice" || fail "no ODbL notice beside the data"
grep -q "OurAirports" "$notice" || fail "the notice does not name the source"
head -2 "$tree/Resources/Earth nav data/apt.dat" | grep -q "ODbL" || fail "apt.dat's version line does not carry the attribution"

# A tree of links to the built one's folders, so that the logs and custom scenery are ours.
mkdir -p "$tmp/tree"
for f in "$tree"/*; do [ -d "$f" ] && [ "$(basename "$f")" != "Custom Scenery" ] && ln -s "$f" "$tmp/tree/"; done
tree="$tmp/tree"
"$fly" nav --tree "$tree" find --type apt KSBD > "$tmp/ksbd.txt" || fail "KSBD not found"
grep -q "^apt KSBD 1 1159 San Bernardino International Airport$" "$tmp/ksbd.txt" || fail "KSBD's line: $(head -1 "$tmp/ksbd.txt")"
grep -qE "^rwy 06 34\.09[0-9]+ -117\.23[0-9]+ 70\.[0-9]+ 10000 200 162$" "$tmp/ksbd.txt" || fail "KSBD's runway: $(cat "$tmp/ksbd.txt")"
grep -q "^frq 50 124.17 ATIS$" "$tmp/ksbd.txt" || fail "KSBD's ATIS"
grep -q "^sta .* Default$" "$tmp/ksbd.txt" || fail "KSBD's start point"
"$fly" nav --tree "$tree" find --type apt NOPE 2> "$tmp/err.txt" && fail "found an airport that is not there"
grep -q "NOPE" "$tmp/err.txt" || fail "no message for an id not found"
"$fly" nav --planet mars --tree "$tree" find --type apt MJEZ | grep -q "^apt MJEZ 1 -4500 Jezero Landing$" || fail "Mars"

# Aids near KSBD as the file holds them; the block around it; the variation table.
"$fly" nav --tree "$tree" near --lat 34.0954 --lon -117.2345 --radius-nm 10 > "$tmp/near.txt" || fail "near"
grep -qE "^4 [0-9.]+ -117\.[0-9]+ 1159 1[01][0-9]{3} 18 70\.[0-9]+ I[A-Z0-9]{3} KSBD 06 ILS$" "$tmp/near.txt" || fail "KSBD 06's localizer: $(cat "$tmp/near.txt")"
grep -qE "^4 .* KSBD 24 ILS$" "$tmp/near.txt" || fail "KSBD 24's localizer"
grep -qE "^3 .* 130 0\.00 SBD San Bernardino International Airport VOR-DME$" "$tmp/near.txt" || fail "KSBD's VOR"
"$fly" nav --tree "$tree" block --lat 34 --lon -118 > "$tmp/block.txt" || fail "block"
head -1 "$tmp/block.txt" | grep -qE "^airports [0-9]+ vors [0-9]+ ndbs [0-9]+ fixes [0-9]+ busy [0-9.]+$" || fail "block's first line"
grep -q "^apt KSBD$" "$tmp/block.txt" || fail "KSBD not in its block"
grep -q "^vor SBD$" "$tmp/block.txt" || fail "SBD not in its block"
[ "$("$fly" nav magvar --lat 45 --lon -120)" = "-17.60" ] || fail "magvar at 45 N 120 W"

# Our own custom scenery.
pkg="$tmp/tree/Custom Scenery/Our KSBD/Earth nav data"
mkdir -p "$pkg"
printf 'I\n715 test\n1 1160 1 1 KSBD Our Own San Bernardino\n10 34.1 -117.2 05 50.0 8000 0 0 150 0 2 0 0 0.1 0\n99\n' > "$pkg/apt.dat"
"$fly" nav --tree "$tmp/tree" find --type apt KSBD > "$tmp/custom.txt" || fail "the custom KSBD"
grep -q "^apt KSBD 1 1160 Our Own San Bernardino$" "$tmp/custom.txt" || fail "the custom KSBD did not replace the default: $(head -1 "$tmp/custom.txt")"
[ "$(grep -c '^rwy' "$tmp/custom.txt")" = 1 ] || fail "the custom KSBD's runways"
printf 'I\n715 test\n1 1160 1 1 KSBD Twice\n10 34.1 -117.2 05 50.0 8000 0 0 150 0 2 0 0 0.1 0\n10 34.1 -117.2 05 50.0 8000 0 0 150 0 2 0 0 0.1 0\n99\n' > "$pkg/apt.dat"
"$fly" nav --tree "$tmp/tree" find --type apt KSBD > /dev/null 2> "$tmp/dup.txt" && fail "duplicate runways were taken"
grep -q "I found duplicate runways at the following airport:" "$tmp/dup.txt" || fail "no duplicate-runway alert: $(cat "$tmp/dup.txt")"
echo "nav find, custom airports and notices hold"
