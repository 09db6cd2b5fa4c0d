#include "tools/options.h"

#include "tools/commands.h"
#include "tools/definitions.h"
#include "tools/help_pages.h"
#include "tools/option_words.h"
#include "tools/output.h"
#include "tools/schema_pages.h"
#include "tools/value_commands.h"

#include <algorithm>
#include <sstream>

namespace ostrand::tool {

namespace {

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

void AddKeyAndRepair(CLI::App& app, Request& request)
{
    AddKey(app, request);
    app.add_flag("--repair", request.repair, "Repair what is damaged, and keep the damaged files beside the others");
}

void AddVersion(CLI::App& app, const char* name, unsigned& version, const char* what, bool isRequired)
{
    app.add_option(name, version, what)->required(isRequired)->check([name](const std::string& word) {
        const bool isNumber = word.find_first_not_of("0123456789") == std::string::npos && word.size() < 10;
        return isNumber ? std::string() : std::string(name) + ": " + Cited(word) + " is no number of a version";
    });
}

void AddKeyOfHistory(CLI::App& app, Request& request, bool isRequired)
{
    AddWord(app, "KEY", request.key, "A key, also a deleted one, as a path below the store's root; '' for the root",
            isRequired);
}

void AddHistoryKey(CLI::App& app, Request& request) { AddKeyOfHistory(app, request, false); }

void AddKeyAndVersion(CLI::App& app, Request& request)
{
    AddKeyOfHistory(app, request, true);
    AddVersion(app, "VERSION", request.version, "Number of a version, as history list tells it", true);
}

void AddKeyAndVersions(CLI::App& app, Request& request)
{
    AddKeyAndVersion(app, request);
    AddVersion(app, "OTHER", request.otherVersion, "Compare with this version; without it with the next one", false);
}

void AddMarkdown(CLI::App& app, Request& request)
{
    app.add_flag("--markdown", request.asMarkdown, "Write a page for people, instead of --json");
}

void AddPath(CLI::App& app, Request& request) { AddWord(app, "PATH", request.path, "The path", true); }

void AddTwoPaths(CLI::App& app, Request& request)
{
    AddWord(app, "PATH", request.path, "What stands in front", true);
    AddWord(app, "TAIL", request.tail, "What stands behind", true);
}

void AddTemplate(CLI::App& app, Request& request)
{
    AddWord(app, "TEMPLATE", request.path, "The path with its tokens", true);
    AddText(app, "--host", request.host, "What %H stands for", "TEXT");
    AddText(app, "--session", request.session, "What %S stands for", "TEXT");
}

void AddLine(CLI::App& app, Request& request) { AddWord(app, "LINE", request.path, "The command line", true); }

void AddZoneAndTime(CLI::App& app, Request& request)
{
    AddWord(app, "ZONE", request.zone, "Name of the zone, in any case", true);
    AddWord(app, "TIME", request.time, "A time in UTC, such as 2026-03-29T01:00:00Z", true);
}

void AddSecretForm(CLI::App& app, Request& request, const char* textOption)
{
    app.add_option("--form", request.form, "encoded, blowfish or protected; docs/secrets.md tells what each is worth")
        ->required()
        ->check(CLI::IsMember({"encoded", "blowfish", "protected"}))
        ->option_text("FORM");
    app.add_option("--mode", request.mode, "Mode of the cipher: 0 (default), 1 or 2; for blowfish")
        ->check(CLI::IsMember({0, 1, 2}))
        ->option_text("MODE");
    AddWord(app, "--name", request.name, "Name of the value, which is protected along; without it Firewall Password",
            false)
        ->option_text("NAME");
    AddText(app, textOption, request.text,
            "Take this text and read no input; other users can see it, and a shell keeps it", "TEXT");
}

void AddPlainSecret(CLI::App& app, Request& request) { AddSecretForm(app, request, "--text"); }

void AddStoredSecret(CLI::App& app, Request& request) { AddSecretForm(app, request, "--stored"); }

void AddSessionOfMap(CLI::App& app, Request& request)
{
    AddText(app, "--session", request.session, "The map of this session, by its path", "PATH");
}

void AddMap(CLI::App& app, Request& request)
{
    AddWord(app, "FILE", request.path, "A key map file; a bare name also means a shipped one", false);
    app.add_flag("--default", request.defaults, "The built-in bindings");
    AddSessionOfMap(app, request);
}

void AddMapFile(CLI::App& app, Request& request) { AddWord(app, "FILE", request.path, "A key map file", true); }

void AddMapsToConvert(CLI::App& app, Request& request)
{
    AddWord(app, "IN", request.path, "A key map file, in any of the four encodings", true);
    AddWord(app, "OUT", request.tail, "The file to write", true);
    app.add_flag("--unicode", request.asUnicode, "Write UTF-8 with its mark, instead of the 8-bit code page");
    app.add_flag("--force", request.force, "Write over a file that is there");
}

void AddTwoMaps(CLI::App& app, Request& request)
{
    AddWord(app, "A", request.path, "A key map file", true);
    AddWord(app, "B", request.tail, "Another one", true);
}

void AddKeyToExplain(CLI::App& app, Request& request)
{
    AddWord(app, "COMBINATION", request.name, "Such as Ctrl+Shift+2, Alt+F4, Extended+Home, Ctrl+0xDC", true);
    AddWord(app, "FILE", request.path, "A key map file; without one the built-in bindings alone", false);
    AddSessionOfMap(app, request);
}

void AddFields(CLI::App& app, Request& request)
{
    AddWords(app, "FIELD=VALUE", request, "Fields, by the names that show prints");
}

void AddSchemeFiles(CLI::App& app, Request& request)
{
    AddWords(app, "FILE", request, "Files with colour schemes, whatever program they come from")
        ->required()
        ->expected(1, -1);
    app.add_flag("--ansi", request.withAnsi, "Take the sixteen ANSI colours, too, from a file with one scheme");
}

void AddNothing(CLI::App&, Request&) {}

template <const DefinitionKind& (*Kind)()>
Exit CompleteOf(const Request& request)
{
    return CompleteDefinitions(request, Kind());
}

constexpr Command kCommands[] = {
    {"global", "list",
     "Lists every global value in the order of its table, then those outside it: type, value, state and default. State "
     "is clean (as stored), changed (corrected while reading, or read under an old name) or pending (the store has no "
     "such value yet); the next save writes the last two.",
     "global list                             all values\n"
     "global list --json | jq '.[].name'      for programs\n"
     "global list --app orvane                with the names that Orvane uses\n",
     AddNothing, Of<ListValues, OpenGlobalRecord>},
    {"global", "get",
     "Prints one value: a text as it is, a list with one text a line, a structured value with one FIELD=VALUE a line.",
     "global get 'MRU Count'\n"
     "global get 'printer font v2' --json\n",
     AddName, Of<GetValue, OpenGlobalRecord>},
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
     AddNameAndValues, Of<SetValue, OpenGlobalRecord>},
    {"global", "reset", "Writes a value's default. A block without a default is taken out of the store.",
     "global reset 'MRU Count'\n", AddName, Of<ResetValue, OpenGlobalRecord>},
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
     AddNothing, Of<DiffValues, OpenGlobalRecord>},
    {"", "explain",
     "Tells of one global value why it is what it is: where it is stored, also under an old name, or that it isn't "
     "yet; "
     "what corrected it; whether it is the default; and whether an administrator's policy locks it, and in which file.",
     "explain 'MRU Count'\n"
     "explain 'max columns' --json\n",
     AddName, Of<ExplainValue, OpenGlobalRecord>},
    {"schema", "global",
     "Describes every global value: names, type, default, bounds, old names, what it means. Opens no store.",
     "schema global\n"
     "schema global --json\n"
     "schema global --markdown > docs/settings.md\n",
     AddMarkdown, DescribeAs<GlobalPage>},
    {"schema", "session", "Describes every value of a session but those of its terminal and its protocols.",
     "schema session\n"
     "schema session --markdown > docs/session-settings.md\n",
     AddMarkdown, DescribeAs<SessionPage>},
    {"schema", "terminal", "Describes every value of a session's terminal.",
     "schema terminal\n"
     "schema terminal --markdown > docs/terminal-settings.md\n",
     AddMarkdown, DescribeAs<TerminalPage>},
    {"schema", "firewall", "Describes the values of a firewall.", "schema firewall\n", AddMarkdown,
     DescribeAs<FirewallPage>},
    {"schema", "filter", "Describes the values of a filter.", "schema filter\n", AddMarkdown, DescribeAs<FilterPage>},
    {"store", "dump", "Shows the stored values below a key as they are, typed, whether this version knows them or not.",
     "store dump\n"
     "store dump Global --json\n",
     AddKey, DumpStore},
    {"store", "check",
     "Names every fault of the files below a key, with file and line; which files are damaged, and what a repair would "
     "do; and files that no key finds. A damaged file was cut, holds zeros or bytes that are no text, or marks of a "
     "merge. A repair keeps all lines that are whole, and takes values that were lost from the last good version. The "
     "exit code is 1 where there are faults.",
     "store check\n"
     "store check Sessions --json\n"
     "store check --repair\n",
     AddKeyAndRepair, CheckStore},
    {"history", "list",
     "Lists the versions of a key's values that are kept, oldest first: when each was saved and by which program. A "
     "version without a program was an edit by other means.",
     "history list Global\n"
     "history list 'Sessions\\Router 1' --json\n",
     AddHistoryKey, ListHistory},
    {"history", "show", "Prints a version in the form of a key's file.",
     "history show Global 12\n"
     "history show '' 3 > root.ini\n",
     AddKeyAndVersion, ShowHistory},
    {"history", "diff",
     "Shows which values were added, removed or changed from a version to the next one, or to another. Comments and "
     "spelling don't count.",
     "history diff Global 12\n"
     "history diff Global 12 20\n",
     AddKeyAndVersions, DiffHistory},
    {"history", "restore",
     "Saves a version again, as the newest one. A key that was deleted comes back. Nothing gets lost: the versions "
     "after it stay in the list.",
     "history restore Global 12\n", AddKeyAndVersion, RestoreHistory},
    {"path", "join", "Joins two paths with one separator between: \"\\\", or \"/\" in a path that begins with it.",
     "path join 'C:\\Temp' logs\n"
     "path join /home/ann logs\n",
     AddTwoPaths, JoinPaths},
    {"path", "split", "Splits a path into its folder and what stands behind the last separator.",
     "path split '/home/ann/session.log'\n"
     "path split 'C:\\Temp\\' --json\n",
     AddPath, SplitPathText},
    {"path", "expand",
     "Expands the template of a path as log files and folders have it: first %NAME% from the environment, then %Y "
     "year, "
     "%M month, %D day, %h hour, %m minute, %s second, %t millisecond, all in UTC; %H host, %S session; %% a percent "
     "sign.",
     "path expand '%HOME%/logs/%Y-%M-%D.log'\n"
     "path expand '%S@%H.log' --session 'Router 1' --host fe80::1\n",
     AddTemplate, ExpandPath},
    {"path", "check",
     "Checks that a path has no character that some system refuses, and prints it with \"\\\" for \"/\".",
     "path check 'C:/Temp/a.log'\n", AddPath, CheckPath},
    {"path", "executable", "Prints the executable of a command line: in quotes, or up to the first .exe.",
     "path executable '\"C:\\Program Files\\Tessaly.exe\" /S Router'\n", AddLine, ExecutableOf},
    {"scheme", "import",
     "Adds the colour schemes of files to the list, or puts them in the place of those of the same names. Understands "
     "schemes and settings of Windows Terminal, X resources, and sessions of PuTTY as the registry exports them.",
     "scheme import Solarized.Xresources\n"
     "scheme import *.json\n"
     "scheme import --ansi 'Belafonte Day.reg'\n",
     AddSchemeFiles, ImportSchemeFiles},
    {"keymap", "list", "Lists the bindings of a key map file, of a session, or the built-in ones.",
     "keymap list Xterm.key\n"
     "keymap list --default --json\n"
     "keymap list --session 'Lab\\Router 1'\n",
     AddMap, ListKeymap},
    {"keymap", "check",
     "Names every fault of a key map file, with its line. The exit code is 1 where there are faults.",
     "keymap check mine.key\n", AddMapFile, CheckKeymap},
    {"keymap", "convert",
     "Writes a key map file anew, one line for each key by ascending index, without comments. A file with faults, or "
     "with "
     "strings that the encoding can't hold, isn't converted.",
     "keymap convert mine.key mine-utf8.key --unicode\n", AddMapsToConvert, ConvertKeymap},
    {"keymap", "diff", "Shows which keys do something else in the second file.", "keymap diff VT100.key Xterm.key\n",
     AddTwoMaps, DiffKeymaps},
    {"keymap", "explain",
     "Tells what a key combination does, and why: by the map's own binding, by default, or disabled. A key that is "
     "also "
     "on the keypad is told twice.",
     "keymap explain Ctrl+Shift+2\n"
     "keymap explain Home Xterm.key\n",
     AddKeyToExplain, ExplainKey},
    {"sync", "show", "Prints the tasks of the quick synchronization, and when it ran last.",
     "sync show\nsync show --json\n", AddNothing, ShowSynchronizeTasks},
    {"secret", "encode",
     "Prints the stored form of the text on standard input. The forms encoded and blowfish hide a text, they don't "
     "protect it; protected keeps it from everybody but this user on this machine.",
     "secret encode --form encoded < password.txt\n"
     "secret encode --form blowfish --mode 1 < password.txt\n"
     "secret encode --form protected --name 'Firewall Password' < password.txt\n",
     AddPlainSecret, EncodeSecret},
    {"secret", "decode", "Prints the text whose stored form is on standard input.",
     "secret decode --form encoded < stored.txt\n", AddStoredSecret, DecodeSecret},
    {"timezone", "list",
     "Lists the system's time zones from west to east, with the minutes that local time lacks to UTC.",
     "timezone list\n"
     "timezone list --json | jq '.[].name'\n",
     AddNothing, ListTimeZones},
    {"timezone", "bias",
     "Prints the minutes that a zone's local time lacks to UTC, by the rules that hold now. The clocks are set as "
     "sessions reckon: back by the length of daylight time later than on the wall, and never on the last day of a "
     "month, "
     "but a week before it.",
     "timezone bias Europe/Berlin 2026-07-01T12:00:00Z\n", AddZoneAndTime, BiasOfTimeZone},
    {"complete", "values", "Names of all global values.", "", AddNothing, CompleteValues},
    {"complete", "keys", "Paths of all keys.", "", AddNothing, CompleteKeys},
    {"complete", "zones", "Names of all time zones.", "", AddNothing, CompleteZones},
    {"complete", "sessions", "Paths of all sessions.", "", AddNothing, CompleteSessions},
    {"complete", "folders", "Paths of all folders of sessions.", "", AddNothing, CompleteFolders},
    {"complete", "session-values", "Names of all values of sessions.", "", AddNothing, CompleteSessionValues},
    {"complete", "firewalls", "Names of all firewalls.", "", AddNothing, CompleteOf<FirewallKind>},
    {"complete", "filters", "Names of all filters.", "", AddNothing, CompleteOf<FilterKind>},
    {"complete", "schemes", "Names of all colour schemes.", "", AddNothing, CompleteOf<SchemeKind>},
};

