// VUnicodeString, the 16-bit string of the library: shared, copied on write, and zeroed when it held a secret.
#pragma once

#include "platform/export.h"

#include <atomic>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace ostrand {

/// A fault of the caller that the library can't go on after; `code` is one of core/messages.h.
class OSTRAND_API VPlatformException : public std::exception {
public:
    explicit VPlatformException(unsigned c) : code(c) {}
    const char* what() const noexcept override;
    const unsigned code;
};

/// A reference-counted, copy-on-write string of 16-bit characters; any code units, lone surrogates included.
/// The object is one pointer to zero-terminated characters; a header stands in front of them. Counts are atomic, so
/// copies may live on different threads; one object isn't safe to share for writing.
class OSTRAND_API VUnicodeString {
public:
    static constexpr size_t npos = static_cast<size_t>(-1);

    VUnicodeString() noexcept : m_text(EmptyText()) {}
    VUnicodeString(std::u16string_view text); // NOLINT(google-explicit-constructor): texts are strings
    /// Null counts as empty.
    VUnicodeString(const char16_t* text); // NOLINT(google-explicit-constructor)
    VUnicodeString(const VUnicodeString& other) noexcept : m_text(other.m_text) { Retain(m_text); }
    VUnicodeString(VUnicodeString&& other) noexcept : m_text(other.m_text) { other.m_text = EmptyText(); }
    VUnicodeString& operator=(const VUnicodeString& other) noexcept;
    VUnicodeString& operator=(VUnicodeString&& other) noexcept;
    VUnicodeString& operator=(std::u16string_view text);
    VUnicodeString& operator=(const char16_t* text);
    ~VUnicodeString() { Drop(m_text); }

    /// A string whose buffer is never counted nor freed, for names of tables that live as long as the process.
    static VUnicodeString Immortal(std::u16string_view text);
    /// A string of `length` units whose characters the caller fills at once, before anyone else sees it.
    static VUnicodeString WithLength(size_t length, char16_t*& characters);

    const char16_t* c_str() const { return m_text; }
    size_t GetLength() const { return HeaderOf(m_text)->length / sizeof(char16_t); }
    bool IsEmpty() const { return HeaderOf(m_text)->length == 0; }
    operator std::u16string_view() const { return {m_text, GetLength()}; } // NOLINT(google-explicit-constructor)
    std::u16string_view View() const { return *this; }

    /// Raises kStringIndexOutOfRange (VPlatformException) at or behind the end.
    char16_t operator[](size_t index) const;
    void SetAt(size_t index, char16_t c);

    void Append(std::u16string_view text);
    VUnicodeString& operator+=(std::u16string_view text)
    {
        Append(text);
        return *this;
    }
    void Clear() { *this = VUnicodeString(); }
    friend VUnicodeString operator+(VUnicodeString text, std::u16string_view tail)
    {
        text += tail;
        return text;
    }

    /// Parts beyond the end are cut. A part of a secret is a secret.
    VUnicodeString Left(size_t count) const { return Part(View().substr(0, count)); }
    VUnicodeString Right(size_t count) const;
    VUnicodeString Mid(size_t first, size_t count = npos) const;
    size_t Find(std::u16string_view text, size_t from = 0) const { return View().find(text, from); }
    size_t ReverseFind(char16_t c) const { return View().rfind(c); }
    /// Blanks, tabs and line ends at both ends.
    VUnicodeString Trimmed() const;

    /// Common length first, stopping at a zero in both, then the lengths.
    int Compare(std::u16string_view other) const;
    int CompareNoCase(std::u16string_view other) const;

    /// Marks the content as a secret: the buffer becomes private, and is zeroed when its last reference goes.
    void MarkSensitive();
    bool IsSensitive() const { return HeaderOf(m_text)->sensitive != 0; }
    /// Whether both objects share one buffer.
    bool SharesBufferWith(const VUnicodeString& other) const { return m_text == other.m_text; }

    /// Every code unit and the length: the equality of change detection.
    friend bool operator==(const VUnicodeString& a, const VUnicodeString& b)
    {
        return a.m_text == b.m_text || a.View() == b.View();
    }
    friend bool operator==(const VUnicodeString& a, std::u16string_view b) { return a.View() == b; }
    friend bool operator==(const VUnicodeString& a, const char16_t* b) { return a.View() == std::u16string_view(b); }

private:
    struct Header {
        uint32_t capacity;               // bytes of room, without the final zero
        uint32_t length;                 // bytes in use
        char16_t* data;                  // the characters behind this header
        uint32_t sensitive;              // 1 if the content is a secret
        std::atomic<int32_t> references; // below zero: never counted nor freed
    };
    struct EmptyBlock;

    static Header* HeaderOf(char16_t* text) { return reinterpret_cast<Header*>(text) - 1; }
    static char16_t* EmptyText() noexcept;
    static char16_t* Allocate(size_t length, size_t capacity);
    static void Retain(char16_t* text) noexcept
    {
        std::atomic<int32_t>& count = HeaderOf(text)->references;
        if (count.load(std::memory_order_relaxed) >= 0)
            count.fetch_add(1, std::memory_order_relaxed);
    }
    static void Drop(char16_t* text) noexcept
    {
        if (HeaderOf(text)->references.load(std::memory_order_relaxed) >= 0)
            ReleaseCounted(text);
    }
    static void ReleaseCounted(char16_t* text) noexcept;
    VUnicodeString Part(std::u16string_view part) const;
    /// A buffer of this object's own with room for `length` units; keeps the content and the mark.
    void MakePrivate(size_t length);

    char16_t* m_text;
};

/// A string behind an interface, for callers across a module's edge.
class IString {
public:
    virtual ~IString() = default;
    virtual void Set(const char16_t* text, bool sensitive) = 0;
    virtual const char16_t* Get() const = 0;
};

class VUnicodeStringI : public VUnicodeString, public IString {
public:
    void Set(const char16_t* text, bool sensitive) override
    {
        VUnicodeString::operator=(text);
        if (sensitive)
            MarkSensitive();
    }
    const char16_t* Get() const override { return c_str(); }
};

/// UTF-8 at the file and platform edge. A lone surrogate has no UTF-8: `ToUtf8` answers false and writes "?" for it.
OSTRAND_API bool ToUtf8(std::u16string_view text, std::string& out);
OSTRAND_API std::string ToUtf8(std::u16string_view text);
/// False for bytes that are no UTF-8; what was decoded before them stands in `out`.
OSTRAND_API bool FromUtf8(std::string_view bytes, VUnicodeString& out);

} // namespace ostrand
