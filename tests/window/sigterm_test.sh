#!/usr/bin/env bash
# Starts nimbara in a window under a virtual X server, lets it run passes, sends
# SIGTERM to the simulator itself (not to the wrapper) and checks that it finishes
# normally within 20 s, leaving its three logs.
set -u
# A folder of its own that shares the data tree, so that the logs read here are this run's and
# not those of another test's run beside it.
tree=$(dirname "$1")
own=$(mktemp -d) || exit 1
trap 'rm -rf "$own"' EXIT
for e in "$tree"/*; do
	case $(basename "$e") in Error.out | Data.out | Nimbara.out | nimbara*) ;; *) ln -s "$e" "$own/" ;; esac
done
cp "$1" "$own/" || exit 1
exe=$own/$(basename "$1")
cd "$own" || exit 1
# The software renderer compiles its shaders with a JIT whose unwind tables deadlock the
# sanitizer's slow unwinding, and the driver is unloaded before a leak check could name
# its frames: leaks are not checked in the windowed process.
export ASAN_OPTIONS=detect_leaks=0
XVFB_SCREEN=1280x1024x24 timeout 60 "$(dirname "$0")/../support/xvfb_run.sh" \
	sh -c '"$1" > nimbara.stdout 2>&1 & echo $! > nimbara.pid; wait $!; echo $? > nimbara.status' sh "$exe" &
wrapper=$!
fail() { echo "FAIL: $*"; cat nimbara.stdout 2>/dev/null | tail -40; kill "$wrapper" 2>/dev/null; exit 1; }

for _ in $(seq 1 400); do grep -q "OpenGL Situation" Error.out 2>/dev/null && break; sleep 0.1; done
grep -q "OpenGL Situation" Error.out 2>/dev/null || fail "the window did not come up"
sleep 1   # let it run passes
[ -s nimbara.pid ] || fail "no process id"
kill -0 "$(cat nimbara.pid)" 2>/dev/null || fail "nimbara is not running"
kill -TERM "$(cat nimbara.pid)"
for _ in $(seq 1 200); do [ -s nimbara.status ] && break; sleep 0.1; done
[ -s nimbara.status ] || fail "nimbara did not stop within 20 s of SIGTERM"
status=$(cat nimbara.status)
[ "$status" = 0 ] || fail "exit status $status"
for f in Error.out Data.out Nimbara.out; do [ -f "$f" ] || fail "no $f"; done
grep -q "Normal exit." Error.out || fail "Error.out does not end with the normal finish"
wait "$wrapper"
echo "nimbara ran in a window and ended normally on SIGTERM"
