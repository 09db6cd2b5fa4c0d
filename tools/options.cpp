#include "tools/options.h"

#include "tools/commands.h"
#include "tools/help_pages.h"
#include "tools/output.h"

#include <algorithm>
#include <sstream>

namespace ostrand::tool {

namespace {

// The parser takes some words for more than text: what begins with "-", also behind "--"; "[a,b]" and "{}" for lists of
// its own; the empty word. They pass it with this mark in front.
constexpr char kMark = '\x01';

bool NeedsMark(const std::string& word)
{
    return word.empty() || word.front() == '[' || word.front() == '{' || word.front() == kMark;
}

std::vector<std::string> Marked(int argc, const char* const* argv)
{
    std::vector<std::string> words;
    bool isLiteral = false;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (!isLiteral && word == "--")
            isLiteral = true;
        else
            words.push_back(isLiteral || NeedsMark(word) ? kMark + word : word);
    }
    return words;
}

std::string Unmarked(const std::string& word) { return word.starts_with(kMark) ? word.substr(1) : word; }

void AddWord(CLI::App& app, const char* name, std::string& target, const char* what, bool isRequired)
{
    const CLI::callback_t take = [&target](const CLI::results_t& words) {
        target = Unmarked(words.back());
        return true;
    };
    app.add_option(name, take, what)->required(isRequired);
}

void AddName(CLI::App& app, Request& request)
{
    AddWord(app, "NAME", request.name, "Name of the value, in any case", true);
}

void AddNameAndValues(CLI::App& app, Request& request)
{
    AddName(app, request);
    const CLI::callback_t take = [&request](const CLI::results_t& words) {
        request.values.clear();
        std::transform(words.begin(), words.end(), std::back_inserter(request.values), Unmarked);
        return true;
    };
    app.add_option("VALUE", take, "The value; words behind -- are taken as they are")
        ->expected(0, -1)
        ->allow_extra_args();
}

void AddForce(CLI::App& app, Request& request)
{
    app.add_flag("--force", request.force, "Write every value, also those that didn't change");
}

void AddKeyAndWrite(CLI::App& app, Request& request)
{
    AddWord(app, "KEY", request.key, "The key whose values are laid over, as a path below the store's root", true);
    app.add_flag("--write", request.write, "Save each value that changed");
}

void AddKey(CLI::App& app, Request& request)
{
    AddWord(app, "KEY", request.key, "Begin at this key, a path below the store's root", false);
}

void AddMarkdown(CLI::App& app, Request& request)
{
    app.add_flag("--markdown", request.asMarkdown, "Write a page for people, instead of --json");
}

void AddNothing(CLI::App&, Request&) {}

constexpr Command kCommands[] = {
    {"global", "list",
     "Lists every global value in the order of its table, then those outside it: type, value, state and default. State "
     "is clean (as stored), changed (corrected while reading, or read under an old name) or pending (the store has no "
     "such value yet); the next save writes the last two.",
     "global list                             all values\n"
     "global list --json | jq '.[].name'      for programs\n"
     "global list --app orvane                with the names that Orvane uses\n",
     AddNothing, ListGlobal},
    {"global", "get",
     "Prints one value: a text as it is, a list with one text a line, a structured value with one FIELD=VALUE a line.",
     "global get 'MRU Count'\n"
     "global get 'printer font v2' --json\n",
     AddName, GetGlobal},
    {"global", "set",
     "Sets one value and saves it, with the values that a rule changes along, and nothing else. A bool is true, false, "
     "1 or 0; a number is decimal or 0x; a list takes several words; a structured value takes FIELD=VALUE words and "
     "keeps its other fields, and a block also hex: with all its bytes.",
     "global set 'MRU Count' 9\n"
     "global set 'Connected Color' 0x00FF00\n"
     "global set 'Log File' '/var/log/transfer.log'\n"
     "global set 'Selected Termcap Entries' xterm 'vt220 wide'\n"
     "global set 'Printer Font v2' weight=700 face='DejaVu Sans Mono'\n"
     "global set 'Log File' -- -starts-with-a-dash.log\n",
     AddNameAndValues, SetGlobal},
    {"global", "reset", "Writes a value's default. A block without a default is taken out of the store.",
     "global reset 'MRU Count'\n", AddName, ResetGlobal},
    {"global", "save", "Saves what is changed or pending, so that the store then holds every value.",
     "global save\n"
     "global save --force                     writes all values anew\n",
     AddForce, SaveGlobal},
    {"global", "merge",
     "Shows what the values of another key would change, such as a key that an administrator prepared. Bounds and "
     "rules apply; some values are never merged and are named.",
     "global merge Policy\n"
     "global merge 'Branch Office\\Policy' --write\n",
     AddKeyAndWrite, MergeGlobal},
    {"global", "diff",
     "Shows the values that differ from their defaults, and where each came from: the line of a file, an old name, or "
     "a bound or rule that corrected what is stored. A default that is computed counts as kept until another value is "
     "stored; times of computed defaults are left out.",
     "global diff\n"
     "global diff --config /etc/skel/.config/hollowmere/Config\n",
     AddNothing, DiffGlobal},
    {"schema", "global",
     "Describes every global value: names, type, default, bounds, old names, what it means. Opens no store.",
     "schema global\n"
     "schema global --json\n"
     "schema global --markdown > docs/settings.md\n",
     AddMarkdown, SchemaOfGlobal},
    {"store", "dump", "Shows the stored values below a key as they are, typed, whether this version knows them or not.",
     "store dump\n"
     "store dump Global --json\n",
     AddKey, DumpStore},
    {"complete", "values", "Names of all global values.", "", AddNothing, CompleteValues},
    {"complete", "keys", "Paths of all keys.", "", AddNothing, CompleteKeys},
};

struct Group {
    const char* name;
    const char* what;
    bool isHidden;
};
constexpr Group kGroups[] = {
    {"global", "Settings that are common to all sessions", false},
    {"schema", "What settings there are", false},
    {"store", "The stored values themselves", false},
    {"complete", "Words for shell completion", true},
};

constexpr const char* kAbout = "Shows and changes the settings that Tessaly and Orvane keep in a configuration folder. "
                               "--config, --app and --json may stand before or after the command.";
constexpr const char* kExitCodes =
    "Exit codes: 0 done; 1 the asked thing failed (unknown name, bad value, damaged entry); "
    "2 wrong usage; 3 the store can't be read or written. A failed command has written "
    "nothing.";

std::string ExamplesFooter(const char* examples)
{
    std::string footer = "Examples:\n";
    for (std::string_view rest = examples; !rest.empty();) {
        const size_t end = rest.find('\n');
        footer += "  ostrandcfg " + std::string(rest.substr(0, end)) + "\n";
        rest.remove_prefix(end + 1);
    }
    return footer;
}

/// Lines of at most 80 characters.
std::string Wrapped(const std::string& text)
{
    std::string out;
    size_t column = 0;
    std::istringstream words(text);
    for (std::string word; words >> word; column += word.size()) {
        if (column > 0) {
            const bool isFull = column + 1 + word.size() > 80;
            out += isFull ? '\n' : ' ';
            column = isFull ? 0 : column + 1;
        }
        out += word;
    }
    return out + "\n";
}

/// Long sentences on several lines; a command's page ends with a word on what all commands take.
class HelpFormatter : public CLI::Formatter {
public:
    std::string make_description(const CLI::App* app) const override { return Wrapped(app->get_description()); }
    std::string make_footer(const CLI::App* app) const override
    {
        if (!app->get_parent())
            return Wrapped(app->get_footer());
        return app->get_footer().empty()
                   ? ""
                   : app->get_footer() +
                         "\nAll commands take --config DIR, --app APP and --json; see ostrandcfg --help.\n";
    }
};

} // namespace

