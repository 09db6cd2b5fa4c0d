// The one way of every text of the dialogs to the user's language.
#pragma once

#include "core/format.h"
#include "core/report.h"

namespace ostrand {

/// Gives the text in the user's language, or the text itself. "&" marks and inserts such as "%1" are part of it.
using VTextHook = VUnicodeString (*)(std::u16string_view text);
/// Null: texts are shown as they are written. Set at start-up, on the main thread.
OSTRAND_API void SetTextHook(VTextHook hook);
/// Another number after each SetTextHook, for those who keep texts. An application whose hook goes over to another
/// language sets it anew.
OSTRAND_API unsigned TextHookVersion();

/// Null counts as empty.
OSTRAND_API VUnicodeString Translate(const char16_t* text);

/// Translates the format, then fills it in.
template <class... Arguments>
VUnicodeString TranslateFormat(const char16_t* format, const Arguments&... arguments)
{
    return Format(Translate(format), arguments...);
}

/// A report as users read it. Texts of the library's own codes are translated; those of others come as they are.
OSTRAND_API VUnicodeString TextOf(IReportMessageParams& report);

/// The text without its mark: "&Name" is "Name", "R&&D" is "R&D".
OSTRAND_API VUnicodeString WithoutMark(std::u16string_view text);
/// The marked letter, in lower case; 0 for none.
OSTRAND_API char16_t MarkedLetter(std::u16string_view text);

} // namespace ostrand
