#!/usr/bin/env bash
# The check of a large generated route, one conversion and several at a time: BIN is the folder of the programs. The
# converter needs DELAY ms (5) for each file; RUNS (3) rounds in turn, JOBS (1 2 8) conversions at a time.
set -euo pipefail
bin=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/kit"
cp "$bin/serz.exe" "$work/kit/"
game=$("$bin/sample_game" "$work" --large-route)
export TAMARIND_SERZ_DELAY_MS=${DELAY:-5}
jobsToTry=${JOBS:-1 2 8}
for _ in $(seq "${RUNS:-3}"); do
  for jobs in $jobsToTry; do
    /usr/bin/time -f "$jobs at a time: %e s" -o "$work/time" \
      "$bin/tamarind-cli" --program-dir "$work/kit" --game "$game" check large --textures --jobs "$jobs" \
      >"$work/reports-$jobs" 2>/dev/null
    cat "$work/time"
    cmp "$work/reports-${jobsToTry%% *}" "$work/reports-$jobs"
  done
done
