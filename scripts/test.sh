#!/usr/bin/env bash
# Installs what is missing, builds and runs every test (GUI tests on the
# offscreen platform, so no display is needed).
#
#   ./scripts/test.sh              RelWithDebInfo build in ./build
#   ./scripts/test.sh --sanitize   Debug build with AddressSanitizer (leak
#                                  detection on) and UndefinedBehaviorSanitizer
#                                  in ./build-sanitize; any finding fails its test
#   ./scripts/test.sh --qt6        RelWithDebInfo build against Qt 6 in ./build-qt6
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/install-deps.sh"

if [ "${1:-}" = "--sanitize" ]; then
  build="${VELLORA_SANITIZE_BUILD_DIR:-$root/build-sanitize}"
  cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Debug -DVELLORA_SANITIZE=ON \
    -DVELLORA_BUILD_BENCHMARKS=OFF
  cmake --build "$build" --parallel "$(nproc)"
  export ASAN_OPTIONS="detect_leaks=1:abort_on_error=0:strict_string_checks=1:detect_stack_use_after_return=1:check_initialization_order=1"
  export LSAN_OPTIONS="suppressions=$root/scripts/lsan.supp:print_suppressions=0"
  export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
  cd "$build"
else
  # In CI a warning in our own code fails the build.
  if [ -n "${CI:-}" ]; then
    export VELLORA_WERROR=ON
  fi
  if [ "${1:-}" = "--qt6" ]; then
    export VELLORA_QT_MAJOR=6
    export VELLORA_BUILD_DIR="${VELLORA_QT6_BUILD_DIR:-$root/build-qt6}"
  fi
  "$root/scripts/build.sh"
  cd "${VELLORA_BUILD_DIR:-$root/build}"
fi
QT_QPA_PLATFORM=offscreen ctest --output-on-failure --no-tests=error --parallel "$(nproc)"
