#!/usr/bin/env bash
# Takes the pictures of the help's pages anew: data/help/pictures/*.gif, small ones with a palette, since the window
# toolkit of the Windows build reads no other kind. Expects a finished build in build/linux/bin (or BIN_LINUX).
# `help-pictures.sh NAME...` takes only those, FOLDER=… puts them elsewhere.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
folder=${FOLDER:-$here/data/help/pictures}
bin=${BIN_LINUX:-$here/build/linux/bin}

if [ -z "${TAMARIND_SCREEN:-}" ]; then
  TAMARIND_SCREEN=1 exec "$here/scripts/with-display.sh" "$0" "$@"
fi

# A short name, since it shows in the pictures.
work=/tmp/games
mkdir "$work"
export TAMARIND_WINEPREFIX=$work/wine GSETTINGS_BACKEND=memory
running=
stop() {
  [ -z "$running" ] || kill "$running" 2>/dev/null || true
  [ -z "$running" ] || wait "$running" 2>/dev/null || true
  running=
}
finish() {
  stop
  "$here/scripts/wine.sh" wineboot -k >/dev/null 2>&1 || true
  rm -rf "$work"
}
trap finish EXIT
mkdir -p "$folder" "$work/program"
"$bin/sample_game" "$work" >/dev/null
game="$work/Rail Simulator"
track="$game/Assets/Fernhollow/AlderVale/RailNetwork/CrossSections/Track.XSec"
texture="$game/Assets/Fernhollow/AlderVale/RailVehicles/Diesel/Otter/Textures/Livery.TgPcDx"
cp "$bin/serz.exe" "$bin/RouteSetup.exe" "$bin/tamarind" "$work/program/"
cp -r "$bin/BluePrints" "$work/program/"

window() { # name-pattern: waits for it
  local found=
  for _ in $(seq 100); do
    found=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1) && [ -n "$found" ] && break
    sleep 0.2
  done
  [ -n "$found" ] || { echo "help-pictures: no window named $1" >&2; return 1; }
  sleep 1
  echo "$found"
}

start() { # TRUE|FALSE (tree editor) file...
  stop
  printf '9600,8100,450,450,"","","%s",#%s#\r\n' "${game//\//\\}" "$1" >"$work/program/preferences.txt"
  shift
  "$work/program/tamarind" "$@" >"$work/log" 2>&1 &
  running=$!
  main=$(window 'XML File Editor|RS bin file editor')
  xdotool windowactivate --sync "$main"
  sleep 1
}

keys() { xdotool key --delay 150 "$@"; sleep 0.7; }

click() { # window x y
  xdotool mousemove --window "$1" "$2" "$3" click 1
  sleep 0.7
}

# The menus cannot be reached by letters, so by steps: to the right, then down.
menu() { # right down
  local steps=(F10)
  for _ in $(seq "$1"); do steps+=(Right); done
  for _ in $(seq "$2"); do steps+=(Down); done
  keys "${steps[@]}"
}
choose() { menu "$1" "$2"; keys Return; sleep 1; }

to_gif() { # name
  convert-im6.q16 "$work/$1.png" -resize '700x>' -dither None -colors 64 -bordercolor '#B8B8B8' -border 1 \
    "$folder/$1.gif"
  echo "$folder/$1.gif"
}
keep() { # name window
  import-im6.q16 -window "$2" "$work/$1.png"
  to_gif "$1"
}

