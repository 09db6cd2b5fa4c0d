// Reference-counted interfaces: the base that implements the count, and the smart pointer that holds one.
#pragma once

#include <atomic>
#include <cstdint>
#include <cstring>

namespace ostrand {

/// 128-bit name of an interface.
struct VInterfaceId {
    uint8_t bytes[16];
};

inline constexpr int32_t kNoError = 0;
inline constexpr int32_t kNoInterface = static_cast<int32_t>(0x80004002u);

/// The shape that every counted interface begins with. The order of the operations is part of the binary contract.
class IUnknown {
public:
    virtual int32_t QueryInterface(const VInterfaceId& id, void** out) = 0;
    virtual uint32_t AddRef() = 0;
    virtual uint32_t Release() = 0;

protected:
    ~IUnknown() = default;
};

/// A counted object without operations of its own.
class ICounted : public IUnknown {
public:
    virtual ~ICounted() = default;
    /// Deletes the object; called when its last reference goes.
    virtual void Destroy() { delete this; }
};

/// A counted object that can be copied.
class IClonable : public IUnknown {
public:
    /// A new object with one reference, the caller's.
    virtual IClonable* Clone() const = 0;
};

/// Implements the three operations for an interface I that declares a virtual `Destroy`. The count is atomic, signed
/// and starts at 1, owned by whoever constructed the object; `Destroy` runs when Release takes it to 0 or below.
template <class I>
class VUnknown : public I {
public:
    VUnknown() = default;
    /// A copy is a new object with a count of its own.
    VUnknown(const VUnknown& other) : I(other) {}
    VUnknown& operator=(const VUnknown&) { return *this; }

    int32_t QueryInterface(const VInterfaceId&, void** out) override
    {
        *out = nullptr;
        return kNoInterface;
    }
    uint32_t AddRef() override { return static_cast<uint32_t>(m_count.fetch_add(1, std::memory_order_relaxed) + 1); }
    uint32_t Release() override
    {
        const int32_t left = m_count.fetch_sub(1, std::memory_order_acq_rel) - 1;
        if (left <= 0)
            this->Destroy();
        return static_cast<uint32_t>(left);
    }

private:
    std::atomic<int32_t> m_count{1};
};

/// Holds one reference to a counted object, or none. There is no constructor from a raw pointer, so each use says
/// whether it takes over a reference or adds one.
template <class T>
class VUnknownPointer {
public:
    VUnknownPointer() = default;
    VUnknownPointer(const VUnknownPointer& other) : m_object(other.m_object)
    {
        if (m_object)
            m_object->AddRef();
    }
    VUnknownPointer(VUnknownPointer&& other) noexcept : m_object(other.m_object) { other.m_object = nullptr; }
    VUnknownPointer& operator=(VUnknownPointer other) noexcept
    {
        T* const mine = m_object;
        m_object = other.m_object;
        other.m_object = mine;
        return *this;
    }
    ~VUnknownPointer() { Reset(); }

    T* Get() const { return m_object; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    explicit operator bool() const { return m_object != nullptr; }

    void Reset()
    {
        if (T* const object = m_object) {
            m_object = nullptr;
            object->Release();
        }
    }

    /// Takes over the reference that the caller holds.
    static VUnknownPointer Adopt(T* object)
    {
        VUnknownPointer p;
        p.m_object = object;
        return p;
    }
    /// Adds a reference of its own.
    static VUnknownPointer Share(T* object)
    {
        if (object)
            object->AddRef();
        return Adopt(object);
    }

private:
    T* m_object = nullptr;
};

} // namespace ostrand
