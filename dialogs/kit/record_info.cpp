#include "dialogs/kit/record_info.h"

#include "core/fold.h"

#include <algorithm>

namespace ostrand {

const VValueListInfo::Line* VValueListInfo::LineOf(const VProfileData& value) const
{
    const auto line =
        std::find_if(m_lines.begin(), m_lines.end(), [&](const Line& each) { return each.value == &value; });
    return line == m_lines.end() ? nullptr : &*line;
}

const VSchemaEntry* VValueListInfo::EntryOf(const VProfileData& value) const
{
    const Line* const line = LineOf(value);
    return line ? line->entry : nullptr;
}

const VProfileData* VValueListInfo::DefaultOf(const VProfileData& value) const
{
    const Line* const line = LineOf(value);
    return line && !line->entry->computed ? line->usual : nullptr;
}

VValueOrigin VValueListInfo::OriginOf(const VProfileData& value) const
{
    const Line& line = *LineOf(value);
    return FindOrigin(*line.entry, value.name, m_place, line.isCorrected);
}

const VProfileData* VValueListInfo::FindValue(std::u16string_view name) const
{
    const auto line = std::find_if(m_lines.begin(), m_lines.end(),
                                   [&](const Line& each) { return EqualNoCase(each.value->name, name); });
    return line == m_lines.end() ? nullptr : line->value;
}

} // namespace ostrand
