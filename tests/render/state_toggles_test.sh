#!/usr/bin/env bash
# Fog, blending, alpha test, lighting, depth test, depth writes and 2-D texturing change
# only through the one state setter, so that its reading of the live state stays true.
set -u
src=$1
hits=$(grep -rnE 'gl(Enable|Disable)\s*\(\s*GL_(FOG|BLEND|ALPHA_TEST|LIGHTING|LIGHT0|DEPTH_TEST|TEXTURE_2D)\b|glDepthMask' \
	"$src"/core "$src"/flight "$src"/aircraft "$src"/world "$src"/render "$src"/cockpit "$src"/net "$src"/plugin \
	"$src"/replay "$src"/ui "$src"/platform "$src"/tools --include='*.cpp' --include='*.h' | grep -v '/render/ogl_state.cpp:')
if [ -n "$hits" ]; then
	echo "FAIL: shared state toggled outside the state setter:"
	echo "$hits"
	exit 1
fi
echo "only the state setter toggles fog, blending, alpha test, lighting, depth and texturing"
