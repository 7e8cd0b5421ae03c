#!/usr/bin/env bash
# Runs a command under a virtual X server of its own. The server picks a free display itself
# (-displayfd), so any number of these may start at once. XVFB_SCREEN sets its screen.
set -u
dir=$(mktemp -d) || exit 1
Xvfb -displayfd 3 -screen 0 "${XVFB_SCREEN:-640x480x24}" -nolisten tcp 3>"$dir/display" 2>"$dir/xvfb.log" &
xvfb=$!
trap 'kill "$xvfb" 2>/dev/null; rm -rf "$dir"' EXIT
trap 'exit 143' TERM INT
for _ in $(seq 1 400); do
	[ -s "$dir/display" ] && break
	kill -0 "$xvfb" 2>/dev/null || break
	sleep 0.05
done
if [ ! -s "$dir/display" ]; then
	echo "xvfb_run: the virtual X server did not start:"
	cat "$dir/xvfb.log"
	exit 1
fi
DISPLAY=":$(head -n 1 "$dir/display")" "$@"
