// VArray: the dynamic array whose growth and bounds rules other parts rely on.
#pragma once

#include "core/strings.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <memory>
#include <new>
#include <utility>

namespace ostrand {

/// A dynamic array. Memory is taken at the first insertion; until then `GetCapacity` is what the constructor was given.
/// Not safe to share between threads for writing.
template <class T>
class VArray {
public:
    /// Raised by every checked access outside 0 to count - 1. Each instantiation has its own type.
    class OutOfRange : public std::exception {
    public:
        const char* what() const noexcept override { return "VArray: index out of range"; }
    };

    static constexpr size_t kInitialCapacity = 3;

    explicit VArray(size_t initialCapacity = kInitialCapacity) : m_capacity(initialCapacity) {}
    VArray(const VArray& other)
        : m_capacity(other.m_capacity),
          m_multiplier(other.m_multiplier),
          m_addend(other.m_addend)
    {
        if (other.m_count == 0)
            return;
        Allocate();
        std::uninitialized_copy_n(other.m_items, other.m_count, m_items);
        m_count = other.m_count;
    }
    VArray(VArray&& other) noexcept { Swap(other); }
    VArray& operator=(VArray other) noexcept
    {
        Swap(other);
        return *this;
    }
    ~VArray()
    {
        std::destroy_n(m_items, m_count);
        std::allocator<T>().deallocate(m_items, m_items ? m_capacity : 0);
    }

    size_t GetCount() const { return m_count; }
    size_t GetCapacity() const { return m_capacity; }
    bool IsEmpty() const { return m_count == 0; }

    const T& operator[](size_t index) const { return m_items[Checked(index)]; }
    T& operator[](size_t index) { return m_items[Checked(index)]; }

    const T* begin() const { return m_items; }
    const T* end() const { return m_items + m_count; }
    T* begin() { return m_items; }
    T* end() { return m_items + m_count; }

    void Append(T item) { InsertAt(m_count, std::move(item)); }

    /// `index` may equal the count.
    void InsertAt(size_t index, T item)
    {
        if (index > m_count)
            throw OutOfRange();
        if (!m_items || m_count == m_capacity)
            Grow(m_items ? std::max(m_count + 1, m_multiplier * m_capacity + m_addend)
                         : std::max<size_t>(m_capacity, 1));
        if (index == m_count) {
            ::new (static_cast<void*>(m_items + m_count)) T(std::move(item));
        } else {
            ::new (static_cast<void*>(m_items + m_count)) T(std::move(m_items[m_count - 1]));
            std::move_backward(m_items + index, m_items + m_count - 1, m_items + m_count);
            m_items[index] = std::move(item);
        }
        ++m_count;
    }

    void RemoveAt(size_t index)
    {
        Checked(index);
        std::move(m_items + index + 1, m_items + m_count, m_items + index);
        std::destroy_at(m_items + --m_count);
    }

    void RemoveAll()
    {
        std::destroy_n(m_items, m_count);
        m_count = 0;
    }

    /// Cuts, or fills with T{}. Growth takes growMultiplier * max(capacity, size) + growAddend.
    void SetSize(size_t size)
    {
        if (size < m_count) {
            std::destroy_n(m_items + size, m_count - size);
        } else if (size > m_count) {
            if (size > m_capacity)
                Grow(m_multiplier * std::max(m_capacity, size) + m_addend);
            else if (!m_items)
                Allocate();
            std::uninitialized_value_construct_n(m_items + m_count, size - m_count);
        }
        m_count = size;
    }

    friend bool operator==(const VArray& a, const VArray& b)
    {
        return std::equal(a.begin(), a.end(), b.begin(), b.end());
    }

private:
    size_t Checked(size_t index) const
    {
        if (index >= m_count)
            throw OutOfRange();
        return index;
    }

    void Allocate() { m_items = std::allocator<T>().allocate(m_capacity); }

    void Grow(size_t capacity)
    {
        T* const items = std::allocator<T>().allocate(capacity);
        std::uninitialized_move_n(m_items, m_count, items);
        std::destroy_n(m_items, m_count);
        std::allocator<T>().deallocate(m_items, m_items ? m_capacity : 0);
        m_items = items;
        m_capacity = capacity;
    }

    void Swap(VArray& other) noexcept
    {
        std::swap(m_capacity, other.m_capacity);
        std::swap(m_count, other.m_count);
        std::swap(m_items, other.m_items);
        std::swap(m_multiplier, other.m_multiplier);
        std::swap(m_addend, other.m_addend);
    }

    size_t m_capacity = kInitialCapacity;
    size_t m_count = 0;
    T* m_items = nullptr;
    size_t m_multiplier = 2;
    size_t m_addend = 0;
};

/// A list of strings, as stores hold them.
class VStringArray : public VArray<VUnicodeString> {
public:
    using VArray::VArray;
};

} // namespace ostrand
