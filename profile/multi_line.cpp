#include "profile/multi_line.h"

#include "core/tokenize.h"

namespace ostrand {

void VProfileMultiLineString::Load(const VProfileKey* key, const char16_t* valueName)
{
    SetName(valueName);
    Load(key, VStringArray());
}

void VProfileMultiLineString::SetText(const char16_t* text)
{
    Tokenize(text ? text : u"", Value(), u'\n');
    for (VUnicodeString& line : Value())
        if (line.View().ends_with(u'\r'))
            line = line.Left(line.GetLength() - 1);
}

VUnicodeString VProfileMultiLineString::GetText() const
{
    VUnicodeString text;
    for (const VUnicodeString& line : Value()) {
        if (&line != Value().begin())
            text += u"\r\n";
        text += line;
    }
    return text;
}

} // namespace ostrand
