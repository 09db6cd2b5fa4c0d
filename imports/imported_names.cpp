#include "imports/imported_names.h"

#include "config/session/session_paths.h"
#include "core/fold.h"
#include "core/format.h"
#include "core/paths/path_text.h"
#include "core/utf8.h"

namespace ostrand {

namespace {

constexpr size_t kMostBytes = 180;

bool IsBlankOrControl(char16_t c) { return c <= u' ' || c == 0x7F; }

std::u16string_view Trimmed(std::u16string_view text)
{
    while (!text.empty() && IsBlankOrControl(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlankOrControl(text.back()))
        text.remove_suffix(1);
    return text;
}

/// The part that fits; never half of a character.
std::u16string_view Cut(std::u16string_view name)
{
    size_t bytes = 0;
    for (size_t at = 0; at < name.size();) {
        const size_t start = at;
        std::string utf8;
        PutUtf8(TakeUtf16(name, at), utf8);
        bytes += utf8.size();
        if (bytes > kMostBytes)
            return Trimmed(name.substr(0, start));
    }
    return name;
}

} // namespace

VUnicodeString ToSessionName(std::u16string_view name)
{
    std::u16string valid(Cut(Trimmed(name)));
    for (char16_t& c : valid)
        if (IsBlankOrControl(c) ? c != u' ' : HasIllegalNameCharacter(std::u16string_view(&c, 1)))
            c = u'_';
    if (valid.starts_with(u'.'))
        valid[0] = u'_';
    if (valid.empty())
        valid = u"Session";
    if (IsReservedDeviceName(valid))
        valid += u'_';
    return std::u16string_view(valid);
}

ImportedNames::ImportedNames()
{
    for (const char16_t* const reserved : {kFolderDataKey, kTemporarySession, kDefaultSession})
        TryTake(reserved);
}

VUnicodeString ImportedNames::Take(std::u16string_view name)
{
    VUnicodeString wanted = ToSessionName(name);
    if (TryTake(wanted))
        return wanted;
    unsigned& last = m_taken[FoldedCase(wanted)];
    VUnicodeString free;
    do
        free = Format(u"%1 (%2!u!)", wanted, ++last);
    while (!TryTake(free));
    return free;
}

bool ImportedNames::TryTake(std::u16string_view name) { return m_taken.try_emplace(FoldedCase(name), 1).second; }

} // namespace ostrand
