# What the tests of the packages have in common. Each check is a sentence and the command that proves it.
passed=0
failed=0

check() { # sentence command...
  local sentence=$1
  shift
  if "$@" >"$work/said" 2>&1; then
    passed=$((passed + 1))
    echo "ok    $sentence"
  else
    failed=$((failed + 1))
    echo "FAIL  $sentence"
    sed 's/^/      /' "$work/said" | head -n 40
  fi
}

refuses() { ! "$@"; }

is() { # actual expected
  [ "$1" = "$2" ] || { printf 'is: %s\nnot: %s\n' "$1" "$2"; return 1; }
}

holds() { # text part
  [[ $1 == *"$2"* ]] || { printf 'no "%s" in: %s\n' "$2" "$1"; return 1; }
}

# Nothing is missing and nothing is there besides.
same_names() { # actual expected: a name a line
  diff <(sort <<<"$2") <(sort <<<"$1")
}

# The number of a shown window of that title, within a minute.
window_of() { # pattern
  local window
  for _ in $(seq 300); do
    window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1) && [ -n "$window" ] && break
    sleep 0.2
  done
  [ -n "$window" ] && echo "$window"
}

shows_window() { # pattern
  window_of "$1" >/dev/null || { echo "no window \"$1\""; xwininfo -root -tree; return 1; }
}

# Closes a window as its frame's button does, and waits until it is gone.
close_window() { # pattern
  local window
  window=$(window_of "$1") || return 1
  xdotool windowactivate --sync "$window" key alt+F4
  for _ in $(seq 50); do
    xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0
    sleep 0.2
  done
  return 1
}

# A window that opens without asking for the game's folder.
prefer_game() { # program-folder game-folder-as-the-program-writes-it
  mkdir -p "$1"
  printf '15000,10500,450,450,"","","%s",#FALSE#\r\n' "$2" >"$1/preferences.txt"
}

make_game() {
  [ -e "$work/game" ] && return
  build/linux/bin/sample_game "$work/game" >/dev/null
  cp build/linux/bin/serz.exe "$work/game/Rail Simulator/serz.exe"
}
track="Assets/Fernhollow/AlderVale/RailNetwork/CrossSections/Track.XSec"
main_window="RS bin file editor and texture viewer  Version $version"

# Wine in a prefix of the tests' own; its server is asked to end with them.
export TAMARIND_WINEPREFIX=$work/wine
in_wine() { ./scripts/wine.sh "$@"; }
start_wine() {
  [ -e "$TAMARIND_WINEPREFIX/system.reg" ] && return
  clean_up+=(end_wine)
  in_wine wineboot -i >/dev/null 2>&1
}
end_wine() { WINEPREFIX=$TAMARIND_WINEPREFIX wineserver -k; }
registry() { in_wine reg query "$@" 2>/dev/null | tr -d '\r'; }
