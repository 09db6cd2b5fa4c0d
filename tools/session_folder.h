// The sessions of a configuration folder: the folder opened, its global record read, protocol modules loaded.
#pragma once

#include "config/session/session_config.h"
#include "tools/config_folder.h"
#include "tools/module_folder.h"

#include <string>
#include <vector>

namespace ostrand::tool {

/// Sessions that it opened, and copies of them, must be gone before it.
class SessionFolder {
public:
    Exit Open(const Request& request, Access access);
    /// The same, and the session at the request's path.
    Exit Open(const Request& request, Access access, VUnknownPointer<SessionConfig>& session);
    ConfigFolder& Folder() { return m_folder; }

    /// What a typed path names, spelled as in the store. Failed after one line on stderr where it names nothing, with
    /// a near path where there is one.
    Exit Find(const std::string& typed, VUnicodeString& path, bool& isFolder) const;
    /// The same for a session; the default one is always there.
    Exit FindSession(const std::string& typed, VUnicodeString& path) const;
    /// The same for a folder; none was typed for the top level.
    Exit FindFolder(const std::string& typed, VUnicodeString& path) const;
    /// A path that nothing has yet and that a session or folder may have. Failed after one line on stderr.
    Exit CheckNewPath(const std::string& typed, VUnicodeString& path) const;

    /// Reads a session without making anything: a missing default session is one of defaults. Null where the path
    /// names no session, such as one that was deleted meanwhile.
    VUnknownPointer<SessionConfig> Read(const VUnicodeString& path) const;
    /// Finds and reads; a session that goes in between is told like one that isn't there.
    Exit OpenSession(const std::string& typed, VUnknownPointer<SessionConfig>& session) const;

private:
    Exit Find(const std::string& typed, const char* noun, VUnicodeString& path, bool& isFolder) const;
    Exit FailUnknown(const std::string& typed, const char* noun) const;

    ModuleFolder m_modules; // their objects are in the sessions
    ConfigFolder m_folder;
};

/// Paths of all sessions or of all folders of a folder that was opened, in the store's order.
std::vector<std::string> SessionPaths(const ConfigFolder& folder, bool ofFolders);
/// What a session connects to, and its description, with "\n" between lines.
std::string SummaryOf(const SessionConfig& session);
/// "session 'Lab\Router1'"
std::string CiteSession(const VUnicodeString& path);

} // namespace ostrand::tool
