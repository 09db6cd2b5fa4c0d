// HashBytes of bytes that come in parts.
#pragma once

#include "stores/name_index.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace ostrand {

class RunningHash {
public:
    /// `size`: of all parts together.
    explicit RunningHash(uint64_t size) : m_hash(size) {}

    void Add(std::string_view part)
    {
        while (!part.empty()) {
            // The last word, full or not, is the business of Finish.
            if (m_kept == kWord)
                m_hash = MixHash(m_hash, LoadWord(m_rest));
            m_kept = m_kept == kWord ? 0 : m_kept;
            for (; m_kept == 0 && part.size() > kWord; part.remove_prefix(kWord))
                m_hash = MixHash(m_hash, LoadWord(part.data()));
            const size_t taken = std::min(kWord - m_kept, part.size());
            std::memcpy(m_rest + m_kept, part.data(), taken);
            m_kept += taken;
            part.remove_prefix(taken);
        }
    }
    uint64_t Finish() const
    {
        if (m_kept == 0)
            return FinishHash(m_hash);
        return FinishHash(MixHash(m_hash, m_kept == kWord ? LoadWord(m_rest) : LoadTail(m_rest, m_kept)));
    }

private:
    static constexpr size_t kWord = 8;

    uint64_t m_hash;
    char m_rest[kWord] = {};
    size_t m_kept = 0;
};

} // namespace ostrand
