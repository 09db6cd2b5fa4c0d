// The commands of the groups session and protocol.
#include "tools/commands.h"
#include "tools/option_words.h"
#include "tools/options.h"
#include "tools/value_commands.h"

namespace ostrand::tool {

namespace {

void AddSession(CLI::App& app, Request& request)
{
    AddWord(app, "SESSION", request.path, "Path of the session, with \\ between folders, in any case", true);
}

void AddSessionAndName(CLI::App& app, Request& request)
{
    AddSession(app, request);
    AddName(app, request);
}

void AddSessionNameAndValues(CLI::App& app, Request& request)
{
    AddSession(app, request);
    AddNameAndValues(app, request);
}

void AddSessionAndAll(CLI::App& app, Request& request)
{
    AddSession(app, request);
    app.add_flag("--all", request.showAll, "Then all other values, too");
}

void AddSessionAndReveal(CLI::App& app, Request& request)
{
    AddSession(app, request);
    app.add_flag("--reveal", request.reveal, "Show hidden texts as they are");
}

void AddFolderAndTree(CLI::App& app, Request& request)
{
    AddWord(app, "FOLDER", request.path, "Only what lies below this folder", false);
    app.add_flag("--tree", request.asTree, "Show the folders, with what lies in each");
}

void AddNewPath(CLI::App& app, Request& request)
{
    AddWord(app, "NEWPATH", request.tail, "The new path; folders that are missing are made", true);
}

void AddNewPathAndLike(CLI::App& app, Request& request)
{
    AddNewPath(app, request);
    AddWord(app, "--like", request.path, "Begin as this session, instead of the default session", false)
        ->option_text("SESSION");
}

void AddSessionAndNewPath(CLI::App& app, Request& request)
{
    AddSession(app, request);
    AddNewPath(app, request);
}

void AddSessionAndForce(CLI::App& app, Request& request)
{
    AddSession(app, request);
    app.add_flag("--force", request.force, "Delete a folder with all that lies in it");
}

void AddTwoSessions(CLI::App& app, Request& request)
{
    AddSession(app, request);
    AddWord(app, "OTHERSESSION", request.tail, "Path of the session to compare with", true);
}

void AddChanges(CLI::App& app, Request& request)
{
    AddWords(app, "NAME=VALUE", request, "Values to set; a name that is given again adds a word to its value")
        ->required()
        ->expected(1, -1);
    app.add_flag("--preview", request.preview, "Write nothing, and show what would change");
    AddWord(app, "--folder", request.path, "Only the sessions below this folder", false)->option_text("FOLDER");
}

void AddImport(CLI::App& app, Request& request)
{
    app.add_option("--from", request.form, "ssh-config or putty, a registry export")
        ->required()
        ->check(CLI::IsMember({"ssh-config", "putty"}))
        ->option_text("PROGRAM");
    AddWord(app, "FILE", request.tail, "The file to read", true);
    AddWord(app, "--folder", request.path, "Put the sessions below this folder, which is made where it is missing",
            false)
        ->option_text("FOLDER");
    app.add_flag("--dry-run", request.preview, "Write nothing, and show what would be imported");
}

void AddNothing(CLI::App&, Request&) {}

constexpr Command kCommands[] = {
    {"session", "list",
     "Lists sessions in the order of their folders, with protocol and summary. A folder shows its subfolders first.",
     "session list\n"
     "session list Lab --tree\n"
     "session list --json | jq '.[].path'\n",
     AddFolderAndTree, ListSessions},
    {"session", "show",
     "Shows the values of a session that differ from the built-in defaults, and where each stands: its own, those of "
     "its active protocols, those of its terminal. With --json all values, in the form of global list, with default "
     "and place; those that differ come first.",
     "session show 'Lab\\Router1'\n"
     "session show Default --all\n"
     "session show 'Lab\\Router1' --json | jq '.[] | select(.isDefault | not)'\n",
     AddSessionAndAll, Of<DiffValues, OpenSessionRecord>},
    {"session", "get", "Prints one value of a session, as global get does.", "session get 'Lab\\Router1' Scrollback\n",
     AddSessionAndName, Of<GetValue, OpenSessionRecord>},
    {"session", "set",
     "Sets one value of a session and saves it, with the values that a rule changes along, and nothing else. Words are "
     "those of global set; the value of a secret is -, and is read from standard input. A text of several lines takes "
     "one word for each. Protocol Name selects a protocol, whose values are saved along.",
     "session set 'Lab\\Router1' Scrollback 5000\n"
     "session set 'Lab\\Router1' Description 'Rack 7' 'ask Ann'\n"
     "session set 'Lab\\Router1' 'Protocol Name' SSH2\n"
     "session set 'Lab\\Router1' 'Monitor Password' - < password.txt\n",
     AddSessionNameAndValues, Of<SetValue, OpenSessionRecord>},
    {"session", "reset", "Writes the built-in default of a value.", "session reset 'Lab\\Router1' Scrollback\n",
     AddSessionAndName, Of<ResetValue, OpenSessionRecord>},
    {"session", "explain", "Tells of one value of a session why it is what it is, as explain does.",
     "session explain 'Lab\\Router1' Cols\n", AddSessionAndName, Of<ExplainValue, OpenSessionRecord>},
    {"session", "new", "Makes a session as the applications do: it begins as the default session is.",
     "session new 'Lab\\Router2'\n"
     "session new 'Lab\\Router3' --like 'Lab\\Router1'\n",
     AddNewPathAndLike, NewSession},
    {"session", "clone", "Copies a session with all that is stored of it, also what this version doesn't know.",
     "session clone 'Lab\\Router1' 'Lab\\Router4'\n", AddSessionAndNewPath, CloneSession},
    {"session", "rename",
     "Gives a session or a folder another path, also in another folder. What refers to the old path keeps it.",
     "session rename 'Lab\\Router1' 'Lab\\Core router'\n"
     "session rename Lab 'Archive\\Lab 2024'\n",
     AddSessionAndNewPath, RenameSessionPath},
    {"session", "delete", "Deletes a session, or with --force a folder with all that lies in it. History keeps it.",
     "session delete 'Lab\\Router4'\n"
     "session delete Archive --force\n",
     AddSessionAndForce, DeleteSessionPath},
    {"session", "summary", "Prints what a session connects to, and its description.",
     "session summary 'Lab\\Router1'\n", AddSession, SummarizeSession},
    {"session", "diff", "Shows the values that two sessions hold otherwise.",
     "session diff 'Lab\\Router1' 'Lab\\Router2'\n"
     "session diff Default 'Lab\\Router1' --json\n",
     AddTwoSessions, DiffSessions},
    {"session", "actions", "Prints what a session waits for and sends after connecting. Hidden texts are masked.",
     "session actions 'Lab\\Router1'\n", AddSessionAndReveal, ShowLogonActions},
    {"session", "apply",
     "Sets values in all sessions, as one change: all are changed, or none. Each session is saved whole, so defaults "
     "that it lacks and values under older names go out, too. Sessions that can't be written stay as they are. session "
     "undo takes the change back.",
     "session apply Scrollback=5000 --preview\n"
     "session apply Scrollback=5000 'Auto Reconnect=true' --folder Lab\n",
     AddChanges, ApplyToAll},
    {"session", "undo", "Takes the last session apply back. A value that was changed since stays, and is told.",
     "session undo\n", AddNothing, UndoApply},
    {"session", "import",
     "Makes sessions of what another program has: of the hosts of an OpenSSH client configuration, or of the saved "
     "sessions of PuTTY as the registry exports them. All are made, or none; one whose name is taken gets a number. "
     "What could not be taken over is told.",
     "session import --from ssh-config ~/.ssh/config --folder Servers --dry-run\n"
     "session import --from putty putty.reg\n",
     AddImport, ImportSessions},
    {"protocol", "list", "Lists the protocols with their modules: which are loaded, and why others aren't.",
     "protocol list\n"
     "protocol list --modules /opt/tessaly/protocols --app quillo\n",
     AddNothing, ListProtocols},
};

} // namespace

std::span<const Command> SessionCommands() { return kCommands; }

} // namespace ostrand::tool
