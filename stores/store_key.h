// What the stores of this folder share: the status of a key, the handle of a failed open, iterators over names, and the
// levels of a name.
#pragma once

#include "platform/error_codes.h"
#include "profile/backend.h"

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace ostrand {

/// A key with a status, of a store without access rights: descriptors are absent and can't be stored.
class StoreKey : public VProfilePrivateKey {
public:
    bool ReadSecurity(const char16_t*, VSecurityDescriptor&) override { return Answer(kErrorFileNotFound); }
    bool WriteSecurity(const char16_t*, VSecurityDescriptor&) override { return Answer(kErrorUnsupportedType); }
    bool SetKeySecurity(VSecurityDescriptor*) override { return Answer(kErrorSuccess); }
    IReportMessageParams& GetStatus() override
    {
        if (!m_status)
            m_status = std::make_unique<VReportMessageParams>(m_code, LibraryModule());
        return *m_status;
    }

protected:
    /// Leaves the outcome in the status; true for success.
    bool Answer(unsigned code)
    {
        m_code = code;
        if (m_status)
            TellStatus();
        return code == kErrorSuccess;
    }
    /// The same for a write: one that was refused is told by the next flush, too.
    bool AnswerWrite(unsigned code)
    {
        if (code != kErrorSuccess)
            m_refused = code;
        return Answer(code);
    }
    /// False, once, with the reason in the report, if a write was refused since the last call.
    bool TellRefused(IReportMessageParams& report)
    {
        const unsigned code = std::exchange(m_refused, kErrorSuccess);
        return code == kErrorSuccess || Fail(report, code);
    }

private:
    void TellStatus()
    {
        if (m_code == kErrorSuccess)
            m_status->Succeed();
        else
            m_status->SetMessage(m_code);
    }

    std::unique_ptr<VReportMessageParams> m_status; // null until somebody asks
    unsigned m_code = kErrorSuccess;
    unsigned m_refused = kErrorSuccess;
};

/// What a failed open gives: everything fails with the code of the open.
class FailedKey : public StoreKey {
public:
    explicit FailedKey(unsigned code) : m_code(code) { Answer(code); }

    bool ReadMultiSz(const char16_t*, VStringArray&) override { return Answer(m_code); }
    bool ReadBinary(const char16_t*, void*, unsigned*) override { return Answer(m_code); }
    bool ReadString(const char16_t*, VUnicodeString&) override { return Answer(m_code); }
    bool ReadDword(const char16_t*, unsigned*) override { return Answer(m_code); }
    bool WriteMultiSz(const char16_t*, const VStringArray&) override { return AnswerWrite(m_code); }
    bool WriteBinary(const char16_t*, const void*, unsigned) override { return AnswerWrite(m_code); }
    bool WriteString(const char16_t*, const char16_t*) override { return AnswerWrite(m_code); }
    bool WriteDword(const char16_t*, unsigned) override { return AnswerWrite(m_code); }
    bool DeleteValue(const char16_t*) override { return AnswerWrite(m_code); }
    bool DeleteKey(const char16_t*) override { return AnswerWrite(m_code); }
    bool KeyExists(const char16_t*) override { return false; }
    bool IsWritable() override { return false; }
    VProfilePrivateKey* OpenKey(const char16_t*, VSecurityDescriptor*) override
    {
        Answer(m_code);
        return new FailedKey(m_code);
    }
    VProfilePrivateKeyIterator* CreateIterator(bool values) override;
    bool Flush(IReportMessageParams& report) override { return TellRefused(report); }

private:
    unsigned m_code;
};

/// Names as of the iterator's creation.
class SnapshotIterator final : public VProfilePrivateKeyIterator {
public:
    void Add(VUnicodeString name, VProfileValueType type) { m_entries.emplace_back(std::move(name), type); }
    /// By folded name; of names that differ in case alone the first stays.
    void SortNames();
    bool NextValue(VUnicodeString& name, int* type) override;
    bool Next(VUnicodeString& name) override;

private:
    using Entry = std::pair<VUnicodeString, VProfileValueType>;

    std::vector<Entry> m_entries;
    size_t m_next = 0;
};

/// Null counts as the empty name.
inline const char16_t* NameOf(const char16_t* name) { return name ? name : u""; }

/// Calls `take` with each level of "Sessions\Router 1" up to an empty one; false if there is one, or no level at all.
template <class Take>
bool ForEachLevel(std::u16string_view name, Take take)
{
    for (;;) {
        const size_t bar = name.find(u'\\');
        const std::u16string_view level = name.substr(0, bar);
        if (level.empty())
            return false;
        take(level);
        if (bar == std::u16string_view::npos)
            return true;
        name.remove_prefix(bar + 1);
    }
}

/// Cuts "Sessions\Router 1" at its backslashes. False for an empty level, also for an empty or null name.
bool CutLevels(const char16_t* name, std::vector<std::u16string_view>& levels);

/// The rule of ReadBinary for a block of `stored` bytes: answers the size, and a code for a block longer than the room.
unsigned CheckRoom(const void* data, unsigned* size, size_t stored);

} // namespace ostrand
