// For each value of a file: where its name stands in the text, and whether the value was read.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace ostrand {

/// Two bytes for each value of a small file, four of a large one. Marks may be set by several threads at once.
class EntryList {
public:
    EntryList() = default;
    explicit EntryList(const std::vector<uint32_t>& places) : m_count(places.size())
    {
        // Places rise; the top bit is the mark.
        if (places.empty() || places.back() < kMark<uint16_t>)
            m_small = Packed<uint16_t>(places);
        else
            m_large = Packed<uint32_t>(places);
    }

    size_t Count() const { return m_count; }
    size_t PlaceOf(size_t entry) const { return m_small ? PlaceIn(m_small[entry]) : PlaceIn(m_large[entry]); }
    bool WasRead(size_t entry) const { return m_small ? IsMarked(m_small[entry]) : IsMarked(m_large[entry]); }
    void SetRead(size_t entry, bool wasRead) const
    {
        if (m_small)
            Mark(m_small[entry], wasRead);
        else
            Mark(m_large[entry], wasRead);
    }

private:
    template <class Word>
    using Words = std::unique_ptr<std::atomic<Word>[]>;
    template <class Word>
    static constexpr Word kMark = static_cast<Word>(Word{1} << (8 * sizeof(Word) - 1));

    template <class Word>
    static Words<Word> Packed(const std::vector<uint32_t>& places)
    {
        auto words = std::make_unique<std::atomic<Word>[]>(places.size());
        for (size_t i = 0; i < places.size(); ++i)
            words[i].store(static_cast<Word>(places[i]), std::memory_order_relaxed);
        return words;
    }
    template <class Word>
    static size_t PlaceIn(const std::atomic<Word>& word)
    {
        return word.load(std::memory_order_relaxed) & (kMark<Word> - 1u);
    }
    template <class Word>
    static bool IsMarked(const std::atomic<Word>& word)
    {
        return word.load(std::memory_order_relaxed) >= kMark<Word>;
    }
    /// Places never change, so marks can't undo one another.
    template <class Word>
    static void Mark(std::atomic<Word>& word, bool wasRead)
    {
        word.store(static_cast<Word>(PlaceIn(word) | (wasRead ? kMark<Word> : 0u)), std::memory_order_relaxed);
    }

    size_t m_count = 0;
    Words<uint16_t> m_small; // one of these
    Words<uint32_t> m_large;
};

} // namespace ostrand
