// VMap: a chained hash map whose table never grows. Meant for tables of dozens; its order is part of what callers see.
#pragma once

#include "core/array.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace ostrand {

/// A 32-bit key is its own hash.
inline uint32_t MapHash(uint32_t key) { return key; }

/// The sum of the code units, so texts of the same letters share a bucket.
inline uint32_t MapHash(const VUnicodeString& key)
{
    uint32_t sum = 0;
    for (const char16_t c : key.View())
        sum += c;
    return sum;
}

/// Keys are 32-bit numbers or strings; strings are compared with regard to case. Not safe to share between threads for
/// writing.
template <class K, class V>
class VMap {
public:
    static constexpr size_t kDefaultBuckets = 25;

    explicit VMap(size_t bucketCount = kDefaultBuckets) : m_buckets(std::max<size_t>(bucketCount, 1)) {}
    /// Entries keep their order.
    VMap(const VMap& other) : m_buckets(other.m_buckets.GetCapacity())
    {
        for (size_t i = other.m_count; i-- > 0;) {
            const Entry& entry = *other.EntryAt(i);
            Set(entry.key, entry.value);
        }
    }
    VMap(VMap&& other) noexcept { Swap(other); }
    VMap& operator=(VMap other) noexcept
    {
        Swap(other);
        return *this;
    }
    ~VMap() { RemoveAll(); }

    size_t GetCount() const { return m_count; }
    bool IsEmpty() const { return m_count == 0; }
    size_t GetBucketCount() const { return m_buckets.GetCapacity(); }

    bool Lookup(const K& key, V& value) const
    {
        const Entry* const entry = Find(key);
        if (entry)
            value = entry->value;
        return entry != nullptr;
    }

    void Set(const K& key, V value) { (*this)[key] = std::move(value); }

    /// Makes the entry, with V{}, where there is none.
    V& operator[](const K& key)
    {
        if (Entry* const entry = Find(key))
            return entry->value;
        if (m_buckets.IsEmpty())
            m_buckets.SetSize(m_buckets.GetCapacity());
        Link& front = m_buckets[BucketOf(key)];
        front = std::make_unique<Entry>(Entry{key, V{}, std::move(front)});
        ++m_count;
        return front->value;
    }

    /// False if there was none.
    bool RemoveKey(const K& key)
    {
        if (m_count == 0)
            return false;
        Link* link = &m_buckets[BucketOf(key)];
        while (*link && !((*link)->key == key))
            link = &(*link)->next;
        if (!*link)
            return false;
        *link = std::move((*link)->next);
        --m_count;
        return true;
    }

    void RemoveAll()
    {
        for (Link& front : m_buckets)
            while (front)
                front = std::move(front->next);
        m_count = 0;
    }

    /// Keys by position, 0 to GetCount() - 1: by bucket, the newest of a bucket first. OutOfRange beyond.
    const K& GetKey(size_t position) const
    {
        if (position >= m_count)
            throw typename VArray<Link>::OutOfRange();
        return EntryAt(position)->key;
    }

private:
    struct Entry;
    using Link = std::unique_ptr<Entry>;
    struct Entry {
        K key;
        V value;
        Link next;
    };

    void Swap(VMap& other) noexcept
    {
        std::swap(m_buckets, other.m_buckets);
        std::swap(m_count, other.m_count);
    }

    size_t BucketOf(const K& key) const { return MapHash(key) % m_buckets.GetCapacity(); }

    const Entry* Find(const K& key) const
    {
        if (m_count == 0)
            return nullptr;
        const Entry* entry = m_buckets[BucketOf(key)].get();
        while (entry && !(entry->key == key))
            entry = entry->next.get();
        return entry;
    }
    Entry* Find(const K& key) { return const_cast<Entry*>(std::as_const(*this).Find(key)); }

    const Entry* EntryAt(size_t position) const
    {
        for (const Link& front : m_buckets)
            for (const Entry* entry = front.get(); entry; entry = entry->next.get())
                if (position-- == 0)
                    return entry;
        return nullptr;
    }

    VArray<Link> m_buckets{kDefaultBuckets}; // its capacity is the number of buckets
    size_t m_count = 0;
};

} // namespace ostrand