CommandLine::CommandLine() : m_app(kAbout, "ostrandcfg")
{
    m_app.formatter(std::make_shared<HelpFormatter>()); // commands inherit it
    AddGlobalOptions();
    AddCommands();
    m_app.footer(kExitCodes);
}

void CommandLine::AddGlobalOptions()
{
    m_app.set_help_flag("-h,--help", "Print help, also for a command, and exit");
    m_app.set_version_flag("--version", "ostrandcfg " OSTRAND_VERSION, "Print the version and exit");
    AddWord(m_app, "--config", m_request.folder,
            "Configuration folder; without it $XDG_CONFIG_HOME/hollowmere/Config, or ~/.config/hollowmere/Config",
            false);
    m_app.get_option("--config")->option_text("DIR");
    m_app
        .add_option("--app", m_request.application,
                    "Application whose names are used: tessaly (default), orvane or quillo")
        ->option_text("APP")
        ->check([](const std::string& name) {
            const bool isKnown = name == "tessaly" || name == "orvane" || name == "quillo";
            return isKnown ? std::string() : Cited(name) + " is none of tessaly, orvane, quillo";
        });
    m_app.add_flag("--json", m_request.asJson, "Write JSON");
    m_app.add_flag("--man-page", m_wantsMan)->group("");
    m_app.add_flag("--bash-completion", m_wantsCompletion)->group("");
}

void CommandLine::AddCommands()
{
    for (const Group& group : kGroups) {
        CLI::App* const parent = m_app.add_subcommand(group.name, group.what);
        parent->require_subcommand(1)->fallthrough();
        if (group.isHidden)
            parent->group("");
        for (const Command& command : kCommands) {
            if (std::string_view(command.group) != group.name)
                continue;
            CLI::App* const app = parent->add_subcommand(command.name, command.what);
            app->fallthrough();
            app->footer(ExamplesFooter(command.examples));
            app->callback([this, run = command.run] { m_action = run; });
            command.addOptions(*app, m_request);
        }
    }
    m_app.require_subcommand(0, 1);
}

Exit CommandLine::Run(int argc, const char* const* argv)
{
    std::vector<std::string> words = Marked(argc, argv);
    std::reverse(words.begin(), words.end()); // the parser takes them from the end
    try {
        m_app.parse(words);
    } catch (const CLI::Success& wanted) {
        m_app.exit(wanted);
        return Exit::Done;
    } catch (const CLI::ParseError& fault) {
        std::string text = fault.what();
        std::erase(text, kMark);
        return Fail(Exit::Usage, text + "; see ostrandcfg --help");
    }
    if (m_wantsMan)
        return Print(ManPage(m_app));
    if (m_wantsCompletion)
        return Print(BashCompletion(m_app));
    if (m_request.asJson && m_request.asMarkdown)
        return Fail(Exit::Usage, "--json and --markdown exclude each other; see ostrandcfg --help");
    if (!m_action)
        return Fail(Exit::Usage, "a command is missing; see ostrandcfg --help");
    return m_action(m_request);
}

} // namespace ostrand::tool
