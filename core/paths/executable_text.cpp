#include "core/paths/executable_text.h"

#include "core/fold.h"

namespace ostrand {

namespace {

constexpr std::u16string_view kSuffix = u".exe";

/// The place behind the first ".exe" in any case; npos without one.
size_t EndOfSuffix(std::u16string_view line)
{
    for (size_t at = line.find(u'.'); at != line.npos; at = line.find(u'.', at + 1))
        if (EqualNoCase(line.substr(at, kSuffix.size()), kSuffix))
            return at + kSuffix.size();
    return line.npos;
}

} // namespace

int ExtractExecutable(VUnicodeString& commandLine)
{
    commandLine = commandLine.Trimmed();
    const std::u16string_view line = commandLine;
    if (line.starts_with(u'"')) {
        commandLine = commandLine.Mid(1, line.find(u'"', 1) - 1);
        return 1;
    }
    const size_t end = EndOfSuffix(line);
    if (end == line.npos)
        return 0;
    commandLine = commandLine.Left(end);
    return 1;
}

VUnicodeString ExtractExecutablePath(const char16_t* commandLine)
{
    VUnicodeString path(commandLine);
    ExtractExecutable(path);
    return path;
}

} // namespace ostrand
