#include "examples/host/arguments.h"

#include <CLI/CLI.hpp>

namespace host {

std::optional<Arguments> ParseArguments(int argc, char** argv, int& code)
{
    Arguments arguments;
    CLI::App line("Shows the options of a session, and saves what was changed", "ostrand-options");
    line.fallthrough(); // for commands made from here on: options may stand behind them
    line.add_option("--config", arguments.config,
                    "The folder with the settings; without it, a fresh copy of the example");
    line.add_option("--app", arguments.app, "Which application to be")
        ->check(CLI::IsMember({"tessaly", "orvane"}))
        ->capture_default_str();
    line.add_flag("--alone", arguments.isAlone, "As if the other application weren't installed");
    line.add_option("--modules", arguments.modules,
                    "The folder with the protocols; without it, that beside this program");
    line.add_option("--scale", arguments.scale, "Size of the dialog, 1 to 3")->check(CLI::Range(1.0, 3.0));
    line.add_flag("--dark", arguments.isDark, "In dark colours");
    CLI::App* const session = line.add_subcommand("session", "The options of one session");
    session->add_option("PATH", arguments.session, "The session, with \\ between folders")->required();
    session->add_flag("--read-only", arguments.isReadOnly, "Show it without letting anything be changed");
    session->add_option("--page", arguments.page, "Begin with this page, such as 'Connection > Logon Actions'");
    session->add_option("--screenshot", arguments.screenshot,
                        "Save a picture of the dialog, and end; into a folder, one of each page");
    session->add_option("--search", arguments.search, "Words in the search, on a picture");
    line.require_subcommand(1);
    try {
        line.parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        code = line.exit(end);
        return std::nullopt;
    }
    return arguments;
}

} // namespace host
