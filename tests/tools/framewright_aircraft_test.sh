#!/usr/bin/env bash
# framewright build and dump: dump then build reproduces a built file byte for byte,
# the other byte order dumps to the same record, and bad input is refused with a
# non-zero exit and a message naming the file and line.
set -u
fw=$1
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
cat > "$tmp/a.txt" <<'SRC'
# a small aircraft
tailnum "N12 \"Q\""
ICAO "GLID"
Vne_kts 151.7
Gpos 5.3
num_engines 0
part_eq[8] 1
part_eq[9] 1
Rafl0[8] "NACA 0009 (symmetrical).afl"
Croot[8] 3.25
body_X[44][19][17] -1e-7
m_empty 630
is_hm 1
SRC
"$fw" build "$tmp/a.txt" "$tmp/a.acf" || fail "build"
[ "$(stat -c %s "$tmp/a.acf")" = 647101 ] || fail "size of the file"
"$fw" dump "$tmp/a.acf" > "$tmp/b.txt" || fail "dump"
"$fw" build "$tmp/b.txt" "$tmp/b.acf" || fail "build of the dump"
cmp "$tmp/a.acf" "$tmp/b.acf" || fail "dump then build is not the same file"
grep -q '^Vne_kts 151.699997$' "$tmp/b.txt" || fail "Vne_kts in the dump"
"$fw" build "$tmp/a.txt" "$tmp/big.acf" --big-endian || fail "big-endian build"
cmp -s "$tmp/a.acf" "$tmp/big.acf" && fail "the big-endian file is the same as the little-endian one"
"$fw" dump "$tmp/big.acf" | grep -v '^is_APL ' > "$tmp/big.txt"
diff "$tmp/b.txt" "$tmp/big.txt" > /dev/null || fail "the big-endian file dumps to another record"
printf 'Vne_kts 150\nCroot[80] 2\n' > "$tmp/bad.txt"
out=$("$fw" build "$tmp/bad.txt" "$tmp/bad.acf" 2>&1) && fail "build took a bad index"
echo "$out" | grep -q "bad.txt:2:" || fail "no file and line in: $out"
head -c 1000 "$tmp/a.acf" > "$tmp/short.acf"
"$fw" dump "$tmp/short.acf" > /dev/null 2>&1 && fail "dump took a truncated file"
echo "build, dump and the byte orders agree"
