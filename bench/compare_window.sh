#!/usr/bin/env bash
# What a person waits for: the start, a 50 MB file's text on screen, text and tree, a key, Ctrl+End. Beside scite, the
# quickest of the editors that do the same, and an empty window; and a 20 MB file beside geany and xmlcopyeditor.
# compare_window.sh [FOLDER OF THE PROGRAMS], on a virtual screen of its own. RUNS rounds (5), medians.
set -euo pipefail
export LC_ALL=C.UTF-8

programs=$(cd "${1:-$(dirname "$0")/../build/linux-bench/bin}" && pwd)
if [ -z "${TAMARIND_ON_SCREEN:-}" ]; then
  TAMARIND_ON_SCREEN=1 exec "$(dirname "$0")/../scripts/with-display.sh" "$0" "$programs"
fi
runs=${RUNS:-5}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$programs/make_xml" 50 >"$work/big.xml"
"$programs/make_xml" 20 >"$work/twenty.xml"
{ echo "<small>"; for n in $(seq 40); do echo "  <line number=\"$n\">text text text text text text</line>"; done; echo "</small>"; } >"$work/small.xml"
sync

# A program folder of its own for each editor: the settings say which one is in use.
for editor in FALSE TRUE; do
  mkdir "$work/$editor"
  cp "$programs/tamarind" "$work/$editor/"
  printf '15000,10500,300,600,"","","%s",#%s#\r\n' "$work" "$editor" >"$work/$editor/preferences.txt"
done
settle() { sleep 0.3; }
text_area="100 180 400 370"
rows_area="75 152 250 55"
probe() { # name area keys... -- command
  local name=$1 area=$2
  shift 2
  # shellcheck disable=SC2086 # four numbers
  "$programs/window_probe" $area "$@" 2>/dev/null >>"$work/$name.figures" || echo "$name gave no figure" >&2
  settle
}
scite_at=(scite -position.left=40 -position.top=20 -position.width=1000 -position.height=700)
for ((run = 0; run < runs; ++run)); do
  probe empty "$text_area" -- "$programs/empty_frame"
  probe start "$text_area" -- "$work/FALSE/tamarind" "$work/small.xml"
  probe scite "$text_area" -- "${scite_at[@]}" "$work/big.xml"
  probe text "$text_area" a b c d e Control+End -- "$work/FALSE/tamarind" "$work/big.xml"
  probe both "$rows_area" -- "$work/TRUE/tamarind" "$work/big.xml"
  probe twenty "$text_area" -- "$work/FALSE/tamarind" "$work/twenty.xml"
  # These two open in the middle of the screen, and larger.
  probe geany "600 440 400 180" -- geany -i -s -c "$work/geany" "$work/twenty.xml"
  probe xmlcopyeditor "250 180 300 200" -- xmlcopyeditor "$work/twenty.xml"
done

median() { awk -F'\t' -v figure="$2" '$1 ~ "^" figure "$" {print $2}' "$work/$1.figures" | sort -n | awk '{v[NR] = $1} END {print v[int((NR + 1) / 2)]}'; }
printf 'Medians of %s runs, 50 MB file\n' "$runs"
printf '%-44s %8s ms\n' 'empty window' "$(median empty shown_ms)" 'Tamarind, small file' "$(median start shown_ms)" \
  'scite, text' "$(median scite shown_ms)" 'Tamarind, text' "$(median text shown_ms)" \
  'Tamarind, text and tree' "$(median both shown_ms)" 'a key' "$(median text '[a-e]_ms')" \
  'Ctrl+End' "$(median text Control.End_ms)"
printf '%-44s %8s ms\n' 'Tamarind, text of 20 MB' "$(median twenty shown_ms)" 'geany, the same' "$(median geany shown_ms)" \
  'xmlcopyeditor, the same' "$(median xmlcopyeditor shown_ms)"
printf '%-44s %8s MiB\n' 'scite, peak' "$(median scite peak_mib)" 'Tamarind, peak with tree' "$(median both peak_mib)"
