#!/usr/bin/env bash
# Builds the libFuzzer targets (clang, AddressSanitizer and
# UndefinedBehaviorSanitizer) into ./build-fuzz and runs each for SECONDS
# (default 60), starting from its committed seeds in fuzz/corpus/NAME.
#
#   ./scripts/fuzz.sh [SECONDS] [NAME ...]     NAME: fuzz_colourtable, ...
#
# New inputs that reach new code go to build-fuzz/corpus/NAME; a crash is
# written to build-fuzz/crashes/NAME/ and makes the script exit non-zero.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${VELLORA_FUZZ_BUILD_DIR:-$root/build-fuzz}"
seconds="${1:-60}"
shift || true

"$root/scripts/install-deps.sh"
command -v clang++ >/dev/null || {
  sudo=""; [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get install -y -qq --no-install-recommends clang
}
CC=clang CXX=clang++ cmake -S "$root" -B "$build" -DVELLORA_FUZZ=ON \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null

targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for f in "$root"/fuzz/fuzz_*.cpp; do targets+=("$(basename "$f" .cpp)"); done
fi
cmake --build "$build" --parallel "$(nproc)" --target "${targets[@]}"

# The full unwinder for allocation stacks: Qt is built without frame
# pointers, and a leak inside it must show the Qt function its suppression
# names (scripts/lsan.supp), not stop at the first Qt frame.
export ASAN_OPTIONS="detect_leaks=1:allocator_may_return_null=1:fast_unwind_on_malloc=0"
export LSAN_OPTIONS="suppressions=$root/scripts/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
status=0
for t in "${targets[@]}"; do
  corpus="$build/corpus/$t"; crashes="$build/crashes/$t"
  mkdir -p "$corpus" "$crashes"
  seeds=()
  [ -d "$root/fuzz/corpus/$t" ] && seeds=("$root/fuzz/corpus/$t")
  echo "== $t: ${seconds}s"
  if ! "$build/fuzz/$t" -max_total_time="$seconds" -print_final_stats=1 \
        -artifact_prefix="$crashes/" -rss_limit_mb=4096 \
        "$corpus" "${seeds[@]}" 2>"$build/$t.log"; then
    echo "!! $t found a problem: see $build/$t.log and $crashes"
    status=1
  fi
  grep -E "^(stat::number_of_executed_units|stat::new_units_added|Done )" "$build/$t.log" || true
done
exit $status
