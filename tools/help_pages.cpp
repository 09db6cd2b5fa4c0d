#include "tools/help_pages.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace ostrand::tool {

namespace {

/// Commands and options of the hidden group have no place on the pages.
template <class Part>
bool IsShown(const Part& part)
{
    return !part.get_group().empty();
}

std::vector<const CLI::App*> ShownCommands(const CLI::App& app)
{
    std::vector<const CLI::App*> commands;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App* a) { return IsShown(*a); }))
        commands.push_back(command);
    return commands;
}

/// "GROUP NAME", or the name alone of a command that stands by itself.
std::string PathOf(const CLI::App& command)
{
    const CLI::App* const parent = command.get_parent();
    return parent->get_parent() ? parent->get_name() + " " + command.get_name() : command.get_name();
}

/// The commands of all groups, and those that stand by themselves, in the order of the table.
std::vector<const CLI::App*> AllCommands(const CLI::App& app)
{
    std::vector<const CLI::App*> all;
    for (const CLI::App* shown : ShownCommands(app)) {
        const std::vector<const CLI::App*> commands = ShownCommands(*shown);
        if (commands.empty())
            all.push_back(shown);
        all.insert(all.end(), commands.begin(), commands.end());
    }
    return all;
}

std::vector<const CLI::Option*> ShownOptions(const CLI::App& app)
{
    std::vector<const CLI::Option*> options;
    for (const CLI::Option* option : app.get_options([](const CLI::Option* o) { return IsShown(*o); }))
        options.push_back(option);
    return options;
}

/// Backslashes and dashes as roff wants them; a quote or dot at a line's start is no request.
std::string Roff(const std::string& text)
{
    std::string out;
    bool isLineStart = true;
    for (const char c : text) {
        if (isLineStart && (c == '.' || c == '\''))
            out += "\\&";
        if (c == '\\')
            out += "\\e";
        else if (c == '-')
            out += "\\-";
        else
            out += c;
        isLineStart = c == '\n';
    }
    return out;
}

/// "NAME [VALUE...]", of the positional words.
std::string Positionals(const CLI::App& app)
{
    std::string words;
    for (const CLI::Option* option : ShownOptions(app)) {
        if (!option->get_positional())
            continue;
        const std::string name = option->get_name(true) + (option->get_allow_extra_args() ? "..." : "");
        words += option->get_required() ? " " + name : " [" + name + "]";
    }
    return words;
}

std::string Flags(const CLI::App& app)
{
    std::string flags;
    for (const CLI::Option* option : ShownOptions(app))
        if (!option->get_positional() && option != app.get_help_ptr())
            flags += " [" + option->get_name() + "]";
    return flags;
}

std::string OptionList(const CLI::App& app)
{
    std::string page;
    for (const CLI::Option* option : ShownOptions(app)) {
        if (option == app.get_help_ptr() && app.get_parent())
            continue; // told once, for all commands
        const std::string name = option->get_positional() ? option->get_name(true) : option->get_name(false, true);
        const std::string argument = option->get_option_text().empty() ? "" : " " + option->get_option_text();
        page += ".TP\n\\fB" + Roff(name) + "\\fR" + Roff(argument) + "\n" + Roff(option->get_description()) + "\n";
    }
    return page;
}

std::string CommandSection(const CLI::App& command)
{
    std::string page = ".SS \"" + Roff(PathOf(command) + Positionals(command) + Flags(command)) + "\"\n" +
                       Roff(command.get_description()) + "\n" + OptionList(command);
    return page + ".PP\n.nf\n" + Roff(command.get_footer()) + ".fi\n";
}

/// Words with a blank between, for bash.
std::string Names(const std::vector<const CLI::App*>& commands)
{
    std::string names;
    for (const CLI::App* command : commands)
        names += (names.empty() ? "" : " ") + command->get_name();
    return names;
}

std::string LongOptions(const CLI::App& app)
{
    std::string names;
    for (const CLI::Option* option : ShownOptions(app))
        for (const std::string& name : option->get_lnames())
            names += (names.empty() ? "--" : " --") + name;
    return names;
}

/// Which list of words completes each positional word of a command, empty for none.
std::vector<std::string> WordLists(const CLI::App& command)
{
    constexpr std::pair<std::string_view, const char*> kLists[] = {
        {"NAME", "values"},        {"KEY", "keys"},       {"ZONE", "zones"},
        {"FIREWALL", "firewalls"}, {"FILTER", "filters"}, {"SCHEME", "schemes"},
        {"SESSION", "sessions"},   {"FOLDER", "folders"}, {"OTHERSESSION", "sessions"}};
    const bool isOfSession = command.get_parent()->get_name() == "session";
    std::vector<std::string> lists;
    for (const CLI::Option* option : ShownOptions(command)) {
        if (!option->get_positional())
            continue;
        lists.emplace_back();
        for (const auto& [word, list] : kLists)
            if (option->get_name(true) == word)
                lists.back() = isOfSession && word == "NAME" ? "session-values" : list;
    }
    lists.resize(std::max<size_t>(lists.size(), 2));
    return lists;
}

} // namespace

std::string ManPage(const CLI::App& app)
{
    std::string page = ".TH OSTRANDCFG 1\n.SH NAME\nostrandcfg \\- settings of Tessaly and Orvane on the command line\n"
                       ".SH SYNOPSIS\n.nf\n";
    std::string commands;
    for (const CLI::App* command : AllCommands(app)) {
        page += Roff("ostrandcfg [OPTIONS] " + PathOf(*command) + Positionals(*command) + Flags(*command)) + "\n";
        commands += CommandSection(*command);
    }
    page += ".fi\n.SH DESCRIPTION\n" + Roff(app.get_description()) + "\n.SH OPTIONS\n" + OptionList(app);
    return page + ".SH COMMANDS\n" + commands + ".SH EXIT STATUS\n" + Roff(app.get_footer()) + "\n";
}

std::string BashCompletion(const CLI::App& app)
{
    std::string cases;
    for (const CLI::App* group : ShownCommands(app))
        if (const std::vector<const CLI::App*> commands = ShownCommands(*group); !commands.empty())
            cases += "    " + group->get_name() + ") words='" + Names(commands) + "' ;;\n";
    for (const CLI::App* command : AllCommands(app)) {
        const std::vector<std::string> lists = WordLists(*command);
        cases += "    '" + PathOf(*command) + "') words='" + LongOptions(*command) + "'" +
                 (lists[0].empty() ? "" : " list=" + lists[0]) + " ;;\n";
        if (!lists[1].empty()) // a word was typed, and no more than one
            cases += "    '" + PathOf(*command) + " '*' '*) ;;\n    '" + PathOf(*command) + " '*) list=" + lists[1] +
                     " ;;\n";
    }
    return R"(# Completion of ostrandcfg for bash; made by "ostrandcfg --bash-completion".
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
    '') words=')" +
           Names(ShownCommands(app)) + R"(' ;;
)" + cases +
           R"(    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words )" +
           LongOptions(app) + R"(" -- "$cur")
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
)";
}

} // namespace ostrand::tool
