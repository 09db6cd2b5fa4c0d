// The values of one saved session of PuTTY, by their names and as what they must be.
#pragma once

#include "imports/imported_session.h"
#include "imports/putty_keys.h"

#include <set>

namespace ostrand {

class PuttyValues {
public:
    /// Values of the wrong form are noted and count as missing. All must outlive this.
    PuttyValues(const PuttySession& session, SessionCollector& notes) : m_session(session), m_notes(notes) {}

    /// False, with the number as it was, for a missing value or one outside the range.
    bool Number(std::u16string_view name, uint32_t low, uint32_t high, uint32_t& number);
    bool Flag(std::u16string_view name, bool& flag);
    /// Without blanks at its ends; false for an empty one, too.
    bool Text(std::u16string_view name, VUnicodeString& text);
    /// Three numbers from 0 to 255 with commas between; 0x00BBGGRR.
    bool Color(std::u16string_view name, uint32_t& color);

    /// Tells of all values that nothing has asked for.
    void NoteOthers() const;

private:
    const RegistryValue* Find(std::u16string_view name);
    bool Fail(const RegistryValue& value, const char16_t* what);

    const PuttySession& m_session;
    SessionCollector& m_notes;
    std::set<const RegistryValue*> m_asked;
};

} // namespace ostrand
