#!/usr/bin/env bash
# The main job on a sample game: open a game file, change a value, save it back. In Tamarind's window where there is a
# display, else step by step through tamarind-cli. Expects a finished build in build/linux/bin.
set -euo pipefail

here=$(cd "$(dirname "$0")/.." && pwd)
bin=$here/build/linux/bin
sample=$here/build/sample
game=$sample/Rail\ Simulator
track=$game/Assets/Fernhollow/AlderVale/RailNetwork/CrossSections/Track.XSec

step() { printf '\n== %s\n' "$*"; }
fail() { echo "run: $*" >&2; exit 1; }

[ -x "$bin/sample_game" ] || fail "build/linux is not built yet"

step "Making the sample game folder"
rm -rf "$sample"
"$bin/sample_game" "$sample"
# The game has its converter in its own folder, so the sample has the stand-in there.
cp "$bin/serz.exe" "$game/serz.exe"

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  step "Opening Track.XSec in Tamarind"
  # With the game folder in the settings, start-up need not ask for it.
  if [ ! -e "$bin/preferences.txt" ]; then
    printf '15000,10500,600,600,"","","%s",#FALSE#\r\n' "${game//\//\\}" >"$bin/preferences.txt"
  fi
  exec "$bin/tamarind" "$track"
fi

program=$sample/program
edited=$sample/Track-edited.xml
xml=$program/TempFiles/Track.xml
mkdir -p "$program"

# Shows the command as one would type it in the project's folder, then runs it.
run() {
  local shown
  printf -v shown ' %q' "${@//"$here/"/}"
  echo "\$$shown"
  "$@"
}
tamarind() { run "$bin/tamarind-cli" --game "$game" --program-dir "$program" "$@"; }
gauge() { sed -n 's|.*<Gauge[^>]*>\([0-9]*\)</Gauge>.*|\1|p' "$xml"; }

echo "No display: the same job without a window, through tamarind-cli."

step "Opening Track.XSec: the converter turns it into XML"
tamarind open "$track"
run head -n 8 "$xml"
old=$(gauge)
[ "$old" = 1435 ] || fail "the XML does not hold the gauge of 1435"

step "Changing the gauge from 1435 to 1067"
sed 's|\(<Gauge[^>]*>\)1435<|\11067<|' "$xml" >"$edited"
run diff "$xml" "$edited" || true

step "Saving it back: the old game file becomes Track.XSec.bak"
tamarind save "$track" "$edited"
run ls -l "$(dirname "$track")"
[ -e "$track.bak" ] || fail "there is no backup"

step "Opening it again"
rm -f "$xml"
tamarind open "$track"
new=$(gauge)
[ "$new" = 1067 ] || fail "the gauge reads '$new' after saving, not 1067"
echo "The gauge was $old and is now $new."

step "Where everything is"
cat <<END
game folder     $game
game file       $track
its backup      $track.bak
edited XML      $edited
working files   $program/TempFiles
END
