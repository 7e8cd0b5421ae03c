#!/usr/bin/env bash
# nimbara-fly block round Los Angeles: objects at the radio aids with their names, river
# records in the cells, a fire on dry ground and boats on water near the shore, each
# checked against what nimbara-fly terrain says of the ground at those places.
set -u
fly=$1
tree=$2
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
"$fly" block --tree "$tree" --lat 34.0 --lon -118.5 > "$tmp/block.txt" || fail "block failed"
grep -q '^obj 10 .* NAVAID: VOR$' "$tmp/block.txt" || fail "no VOR object"
grep -q '^obj 94 .* hangar$' "$tmp/block.txt" || fail "no hangar"
grep -q '^obj 3 .* radio tower$' "$tmp/block.txt" || fail "no radio tower"
[ "$(grep -c '^rec rivers ' "$tmp/block.txt")" -gt 100 ] || fail "too few river records"
awk '$1 == "rec" && NF != 8 { bad = 1 } $1 == "obj" && NF < 7 { bad = 1 } END { exit bad }' "$tmp/block.txt" || fail "a malformed line"
awk '$1 == "fire" { print $2, $3 } $1 == "boat" { print $3, $4 }' "$tmp/block.txt" > "$tmp/pts.txt"
[ "$(wc -l < "$tmp/pts.txt")" -eq 7 ] || fail "not a fire and six boats: $(cat "$tmp/pts.txt")"
"$fly" terrain --tree "$tree" --points "$tmp/pts.txt" > "$tmp/ground.txt" || fail "terrain failed"
awk 'NR == 1 && $5 != 0 { print "FAIL: the fire is on wet ground: " $0; exit 1 }
     NR > 1 && $5 != 1 { print "FAIL: a boat is on dry ground: " $0; exit 1 }' "$tmp/ground.txt" || exit 1
"$fly" block --tree "$tree" --lat 95 --lon 0 2>/dev/null && fail "took a latitude past the pole"
echo "the block round Los Angeles: $(grep -c '^obj' "$tmp/block.txt") objects, $(grep -c '^rec' "$tmp/block.txt") records, a fire and six boats where they belong"