/// Commands that all lists of definitions have.
struct DefinitionCommand {
    const char* name;
    const char* what;
    bool takesName;
    bool takesFields;
    bool takesNewName;
    Exit (*run)(const Request&, const DefinitionKind&);
};

constexpr DefinitionCommand kDefinitionCommands[] = {
    {"list", "Lists them with their main fields.", false, false, false, ListDefinitions},
    {"show", "Prints all fields of one. A secret is shown as <set> or <empty>.", true, false, false, ShowDefinition},
    {"set",
     "Sets fields of one, and saves it. The value of a secret is -, and is read from standard input; nothing behind "
     "the "
     "= empties it.",
     true, true, false, SetDefinition},
    {"new", "Makes one with these fields, the others as they are by default.", true, true, false, NewDefinition},
    {"rename", "Gives one another name. What refers to the old name keeps it.", true, false, true, RenameDefinition},
    {"delete", "Deletes one. What refers to it keeps the name.", true, false, false, DeleteDefinition},
};

struct DefinitionGroup {
    const char* name;
    const char* what;
    const char* argument; ///< how the help calls a name
    const char* examples[std::size(kDefinitionCommands)];
    const DefinitionKind& (*kind)();
};

constexpr DefinitionGroup kDefinitionGroups[] = {
    {"firewall",
     "Proxies and gateways that sessions name",
     "FIREWALL",
     {"firewall list\n", "firewall show Gate\nfirewall show Gate --reveal\n",
      "firewall set Gate 'Firewall Address=10.0.0.1' 'Firewall Port=1080'\n"
      "firewall set Gate 'Firewall Password=-' < password.txt\n",
      "firewall new Gate 'Firewall Type=SOCKSv5' 'Firewall Address=gate.example.org'\n",
      "firewall rename Gate 'Main gate'\n", "firewall delete Gate\n"},
     FirewallKind},
    {"filter",
     "Lists of file name patterns that synchronize tasks name",
     "FILTER",
     {"filter list\n", "filter show Sources\n", "filter set Sources 'Filter Criteria=*.c; *.h'\n",
      "filter new Sources 'Filter Type=Include' 'Filter Criteria=*.c; *.h'\n", "filter rename Sources Code\n",
      "filter delete Sources\n"},
     FilterKind},
    {"scheme",
     "Colour schemes that sessions name",
     "SCHEME",
     {"scheme list\n", "scheme show Traditional\n",
      "scheme set Traditional 'background=#102030' 'foreground.bold=#ffffff'\n",
      "scheme new Night 'foreground=#c0c0c0' 'background=#000020'\n", "scheme rename Night 'Late night'\n",
      "scheme delete Night\n"},
     SchemeKind},
};

