# Completion of tamarind and tamarind-cli in bash. Commands and options are those that the program's own help lists.

# The names in a section of a help text.
_tamarind_names() { # section help
    awk -v section="$1:" '
        /^[A-Z]/ { inside = $0 == section; next }
        inside && /^  [^ ]/ { n = split($1, names, ","); for (i = 1; i <= n; i++) print names[i] }' <<<"$2"
}

# What an option's value is called; nothing when it takes none.
_tamarind_value() { # option help
    awk -v option="$1" '/^  -/ {
        n = split($1, names, ",")
        for (i = 1; i <= n; i++)
            if (names[i] == option && $2 ~ /^[A-Z]+([.:]|$)/ && $2 !~ /^(Excludes|Needs):/) { print $2; exit }
    }' <<<"$2"
}

_tamarind_files() { # action (file or directory)
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -A "$1" -- "$2")
}

_tamarind_cli() {
    local program=${COMP_WORDS[0]} current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local global help word value commands=() isArgument=
    global=$("$program" --help 2>/dev/null) || return
    help=$global
    COMPREPLY=()
    # Down to the command that stands on the line; the value of an option is none.
    local index
    for ((index = 1; index < COMP_CWORD; index++)); do
        word=${COMP_WORDS[index]}
        if [[ $word == -- ]]; then
            isArgument=yes
            break
        elif [[ $word == -* ]]; then
            [[ -n $(_tamarind_value "$word" "$help"$'\n'"$global") ]] && ((index++))
        elif _tamarind_names Subcommands "$help" | grep -qxF -- "$word"; then
            commands+=("$word")
            help=$("$program" "${commands[@]}" --help 2>/dev/null) || return
        fi
    done
    if [[ -z $isArgument && $before == -* ]]; then
        value=$(_tamarind_value "$before" "$help"$'\n'"$global")
        case $value in
            '') ;;
            DIR | FOLDER) _tamarind_files directory "$current"; return ;;
            OUT* | FILE* | XML* | IN*) _tamarind_files file "$current"; return ;;
            *) return ;;
        esac
    fi
    if [[ -z $isArgument && $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_tamarind_names Options "$help"$'\n'"$global")" -- "$current")
    elif [[ -z $isArgument && -n $(_tamarind_names Subcommands "$help") ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_tamarind_names Subcommands "$help")" -- "$current")
    else
        _tamarind_files file "$current"
    fi
}

# The files that the window opens, and folders on the way to them.
_tamarind() {
    local current=${COMP_WORDS[COMP_CWORD]} name
    compopt -o filenames
    mapfile -t COMPREPLY < <(
        compgen -A directory -- "$current"
        compgen -A file -- "$current" | while IFS= read -r name; do
            [[ ! -d $name && ${name,,} == *.@(bin|xsec|geopcdx|tgpcdx|xml|cost|tgt) ]] && printf '%s\n' "$name"
        done)
}

complete -F _tamarind_cli tamarind-cli
complete -F _tamarind tamarind
