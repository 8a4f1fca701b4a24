# The parts for a Linux desktop, and the tar as somebody unpacks it in a folder of their own.
folder="$work/My Programs/tamarind-$version"
mkdir "$work/My Programs"
tar -xzf "$tar" -C "$work/My Programs"
share=$folder/share

check "The desktop file is valid" desktop-file-validate "$share/applications/tamarind.desktop"
check "It takes no file type for itself" refuses grep -q MimeType "$share/applications/tamarind.desktop"
check "The description for software centres is valid" \
  appstreamcli validate --no-net "$share/metainfo/tamarind.metainfo.xml"
check "It names the version" grep -q "release version=\"$version\"" "$share/metainfo/tamarind.metainfo.xml"
for size in 16 24 32 48 64 256; do
  check "The icon of $size pixels is that large" \
    is "$(identify -format '%wx%h' "$share/icons/hicolor/${size}x$size/apps/tamarind.png")" "${size}x$size"
done

man_warns() { MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$1" 2>&1 >/dev/null; }
for page in tamarind tamarind-cli; do
  check "man has nothing to say about $page.1" is "$(man_warns "$share/man/man1/$page.1")" ""
  check "mandoc has nothing to say about $page.1" mandoc -Tlint -W warning "$share/man/man1/$page.1"
  check "$page.1 names the version" grep -q "Tamarind $version" "$share/man/man1/$page.1"
done

# Every command of the program, those below a command with it: "texture export".
sections_of() { awk -v section="$1:" '/^[A-Z]/ { inside = $0 == section; next } inside && /^  [^ ]/ { print $1 }'; }
commands_of_program() {
  local command below
  for command in $("$folder/tamarind-cli" --help | sections_of Subcommands); do
    below=$("$folder/tamarind-cli" "$command" --help | sections_of Subcommands)
    if [ -z "$below" ]; then echo "$command"; else sed "s/^/$command /" <<<"$below"; fi
  done
}
manual=$(man -l -Tutf8 "$share/man/man1/tamarind-cli.1" 2>/dev/null | col -bx)
in_manual() { grep -qE "^ {7}${1// / +}( |$)" <<<"$manual"; } # lines may be stretched
mapfile -t commands < <(commands_of_program)
check "The program has commands" [ ${#commands[@]} -ge 20 ]
for command in "${commands[@]}"; do check "The manual has $command" in_manual "$command"; done

# What bash offers for a line that ends where the caret is.
offers() { # word...
  (
    cd "$work/My Programs"
    . "$share/bash-completion/completions/tamarind-cli"
    compopt() { :; } # knows only running completions
    PATH=$folder:$PATH
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    if [ "$1" = tamarind ]; then _tamarind; else _tamarind_cli; fi
    printf '%s\n' "${COMPREPLY[@]}" | sort
  )
}
check "bash knows the script as the completion of both programs" \
  bash -c '. "$1" && complete -p tamarind-cli | grep -q _tamarind_cli && complete -p tamarind | grep -q _tamarind' - \
  "$share/bash-completion/completions/tamarind"
check "A command is completed" is "$(offers tamarind-cli textu)" texture
check "So is one below it" is "$(offers tamarind-cli texture p)" preview
check "Every command is offered" \
  same_names "$(offers tamarind-cli '')" "$(cut -d' ' -f1 <<<"$(printf '%s\n' "${commands[@]}")" | sort -u)"
check "Options of a command are completed" is "$(offers tamarind-cli check Route --te)" --textures
check "So are those of all commands" is "$(offers tamarind-cli texture preview --js)" --json
check "The value of an option is no command" is "$(offers tamarind-cli --game markers textu)" texture
check "A folder is offered where one is wanted" is "$(offers tamarind-cli --game t)" "tamarind-$version"
check "A number is not guessed" is "$(offers tamarind-cli texture preview --level '')" ""
touch "$work/My Programs/a.XSec" "$work/My Programs/a.txt"
check "A file is offered where one is wanted" is "$(offers tamarind-cli open a)" $'a.XSec\na.txt'
check "The window's completion offers what it opens" is "$(offers tamarind a)" a.XSec

make_game
check "The terminal program tells its version" is "$("$folder/tamarind-cli" --version)" "tamarind-cli $version"
check "It opens a game file beside itself" \
  is "$("$folder/tamarind-cli" --game "$work/game/Rail Simulator" open "$work/game/Rail Simulator/$track")" \
  "$folder/TempFiles/Track.xml"
check "The XML is there" grep -q '<Gauge' "$folder/TempFiles/Track.xml"
prefer_game "$folder" "${work//\//\\}\\game\\Rail Simulator"
ln -s "$folder/tamarind" "$work/linked"
"$work/linked" >/dev/null 2>&1 &
check "The window opens, also through a link" shows_window "$main_window"
check "The frame of the window bears the name in the desktop file" \
  holds "$(xprop -id "$(window_of "$main_window")" WM_CLASS)" "\"$(sed -n 's/^StartupWMClass=//p' "$share/applications/tamarind.desktop")\""
rm "$folder/preferences.txt"
check "It closes" close_window "$main_window"
wait
check "Its settings stand beside it" [ -s "$folder/preferences.txt" ]
