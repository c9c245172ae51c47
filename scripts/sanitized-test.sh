#!/usr/bin/env bash
# Runs one test of the sanitized build (ctest calls it with the test's own
# command line).
#
# LeakSanitizer stops every thread of the process for its check at exit, and
# now and then its own tracer crashes doing so ("Tracer caught signal 11",
# then "LeakSanitizer has encountered a fatal error"): the checker failed,
# not the test, and nothing was checked. Only in that case the test runs once
# more. A real finding (a leak report, an AddressSanitizer or
# UndefinedBehaviorSanitizer error) or a failed test function fails at once.
set -u
log="$(mktemp)"
trap 'rm -f "$log"' EXIT

"$@" >"$log" 2>&1
status=$?
cat "$log"
if [ "$status" -ne 0 ] &&
   grep -q 'LeakSanitizer has encountered a fatal error' "$log" &&
   ! grep -qE 'ERROR: (AddressSanitizer|LeakSanitizer: detected)|runtime error:|^FAIL!' "$log"; then
  echo "sanitized-test: LeakSanitizer's tracer failed before it could check; running the test once more"
  "$@"
  status=$?
fi
exit "$status"
