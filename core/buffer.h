// VBasicBuffer: a growing block of bytes that can hold a secret.
#pragma once

#include "core/unknown.h"
#include "platform/export.h"

#include <cstddef>

namespace ostrand {

/// A block of bytes behind an interface. Operations in this order behind the three of IUnknown.
class IBuffer : public IUnknown {
public:
    virtual void Append(const void* data, size_t size, size_t extra) = 0;
    virtual bool SetLength(size_t length) = 0;
    /// Borrowed, until the next operation that changes the block; null before anything was reserved.
    virtual unsigned char* GetData() = 0;
    virtual size_t GetLength() const = 0;
    virtual ~IBuffer() = default;
    /// Deletes the object; called when its last reference goes.
    virtual void Destroy() { delete this; }
};

/// Takes memory at the first Append. One thread at a time.
class OSTRAND_API VBasicBuffer : public VUnknown<IBuffer> {
public:
    explicit VBasicBuffer(bool isSensitive = false) : sensitive(isSensitive) {}
    VBasicBuffer(const VBasicBuffer&) = delete;
    VBasicBuffer& operator=(const VBasicBuffer&) = delete;
    ~VBasicBuffer() override;

    /// Where `size` more bytes don't fit, grows to exactly length + size + extra. Null `data` only makes the room.
    /// `data` may lie in this buffer.
    void Append(const void* data, size_t size, size_t extra = 0) override;
    /// Above the capacity the length becomes the capacity, the answer is false, and `lastError`
    /// kErrorInsufficientBuffer. Bytes that come in by a longer length are what the room held.
    bool SetLength(size_t length) override;
    unsigned char* GetData() override { return m_data; }
    size_t GetLength() const override { return m_length; }
    size_t GetCapacity() const { return m_capacity; }

    /// Zeroes each block before it is given back.
    bool sensitive;
    unsigned lastError = 0;

private:
    void GiveBack();

    unsigned char* m_data = nullptr;
    size_t m_capacity = 0;
    size_t m_length = 0;
};

} // namespace ostrand
