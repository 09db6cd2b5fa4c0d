#include "stores/value_bases.h"

namespace ostrand {

ValueBases::Base ValueBases::Make(uint64_t name, uint64_t value)
{
    const uint64_t both = MixHash(name, value);
    return {static_cast<uint32_t>(name), static_cast<uint32_t>(both), static_cast<uint32_t>(both >> 32)};
}

void ValueBases::Set(uint64_t name, uint64_t value)
{
    const Base base = Make(name, value);
    const size_t place = Find(base.name);
    if (place == NameIndex::kNone)
        m_bases.push_back(base);
    else
        m_bases[place] = base;
}

BaseRelation ValueBases::Compare(uint64_t name, uint64_t value)
{
    const Base base = Make(name, value);
    const size_t place = Find(base.name);
    if (place == NameIndex::kNone)
        return BaseRelation::NoBase;
    return m_bases[place] == base ? BaseRelation::Same : BaseRelation::Different;
}

size_t ValueBases::Find(uint32_t name)
{
    size_t place = m_next;
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
