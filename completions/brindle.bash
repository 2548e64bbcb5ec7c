# Completion of `brindle` for bash. Commands, options and kinds of files come from the command's own help.

_brindle_tuning='.[tT][uU][nN]'

# Prints a line for each option that the help text $1 tells of: its names, separated by a comma, and what it takes.
_brindle_options() {
    sed -nE 's/^  (    |(-.), )(--[a-z-]+)( ([^ ]+))?(  .*)?$/\2,\3 \5/p' <<<"$1"
}

# The commands that the help text $1 lists.
_brindle_commands() {
    sed -nE '/^Commands:/,/^$/s/^  ([a-z]+) .*/\1/p' <<<"$1"
}

# Takes the files that begin with $1 and end with one of the further arguments, which are patterns, and folders.
_brindle_files() {
    local word=$1 ending
    shift
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(
        for ending in "$@"; do compgen -f -X "!*$ending" -- "$word"; done | while IFS= read -r file; do
            [[ -d $file ]] || printf '%s\n' "$file"
        done
        compgen -d -- "$word"
    )
}

# What stands behind an option of which the help tells $2.
_brindle_value() {
    local word=$1 taken=$2
    case $taken in
        *'|'*) mapfile -t COMPREPLY < <(compgen -W "$(tr '|' ' ' <<<"$taken")" -- "$word") ;;
        FILE | PATH) _brindle_files "$word" '' ;;
    esac
}

# The files that the command with the help text $2 works on.
_brindle_inputs() {
    local word=$1 endings=()
    local inputs=$(sed -nE '/^Arguments:/,/^$/s/^  ([A-Z|]+)[ .].*/\1/p' <<<"$2")
    [[ $inputs == *TUNING* ]] && endings+=("$_brindle_tuning")
    [[ $inputs == *DRAWING* ]] && endings+=('.[cC][fF]2')
    [[ ${#endings[@]} -eq 0 ]] || _brindle_files "$word" "${endings[@]}"
}

_brindle() {
    local program=$1 word=$2 before=$3 help taken=''
    COMPREPLY=()
    # `--option=word` comes as three words.
    [[ $word == = ]] && word=
    [[ $before == = ]] && before=${COMP_WORDS[COMP_CWORD - 2]}
    if [[ $COMP_CWORD -eq 1 || ${COMP_WORDS[1]} == help ]]; then
        local words=$(_brindle_commands "$("$program" --help 2>/dev/null)")
        [[ $COMP_CWORD -gt 1 ]] || words+=' --help --version'
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
        return
    fi
    help=$("$program" "${COMP_WORDS[1]}" --help 2>/dev/null)
    [[ $before == -* ]] && taken=$(_brindle_options "$help" | grep -E -- "(^|,)$before[, ]" | cut -d ' ' -f 2)
    if [[ $before == -t || $before == --tuning ]]; then
        _brindle_files "$word" "$_brindle_tuning"
    elif [[ -n $taken ]]; then
        _brindle_value "$word" "$taken"
    elif [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_brindle_options "$help" | cut -d ' ' -f 1 | tr , ' ')" -- "$word")
    else
        _brindle_inputs "$word" "$help"
    fi
}

complete -F _brindle brindle
