#!/usr/bin/env bash
# framewright check on every aircraft of the fleet: no findings, and a loaded record
# with no NaN or infinity anywhere. A file made to trip a check fails with its text.
set -u
fw=$1
tree=$2
fail() { echo "FAIL: $*"; exit 1; }
count=0
while IFS= read -r -d '' f; do
	"$fw" check "$f" > /dev/null || fail "a finding in $f"
	out=$("$fw" check --loaded "$f") || fail "check --loaded of $f"
	echo "$out" | grep -qE '^m_empty [0-9]' || fail "no loaded record for $f"
	echo "$out" | grep -iqE ' (-?nan|-?inf)$| 0x[7F]F[89A-F]' && fail "a NaN or infinity in the loaded $f"
	count=$((count + 1))
done < <(find "$tree/Aircraft" -name '*.acf' -print0)
[ "$count" -ge 4 ] || fail "only $count aircraft"
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
mkdir -p "$tmp/Aircraft" && ln -s "$tree/Airfoils" "$tmp/Airfoils"
wren=$(find "$tree/Aircraft" -name 'Wren 180.acf' | head -1)
"$fw" dump "$wren" | sed 's/^Vne_kts .*/Vne_kts 0/' > "$tmp/bad.txt"
"$fw" build "$tmp/bad.txt" "$tmp/Aircraft/bad.acf" || fail "build of the bad aircraft"
out=$("$fw" check "$tmp/Aircraft/bad.acf" 2>&1) && fail "check passed a Vne of zero"
echo "$out" | grep -q "You entered a Vne of zero!" || fail "the finding's text is missing: $out"
echo "$count aircraft checked"
