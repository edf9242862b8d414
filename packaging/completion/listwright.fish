# fish completion for listwright and, under the name stepdrive.fish, for stepdrive: of the options
# that their --help names.
set -l command (string replace .fish '' (status basename))
type -q $command; or return

for line in ($command --help 2>/dev/null)
    string match -rq '^  (?:-\w,)?--(?<option>[a-z-]+)(?: (?<argument>[A-Z0-9]\S*))?(?: +(?<text>.*))?$' -- $line
    or continue
    set -l how
    switch "$option $argument"
        case 'type *'
            set how -x -a (string replace -ra '\(default\)|,| or' '' -- $text)
        case 'frontend *'
            set how -x -a (string replace -ra '.*\{|\}|,' ' ' -- $argument)
        case 'step-folder *'
            set how -x -a '(__fish_complete_directories)'
        case 'save *'
            set how -x -k -a '(__fish_complete_suffix .step)'
        case 'settings *'
            set how -x -k -a '(__fish_complete_suffix .ini)'
        case 'plugin *'
            set how -r
        case '* ?*'
            set how -x
    end
    complete -c $command -l $option -d "$text" $how
end
test $command = stepdrive
or complete -c listwright -k -x -a '(__fish_complete_suffix .step)'
