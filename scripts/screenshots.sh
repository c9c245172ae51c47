#!/usr/bin/env bash
# Retakes the pictures of the manual (docs/images) from the real program:
# runs it offscreen in a throw-away home, so the user's own settings,
# library and data are never touched. The build does not need this; run it
# after the windows change and commit the new images.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${BUILD_DIR:-$root/build}"

cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" --parallel 2 --target vellora_manual vellora-screenshots

home="$(mktemp -d)"
trap 'rm -rf "$home"' EXIT
mkdir -p "$home/Documents"
HOME="$home" XDG_CONFIG_HOME="$home/.config" XDG_DATA_HOME="$home/.local/share" \
XDG_DOCUMENTS_DIR="$home/Documents" XDG_RUNTIME_DIR="$home" QT_QPA_PLATFORM=offscreen \
  "$build/docs/vellora-screenshots" "$root/docs/images" "$build"

# The pictures are part of the manual, so compile it again.
cmake --build "$build" --target vellora_manual
