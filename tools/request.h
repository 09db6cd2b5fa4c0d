// What one call of the tool asks for, and how it ends.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ostrand::tool {

/// Exit codes of the program.
enum class Exit : int {
    Done = 0,
    Failed = 1, ///< unknown name, bad value, damaged entry
    Usage = 2,
    Store = 3, ///< the store can't be read or written
};

/// Words are UTF-8 as typed, unchecked.
struct Request {
    std::string folder; ///< of the store; empty for the application's own
    std::string application = "tessaly";
    bool asJson = false;
    bool asMarkdown = false;
    bool force = false;
    bool write = false;
    bool repair = false;
    bool reveal = false;
    bool withAnsi = false;
    bool defaults = false; ///< the built-in key map
    bool asUnicode = false;
    bool asTree = false;
    bool showAll = false;
    bool preview = false;
    std::string modules; ///< folder of protocol modules; empty for the usual one
    std::string name;    ///< of a value or definition
    std::string key;     ///< path below the store's root, empty for the root
    std::vector<std::string> values;
    std::string path; ///< or a template of one, or a command line; of a session, below the key of all sessions
    std::string tail; ///< joined behind the path; a new name; another session; a file
    std::string like; ///< the session that a new one begins as
    std::optional<std::string> host;
    std::optional<std::string> session;
    std::string form;                ///< in which a secret is stored; the program of an import
    unsigned mode = 0;               ///< of the cipher
    std::optional<std::string> text; ///< given as an argument, instead of on standard input
    std::string zone;
    std::string time;
    unsigned version = 0;      ///< of a key
    unsigned otherVersion = 0; ///< to compare with; 0: the next one

    bool IsOrvane() const { return application == "orvane"; }
};

} // namespace ostrand::tool
