#!/usr/bin/env bash
# Configures and builds Vellora into ./build (or $VELLORA_BUILD_DIR).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${VELLORA_BUILD_DIR:-$root/build}"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DVELLORA_WERROR="${VELLORA_WERROR:-OFF}"
cmake --build "$build" --parallel "$(nproc)"
