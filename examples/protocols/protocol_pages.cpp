#include "protocol_pages.h"

namespace example {

using namespace ostrand;

namespace {

VTemplateItem Item(VItemKind kind, VControlId id, const char16_t* text, size_t descendants = 0)
{
    VTemplateItem item;
    item.kind = kind;
    item.id = id;
    item.text = text;
    item.descendants = static_cast<uint16_t>(descendants);
    return item;
}

void AddField(std::vector<VTemplateItem>& items, const char16_t* label, VControlId id, bool isNumber = false)
{
    items.push_back(Item(VItemKind::Field, 0, label, 1));
    items.push_back(Item(VItemKind::Edit, id, nullptr));
    if (!isNumber)
        items.back().flags = static_cast<uint16_t>(VItemFlag::Grow);
}

} // namespace

std::vector<VTemplateItem> MakePageItems(const char16_t* title, bool hasHost, VSchemaView schema)
{
    std::vector<VTemplateItem> items = {Item(VItemKind::Page, 0, title)};
    if (hasHost) {
        AddField(items, u"&Hostname:", Hostname);
        AddField(items, u"&Username:", Username);
    }
    VControlId id = FirstValue;
    for (size_t i = 0; i < schema.GetCount(); ++i)
        if (const VSchemaEntry& entry = schema[i]; entry.IsRule())
            continue;
        else if (entry.type == VValueClass::Bool)
            items.push_back(Item(VItemKind::Check, id++, entry.name));
        else
            AddField(items, entry.name, id++, entry.type == VValueClass::Int);
    items.front().descendants = static_cast<uint16_t>(items.size() - 1);
    return items;
}

void RecordPage::Bind(VControlId control, VProfileData* value)
{
    if (auto* const isOn = dynamic_cast<VProfile<bool>*>(value))
        m_switches.emplace_back(*this, control, *isOn);
    else if (auto* const number = dynamic_cast<VProfile<int>*>(value))
        m_numbers.emplace_back(*this, control, *number);
    else if (auto* const text = dynamic_cast<VProfileString*>(value))
        m_texts.emplace_back(*this, control, *text);
}

void RecordPage::OnSetActive()
{
    const auto reload = [](auto& copies) {
        for (auto& copy : copies)
            copy.Reload();
    };
    reload(m_switches);
    reload(m_numbers);
    reload(m_texts);
    UpdateData(VDataExchange::Show);
}

} // namespace example
