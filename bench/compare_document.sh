#!/usr/bin/env bash
# Compares loading and writing with the bare XML reader and with plain nodes, on 50 MB and 200 MB of converter-shaped
# XML: compare_document.sh [FOLDER OF THE PROGRAMS]. Seven runs of each, taken in turn; medians. The ratios are those of
# processor time, which other programs on the machine disturb least: all of these run on one thread, and the files are
# in memory. Ends with 1 when a target is missed.
set -euo pipefail
export LC_ALL=C

programs=${1:-$(dirname "$0")/../build/linux-bench/bin}
runs=${RUNS:-7}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$programs/make_xml" 50 >"$work/50.xml"
"$programs/make_xml" 200 >"$work/200.xml"
sync # what is still to be written to the disk would disturb the first rounds

# One run of each command a round, so that a busy moment meets them all.
measure() { # name program arguments...
  local name=$1 program=$2
  shift 2
  "$programs/$program" "$@" >>"$work/$name"
}
for ((run = 0; run < runs; ++run)); do
  measure bare bare_expat "$work/50.xml"
  measure handlers bare_expat "$work/50.xml" handlers
  measure load document_pass "$work/50.xml"
  measure plain plain_nodes "$work/50.xml"
  measure both document_pass "$work/50.xml" write
  measure load200 document_pass "$work/200.xml"
done

median() { # name column
  awk -v column="$2" '{print $column}' "$work/$1" | sort -n |
    awk '{value[NR] = $1} END {print value[int((NR + 1) / 2)]}'
}
size=$(stat -c %s "$work/50.xml")
printf '50 MB file: %s bytes; medians of %s runs\n' "$size" "$runs"
for name in bare handlers load plain both load200; do
  peak=$(awk "BEGIN {print $(median "$name" 3) / 1e6}")
  printf '%-9s %8.1f ms  %8.1f ms processor  %7.1f MB peak\n' \
    "$name" "$(median "$name" 1)" "$(median "$name" 2)" "$peak"
done

missed=0
verdict() { # text value target
  local word=kept
  awk "BEGIN {exit !($2 <= $3)}" || { word=MISSED missed=1; }
  printf '%-46s %5.2f  target %4.2f  %s\n' "$1" "$2" "$3" "$word"
}
# The median of the rounds' own ratios: both sides of one round meet the machine in the same state.
ratio() { # text name name target
  paste "$work/$2" "$work/$3" | awk '{print $2 / $5}' >"$work/ratios"
  verdict "$1" "$(median ratios 1)" "$4"
}
ratio 'load / bare pass without handlers' load bare 1.8
ratio 'load / bare pass with empty handlers' load handlers 1.8
verdict 'peak memory of load / bytes of file' "$(awk "BEGIN {print $(median load 3) / $size}")" 3
ratio 'load and write / plain nodes read and written' both plain 1
ratio 'load of 200 MB / load of 50 MB' load200 load 4.4
exit $missed
