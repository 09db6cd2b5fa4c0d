#include "tests/config/record_walks.h"

#include "config/global/color_scheme_list.h"
#include "config/session/serial_device.h"
#include "keymap/key_index.h"
#include "keymap/profile_keymap.h"

#include <map>

namespace ostrand::test {

void Change(VProfileData& value)
{
    if (auto* const number = dynamic_cast<VProfile<int>*>(&value))
        number->value ^= 1;
    else if (auto* const colour = dynamic_cast<VProfile<unsigned>*>(&value))
        colour->value ^= 1;
    else if (auto* const moment = dynamic_cast<VProfile<unsigned long>*>(&value))
        moment->value ^= 1;
    else if (auto* const flag = dynamic_cast<VProfile<bool>*>(&value))
        flag->value = !flag->value;
    else if (auto* const state = dynamic_cast<VProfile<VTriState>*>(&value))
        state->value = state->value == VTriState::True ? VTriState::False : VTriState::True;
    else if (auto* const list = dynamic_cast<VProfileListViewState*>(&value))
        list->columns.Append({++list->columnCount, false, 7}); // a text without columns reads back as the defaults
    else if (auto* const frame = dynamic_cast<VProfileExplorerFrameState*>(&value))
        frame->third ^= 1;
    else if (auto* const text = dynamic_cast<VProfileString*>(&value))
        text->Append(u"x");
    else if (auto* const secret = dynamic_cast<VProfileBlowfishString*>(&value))
        secret->SetValue((secret->Value() + u"x").c_str());
    else if (auto* const texts = dynamic_cast<VProfileStringList*>(&value))
        texts->Append(u"x");
    else if (auto* const placement = dynamic_cast<VProfileWindowPlacement*>(&value))
        placement->normalBottom ^= 1;
    else if (auto* const margins = dynamic_cast<VProfileMargins*>(&value))
        margins->bottom += 1;
    else if (auto* const font = dynamic_cast<VProfileLogFont*>(&value))
        font->pointSize ^= 1;
    else if (auto* const colours = dynamic_cast<VProfileColors*>(&value))
        colours->back() ^= 1;
    else if (auto* const blob = dynamic_cast<VProfileBlob*>(&value))
        blob->data.push_back(1);
    else if (auto* const keymap = dynamic_cast<ProfileKeymap*>(&value))
        keymap->SetFunction(kControlHeld | 'A', keymap->GetFunction(kControlHeld | 'A') ^ 1);
    else
        FAIL() << "a class that this test doesn't know";
}

std::vector<StoreValue> Unfit(const StoreValue& value)
{
    const StoreBlock oversized(std::holds_alternative<StoreBlock>(value) ? std::get<StoreBlock>(value).size() + 1 : 8);
    std::vector<StoreValue> all = {0u, VUnicodeString(u""), oversized, VStringArray(), ForeignValue()};
    std::erase_if(all, [&value](const StoreValue& v) {
        return v.index() == value.index() && !std::holds_alternative<StoreBlock>(v);
    });
    return all;
}

size_t FieldSize(VValueClass type)
{
    static const std::map<VValueClass, size_t> sizes = {
        {VValueClass::Bool, sizeof(VProfile<bool>)},
        {VValueClass::Int, sizeof(VProfile<int>)},
        {VValueClass::UInt, sizeof(VProfile<unsigned>)},
        {VValueClass::ULong, sizeof(VProfile<unsigned long>)},
        {VValueClass::TriState, sizeof(VProfile<VTriState>)},
        {VValueClass::String, sizeof(VProfileString)},
        {VValueClass::Strings, sizeof(VProfileStringList)},
        {VValueClass::MultiLine, sizeof(VProfileMultiLineString)},
        {VValueClass::Encoded, sizeof(VProfileEncodedString)},
        {VValueClass::Encrypted, sizeof(VProfileBlowfishString)},
        {VValueClass::Font, sizeof(VProfileLogFont)},
        {VValueClass::Placement, sizeof(VProfileWindowPlacement)},
        {VValueClass::Margins, sizeof(VProfileMargins)},
        {VValueClass::Colors, sizeof(VProfileColors)},
        {VValueClass::ListView, sizeof(VProfileListViewState)},
        {VValueClass::ExplorerFrame, sizeof(VProfileExplorerFrameState)},
        {VValueClass::Blob, sizeof(VProfileBlob)},
        {VValueClass::Serial, sizeof(VSerialDeviceConfig)},
        {VValueClass::ColorSchemes, sizeof(ProfileColorSchemeList)},
        {VValueClass::Keymap, sizeof(ProfileKeymap)}};
    return sizes.at(type);
}

} // namespace ostrand::test
