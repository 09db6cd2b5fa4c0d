#include "stores/store_key.h"

#include "core/fold.h"

#include <algorithm>

namespace ostrand {

VProfilePrivateKeyIterator* FailedKey::CreateIterator(bool)
{
    Answer(m_code);
    return new SnapshotIterator;
}

void SnapshotIterator::SortNames()
{
    std::sort(m_entries.begin(), m_entries.end(), [](const auto& a, const auto& b) {
        const int order = CompareNoCase(a.first, b.first);
        return order != 0 ? order < 0 : a.first.Compare(b.first) < 0;
    });
    const auto same = [](const auto& a, const auto& b) { return EqualNoCase(a.first, b.first); };
    m_entries.erase(std::unique(m_entries.begin(), m_entries.end(), same), m_entries.end());
}

bool SnapshotIterator::NextValue(VUnicodeString& name, int* type)
{
    if (m_next == m_entries.size())
        return false;
    *type = static_cast<int>(m_entries[m_next].second);
    return Next(name);
}

bool SnapshotIterator::Next(VUnicodeString& name)
{
    if (m_next == m_entries.size())
        return false;
    name = m_entries[m_next++].first;
    return true;
}

bool CutLevels(const char16_t* name, std::vector<std::u16string_view>& levels)
{
    levels.clear();
    for (std::u16string_view rest = NameOf(name);;) {
        const size_t bar = rest.find(u'\\');
        levels.push_back(rest.substr(0, bar));
        if (levels.back().empty())
            return false;
        if (bar == std::u16string_view::npos)
            return true;
        rest.remove_prefix(bar + 1);
    }
}

unsigned CheckRoom(const void* data, unsigned* size, size_t stored)
{
    const unsigned room = *size;
    *size = static_cast<unsigned>(stored);
    return data && stored > room ? kErrorMoreData : kErrorSuccess;
}

} // namespace ostrand
