#!/usr/bin/env bash
# A virtual stick through the real device path: at rest it takes nothing; swept, full
# right rolls the trainer right at the full command, the centre gives none, half
# deflection less than half, mirrored left; the default throttle axis is full at its low
# end; unplugged and plugged in again it flies after a sweep; a button on function 70
# holds the parking brake while pressed; a malformed script is refused with its line.
set -u
fly=$1
tree=$2
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
wren="$tree/Aircraft/General Aviation/Wren 180/Wren 180.acf"
air=(--aircraft "$wren" --lat 34.5 --lon -117.5 --alt-ft 8000 --kias 100 --calm)
cat > "$tmp/s.txt" << 'EOF'
0 attach 4 1 8     # X, Y, Z, Rx; a hat; eight buttons
1 axis 0 0 -100    # swept through its range
1.5 axis 0 0 100
2 axis 0 0 0
3 axis 0 0 100
3.2 axis 0 0 0
4 axis 0 0 50
4.2 axis 0 0 -50
4.4 axis 0 0 -100
4.6 axis 0 0 0
5 axis 0 3 100     # the throttle lever swept, then at its low end
5.5 axis 0 3 -100
6 map-button 10 70 # the stick's third button, past the hat's eight
6 button 0 2 1
6.5 button 0 2 0
7 detach 0
7.5 attach 4 1 8
8 axis 0 0 -100
8.5 axis 0 0 100
9 axis 0 0 0
9.5 axis 0 0 100
EOF
"$fly" run "${air[@]}" --joy-script "$tmp/s.txt" --seconds 10 --every 5 --fields mnw.YK_roll,P,CONT_thro_ref[0],parkbrake,mnw.has_joy \
	--csv "$tmp/r.csv" || fail "the scripted run failed"
grep -qiE 'nan|inf' "$tmp/r.csv" && fail "a number went bad"
awk -F, 'function at(t) { return row[sprintf("%.4f", t)] }
NR > 1 { row[$1] = $0 }
END {
	split(at(0.9), a, ","); if (a[2] != 0 || a[6] != 0) { print "FAIL: the stick at rest took the roll:", at(0.9); exit 1 }
	split(at(3.1), r, ","); if (r[2] != 1 || r[3] <= 0) { print "FAIL: full right is not the full right roll command rolling right:", at(3.1); exit 1 }
	split(at(3.3), c, ","); if (c[2] != 0) { print "FAIL: the centre gives", c[2]; exit 1 }
	split(at(4.1), h, ","); split(at(4.3), m, ",")
	if (!(h[2] > 0 && h[2] < 0.5) || (h[2] + m[2]) ^ 2 > 1e-6) { printf "FAIL: half right %s, half left %s\n", h[2], m[2]; exit 1 }
	split(at(4.5), l, ","); if (l[2] != -1) { print "FAIL: full left gives", l[2]; exit 1 }
	split(at(5.9), t, ","); if (t[4] < 0.99) { print "FAIL: the throttle lever at its low end gives", t[4]; exit 1 }
	split(at(6.2), p, ","); split(at(6.7), q, ","); if (p[5] != 1 || q[5] != 0) { printf "FAIL: the parking brake button: %s pressed, %s released\n", p[5], q[5]; exit 1 }
	split(at(9.7), g, ","); if (g[2] != 1) { print "FAIL: plugged in again and swept, full right gives", g[2]; exit 1 }
	printf "stick: half right %.3f, full right rolls at %.1f deg/s\n", h[2], r[3]
}' "$tmp/r.csv" || exit 1
printf '0 attach 2 0 2\n# fine so far\n1 axis 0 0 500\n' > "$tmp/bad.txt"
out=$("$fly" run "${air[@]}" --joy-script "$tmp/bad.txt" --seconds 2 --csv "$tmp/x.csv" 2>&1) && fail "took a malformed script"
echo "$out" | grep -q ":3:" || fail "the malformed line is not named: $out"
printf '0 attach 2 0 2\n1 axis 1 0 50\n' > "$tmp/nodev.txt"
out=$("$fly" run "${air[@]}" --joy-script "$tmp/nodev.txt" --seconds 2 --csv "$tmp/x.csv" 2>&1) && fail "moved a device never attached"
echo "$out" | grep -q "line 2" || fail "the line naming a missing device is not given: $out"
echo "the joystick path flies"
