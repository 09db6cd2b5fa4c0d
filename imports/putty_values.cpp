#include "imports/putty_values.h"

#include "core/fold.h"
#include "imports/color_text.h"
#include "imports/import_text.h"

#include <algorithm>

namespace ostrand {

const RegistryValue* PuttyValues::Find(std::u16string_view name)
{
    const auto found = std::ranges::find_if(
        m_session.values, [name](const RegistryValue* value) { return EqualNoCase(value->name, name); });
    if (found == m_session.values.end())
        return nullptr;
    m_asked.insert(*found);
    return *found;
}

bool PuttyValues::Fail(const RegistryValue& value, const char16_t* what)
{
    m_notes.Note(value.line,
                 Format(u"%1 of the session '%2' is no %3", Cited(value.name), Cited(m_session.name), what));
    return false;
}

bool PuttyValues::Number(std::u16string_view name, uint32_t low, uint32_t high, uint32_t& number)
{
    const RegistryValue* const value = Find(name);
    if (!value)
        return false;
    const auto* const stored = std::get_if<uint32_t>(&value->data);
    if (!stored || *stored < low || *stored > high)
        return Fail(*value, u"number that fits");
    number = *stored;
    return true;
}

bool PuttyValues::Flag(std::u16string_view name, bool& flag)
{
    uint32_t number = 0;
    if (!Number(name, 0, UINT32_MAX, number))
        return false;
    flag = number != 0;
    return true;
}

bool PuttyValues::Text(std::u16string_view name, VUnicodeString& text)
{
    const RegistryValue* const value = Find(name);
    if (!value)
        return false;
    const auto* const stored = std::get_if<VUnicodeString>(&value->data);
    if (!stored)
        return Fail(*value, u"text");
    const VUnicodeString trimmed = stored->Trimmed();
    if (trimmed.IsEmpty())
        return false;
    text = trimmed;
    return true;
}

bool PuttyValues::Color(std::u16string_view name, uint32_t& color)
{
    VUnicodeString text;
    return Text(name, text) && (ReadDecimalColor(text, color) || Fail(*Find(name), u"colour"));
}

void PuttyValues::NoteOthers() const
{
    for (const RegistryValue* const value : m_session.values)
        if (!m_asked.contains(value))
            m_notes.NoteUnmapped(value->line, value->name);
}

} // namespace ostrand
