// What targets of session importers share: sessions that can be stored, or a reason.
#pragma once

#include "config/session/session_name.h"
#include "core/fold.h"
#include "fuzz/one_file.h"
#include "imports/imported_session.h"

#include <unordered_set>

namespace ostrand::fuzz {

inline void CheckSessions(const SessionImport& import)
{
    std::unordered_set<std::u16string> names;
    for (const ImportedSession& session : import.sessions) {
        VUnicodeString reason;
        Check(CheckSessionName(session.name, reason) && session.name.GetLength() < 200);
        Check(names.insert(FoldedCase(session.name)).second);
        Check(!session.protocol.IsEmpty() && session.port <= 65535 && session.line > 0);
        Check(session.serial.has_value() == (session.protocol == u"Serial"));
        for (const ImportedValue& value : session.values)
            Check(!value.name.IsEmpty());
    }
}

template <class Read>
void CheckImport(Read read, std::string_view bytes)
{
    SessionImport import;
    ImportFault error;
    const bool isRead = read(bytes, import, error);
    Check(isRead != import.sessions.empty());
    Check(isRead || !error.text.IsEmpty());
    CheckSessions(import);
    for (const ImportFault& note : import.notes)
        Check(!note.text.IsEmpty() && note.text.GetLength() < 1024);
    for (const UnmappedName& name : import.unmapped)
        Check(name.line > 0 && name.count > 0 && name.name.GetLength() < 100);
}

} // namespace ostrand::fuzz
