#!/usr/bin/env bash
# Makes marker lists of 100,000 placemarks and of a path of a million points, and pictures of them, beside the plainest
# program that looks for the same keys: compare_markers.sh [FOLDER OF THE PROGRAMS]. PLACES (100000) and POINTS
# (1000000), RUNS (11) rounds of each, in turn; medians; files in memory. Ends with 1 when a target is missed.
set -euo pipefail
export LC_ALL=C

programs=${1:-$(dirname "$0")/../build/linux-bench/bin}
runs=${RUNS:-11}
work=$(mktemp -d -p "${WORK:-/dev/shm}")
trap 'rm -rf "$work"' EXIT

measure() { # name program arguments...
  local name=$1 program=$2
  shift 2
  "$programs/$program" "$@" >>"$work/$name"
}
median() { # name column
  awk -v column="$2" '{print $column}' "$work/$1" | sort -n | awk '{value[NR] = $1} END {print value[int((NR + 1) / 2)]}'
}
missed=0
verdict() { # text value target
  local word=kept
  awk "BEGIN {exit !($2 <= $3)}" || { word=MISSED missed=1; }
  printf '%-40s %6.2f  target %4.1f  %s\n' "$1" "$2" "$3" "$word"
}

for kind in places path; do
  count=${PLACES:-100000}
  [ "$kind" = places ] || count=${POINTS:-1000000}
  "$programs/plain_markers" make "$kind" "$count" "$work/$kind.kml"
  for ((run = 0; run < runs; ++run)); do
    measure "plain_$kind" plain_markers list "$work/$kind.kml" "$work/plain.csv"
    measure "$kind" markers_pass "$work/$kind.kml" "$work/list.csv"
    measure "plot_$kind" markers_pass plot "$work/$kind.kml" "$work/plot.svg"
  done
  cmp "$work/plain.csv" "$work/list.csv"
  [ "$(wc -l <"$work/list.csv")" -eq "$count" ]
  size=$(stat -c %s "$work/$kind.kml")
  printf '%s: %s markers, %s bytes; medians of %s runs\n' "$kind" "$count" "$size" "$runs"
  for name in "plain_$kind" "$kind" "plot_$kind"; do
    printf '  %-13s %7.1f ms  %7.1f ms processor  %6.1f MB peak\n' "$name" "$(median "$name" 1)" \
      "$(median "$name" 2)" "$(awk "BEGIN {print $(median "$name" 3) / 1e6}")"
  done
  # The median of the rounds' own ratios: a busy moment meets both programs.
  paste "$work/$kind" "$work/plain_$kind" | awk '{print $1 / $4}' >"$work/ratios"
  verdict "$kind: list / plain program" "$(median ratios 1)" 2
  verdict "$kind: peak memory / bytes of file" "$(awk "BEGIN {print $(median "$kind" 3) / $size}")" 3
  # The target is that of 100,000 markers.
  verdict "$kind: picture of 100,000, seconds" "$(awk "BEGIN {print $(median "plot_$kind" 1) / $count * 100}")" 0.2
done
exit $missed
