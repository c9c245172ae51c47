#!/usr/bin/env bash
# Configures and builds Vellora into ./build (or $VELLORA_BUILD_DIR), against
# Qt 5 (or the Qt major version in $VELLORA_QT_MAJOR).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${VELLORA_BUILD_DIR:-$root/build}"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DVELLORA_WERROR="${VELLORA_WERROR:-OFF}" -DVELLORA_QT_MAJOR="${VELLORA_QT_MAJOR:-5}"
cmake --build "$build" --parallel "$(nproc)"
