// The command line: what can be asked, and the request that an argument list makes. Help, man page and completion are
// all made from this one tree (tools/help_pages.h).
#pragma once

#include "tools/request.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace ostrand::tool {

using Action = Exit (*)(const Request&);

/// One command: where it stands, what it says of itself, and what runs it.
struct Command {
    const char* group; ///< empty for one that stands by itself
    const char* name;
    const char* what;     ///< one or more sentences
    const char* examples; ///< lines of arguments, each ended by a line feed; empty for a hidden command
    void (*addOptions)(CLI::App&, Request&);
    Action run;
};

/// The commands of the groups session and protocol; the others stand in options.cpp.
std::span<const Command> SessionCommands();

/// The whole command line. Not copied: the tree's options write into the request.
class CommandLine {
public:
    CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// Runs what the arguments ask for. Usage faults are one line on stderr.
    Exit Run(int argc, const char* const* argv);

private:
    void AddGlobalOptions();
    void AddCommands();
    CLI::App& AddCommand(CLI::App& parent, const char* name, const char* what, const std::string& examples);
    void AddCommandsOf(std::string_view group, CLI::App& parent);
    void AddDefinitions();

    CLI::App m_app;
    Request m_request;
    std::function<Exit(const Request&)> m_action;
    bool m_wantsMan = false;
    bool m_wantsCompletion = false;
};

} // namespace ostrand::tool
