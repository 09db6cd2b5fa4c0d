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
    const auto isLess = [](std::u16string_view a, std::u16string_view b) {
        // Names of one folder often begin alike, and what is equal needs no folding.
        const size_t common = std::min(a.size(), b.size());
        const auto same =
            static_cast<size_t>(std::mismatch(a.begin(), a.begin() + common, b.begin()).first - a.begin());
        const int order = CompareNoCase(a.substr(same), b.substr(same));
        return order != 0 ? order < 0 : a < b;
    };
    const auto isBefore = [&](const Entry& a, const Entry& b) { return isLess(a.first, b.first); };
    if (!std::is_sorted(m_entries.begin(), m_entries.end(), isBefore))
        std::sort(m_entries.begin(), m_entries.end(), isBefore);
    const auto same = [](const Entry& a, const Entry& b) { return EqualNoCase(a.first, b.first); };
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
    return ForEachLevel(NameOf(name), [&levels](std::u16string_view level) { levels.push_back(level); });
}

unsigned CheckRoom(const void* data, unsigned* size, size_t stored)
{
    const unsigned room = *size;
    *size = static_cast<unsigned>(stored);
    return data && stored > room ? kErrorMoreData : kErrorSuccess;
}

} // namespace ostrand
