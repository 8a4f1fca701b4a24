#!/usr/bin/env bash
# Takes the pictures of the README: the main window of both targets with the sample's Track.XSec open, and one with a
# texture beside its text (texture.png, texture-windows.png), and the window that makes blueprints (blueprint.png).
# Expects finished builds in build/linux/bin and build/windows/bin (or the folders given as BIN_LINUX and BIN_WINDOWS).
# `screenshots.sh FOLDER` puts them there; SCALE=1.5 shows them as on a screen of 150 %, PAGE=text the other editor.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
folder=$(realpath -m "${1:-$here/docs/images}")
linux=${BIN_LINUX:-$here/build/linux/bin}
windows=${BIN_WINDOWS:-$here/build/windows/bin}
scale=${SCALE:-1}
page=${PAGE:-tree}

if [ -z "${TAMARIND_SCREEN:-}" ]; then
  TAMARIND_SCREEN=1 exec "$here/scripts/with-display.sh" "$0" "$@"
fi

work=$(mktemp -d)
# A Wine of its own: the scale of its screen must not reach the builds'.
export TAMARIND_WINEPREFIX=$work/wine GSETTINGS_BACKEND=memory
trap 'TAMARIND_WINEPREFIX=$work/wine "$here/scripts/wine.sh" wineboot -k >/dev/null 2>&1 || true; rm -rf "$work"' EXIT
mkdir -p "$folder" "$work/program"
"$linux/sample_game" "$work" >/dev/null
game="$work/Rail Simulator"
track="$game/Assets/Fernhollow/AlderVale/RailNetwork/CrossSections/Track.XSec"

# A program folder of its own, so that the builds keep their settings.
prepare() { # bin-folder program game
  cp -r "$1/$2" "$1/serz.exe" "$1/BluePrints" "$work/program/"
  local tree=FALSE
  [ "$page" = tree ] && tree=TRUE
  printf '15000,10500,450,450,"","","%s",#%s#\r\n' "$3" "$tree" >"$work/program/preferences.txt"
}

click() { # window x y, in pixels of a screen of 100 %
  xdotool mousemove --window "$1" "$(awk "BEGIN { print int($2 * $scale) }")" "$(awk "BEGIN { print int($3 * $scale) }")" click 1
  sleep 0.5
}

# Walks from the row "Record" to "Gauge", and clicks its attribute.
show_gauge() { # window y-of-Record y-of-the-first-attribute
  xdotool windowactivate --sync "$1"
  [ "$page" = tree ] || return 0
  click "$1" 95 "$2"
  xdotool key --delay 200 Right Down Right Down Down
  sleep 0.5
  click "$1" 640 "$3"
}

# The window with that title, once it is there.
await_window() { # title log
  local window=
  for _ in $(seq 150); do
    window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1) && [ -n "$window" ] && break
    sleep 0.2
  done
  [ -n "$window" ] || { echo "screenshots: no window $1" >&2; cat "$2" >&2; exit 1; }
  echo "$window"
}

take() { # name y-of-Record y-of-the-first-attribute command...
  local name=$1 row=$2 attribute=$3 window=
  shift 3
  "$@" >"$work/$name.log" 2>&1 &
  local program=$!
  window=$(await_window 'XML File Editor|RS bin file editor' "$work/$name.log")
  sleep 3
  show_gauge "$window" "$row" "$attribute"
  import-im6.q16 -window "$window" "$folder/$name.png"
  kill "$program" 2>/dev/null || true
  wait "$program" 2>/dev/null || true
  echo "$folder/$name.png"
}

# The first item of "Easy Blueprints", with the folder where it starts, and two fields filled in.
take_blueprint() { # name command...
  local name=$1 window=
  shift
  "$@" >"$work/$name.log" 2>&1 &
  local program=$!
  window=$(await_window 'RS bin file editor' "$work/$name.log")
  sleep 3
  xdotool windowactivate --sync "$window"
  xdotool key --delay 200 F10 Right Right Right Right Down Return
  window=$(await_window 'Select your RouteMarkers folder' "$work/$name.log")
  sleep 1
  xdotool key alt+f
  window=$(await_window 'BluePrint Designer' "$work/$name.log")
  sleep 1
  xdotool type --delay 30 'Alder Vale Halts'
  xdotool key Tab
  xdotool type --delay 30 'Halts'
  sleep 1
  import-im6.q16 -window "$window" "$folder/$name.png"
  kill "$program" 2>/dev/null || true
  wait "$program" 2>/dev/null || true
  echo "$folder/$name.png"
}

texture="$game/Assets/Fernhollow/AlderVale/RailVehicles/Diesel/Otter/Textures/Livery.TgPcDx"

prepare "$linux" tamarind "${game//\//\\}"
GDK_DPI_SCALE=$scale take linux 157 160 "$work/program/tamarind" "$track"
page=text
prepare "$linux" tamarind "${game//\//\\}"
GDK_DPI_SCALE=$scale take texture 0 0 "$work/program/tamarind" "$texture"
GDK_DPI_SCALE=$scale take_blueprint blueprint "$work/program/tamarind"
page=${PAGE:-tree}

"$here/scripts/wine.sh" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD \
  /d "$(awk "BEGIN { print int(96 * $scale) }")" /f >/dev/null 2>&1
"$here/scripts/wine.sh" reg add 'HKCU\Control Panel\Desktop' /v FontSmoothing /d 2 /f >/dev/null 2>&1
"$here/scripts/wine.sh" reg add 'HKCU\Control Panel\Desktop' /v FontSmoothingType /t REG_DWORD /d 2 /f >/dev/null 2>&1
prepare "$windows" Tamarind.exe "Z:${game//\//\\}"
take windows 121 125 "$here/scripts/wine.sh" "$work/program/Tamarind.exe" "Z:${track//\//\\}"
page=text
prepare "$windows" Tamarind.exe "Z:${game//\//\\}"
take texture-windows 0 0 "$here/scripts/wine.sh" "$work/program/Tamarind.exe" "Z:${texture//\//\\}"
