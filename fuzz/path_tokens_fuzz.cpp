// Templates of paths: a result has no token left to stumble over, and a refusal is empty and names a piece of the text.
// The other operations on paths see the same text.
#include "core/messages.h"
#include "core/paths/executable_text.h"
#include "core/paths/path_text.h"
#include "core/paths/path_tokens.h"

#include <cstdint>
#include <cstdlib>
#include <string>

using namespace ostrand;

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

void CheckTokens(std::u16string_view path, const char16_t* host)
{
    VReportMessageParams report;
    const VUnicodeString text = ExpandPathTokens(path, report, host, host);
    Require(report.GetCode() == 0 || text.IsEmpty());
    Require((report.GetCode() == kPathTokenUnknown) == (report.GetArgumentCount() == 1));
    if (report.GetCode() == 0 && path.find(u'%') == path.npos)
        Require(text == path);
}

void CheckText(std::u16string_view path)
{
    VUnicodeString name;
    for (VUnicodeString at = path; !at.IsEmpty();) {
        const VUnicodeString folder = SplitPath(at, name);
        Require(folder.GetLength() < at.GetLength());
        at = folder;
    }
    VUnicodeString checked(path);
    int badIndex = 0;
    const bool isGood = CheckPathSyntax(checked, &badIndex);
    Require(isGood == (badIndex == -1) && checked.GetLength() == path.size());
    Require(isGood ? checked.Find(u"/") == checked.npos : badIndex < static_cast<int>(path.size()));
    ExtractExecutable(checked);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // A zero byte lets the next two be one character, so that all kinds of them occur.
    std::u16string text;
    for (size_t i = 0; i < size; ++i) {
        const bool isWide = data[i] == 0 && i + 2 < size;
        text += static_cast<char16_t>(isWide ? data[i + 1] << 8 | data[i + 2] : data[i]);
        i += isWide ? 2 : 0;
    }
    CheckTokens(text, nullptr);
    CheckTokens(text, u"fe80::1");
    CheckText(text);
    return 0;
}
