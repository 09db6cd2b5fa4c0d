#include "imports/imported_session.h"

#include "core/fold.h"
#include "imports/import_text.h"

#include <utility>

namespace ostrand {

bool SessionCollector::Add(ImportedSession session)
{
    if (m_import.sessions.size() == kMaxSessions)
        return false;
    VUnicodeString name = m_names.Take(session.name);
    if (!(name == session.name))
        Note(session.line, Format(u"'%1' becomes the session '%2'", Cited(session.name), name));
    session.name = std::move(name);
    m_import.sessions.push_back(std::move(session));
    return true;
}

void SessionCollector::Note(size_t line, VUnicodeString text)
{
    if (m_import.notes.size() < kMaxNotes)
        m_import.notes.push_back({line, std::move(text)});
}

void SessionCollector::NoteUnmapped(size_t line, std::u16string_view name)
{
    std::u16string folded = FoldedCase(name);
    auto& unmapped = m_import.unmapped;
    if (const auto there = m_unmapped.find(folded); there != m_unmapped.end()) {
        ++unmapped[there->second].count;
    } else if (unmapped.size() < kMaxUnmapped) {
        m_unmapped.emplace(std::move(folded), unmapped.size());
        unmapped.push_back({line, Cited(name), 1});
    }
}

bool SessionCollector::Finish(SessionImport& out, ImportFault& error, const char16_t* none)
{
    out = std::move(m_import);
    return !out.sessions.empty() || FailImport(error, 0, none);
}

} // namespace ostrand
