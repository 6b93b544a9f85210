# bash completion for nuboshot: commands, modes, options, file names, and
# the display and window ids and microphones the running desktop has (asked
# of nuboshot itself, as "nuboshot displays", "nuboshot windows" and
# "nuboshot record --list-sources" print them, the id first on each line).

_nuboshot_first_fields()
{
    "$1" "${@:2}" 2>/dev/null | cut -f1
}

# Options when the word begins with a dash, else files (-f) or folders (-d).
_nuboshot_options_or()
{
    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$2" -- "$cur"))
    else
        COMPREPLY=($(compgen "$1" -- "$cur"))
    fi
}

_nuboshot()
{
    local cur prev words cword
    if declare -F _init_completion >/dev/null; then
        _init_completion -n = || return
    else
        cur=${COMP_WORDS[COMP_CWORD]}
        prev=${COMP_WORDS[COMP_CWORD - 1]}
        words=("${COMP_WORDS[@]}")
        cword=$COMP_CWORD
    fi
    local program=${words[0]}
    local commands="capture annotate open displays windows grab archive export stitch record review video upload ocr"
    if [ "$cword" -eq 1 ]; then
        COMPREPLY=($(compgen -W "$commands -h --help -v --version" -- "$cur"))
        return
    fi
    local command=${words[1]}
    local sub=${words[2]}
    case "$prev" in
        -o | --output)
            if [ "$command" = record ]; then
                COMPREPLY=($(compgen -d -- "$cur"))
            else
                COMPREPLY=($(compgen -f -- "$cur"))
            fi
            return ;;
        --display)
            COMPREPLY=($(compgen -W "$(_nuboshot_first_fields "$program" displays)" -- "$cur"))
            return ;;
        --format) COMPREPLY=($(compgen -W "png jpeg heic webp" -- "$cur")); return ;;
        --scale) COMPREPLY=($(compgen -W "1 2" -- "$cur")); return ;;
        --destination) COMPREPLY=($(compgen -W "auto r2 filebin" -- "$cur")); return ;;
        --fps)
            if [ "$command" = video ]; then
                COMPREPLY=($(compgen -W "10 15 24 30" -- "$cur"))
            else
                COMPREPLY=($(compgen -W "30 60" -- "$cur"))
            fi
            return ;;
        --width) COMPREPLY=($(compgen -W "original 1280 960 640" -- "$cur")); return ;;
        --resolution) COMPREPLY=($(compgen -W "native standard" -- "$cur")); return ;;
        --codec) COMPREPLY=($(compgen -W "h264 hevc" -- "$cur")); return ;;
        --quality)
            [ "$command" = video ] && COMPREPLY=($(compgen -W "original 1080 720" -- "$cur"))
            return ;;
    esac
    case "$command" in
        capture)
            if [ "$cword" -eq 2 ]; then
                COMPREPLY=($(compgen -W "area window fullscreen scrolling text last-area recording -h --help" -- "$cur"))
            elif [ "$prev" = --delay ]; then
                COMPREPLY=($(compgen -W "3 5 10" -- "$cur"))
            else
                COMPREPLY=($(compgen -W "--delay --pin" -- "$cur"))
            fi ;;
        displays | windows)
            COMPREPLY=($(compgen -W "--json -h --help" -- "$cur")) ;;
        grab)
            if [ "$cword" -eq 2 ]; then
                COMPREPLY=($(compgen -W "fullscreen window region -h --help" -- "$cur"))
            elif [ "$cword" -eq 3 ] && [ "$sub" = window ]; then
                COMPREPLY=($(compgen -W "pick $(_nuboshot_first_fields "$program" windows)" -- "$cur"))
            else
                COMPREPLY=($(compgen -W "-o --output --display --quality -h --help" -- "$cur"))
            fi ;;
        archive)
            if [ "$cword" -eq 2 ]; then
                COMPREPLY=($(compgen -W "new check -h --help" -- "$cur"))
            elif [ "$sub" = new ] && [ "$cword" -eq 3 ]; then
                COMPREPLY=($(compgen -f -- "$cur"))
            else
                COMPREPLY=($(compgen -d -- "$cur"))
            fi ;;
        export)
            _nuboshot_options_or -d "-o --output --quick --format --quality --scale -h --help" ;;
        record)
            if [[ $cur == --microphone=* ]]; then
                local sources
                sources=$(_nuboshot_first_fields "$program" record --list-sources)
                COMPREPLY=($(compgen -P --microphone= -W "$sources" -- "${cur#--microphone=}"))
            elif [ "$cword" -eq 2 ]; then
                COMPREPLY=($(compgen -W "display area window --list-sources -h --help" -- "$cur"))
            elif [ "$cword" -eq 3 ] && [ "$sub" = display ] && [[ $cur != -* ]]; then
                COMPREPLY=($(compgen -W "$(_nuboshot_first_fields "$program" displays)" -- "$cur"))
            elif [ "$cword" -eq 3 ] && [ "$sub" = window ]; then
                COMPREPLY=($(compgen -W "pick $(_nuboshot_first_fields "$program" windows)" -- "$cur"))
            else
                COMPREPLY=($(compgen -W "-o --output --fps --resolution --codec --duration --no-cursor --highlight-clicks --system-audio --microphone --microphone= --camera -h --help" -- "$cur"))
                [[ ${COMPREPLY[*]} == *= ]] && compopt -o nospace 2>/dev/null
            fi ;;
        video)
            if [ "$cword" -eq 2 ]; then
                COMPREPLY=($(compgen -W "export info -h --help" -- "$cur"))
            elif [ "$sub" = export ]; then
                _nuboshot_options_or -f "-o --output --cut --in --out --crop --blur --mute --quality --fps --width -h --help"
            else
                COMPREPLY=($(compgen -f -- "$cur"))
            fi ;;
        upload) _nuboshot_options_or -f "--destination -h --help" ;;
        ocr) _nuboshot_options_or -f "--lang --codes --list-languages -h --help" ;;
        stitch) _nuboshot_options_or -f "-o --output --verbose -h --help" ;;
        annotate | open | review) _nuboshot_options_or -f "-h --help" ;;
    esac
}
complete -F _nuboshot nuboshot
