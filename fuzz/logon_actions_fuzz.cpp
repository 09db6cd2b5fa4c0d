// Logon actions. The input is the block of an older script, in either width, and a list in its text form. What was read
// is written and read as the same, as far as no field holds the separator.
#include "config/session/logon_actions.h"

#include "core/code_page.h"
#include "core/hex.h"

#include <cstdlib>

using namespace ostrand;

namespace {

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

bool Read(const VUnicodeString& text, LogonActionList& list)
{
    try {
        ReadLogonActions(text, list);
        return true;
    } catch (const LogonActionList::OutOfRange&) {
        return false;
    }
}

void CheckList(const LogonActionList& list)
{
    const VUnicodeString text = WriteLogonActions(list);
    LogonActionList back;
    const bool isWhole = Read(text, back);
    size_t separators = 0;
    for (const char16_t c : text.View())
        separators += c == 0x1F ? 1 : 0;
    if (separators == 3 * list.GetCount())
        Check(isWhole && back.GetCount() == list.GetCount() && WriteLogonActions(back) == text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const VUnicodeString digits = HexText(u"01020304", {data, size});
    for (const char16_t* const width : {u"", u"u"}) {
        VUnicodeString script = digits;
        script += width;
        ConvertedLoginScript converted;
        Check(ConvertLoginScript(script, converted) == (size > 0));
        CheckList(converted.actions);
    }
    const VUnicodeString text = FromCodePage({reinterpret_cast<const char*>(data), size});
    ConvertedLoginScript foreign; // as if the text itself were stored
    ConvertLoginScript(text, foreign);
    LogonActionList list;
    Read(text, list);
    CheckList(list);
    return 0;
}
