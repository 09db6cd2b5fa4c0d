#include "stores/name_index.h"

#include "core/fold.h"

#include <string>

namespace ostrand {

uint64_t HashName(std::u16string_view name)
{
    constexpr size_t kShort = 128;
    char narrow[kShort];
    char16_t all = 0;
    if (name.size() <= kShort) {
        for (size_t i = 0; i < name.size(); ++i) {
            all = static_cast<char16_t>(all | name[i]);
            narrow[i] = static_cast<char>(name[i]);
        }
        if (all < 0x80)
            return HashAsciiNoCase({narrow, name.size()});
    } else {
        std::string longName;
        longName.reserve(name.size());
        for (const char16_t c : name) {
            all = static_cast<char16_t>(all | c);
            longName.push_back(static_cast<char>(c));
        }
        if (all < 0x80)
            return HashAsciiNoCase(longName);
    }
    return FinishHash(HashNoCase(name));
}

void NameIndex::Reset(size_t count)
{
    constexpr size_t kLargestByte = 254;
    const size_t slots = std::bit_ceil(count + count / 3 + 2);
    m_wide = count > kLargestByte;
    m_slots = std::make_unique<uint8_t[]>(m_wide ? slots * 4 : slots);
    m_mask = slots - 1;
    m_room = count;
}

} // namespace ostrand
