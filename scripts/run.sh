#!/usr/bin/env bash
# Installs what is missing, builds and launches Vellora.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/install-deps.sh"
"$root/scripts/build.sh"
exec "${VELLORA_BUILD_DIR:-$root/build}/vellora" "$@"