struct Group {
    const char* name;
    const char* what;
    bool isHidden;
};
constexpr Group kGroups[] = {
    {"global", "Settings that are common to all sessions", false},
    {"session", "Sessions: saved connections with all their settings", false},
    {"protocol", "The protocols that sessions can use", false},
    {"schema", "What settings there are", false},
    {"store", "The stored values themselves", false},
    {"history", "Former versions of stored values", false},
    {"path", "Paths and their templates, without looking at any file", false},
    {"keymap", "Key maps: what keys do in a terminal session", false},
    {"sync", "The quick synchronization of the file-transfer client", false},
    {"secret", "Texts in the forms in which secrets are stored", false},
    {"timezone", "The system's time zones", false},
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
            false)
        ->option_text("DIR");
    AddWord(m_app, "--modules", m_request.modules,
            "Folder with the protocol modules; without it $OSTRAND_MODULES, or protocols beside the tool", false)
        ->option_text("DIR");
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

CLI::App& CommandLine::AddCommand(CLI::App& parent, const char* name, const char* what, const std::string& examples)
{
    CLI::App* const app = parent.add_subcommand(name, what);
    app->fallthrough();
    app->footer(examples);
    return *app;
}

void CommandLine::AddCommands()
{
    AddDefinitions();
    for (const Group& group : kGroups) {
        CLI::App* const parent = m_app.add_subcommand(group.name, group.what);
        parent->require_subcommand(1)->fallthrough();
        if (group.isHidden)
            parent->group("");
        AddCommandsOf(group.name, *parent);
    }
    AddCommandsOf("", m_app);
    m_app.require_subcommand(0, 1);
}

