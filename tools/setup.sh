#!/usr/bin/env bash
# Installs the Debian packages the build needs, and only those that are missing.
set -eu
here="$(cd "$(dirname "$0")" && pwd)"
missing=()
while read -r pkg cmd; do
  case "$pkg" in ''|'#'*) continue ;; esac
  # A second word names a command that, when present, already serves (npm from elsewhere).
  [ -n "${cmd:-}" ] && command -v "$cmd" >/dev/null 2>&1 && continue
  dpkg -s "$pkg" >/dev/null 2>&1 || missing+=("$pkg")
done < "$here/debian-packages.txt"
[ ${#missing[@]} -eq 0 ] && exit 0
echo "setup: installing ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
