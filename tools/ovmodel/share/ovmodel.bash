# bash completion of ovmodel. The tool tells its commands and options itself.
_ovmodel() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=- name options i
    declare -A words
    COMPREPLY=()
    while IFS=$'\t' read -r name options; do
        words[$name]=" $options "
    done < <("${COMP_WORDS[0]}" --completion-words 2>/dev/null)
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if [[ ${COMP_WORDS[i]} != -* ]]; then
            command=${COMP_WORDS[i]}
            break
        elif [[ ${words[-]} == *" ${COMP_WORDS[i]}= "* ]]; then
            ((++i))
        fi
    done
    options=${words[$command]:-}
    [[ $options == *" $previous= "* ]] && return # the value of an option: a file, or a word of the user's
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "${options//= / }" -- "$current")
    elif [[ $command == - ]]; then
        unset 'words[-]'
        mapfile -t COMPREPLY < <(compgen -W "${!words[*]}" -- "$current")
    fi
}
complete -o default -F _ovmodel ovmodel
