# Completion of aquelonctl(1) for bash.
_aquelonctl() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local commands='list info load send compare clock check demo' options='--device --timeout --json' command='' word
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        [[ " $commands " == *" $word "* ]] && command=$word && break
    done
    COMPREPLY=()
    case $previous in
    --device) mapfile -t COMPREPLY < <(compgen -f -- "${current:-/dev/ttyUSB}") && return ;;
    --timeout | --scale) return ;;
    esac
    case $command in
    '') options+=' --help --version' ;;
    load) options+=' --force' ;;
    send) options+=' --scale' ;;
    clock) options+=' --set' ;;
    esac
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    elif [[ -z $command ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current")
    elif [[ $command =~ ^(load|send|compare|check|demo)$ ]]; then
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$current"; compgen -f -X '!*.sq' -- "$current")
    fi
}
complete -F _aquelonctl aquelonctl
