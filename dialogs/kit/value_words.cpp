#include "dialogs/kit/value_words.h"

#include "dialogs/kit/edit_control.h"
#include "dialogs/kit/list_control.h"
#include "dialogs/kit/number_text.h"
#include "dialogs/kit/radio_control.h"
#include "dialogs/kit/translate.h"

namespace ostrand {

VUnicodeString ValueWords(const VControl& control, bool value)
{
    if (control.GetKind() == VItemKind::Radio)
        return ValueWords(control, value == control.GetItem().Has(VItemFlag::YesFirst) ? 0 : 1);
    return Translate(value ? u"on" : u"off");
}

VUnicodeString ValueWords(const VControl& control, VTriState value)
{
    if (value == VTriState::Undetermined)
        return Translate(u"as the global setting");
    return ValueWords(control, value == VTriState::True);
}

VUnicodeString ValueWords(const VControl& control, int value)
{
    if (const auto* const radio = dynamic_cast<const VRadioControl*>(&control))
        if (value >= 0 && value < radio->GetCount())
            return WithoutMark(radio->GetOptions()[static_cast<size_t>(value)].text);
    if (const auto* const list = dynamic_cast<const VListControl*>(&control))
        if (const int entry = list->FindData(value); entry >= 0)
            return (*list)[entry].text;
    return NumberText(value);
}

VUnicodeString ValueWords(const VControl&, unsigned value) { return NumberText(value); }

VUnicodeString ValueWords(const VControl& control, const VUnicodeString& value)
{
    if (const auto* const list = dynamic_cast<const VListControl*>(&control))
        if (const int entry = list->FindValue(value); entry >= 0)
            return (*list)[entry].text;
    if (value.IsEmpty())
        return Translate(u"empty");
    const auto* const edit = dynamic_cast<const VEditControl*>(&control);
    if (value.IsSensitive() || (edit && edit->IsMasked()))
        return Translate(u"a secret text");
    return Format(u"\"%1\"", value);
}

VUnicodeString BoundWords(const VBound& bound)
{
    switch (bound.kind) {
    case VBound::Kind::AtLeast:
        return TranslateFormat(u"at least %1", NumberText(bound.low));
    case VBound::Kind::Within:
    case VBound::Kind::Among:
        return TranslateFormat(u"%1 to %2", NumberText(bound.low), NumberText(bound.high));
    case VBound::Kind::None:
        break;
    }
    return {};
}

} // namespace ostrand
