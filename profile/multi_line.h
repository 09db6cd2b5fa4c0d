// VProfileMultiLineString: a text of several lines, kept in the store as the list of its lines.
#pragma once

#include "platform/export.h"
#include "profile/values.h"

namespace ostrand {

class OSTRAND_API VProfileMultiLineString : public VProfile2<VStringArray, VProfileMultiSz> {
public:
    using VProfile2::operator=;
    using VProfile2::Load;

    /// Takes the name, and no lines where the store has none.
    virtual void Load(const VProfileKey* key, const char16_t* valueName);

    /// Lines end with "\n" or "\r\n"; what follows the last end is a line too, even if empty. Null counts as empty.
    void SetText(const char16_t* text);
    /// The lines with "\r\n" between them.
    VUnicodeString GetText() const;
};

} // namespace ostrand
