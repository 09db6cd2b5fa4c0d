// The topics of known answers and the kinds of cases in each. A runner turns a case's inputs into what the library
// makes of them, in the form of the case's `expect`; it throws std::runtime_error for inputs that it doesn't know.
#pragma once

#include <nlohmann/json.hpp>

#include <span>

namespace ostrand::vectors {

using Json = nlohmann::json;

struct Kind {
    const char* name;
    Json (*run)(const Json& theCase);
};

struct Topic {
    const char* name;
    std::span<const Kind> kinds;
};

/// All topics; one file each.
std::span<const Topic> Topics();

std::span<const Kind> MessageFormatKinds();
std::span<const Kind> MessageTextsKinds();
std::span<const Kind> OctalKinds();
std::span<const Kind> TextSplitKinds();
std::span<const Kind> TextFileKinds();
std::span<const Kind> ValueModelKinds();
std::span<const Kind> ListViewStateKinds();
std::span<const Kind> ExplorerFrameStateKinds();
std::span<const Kind> TimeTextKinds();
std::span<const Kind> LogFontKinds();
std::span<const Kind> MultiLineKinds();
std::span<const Kind> RawBlockKinds();
std::span<const Kind> GlobalConfigKinds();
std::span<const Kind> PathsKinds();
std::span<const Kind> PathTokensKinds();
std::span<const Kind> TimeZoneKinds();
std::span<const Kind> XorTextKinds();
std::span<const Kind> BlowfishCipherKinds();
std::span<const Kind> BlowfishTextKinds();
std::span<const Kind> ProtectedValuesKinds();
std::span<const Kind> LoginScriptKinds();
std::span<const Kind> ColorSchemeKinds();
std::span<const Kind> SerialConfigKinds();
std::span<const Kind> RemoteHostKinds();
std::span<const Kind> SynchronizeKinds();
std::span<const Kind> KeymapTablesKinds();
std::span<const Kind> KeyFileKinds();
std::span<const Kind> KeymapBlockKinds();
std::span<const Kind> TerminalConfigKinds();
std::span<const Kind> SessionFolderKinds();
std::span<const Kind> SessionConfigKinds();

} // namespace ostrand::vectors
