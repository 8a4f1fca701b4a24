# The zip and the setup, under Wine. Wine's own exit code tells little, so it is the files and windows that are looked at.
start_wine
make_game
local_programs=$TAMARIND_WINEPREFIX/drive_c/users/$(id -un)/AppData/Local/Programs
installed=$local_programs/Tamarind
start_menu="$TAMARIND_WINEPREFIX/drive_c/users/$(id -un)/AppData/Roaming/Microsoft/Windows/Start Menu/Programs"
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tamarind'
classes='HKCU\Software\Classes'
game_in_wine="Z:${work//\//\\}\\game\\Rail Simulator"
cp build/windows/bin/serz.exe "$work/game/Rail Simulator/serz.exe"

starts_and_works() { # folder what
  local folder=$1 what=$2
  check "$what: the terminal program tells its version" \
    is "$(in_wine "$folder/tamarind-cli.exe" --version | tr -d '\r')" "tamarind-cli $version"
  check "$what: it opens a game file" \
    in_wine "$folder/tamarind-cli.exe" --game "$game_in_wine" open "$game_in_wine\\${track//\//\\}"
  check "$what: the XML stands beside it" grep -q '<Gauge' "$folder/TempFiles/Track.xml"
  prefer_game "$folder" "$game_in_wine"
  in_wine "$folder/Tamarind.exe" >/dev/null 2>&1 &
  check "$what: the window opens" shows_window "$main_window"
  rm "$folder/preferences.txt"
  check "$what: it closes" close_window "$main_window"
  wait
  check "$what: its settings stand beside it" [ -s "$folder/preferences.txt" ]
  in_wine "$folder/RouteSetup.exe" >/dev/null 2>&1 &
  check "$what: the installer of packages starts" shows_window "RouteSetup  Version $version"
  in_wine taskkill /f /im RouteSetup.exe >/dev/null 2>&1
  wait
}

mkdir "$work/Portable place"
unzip -q "$zip" -d "$work/Portable place"
starts_and_works "$work/Portable place/Tamarind" "From the zip"

below_folder() { (cd "$1" && find . -type f | sort); }
in_zip=$(mktemp -d -p "$work")
unzip -q "$zip" -d "$in_zip"
from_setup=$(below_folder "$in_zip/Tamarind"; echo ./Uninstall.exe)
run_setup() { in_wine "$setup" /S "$@"; }
# The uninstaller copies itself elsewhere and goes on there; with this option it stays, and so itself is left.
run_uninstaller() { in_wine "$installed/Uninstall.exe" /S "_?=C:\\users\\$(id -un)\\AppData\\Local\\Programs\\Tamarind"; }
offered() { registry "$classes\\$1\\OpenWithProgids" | grep -q 'Tamarind.GameFile'; }
endings=(.bin .XSec .GeoPcDx .TgPcDx)

# What others have registered is not ours to change.
in_wine reg add "$classes\\.bin" /ve /d Other.Kind /f >/dev/null
in_wine reg add "$classes\\.XSec\\OpenWithProgids" /v Other.Kind /d '' /f >/dev/null
before=$(registry "$classes" /s)

check "The setup is a program of 64 bits" holds "$(file -b "$setup")" "x86-64"
check "It asks for no administrator" grep -aq 'requestedExecutionLevel level="asInvoker"' "$setup"
check "The setup runs" run_setup
check "It installs what is in the zip, and the uninstaller" same_names "$(below_folder "$installed")" "$from_setup"
check "Each file is the zip's" diff -r --exclude=Uninstall.exe "$in_zip/Tamarind" "$installed"
check "The start menu has an entry" [ -s "$start_menu/Tamarind.lnk" ]
entry=$(registry "$uninstall_key")
for value in "DisplayName    REG_SZ    Tamarind" "DisplayVersion    REG_SZ    $version" 'Tamarind\Uninstall.exe" /S' \
  "InstallLocation    REG_SZ    C:\\users\\$(id -un)\\AppData\\Local\\Programs\\Tamarind"; do
  check "The list of programs is told: $value" holds "$entry" "$value"
done
check "No file type is touched unasked" is "$(registry "$classes" /s)" "$before"
starts_and_works "$installed" "Installed"

check "Installing again with associations runs" run_setup /ASSOCIATIONS
for ending in "${endings[@]}"; do check "Tamarind is offered for $ending" offered "$ending"; done
check "The command opens the file" holds "$(registry "$classes\\Tamarind.GameFile\\shell\\open\\command")" \
  "\"C:\\users\\$(id -un)\\AppData\\Local\\Programs\\Tamarind\\Tamarind.exe\" \"%1\""
check "What opens .bin files until now still does" holds "$(registry "$classes\\.bin" /ve)" Other.Kind
check "The settings outlive a new installation" [ -s "$installed/preferences.txt" ]
echo old >"$installed/help/index.html"
check "Installing again without a word runs" run_setup
check "The associations stay then" offered .TgPcDx
check "A file that differed is the new one" cmp "$in_zip/Tamarind/help/index.html" "$installed/help/index.html"
check "Taking the associations back runs" run_setup /NOASSOCIATIONS /NOSTARTMENU
check "No file type is left changed" is "$(registry "$classes" /s)" "$before"
check "The start menu has no entry without one asked for" [ ! -e "$start_menu/Tamarind.lnk" ]

check "Installing for the last time runs" run_setup /ASSOCIATIONS
mkdir -p "$installed/My Package"
echo mine | tee "$installed/My Package/Routes.xml" "$installed/BluePrints/Mine.xml" "$installed/notes.txt" >/dev/null
kept=$(below_folder "$installed" | grep -vxF "$from_setup"; echo ./Uninstall.exe)
check "There is something to be kept" holds "$kept" preferences.txt
prefer_game "$installed" "$game_in_wine"
in_wine "$installed/Tamarind.exe" >/dev/null 2>&1 &
check "The program runs" shows_window "$main_window"
check "A running program is not taken away" refuses run_uninstaller
check "It is not replaced either" refuses run_setup
check "All is still there" same_names "$(below_folder "$installed")" "$kept
$(grep -vx ./Uninstall.exe <<<"$from_setup")"
check "It closes at last" close_window "$main_window"
wait
check "The uninstaller runs" run_uninstaller
check "It leaves what it did not bring" same_names "$(below_folder "$installed")" "$kept"
check "It leaves that as it was" is "$(cat "$installed/My Package/Routes.xml" "$installed/BluePrints/Mine.xml")" $'mine\nmine'
check "It leaves no empty folder of its own" [ ! -e "$installed/help" ]
check "The entry in the start menu is gone" [ ! -e "$start_menu/Tamarind.lnk" ]
check "The entry in the list of programs is gone" refuses in_wine reg query "$uninstall_key"
check "The file types are as they were" is "$(registry "$classes" /s)" "$before"

elsewhere=$TAMARIND_WINEPREFIX/drive_c/Tools/Train
check "The setup takes another folder" run_setup '/D=C:\Tools\Train'
check "It installs there" same_names "$(below_folder "$elsewhere")" "$from_setup"
gone() { in_wine "$elsewhere/Uninstall.exe" /S; for _ in $(seq 50); do [ -e "$elsewhere" ] || return 0; sleep 0.2; done; find "$elsewhere"; return 1; }
check "Uninstalled untouched, it leaves nothing, not even the folder" gone
