#include "stores/write_queue.h"

#include "core/fold.h"

namespace ostrand {

size_t WriteQueue::PlaceOf(uint64_t hash, const char16_t* name) const
{
    const auto same = [&](size_t i) { return m_values[i].hash == hash && EqualNoCase(m_values[i].name, name); };
    return m_index.Find(hash, same);
}

const QueuedValue* WriteQueue::Find(const char16_t* name) const
{
    const size_t place = PlaceOf(HashName(name), name);
    return place == NameIndex::kNone ? nullptr : &m_values[place];
}

void WriteQueue::Put(const char16_t* name, const std::string* text)
{
    const uint64_t hash = HashName(name);
    size_t place = PlaceOf(hash, name);
    const auto isNew = [](size_t) { return false; };
    if (place == NameIndex::kNone) {
        place = m_values.size();
        m_values.push_back({name, hash, {}, false});
        if (m_values.size() > m_index.Room()) {
            m_index.Reset(m_values.size() * 2 + 6);
            for (size_t i = 0; i < place; ++i)
                m_index.Put(m_values[i].hash, i, isNew);
        }
        m_index.Put(hash, place, isNew);
    }
    m_values[place].isDeleted = text == nullptr;
    m_values[place].text = text ? *text : std::string();
}

WriteQueue WriteQueue::Copy() const
{
    WriteQueue copy;
    for (const QueuedValue& value : m_values)
        copy.Put(value.name.c_str(), value.isDeleted ? nullptr : &value.text);
    return copy;
}

} // namespace ostrand
