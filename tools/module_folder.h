// The protocol modules that bring the protocols' values of sessions.
#pragma once

#include "tools/request.h"

#include <string>
#include <string_view>
#include <vector>

namespace ostrand::tool {

/// Loads what it finds for the application and its sibling, whether that is installed or not, so that sessions show the
/// values of both sides. One for the process; gives the modules back at its end, when no session may be left.
class ModuleFolder {
public:
    ModuleFolder() = default;
    ~ModuleFolder();
    ModuleFolder(const ModuleFolder&) = delete;
    ModuleFolder& operator=(const ModuleFolder&) = delete;

    /// From --modules, $OSTRAND_MODULES, or the folder "protocols" beside the tool. Only one that was asked for by
    /// --modules has to be there.
    Exit Load(const Request& request);
    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

/// Which side of a session; numbers are those of ConnectConfigPtr.
enum class Side : int { Terminal = 0, Transfer = 1 };

/// Names of the protocols that a side may have, with or without a module.
std::vector<std::string> ProtocolNames(Side side);
bool IsProtocolLoaded(Side side, std::u16string_view name);
/// "the module of 'SSH2' isn't there" and what to do about it; empty for a protocol that is loaded, or needs none.
std::string WhyProtocolIsMissing(Side side, std::u16string_view name);

} // namespace ostrand::tool
