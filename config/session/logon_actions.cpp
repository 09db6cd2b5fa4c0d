#include "config/session/logon_actions.h"

#include "profile/secret_text.h"
#include "profile/xor_text.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <utility>

namespace ostrand {

namespace {

constexpr char16_t kUnitSeparator = 0x1F;

/// Takes the next field of a text; one at the end may lack its separator. False when there is none.
bool TakeField(const VUnicodeString& text, size_t& at, VUnicodeString& field)
{
    if (at >= text.GetLength())
        return false;
    const size_t end = std::min(text.Find({&kUnitSeparator, 1}, at), text.GetLength());
    field = text.Mid(at, end - at);
    at = end + 1;
    return true;
}

/// The strings of the older block, one after the other.
class StringReader {
public:
    StringReader(std::span<const uint8_t> bytes, VCharacterWidth width) : m_bytes(bytes), m_width(width) {}

    bool AtEnd() const { return m_bytes.size() < static_cast<size_t>(m_width); }
    /// Up to the next zero; at the end the zero may be missing, as may the string.
    VUnicodeString Take()
    {
        VUnicodeString text = SecretText(m_bytes, m_width);
        const size_t used = (text.GetLength() + 1) * static_cast<size_t>(m_width);
        m_bytes = m_bytes.subspan(std::min(used, m_bytes.size()));
        return text;
    }

private:
    std::span<const uint8_t> m_bytes;
    VCharacterWidth m_width;
};

constexpr unsigned kCarriageReturnBit = 2;
constexpr std::array kHideBits = {7u, 6u, 5u, 4u, 3u, 1u, 0u}; // of rows 0 to 6

bool HasBit(uint8_t flags, unsigned bit) { return (flags >> bit & 1) != 0; }

} // namespace

void ReadLogonActions(const VUnicodeString& text, LogonActionList& list)
{
    VUnicodeString hide;
    for (size_t at = 0; TakeField(text, at, hide);) {
        LogonAction action;
        action.hide = !hide.View().starts_with(u'0');
        if (!TakeField(text, at, action.expect) || !TakeField(text, at, action.send))
            throw LogonActionList::OutOfRange();
        list.Append(std::move(action));
    }
}

VUnicodeString WriteLogonActions(const LogonActionList& list)
{
    VUnicodeString text;
    text.MarkSensitive();
    for (const LogonAction& action : list)
        for (const std::u16string_view field :
             {std::u16string_view(action.hide ? u"1" : u"0"), action.expect.View(), action.send.View()}) {
            text += field;
            text += {&kUnitSeparator, 1};
        }
    return text;
}

bool ConvertLoginScript(const VUnicodeString& decoded, ConvertedLoginScript& out)
{
    const bool is16 = decoded.View().ends_with(u'u');
    const VSecretBytes block = DecodeXorBytes(decoded.View().substr(0, decoded.GetLength() - (is16 ? 1 : 0)));
    if (block.empty())
        return false;
    const uint8_t flags = block[0];
    out.sendInitialCarriageReturn = HasBit(flags, kCarriageReturnBit);
    StringReader strings(std::span<const uint8_t>(block).subspan(1),
                         is16 ? VCharacterWidth::Bits16 : VCharacterWidth::CodePage);
    for (size_t row = 0; !strings.AtEnd(); ++row) {
        LogonAction action;
        action.hide = row < kHideBits.size() && HasBit(flags, kHideBits[row]);
        action.expect = strings.Take();
        action.send = strings.Take();
        if (action.hide || !action.expect.IsEmpty() || !action.send.IsEmpty())
            out.actions.Append(std::move(action));
    }
    return true;
}

void LoadLogonActions(const VProfileKey* key, VProfileEncodedString& script, VProfile<bool>& sendInitialCarriageReturn)
{
    const VUnicodeString current = u"Login Script V2";
    script.LoadTakingOver(key, current);
    VUnicodeString stored;
    if (!key || key->ReadString(current.c_str(), stored))
        return;

    VProfileEncodedString older;
    older.LoadTakingOver(key, u"Login Script");
    if (older.IsHeldBack())
        script.HoldBack();
    ConvertedLoginScript converted;
    if (older.IsEmpty() || !ConvertLoginScript(older, converted))
        return;
    script = WriteLogonActions(converted.actions);
    sendInitialCarriageReturn = converted.sendInitialCarriageReturn;
}

} // namespace ostrand
