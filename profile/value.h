// VProfileData and its store forms: named, typed settings that read, save, compare, undo and merge themselves.
//
// A value has three states, told by `dirty` and the comparison with its saved copy:
//   clean    dirty off, current = saved    Save writes nothing
//   changed  current differs from saved    Save writes
//   pending  dirty on,  current = saved    Save writes; defaults begin here and so reach a new store
//
// No locks: an owner guards its values as a whole. The order of the virtual operations is part of the contract.
#pragma once

#include "core/array.h"
#include "core/report.h"
#include "core/strings.h"
#include "profile/key.h"
#include "profile/variant.h"

#include <array>
#include <cstdint>
#include <span>

namespace ostrand {

/// Reads texts for `Parse`; brought by the application.
class IProfileValueParser {
public:
    virtual bool ParseStringArray(VStringArray* out, const VUnicodeString& text, IReportMessageParams& report,
                                  bool flag) = 0;
    virtual bool ParseString(VUnicodeString* out, const VUnicodeString& text, IReportMessageParams& report,
                             bool flag) = 0;
    virtual bool ParseReserved(void* out, const VUnicodeString& text, IReportMessageParams& report) = 0;
    virtual bool ParseBool(bool* out, const VUnicodeString& text) = 0;

protected:
    ~IProfileValueParser() = default;
};

/// Root of the family: a leaf value, or a record of values.
class OSTRAND_API VProfileData {
public:
    VProfileData() = default;
    VProfileData(const VProfileData&) = default;
    /// Takes the name and schedules a write, even when both hold the same value.
    VProfileData& operator=(const VProfileData& other)
    {
        name = other.name;
        dirty = true;
        return *this;
    }
    virtual ~VProfileData() = default;

    /// Current value from text; on success also the saved copy, and `dirty` is cleared. Numbers and times need no
    /// parser.
    virtual bool Parse(const VUnicodeString& text, IProfileValueParser* parser, IReportMessageParams& report);
    /// Writes the current value under its name where it is changed, pending or forced. A null key writes nothing and
    /// changes nothing. A failed write counts as saved; the key keeps the reason.
    virtual void Save(VProfileKey* key, bool force) = 0;
    /// Whether the current value differs from the saved copy. Ignores `dirty`.
    virtual bool IsModified() const = 0;
    /// A difference from the saved copy sets `dirty`; then the current value becomes the saved copy. Writes nothing.
    virtual void AcceptChanges() = 0;
    /// Current value := saved copy. `dirty` stays.
    virtual void RevertChanges() = 0;
    /// Current value := that of `other`, which must be of the same class. Neither saved copy nor `dirty` changes.
    virtual void CopyValue(const VProfileData& other) = 0;
    /// A record's member by its place in the table, null behind the last; a leaf is its own member at any index.
    virtual VProfileData* GetMember(int index) = 0;
    virtual bool GetVariantData(VVariant* out, const void* data, unsigned size, IReportMessageParams& report);
    virtual bool GetVariant(VVariant* out, IReportMessageParams& report);
    virtual bool SetVariantData(const VVariant* in, void* data, unsigned size, IReportMessageParams& report);
    /// Current value from an automation value; saved copy and `dirty` stay.
    virtual bool SetVariant(const VVariant* in, IReportMessageParams& report);
    /// A record calls this before it saves its members.
    virtual void PrepareSave(VProfileKey*, bool) {}
    virtual bool IsDirty() const { return dirty; }

    void SetName(const char16_t* text) { name = text; }
    /// Shares the name's buffer; a schema holds each name once for all objects.
    void SetName(const VUnicodeString& text) { name = text; }

    VUnicodeString name;
    bool dirty = false;
};

/// Store form of numbers: one 32-bit value.
class OSTRAND_API VProfileDword : public VProfileData {
protected:
    bool ReadStored(const VProfileKey* key, unsigned* out) const { return key->ReadDword(name.c_str(), out); }
    void WriteStored(VProfileKey* key, unsigned value);
};

/// Store form of texts.
class OSTRAND_API VProfileSz : public VProfileData {
public:
    /// `data` is a VUnicodeString.
    bool GetVariantData(VVariant* out, const void* data, unsigned size, IReportMessageParams& report) override;
    bool SetVariantData(const VVariant* in, void* data, unsigned size, IReportMessageParams& report) override;

protected:
    bool ReadStored(const VProfileKey* key, VUnicodeString* out) const { return key->ReadString(name.c_str(), *out); }
    void WriteStored(VProfileKey* key, const VUnicodeString& value);
    /// A text that the parser has nothing to say about is taken as it stands.
    static bool ParseInto(VUnicodeString* out, const VUnicodeString& text, IProfileValueParser* parser,
                          IReportMessageParams& report);
};

/// Store form of records: a block of bytes. A record R brings its stored form with it:
///     static constexpr unsigned kStoredSize;                       // bytes
///     void Pack(std::span<uint8_t, kStoredSize> out) const;        // field by field, little-endian
///     void Unpack(std::span<const uint8_t, kStoredSize> in);
class OSTRAND_API VProfileBinary : public VProfileData {
protected:
    bool ReadStored(const VProfileKey* key, void* data, unsigned& size) const
    {
        return key->ReadBinary(name.c_str(), data, &size);
    }
    void WriteStored(VProfileKey* key, const void* data, unsigned size);

    /// A block shorter than the record fills its front; the rest keeps its former contents. A longer one isn't read.
    template <class R>
    bool ReadStored(const VProfileKey* key, R* record) const
    {
        std::array<uint8_t, R::kStoredSize> block{};
        record->Pack(block);
        unsigned size = R::kStoredSize;
        if (!ReadStored(key, block.data(), size))
            return false;
        record->Unpack(block);
        return true;
    }
    template <class R>
    void WriteStored(VProfileKey* key, const R& record)
    {
        std::array<uint8_t, R::kStoredSize> block{}; // bytes that a record leaves out are stored as zeros
        record.Pack(block);
        WriteStored(key, block.data(), R::kStoredSize);
    }
    /// Records have no text form.
    static bool ParseInto(void*, const VUnicodeString&, IProfileValueParser*, IReportMessageParams&) { return false; }
};

/// Store form of lists of texts.
class OSTRAND_API VProfileMultiSz : public VProfileData {
public:
    /// `data` is a VStringArray.
    bool SetVariantData(const VVariant* in, void* data, unsigned size, IReportMessageParams& report) override;
    /// The list as an array of texts.
    virtual bool GetVariantArray(VVariant* out, const VStringArray& list, IReportMessageParams& report);

    /// Handed inverted to the parser as its last argument.
    bool parserOption = true;

protected:
    bool ReadStored(const VProfileKey* key, VStringArray* out) const { return key->ReadMultiSz(name.c_str(), *out); }
    void WriteStored(VProfileKey* key, const VStringArray& value);
    bool ParseInto(VStringArray* out, const VUnicodeString& text, IProfileValueParser* parser,
                   IReportMessageParams& report) const;
};

/// A record: its members are a fixed list, and the generic operations walk it from the first to the last.
class OSTRAND_API VProfileRecord : public VProfileData {
public:
    /// PrepareSave on itself, then each member with the same key.
    void Save(VProfileKey* key, bool force) override;
    bool IsModified() const override;
    void AcceptChanges() override;
    void RevertChanges() override;
    /// Copies only members that report a change in `other`, so that two editors of different values don't undo one
    /// another.
    void CopyValue(const VProfileData& other) override;
};

} // namespace ostrand
