#include "core/buffer.h"

#include "core/zero.h"
#include "platform/error_codes.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace ostrand {

VBasicBuffer::~VBasicBuffer() { GiveBack(); }

void VBasicBuffer::GiveBack()
{
    if (sensitive)
        ZeroForGood(m_data, m_capacity);
    ::operator delete(m_data);
}

void VBasicBuffer::Append(const void* data, size_t size, size_t extra)
{
    constexpr size_t kLargest = std::numeric_limits<ptrdiff_t>::max();
    if (size > kLargest - m_length || extra > kLargest - m_length - size)
        throw std::bad_alloc();
    const size_t length = m_length + (data ? size : 0);
    if (m_length + size > m_capacity) {
        const size_t capacity = m_length + size + extra;
        auto* const fresh = static_cast<unsigned char*>(::operator new(capacity));
        std::copy_n(m_data, m_length, fresh);
        std::fill(fresh + m_length, fresh + capacity, static_cast<unsigned char>(0));
        // Before the old block goes, since the new bytes may lie in it.
        std::copy_n(static_cast<const unsigned char*>(data), length - m_length, fresh + m_length);
        GiveBack();
        m_data = fresh;
        m_capacity = capacity;
    } else if (length > m_length) {
        std::memmove(m_data + m_length, data, size);
    }
    m_length = length;
}

bool VBasicBuffer::SetLength(size_t length)
{
    const bool fits = length <= m_capacity;
    m_length = fits ? length : m_capacity;
    if (!fits)
        lastError = kErrorInsufficientBuffer;
    return fits;
}

} // namespace ostrand