void CommandLine::AddCommandsOf(std::string_view group, CLI::App& parent)
{
    for (const std::span<const Command> table : {std::span<const Command>(kCommands), SessionCommands()})
        for (const Command& command : table) {
            if (command.group != group)
                continue;
            CLI::App& app = AddCommand(parent, command.name, command.what, ExamplesFooter(command.examples));
            app.callback([this, run = command.run] { m_action = run; });
            command.addOptions(app, m_request);
        }
}

void CommandLine::AddDefinitions()
{
    for (const DefinitionGroup& group : kDefinitionGroups) {
        CLI::App* const parent = m_app.add_subcommand(group.name, group.what);
        parent->require_subcommand(1)->fallthrough();
        for (const DefinitionCommand& command : kDefinitionCommands) {
            const char* const examples = group.examples[&command - kDefinitionCommands];
            CLI::App& app = AddCommand(*parent, command.name, command.what, ExamplesFooter(examples));
            app.callback([this, run = command.run, kind = group.kind] {
                m_action = [run, kind](const Request& request) { return run(request, kind()); };
            });
            if (command.takesName)
                AddWord(app, group.argument, m_request.name, "Its name, in any case", true);
            if (command.takesNewName)
                AddWord(app, "NEWNAME", m_request.tail, "The new name", true);
            if (command.takesFields)
                AddFields(app, m_request);
            if (command.run == ShowDefinition)
                app.add_flag("--reveal", m_request.reveal, "Show secrets as they are");
        }
        AddCommandsOf(group.name, *parent);
    }
}

Exit CommandLine::Run(int argc, const char* const* argv)
{
    std::vector<std::string> words = MarkedWords(argc, argv);
    std::reverse(words.begin(), words.end()); // the parser takes them from the end
    try {
        m_app.parse(words);
    } catch (const CLI::Success& wanted) {
        m_app.exit(wanted);
        return Exit::Done;
    } catch (const CLI::ParseError& fault) {
        return Fail(Exit::Usage, WithoutMarks(fault.what()) + "; see ostrandcfg --help");
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
