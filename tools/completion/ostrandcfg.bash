# Completion of ostrandcfg for bash; made by "ostrandcfg --bash-completion".
_ostrandcfg() {
    local cur=${COMP_WORDS[COMP_CWORD]} command='' words='' list='' form='%q\n' pass=() i
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
        --config|--app|--modules) pass+=("${COMP_WORDS[i]}" "${COMP_WORDS[i + 1]}"); ((i++)) ;;
        -*) ;;
        *) command+=${command:+ }${COMP_WORDS[i]//[[:space:]]/_} ;;
        esac
    done
    case ${COMP_WORDS[COMP_CWORD - 1]} in
    --config|--modules) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- "$cur"); return ;;
    --app) mapfile -t COMPREPLY < <(compgen -W 'tessaly orvane quillo' -- "$cur"); return ;;
    esac
    case $command in
    '') words='firewall filter scheme global session protocol schema store history path keymap sync secret timezone explain' ;;
    firewall) words='list show set new rename delete' ;;
    filter) words='list show set new rename delete' ;;
    scheme) words='list show set new rename delete import' ;;
    global) words='list get set reset save merge diff' ;;
    session) words='list show get set reset explain new clone rename delete summary diff actions apply undo import' ;;
    protocol) words='list' ;;
    schema) words='global session terminal firewall filter' ;;
    store) words='dump check' ;;
    history) words='list show diff restore' ;;
    path) words='join split expand check executable' ;;
    keymap) words='list check convert diff explain' ;;
    sync) words='show' ;;
    secret) words='encode decode' ;;
    timezone) words='list bias' ;;
    'firewall list') words='--help' ;;
    'firewall show') words='--help --reveal' list=firewalls ;;
    'firewall set') words='--help' list=firewalls ;;
    'firewall new') words='--help' list=firewalls ;;
    'firewall rename') words='--help' list=firewalls ;;
    'firewall delete') words='--help' list=firewalls ;;
    'filter list') words='--help' ;;
    'filter show') words='--help --reveal' list=filters ;;
    'filter set') words='--help' list=filters ;;
    'filter new') words='--help' list=filters ;;
    'filter rename') words='--help' list=filters ;;
    'filter delete') words='--help' list=filters ;;
    'scheme list') words='--help' ;;
    'scheme show') words='--help --reveal' list=schemes ;;
    'scheme set') words='--help' list=schemes ;;
    'scheme new') words='--help' list=schemes ;;
    'scheme rename') words='--help' list=schemes ;;
    'scheme delete') words='--help' list=schemes ;;
    'scheme import') words='--help --ansi' ;;
    'global list') words='--help' ;;
    'global get') words='--help' list=values ;;
    'global set') words='--help' list=values ;;
    'global reset') words='--help' list=values ;;
    'global save') words='--help --force' ;;
    'global merge') words='--help --write' list=keys ;;
    'global diff') words='--help' ;;
    'session list') words='--help --tree' list=folders ;;
    'session show') words='--help --all' list=sessions ;;
    'session get') words='--help' list=sessions ;;
    'session get '*' '*) ;;
    'session get '*) list=session-values ;;
    'session set') words='--help' list=sessions ;;
    'session set '*' '*) ;;
    'session set '*) list=session-values ;;
    'session reset') words='--help' list=sessions ;;
    'session reset '*' '*) ;;
    'session reset '*) list=session-values ;;
    'session explain') words='--help' list=sessions ;;
    'session explain '*' '*) ;;
    'session explain '*) list=session-values ;;
    'session new') words='--help --like' ;;
    'session clone') words='--help' list=sessions ;;
    'session rename') words='--help' list=sessions ;;
    'session delete') words='--help --force' list=sessions ;;
    'session summary') words='--help' list=sessions ;;
    'session diff') words='--help' list=sessions ;;
    'session diff '*' '*) ;;
    'session diff '*) list=sessions ;;
    'session actions') words='--help --reveal' list=sessions ;;
    'session apply') words='--help --preview --folder' ;;
    'session undo') words='--help' ;;
    'session import') words='--help --from --folder --dry-run' ;;
    'protocol list') words='--help' ;;
    'schema global') words='--help --markdown' ;;
    'schema session') words='--help --markdown' ;;
    'schema terminal') words='--help --markdown' ;;
    'schema firewall') words='--help --markdown' ;;
    'schema filter') words='--help --markdown' ;;
    'store dump') words='--help' list=keys ;;
    'store check') words='--help --repair' list=keys ;;
    'history list') words='--help' list=keys ;;
    'history show') words='--help' list=keys ;;
    'history diff') words='--help' list=keys ;;
    'history restore') words='--help' list=keys ;;
    'path join') words='--help' ;;
    'path split') words='--help' ;;
    'path expand') words='--help --host --session' ;;
    'path check') words='--help' ;;
    'path executable') words='--help' ;;
    'keymap list') words='--help --default --session' ;;
    'keymap check') words='--help' ;;
    'keymap convert') words='--help --unicode --force' ;;
    'keymap diff') words='--help' ;;
    'keymap explain') words='--help --session' ;;
    'sync show') words='--help' ;;
    'secret encode') words='--help --form --mode --name --text' ;;
    'secret decode') words='--help --form --mode --name --stored' ;;
    'timezone list') words='--help' ;;
    'timezone bias') words='--help' list=zones ;;
    'explain') words='--help' list=values ;;
    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words --help --version --config --modules --app --json" -- "$cur")
    elif [[ -n $list ]]; then
        # Names hold blanks: one a line, escaped for the shell where no quote was typed.
        # A backslash parts the levels of paths: in quotes as it is, else typed twice.
        if [[ $cur == [\"\']* ]]; then
            form='%s\n'
            cur=${cur#?}
        else
            cur=${cur//\\\\/$'\x01'}
            cur=${cur//\\/}
            cur=${cur//$'\x01'/\\}
        fi
        mapfile -t COMPREPLY < <("${COMP_WORDS[0]}" "${pass[@]}" complete "$list" 2>/dev/null |
            while IFS= read -r name; do
                [[ ${name,,} == "${cur,,}"* ]] && printf "$form" "$name"
            done)
    else
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$cur")
    fi
}
complete -F _ostrandcfg ostrandcfg
