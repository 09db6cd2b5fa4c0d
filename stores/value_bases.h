// What this process last read or wrote of each value of one file: the base that a merge compares with.
#pragma once

#include "stores/name_layout.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace ostrand {

/// How a value stands to its base.
enum class BaseRelation { NoBase, Same, Different };

/// Hashes of values, by name; no text is kept. Names go in by their HashName. Two names whose hashes share the lower
/// half share one place, which can only turn `Same` into `Different`: a conflict reported too many, never one too few.
class ValueBases {
public:
    /// Stands for a value that was looked for and isn't there. Any other is a HashValue.
    static constexpr uint64_t kNoValue = 0;

    void Set(uint64_t name, uint64_t value);
    /// The same where nothing is known yet of that value.
    void SetIfNew(uint64_t name, uint64_t value);
    BaseRelation Compare(uint64_t name, uint64_t value);

    /// Makes room for values of a shared layout, which `SetAt` then sets without a search. What is known stays.
    void Use(const std::shared_ptr<const NameLayout>& layout);
    void SetAt(size_t number, uint64_t value) { m_values[number] = value; }

    /// Twelve bytes: thousands of files stay in memory like this.
    struct Base {
        uint32_t name;
        uint32_t low, high; // halves of a hash of both, name and value
        bool operator==(const Base&) const = default;
    };
    /// All that is known, without a layout; and the same back from there.
    std::vector<Base> Plain() const;
    void TakePlain(std::vector<Base> bases);

    bool IsEmpty() const { return m_values.empty() && m_bases.empty(); }
    void Clear() { *this = ValueBases(); }

private:
    /// No HashValue, see there.
    static constexpr uint64_t kUnknown = 1;

    static Base Make(uint64_t name, uint64_t value);
    /// The place of a name in the layout, if it's known there.
    uint64_t* FindAt(uint64_t name);
    size_t Find(uint32_t name);
    void CompleteIndex();

    // Values of one layout, eight bytes each, go before the others.
    std::shared_ptr<const NameLayout> m_layout;
    std::vector<uint64_t> m_values;
    std::vector<Base> m_bases;
    size_t m_next = 0; // values mostly come in one order: the first guess
    NameIndex m_index; // over the first m_indexed bases; completed when a guess fails
    size_t m_indexed = 0;
};

} // namespace ostrand
