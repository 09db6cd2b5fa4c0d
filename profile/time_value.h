// Times as values: kept in the store as a text like "2024:02:29:12:34:56:789", always UTC.
//
//   time = year ":" month ":" day ":" hour ":" minute ":" second ":" millisecond      digits only, any number of them
#pragma once

#include "core/calendar.h"
#include "platform/export.h"
#include "profile/values.h"

#include <string_view>

namespace ostrand {

/// False, `out` untouched, for anything but seven fields in their ranges that make a real date.
[[nodiscard]] OSTRAND_API bool ParseTimeText(std::u16string_view text, VFileTime& out);
/// False, `out` untouched, for a moment behind the calendar's last year.
[[nodiscard]] OSTRAND_API bool FormatTimeText(VFileTime time, VUnicodeString& out);

/// Store form of times. The operations stand apart from the value so that a record can keep a time without one.
class OSTRAND_API VProfileTimeSz : public VProfileSz {
public:
    virtual bool ParseTime(VFileTime* out, const VUnicodeString& text, IProfileValueParser* parser,
                           IReportMessageParams& report);
    /// False for a missing value and for a text that is no time. `size` is that of the record.
    virtual bool ReadTime(const VProfileKey* key, const char16_t* valueName, VFileTime* out, unsigned size);
    /// Clears `dirty`. On purpose: a time that has no text isn't written, and counts as saved.
    virtual void WriteTime(VProfileKey* key, const char16_t* valueName, const VFileTime* value, unsigned size);
    /// `data` is a VFileTime; the automation value is its text.
    bool GetVariantData(VVariant* out, const void* data, unsigned size, IReportMessageParams& report) override;
    bool SetVariantData(const VVariant* in, void* data, unsigned size, IReportMessageParams& report) override;

protected:
    bool ReadStored(const VProfileKey* key, VFileTime* out)
    {
        return ReadTime(key, name.c_str(), out, sizeof(VFileTime));
    }
    void WriteStored(VProfileKey* key, const VFileTime& value)
    {
        WriteTime(key, name.c_str(), &value, sizeof(VFileTime));
    }
    bool ParseInto(VFileTime* out, const VUnicodeString& text, IProfileValueParser* parser,
                   IReportMessageParams& report)
    {
        return ParseTime(out, text, parser, report);
    }
};

extern template class OSTRAND_API VProfile2<VFileTime, VProfileTimeSz>;

class OSTRAND_API VProfileTime : public VProfile2<VFileTime, VProfileTimeSz> {
public:
    using VProfile2::operator=;
};

} // namespace ostrand
