#include "dialogs/kit/translate.h"

#include "core/fold.h"
#include "core/messages.h"

#include <vector>

namespace ostrand {

namespace {

VTextHook g_hook = nullptr;
unsigned g_hookVersion = 0;

/// Calls `mark` with each letter that a single "&" marks, `plain` with every other character.
template <class Mark, class Plain>
void ScanMarks(std::u16string_view text, const Mark& mark, const Plain& plain)
{
    for (size_t i = 0; i < text.size(); ++i) {
        const bool isMark = text[i] == u'&' && i + 1 < text.size();
        i += isMark ? 1 : 0;
        if (isMark && text[i] != u'&')
            mark(text[i]);
        else
            plain(text[i]);
    }
}

} // namespace

void SetTextHook(VTextHook hook)
{
    g_hook = hook;
    ++g_hookVersion;
}

unsigned TextHookVersion() { return g_hookVersion; }

VUnicodeString Translate(const char16_t* text)
{
    if (!text || !*text)
        return {};
    return g_hook ? g_hook(text) : VUnicodeString(text);
}

VUnicodeString TextOf(IReportMessageParams& report)
{
    const char16_t* const own = FindMessageText(report.GetCode());
    if (!own)
        return report.GetText();
    std::vector<VFormatArgument> arguments;
    for (int i = 0; i < report.GetArgumentCount(); ++i)
        arguments.emplace_back(report.GetArguments()[i]);
    return FormatList(Translate(own), arguments);
}

VUnicodeString WithoutMark(std::u16string_view text)
{
    std::u16string plain;
    const auto keep = [&plain](char16_t c) { plain += c; };
    ScanMarks(text, keep, keep);
    return VUnicodeString(plain);
}

char16_t MarkedLetter(std::u16string_view text)
{
    char16_t letter = 0;
    ScanMarks(text, [&letter](char16_t c) { letter = letter ? letter : FoldCase(c); }, [](char16_t) {});
    return letter;
}

} // namespace ostrand
