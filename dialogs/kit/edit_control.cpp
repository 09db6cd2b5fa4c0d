#include "dialogs/kit/edit_control.h"

#include <algorithm>

namespace ostrand {

namespace {

/// Each "\r", "\n" and "\r\n" as "\r\n".
VUnicodeString WithLineEnds(std::u16string_view text)
{
    std::u16string out;
    while (true) {
        const size_t end = text.find_first_of(u"\r\n");
        out += text.substr(0, end);
        if (end == std::u16string_view::npos)
            return VUnicodeString(out);
        out += u"\r\n";
        text.remove_prefix(end + (text.substr(end).starts_with(u"\r\n") ? 2 : 1));
    }
}

bool IsControl(char16_t c) { return c < 0x20 && c != u'\t'; }

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

} // namespace

VEditControl::VEditControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label)
    : VControl(owner, item, label),
      m_isMasked(item.Has(VItemFlag::Masked)),
      m_isReadOnly(item.Has(VItemFlag::ReadOnly))
{
}

void VEditControl::SetText(const VUnicodeString& text)
{
    VUnicodeString kept = IsMultiLine() ? WithLineEnds(text) : text;
    if (m_isMasked || text.IsSensitive() || GetText().IsSensitive())
        kept.MarkSensitive();
    if (kept == GetText())
        return;
    m_selection = {kept.GetLength(), kept.GetLength()};
    VControl::SetText(kept);
    Raise(VEventKind::TextChanged);
}

bool VEditControl::Accepts(std::u16string_view text) const
{
    if (GetMaxChars() > 0 && text.size() > GetMaxChars() && text.size() >= GetText().GetLength())
        return false;
    if (GetItem().Has(VItemFlag::DigitsOnly) && !std::all_of(text.begin(), text.end(), IsDigit))
        return false;
    return IsMultiLine() || std::none_of(text.begin(), text.end(), IsControl);
}

void VEditControl::SetMasked(bool masked)
{
    if (masked)
        MarkText();
    Assign(m_isMasked, masked, VChange::Mask);
}

void VEditControl::Select(Range range)
{
    const size_t length = GetText().GetLength();
    Assign(m_selection, {std::min(range.begin, length), std::min(range.end, length)}, VChange::Selection);
}

VUnicodeString VEditControl::Dump() const
{
    if (m_isMasked || GetText().IsSensitive())
        return VControl::Dump() + (GetText().IsEmpty() ? u": empty" : u": secret");
    return VControl::Dump() + u": \"" + GetText() + u"\"";
}

} // namespace ostrand
