#!/usr/bin/env bash
# Compares export and import of a 4096 x 4096 DXT1 texture with 13 levels (25 MB of XML), as whole commands without the
# converter, with the plainest program that reads, decodes with a table and writes:
# compare_textures.sh [FOLDER OF THE PROGRAMS]. RUNS rounds (11) of each, in turn; medians; files in memory. Ends with 1
# when a target is missed.
set -euo pipefail
export LC_ALL=C

programs=${1:-$(dirname "$0")/../build/linux-bench/bin}
runs=${RUNS:-11}
work=$(mktemp -d -p "${WORK:-/dev/shm}")
trap 'rm -rf "$work"' EXIT
mkdir "$work/TempFiles"
"$programs/plain_texture" make "$work/Big.xml"

# One run of each a round, so that a busy moment meets them all.
measure() { # name program arguments...
  local name=$1 program=$2
  shift 2
  "$programs/$program" "$@" >>"$work/$name"
}
for ((run = 0; run < runs; ++run)); do
  measure plain_export plain_texture export "$work/Big.xml" "$work/plain.dds"
  measure export texture_pass export "$work/Big.xml" "$work"
  measure plain_import plain_texture import "$work/TempFiles/Big.dds" "$work/plain.xml"
  rm -f "$work"/Big.TgPcDx*
  echo old >"$work/Big.TgPcDx"
  measure import texture_pass import "$work"
done
cmp <(tail -c +129 "$work/plain.dds") <(tail -c +129 "$work/TempFiles/Big.dds")

median() { # name column
  awk -v column="$2" '{print $column}' "$work/$1" | sort -n | awk '{value[NR] = $1} END {print value[int((NR + 1) / 2)]}'
}
size=$(stat -c %s "$work/Big.xml")
printf '%s bytes of XML; medians of %s runs\n' "$size" "$runs"
for name in plain_export export plain_import import; do
  printf '%-13s %7.1f ms  %7.1f ms processor  %6.1f MB peak\n' "$name" "$(median "$name" 1)" "$(median "$name" 2)" \
    "$(awk "BEGIN {print $(median "$name" 3) / 1e6}")"
done
missed=0
verdict() { # text value target
  local word=kept
  awk "BEGIN {exit !($2 <= $3)}" || { word=MISSED missed=1; }
  printf '%-40s %5.2f  target %4.2f  %s\n' "$1" "$2" "$3" "$word"
}
ratio() { # text name name: the median of the rounds' own ratios
  paste "$work/$2" "$work/$3" | awk '{print $1 / $4}' >"$work/ratios"
  verdict "$1" "$(median ratios 1)" 2
}
ratio 'export / plain program' export plain_export
ratio 'import / plain program' import plain_import
verdict 'peak memory of export / bytes of text' "$(awk "BEGIN {print $(median export 3) / $size}")" 4
verdict 'peak memory of import / bytes of text' "$(awk "BEGIN {print $(median import 3) / $size}")" 4
exit $missed
