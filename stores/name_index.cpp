#include "stores/name_index.h"

#include "stores/asked_name.h"

namespace ostrand {

uint64_t HashName(std::u16string_view name) { return AskedName(name).Hash(); }

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
