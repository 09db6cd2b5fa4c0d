#include "stores/value_bases.h"

#include <utility>

namespace ostrand {

ValueBases::Base ValueBases::Make(uint64_t name, uint64_t value)
{
    const uint64_t both = MixHash(name, value);
    return {static_cast<uint32_t>(name), static_cast<uint32_t>(both), static_cast<uint32_t>(both >> 32)};
}

void ValueBases::Use(const std::shared_ptr<const NameLayout>& layout)
{
    if (m_layout == layout)
        return;
    const std::shared_ptr<const NameLayout> before = std::exchange(m_layout, layout);
    const std::vector<uint64_t> values = std::exchange(m_values, std::vector<uint64_t>(layout->Count(), kUnknown));
    for (size_t i = 0; i < values.size(); ++i)
        if (values[i] != kUnknown)
            Set(before->HashOf(i), values[i]);
}

std::vector<ValueBases::Base> ValueBases::Plain() const
{
    ValueBases plain;
    plain.m_bases = m_bases;
    for (size_t i = 0; i < m_values.size(); ++i)
        if (m_values[i] != kUnknown)
            plain.Set(m_layout->HashOf(i), m_values[i]);
    return std::move(plain.m_bases);
}

void ValueBases::TakePlain(std::vector<Base> bases)
{
    Clear();
    m_bases = std::move(bases);
}

uint64_t* ValueBases::FindAt(uint64_t name)
{
    const size_t number = m_layout ? m_layout->FindHash(name) : NameIndex::kNone;
    return number == NameIndex::kNone ? nullptr : &m_values[number];
}

void ValueBases::Set(uint64_t name, uint64_t value)
{
    if (uint64_t* const at = FindAt(name)) {
        *at = value;
        return;
    }
    const Base base = Make(name, value);
    const size_t place = Find(base.name);
    if (place == NameIndex::kNone)
        m_bases.push_back(base);
    else
        m_bases[place] = base;
}

void ValueBases::SetIfNew(uint64_t name, uint64_t value)
{
    if (Compare(name, value) == BaseRelation::NoBase)
        Set(name, value);
}

BaseRelation ValueBases::Compare(uint64_t name, uint64_t value)
{
    if (const uint64_t* const at = FindAt(name); at && *at != kUnknown)
        return *at == value ? BaseRelation::Same : BaseRelation::Different;
    const Base base = Make(name, value);
    const size_t place = Find(base.name);
    if (place == NameIndex::kNone)
        return BaseRelation::NoBase;
    return m_bases[place] == base ? BaseRelation::Same : BaseRelation::Different;
}

size_t ValueBases::Find(uint32_t name)
{
    constexpr size_t kFew = 8; // not worth an index
    size_t place = m_next;
    if (m_bases.size() <= kFew) {
        place = 0;
        while (place < m_bases.size() && m_bases[place].name != name)
            ++place;
        return place < m_bases.size() ? place : NameIndex::kNone;
    }
    if (place >= m_bases.size() || m_bases[place].name != name) {
        CompleteIndex();
        place = m_index.Find(name, [&](size_t i) { return m_bases[i].name == name; });
    }
    if (place != NameIndex::kNone)
        m_next = place + 1;
    return place;
}

void ValueBases::CompleteIndex()
{
    if (m_bases.size() > m_index.Room()) {
        m_index.Reset(m_bases.size() + m_bases.size() / 2);
        m_indexed = 0;
    }
    for (; m_indexed < m_bases.size(); ++m_indexed)
        m_index.Put(m_bases[m_indexed].name, m_indexed, [](size_t) { return false; });
}

} // namespace ostrand
