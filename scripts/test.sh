#!/usr/bin/env bash
# Installs what is missing, builds and runs every test (GUI tests on the
# offscreen platform, so no display is needed).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/install-deps.sh"
# In CI a warning in our own code fails the build.
if [ -n "${CI:-}" ]; then
  export VELLORA_WERROR=ON
fi
"$root/scripts/build.sh"
cd "${VELLORA_BUILD_DIR:-$root/build}"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure --no-tests=error --parallel "$(nproc)"
