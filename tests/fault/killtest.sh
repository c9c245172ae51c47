#!/usr/bin/env bash
# Fault injection: runs the scripted Vellora session (faultdriver session)
# and kills it with SIGKILL at random moments, then checks what it left
# (faultdriver check): every library table and saved data set parses and is
# its old or its new content, and the recovery copy is a state of the data
# set from the last second before the kill. The moments come from a seed,
# printed first; VELLORA_FAULT_SEED=<seed> repeats a run.
#
#   killtest.sh FAULTDRIVER [KILLS]
set -uo pipefail

driver="$1"
kills="${2:-30}"
seed="${VELLORA_FAULT_SEED:-$(date +%s)}"
echo "fault injection: seed $seed, $kills kills (VELLORA_FAULT_SEED=$seed repeats this run)"
RANDOM=$seed

home="$(mktemp -d)"
trap 'rm -rf "$home"' EXIT
export HOME="$home" XDG_CONFIG_HOME="$home/.config" XDG_DATA_HOME="$home/.local/share"
export XDG_DOCUMENTS_DIR="$home/Documents" QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
folder="$home/Documents/Vellora"
mkdir -p "$folder/ColourLibrary"
library="$folder/ColourLibrary/Faults.clrtable"
data="$folder/data.txt"
printf '# Faults\n0.1000, 0.2000, 0.3000, Base\n' > "$library"
printf '# Data\n' > "$data"

lost=0
states=0
for ((kill = 1; kill <= kills; kill++)); do
  journal="$home/journal-$kill.txt"
  "$driver" session $((seed + kill)) "$data" "$library" > "$journal" 2> "$home/stderr-$kill.txt" &
  pid=$!
  # From the start of the process, so that some kills come while it starts.
  delay=$((150 + RANDOM % 2850))
  sleep "$((delay / 1000)).$(printf '%03d' $((delay % 1000)))"
  if ! kill -0 "$pid" 2> /dev/null; then
    wait "$pid"
    echo "kill $kill: the session ended by itself (status $?) before the kill"
    cat "$home/stderr-$kill.txt"
    lost=$((lost + 1))
    continue
  fi
  kill_ms="$(date +%s%3N)"
  kill -KILL "$pid"
  wait "$pid" 2> /dev/null
  report="$("$driver" check "$journal" "$kill_ms" "$data" "$library" 2> /dev/null)"
  status=$?
  echo "kill $kill at $delay ms: $report"
  count="$(sed -n 's/.*states \([0-9]*\),.*/\1/p' <<< "$report" | head -n 1)"
  states=$((states + ${count:-0}))
  [ "$status" -eq 0 ] || lost=$((lost + 1))
done

echo "kills: $kills, states checked: $states, kills that lost something: $lost"
[ "$lost" -eq 0 ]