# With what lies on it, such as a menu.
keep_screen() { # name window
  local place
  place=$(xwininfo -id "$2" | awk '/Absolute.*X:/ { x = $NF } /Absolute.*Y:/ { y = $NF } /Width:/ { w = $NF }
    /Height:/ { h = $NF } END { print w "x" h "+" x "+" y }')
  import-im6.q16 -window root -crop "$place" +repage "$work/$1.png"
  to_gif "$1"
}

width() { xwininfo -id "$1" | awk '/Width:/ { print $NF }'; }

take_first-steps() {
  start FALSE
  menu 0 1
  keep_screen first-steps "$main"
}
take_text-editor() {
  start FALSE "$track"
  click "$main" $(($(width "$main") - 80)) 108
  keep text-editor "$main"
}
take_search() {
  start FALSE "$track"
  keys ctrl+f
  xdotool type --delay 60 Gauge
  keep search "$(window '^Search$')"
}
take_tree-editor() {
  start TRUE "$track"
  click "$main" 95 157
  keys Right Down Right Down Down
  keep tree-editor "$main"
}
take_texture() {
  start FALSE "$texture"
  keep texture "$main"
}
take_options() {
  start FALSE "$track"
  xdotool windowsize --sync "$main" 800 540
  menu 5 1
  keep_screen options "$main"
}
take_about() {
  start FALSE
  choose 6 2
  keep about "$(window '^About')"
}
list_scenarios() { # window: of the first route
  click "$1" 60 36
  keys alt+l
  sleep 2
  click "$1" 60 $(($(xwininfo -id "$1" | awk '/Height:/ { print $NF }') / 2 + 15))
}
take_routes() {
  start FALSE
  choose 3 1
  local routes
  routes=$(window '^Select Route')
  list_scenarios "$routes"
  keep routes "$routes"
}
take_report() {
  start FALSE
  choose 3 1
  local routes
  routes=$(window '^Select Route')
  click "$routes" 60 36
  keys alt+c
  sleep 4
  keys alt+n
  keep report "$(window '^Report')"
}
take_package-route() {
  start FALSE
  choose 3 4
  local routes
  routes=$(window '^Select Route to Package')
  click "$routes" 60 36
  keep package-route "$routes"
}
take_package-scenarios() {
  start FALSE
  choose 3 5
  local routes
  routes=$(window '^Select Route')
  list_scenarios "$routes"
  keys alt+a
  keep package-scenarios "$routes"
}
take_package-assets() {
  start FALSE
  choose 3 3
  keep package-assets "$(window '^Select Folder')"
}
take_scenario-editor() {
  start FALSE
  choose 3 1
  local routes
  routes=$(window '^Select Route')
  list_scenarios "$routes"
  keys alt+d
  sleep 2
  keep scenario-editor "$(window '^Scenario Editor')"
}
take_markers() {
  cat >"$work/Quillmouth.kml" <<'KML'
<kml><Document><LookAt><longitude>-1.5</longitude></LookAt>
<Placemark><name>Alder Vale</name><Point><coordinates>-1.55,53.80,0</coordinates></Point></Placemark>
<Placemark><name>Old Mill</name><Point><coordinates>-1.52,53.83,0</coordinates></Point></Placemark>
<Placemark><name>Quarry Siding</name><Point><coordinates>-1.50,53.84,0</coordinates></Point></Placemark>
<Placemark><name>Fern Halt</name><Point><coordinates>-1.47,53.87,0</coordinates></Point></Placemark>
<Placemark><name>Quillmouth</name><Point><coordinates>-1.45,53.90,0</coordinates></Point></Placemark>
</Document></kml>
KML
  start FALSE
  choose 3 2
  keys ctrl+l
  xdotool type --delay 40 "$work/Quillmouth.kml"
  keys Return
  keep markers "$(window '^Marker File')"
}
take_blueprints() {
  mkdir -p "$game/Source/Hollow/Quillmouth/RouteMarkers"
  start FALSE
  choose 4 1
  window '^Select your RouteMarkers folder' >/dev/null
  keys alt+f
  local blueprint
  blueprint=$(window '^BluePrint Designer')
  xdotool type --delay 60 'Alder Vale'
  keys Tab
  xdotool type --delay 60 Quillmouth
  sleep 0.5
  keep blueprints "$blueprint"
}
take_folders() {
  mkdir -p "$game/Source/Hollow"
  start FALSE
  choose 3 7
  keep folders "$(window '^Select your Developer Folder')"
}
take_installer() {
  stop
  local package="$work/program/Alder Vale to Quillmouth"
  "$bin/tamarind-cli" --game "$game" --program-dir "$work/program" --yes package route 'Alder Vale to Quillmouth' >/dev/null
  for value in 'FontSmoothing /d 2' 'FontSmoothingType /t REG_DWORD /d 2'; do
    # shellcheck disable=SC2086 # several words
    "$here/scripts/wine.sh" reg add 'HKCU\Control Panel\Desktop' /v $value /f >/dev/null 2>&1
  done
  (cd "$package" && exec "$here/scripts/wine.sh" RouteSetup.exe >"$work/log" 2>&1) &
  running=$!
  local installer
  installer=$(window 'RouteSetup')
  xdotool windowactivate --sync "$installer"
  xdotool type --delay 60 "Z:${game//\//\\}"
  keys Return
  keep installer "$installer"
}

[ $# -gt 0 ] || set -- first-steps text-editor search tree-editor texture options about routes report package-route \
  package-scenarios package-assets scenario-editor markers blueprints folders installer
for name; do "take_$name"; done
