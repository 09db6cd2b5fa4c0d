// Text operations on paths.

#include "core/paths/executable_text.h"
#include "core/paths/path_text.h"
#include "tests/vectors/json_text.h"

#include <array>

namespace ostrand::vectors {

namespace {

/// A character that is there or not, as a text.
Json FromCharacter(char16_t c) { return FromText(std::u16string_view(&c, c == 0 ? 0 : 1)); }

Json Join(const Json& theCase)
{
    return {{"path", FromText(JoinPath(ToText(theCase.at("a")), ToText(theCase.at("b"))))}};
}

Json Split(const Json& theCase)
{
    VUnicodeString name;
    const VUnicodeString folder = SplitPath(ToText(theCase.at("path")), name);
    return {{"folder", FromText(folder)}, {"file_name", FromText(name)}};
}

Json DriveRoot(const Json& theCase)
{
    char16_t letter = 0;
    const bool answer = IsDriveRoot(ToText(theCase.at("path")), &letter);
    return {{"answer", answer}, {"letter", FromCharacter(letter)}};
}

Json CheckSyntax(const Json& theCase)
{
    VUnicodeString path = ToText(theCase.at("path"));
    int badIndex = 0;
    const bool answer = CheckPathSyntax(path, &badIndex);
    return {{"answer", answer}, {"path", FromText(path)}, {"bad_index", badIndex}};
}

Json Extract(const Json& theCase)
{
    VUnicodeString line = ToText(theCase.at("line"));
    const int result = ExtractExecutable(line);
    return {{"result", result}, {"text", FromText(line)}};
}

Json IllegalNameCharacter(const Json& theCase)
{
    char16_t found = 0;
    const bool answer = HasIllegalNameCharacter(ToText(theCase.at("text")), &found);
    return {{"answer", answer}, {"found", FromCharacter(found)}};
}

Json ReservedDeviceName(const Json& theCase) { return {{"answer", IsReservedDeviceName(ToText(theCase.at("text")))}}; }

constexpr std::array kKinds = {
    Kind{"join", Join},
    Kind{"split", Split},
    Kind{"drive root", DriveRoot},
    Kind{"check syntax", CheckSyntax},
    Kind{"extract executable", Extract},
    Kind{"illegal name character", IllegalNameCharacter},
    Kind{"reserved device name", ReservedDeviceName},
};

} // namespace

std::span<const Kind> PathsKinds() { return kKinds; }

} // namespace ostrand::vectors
