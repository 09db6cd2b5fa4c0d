// session list, and the words for shell completion
#include "config/session/folder_data.h"
#include "config/session/session_paths.h"
#include "core/fold.h"
#include "profile/hives.h"
#include "tools/commands.h"
#include "tools/output.h"
#include "tools/session_folder.h"
#include "tools/session_record.h"

#include <algorithm>
#include <set>

namespace ostrand::tool {

namespace {

constexpr size_t kSummaryWidth = 60;

std::string OneLine(std::string text)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    return Plain(text);
}

/// Protocol names of both sides, as far as there are any.
std::string ProtocolText(const SessionConfig& session)
{
    VUnicodeString terminal, transfer;
    session.GetTerminalProtocolName(terminal);
    session.GetTransferProtocolName(transfer);
    const std::string text = Plain(Lossless(terminal));
    return transfer.IsEmpty() || transfer == kNoProtocol || transfer == terminal
               ? text
               : text + (text.empty() ? "" : ", ") + Plain(Lossless(transfer));
}

class SessionList {
public:
    SessionList(SessionFolder& sessions, bool asTree)
        : m_sessions(sessions),
          m_sorts(sessions.Folder().Config().sortAlphabetical),
          m_asTree(asTree)
    {
    }

    /// What lies in a folder: its subfolders, then its sessions.
    Json Add(const VUnicodeString& folder, int depth)
    {
        ProfileFolderData data(folder, m_sorts, true);
        Json folders = Json::array();
        Json sessions = Json::array();
        for (const VUnicodeString& name : Shown(data.orderedFolders)) {
            if (m_asTree)
                m_rows.push_back({Indent(depth) + Plain(Lossless(name)) + "\\"});
            const VUnicodeString path = JoinKeys(folder, name);
            Json below = {{"folder", Lossless(path)}};
            below.update(Add(path, depth + 1));
            folders.push_back(std::move(below));
        }
        for (const VUnicodeString& name : Shown(data.orderedSessions))
            AddSession(JoinKeys(folder, name), name, depth, sessions);
        return {{"folders", folders}, {"sessions", sessions}};
    }
    const std::vector<std::vector<std::string>>& Rows() const { return m_rows; }
    const Json& Flat() const { return m_flat; }

private:
    static std::string Indent(int depth) { return std::string(static_cast<size_t>(depth) * 2, ' '); }

    std::vector<VUnicodeString> Shown(const VStringArray& names) const
    {
        std::vector<VUnicodeString> shown(names.begin(), names.end());
        if (m_sorts)
            std::sort(shown.begin(), shown.end(), [](const VUnicodeString& a, const VUnicodeString& b) {
                return std::lexicographical_compare(a.View().begin(), a.View().end(), b.View().begin(), b.View().end(),
                                                    [](char16_t x, char16_t y) { return FoldCase(x) < FoldCase(y); });
            });
        return shown;
    }

    void AddSession(const VUnicodeString& path, const VUnicodeString& name, int depth, Json& list)
    {
        const VUnknownPointer<SessionConfig> session = m_sessions.Read(path);
        if (!session)
            return; // deleted by another program in between
        std::string summary = SummaryOf(*session);
        if (summary == Lossless(session->GetSessionName()))
            summary.clear(); // it would be the name alone
        list.push_back({{"path", Lossless(path)}, {"protocols", ProtocolText(*session)}, {"summary", summary}});
        m_flat.push_back(list.back());
        m_rows.push_back({m_asTree ? Indent(depth) + Plain(Lossless(name)) : Plain(Lossless(path)),
                          ProtocolText(*session), Shortened(OneLine(summary), kSummaryWidth)});
    }

    SessionFolder& m_sessions;
    const bool m_sorts;
    const bool m_asTree;
    std::vector<std::vector<std::string>> m_rows = {{"SESSION", "PROTOCOL", "SUMMARY"}};
    Json m_flat = Json::array();
};

Exit CompletePaths(const Request& request, bool ofFolders)
{
    ConfigFolder folder;
    if (const Exit opened = folder.Open(request, Access::Read); opened != Exit::Done)
        return opened;
    std::string text;
    for (const std::string& path : SessionPaths(folder, ofFolders))
        text += Plain(path) + "\n";
    return Print(text);
}

} // namespace

Exit ListSessions(const Request& request)
{
    SessionFolder sessions;
    if (const Exit opened = sessions.Open(request, Access::Read); opened != Exit::Done)
        return opened;
    VUnicodeString folder;
    if (const Exit found = sessions.FindFolder(request.path, folder); found != Exit::Done)
        return found;
    SessionList list(sessions, request.asTree);
    const Json tree = list.Add(folder, 0);
    if (request.asJson)
        return Print(WriteJson(request.asTree ? tree : list.Flat()));
    return Print(list.Rows().size() == 1 ? "There are no sessions.\n" : Table(list.Rows()));
}

Exit CompleteSessions(const Request& request) { return CompletePaths(request, false); }

Exit CompleteFolders(const Request& request) { return CompletePaths(request, true); }

Exit CompleteSessionValues(const Request& request)
{
    SessionFolder sessions;
    if (const Exit opened = sessions.Open(request, Access::Read); opened != Exit::Done)
        return opened;
    SessionRecord record(
        VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(u"", nullptr, sessions.Folder().Config())));
    std::set<std::string> known;
    std::string text;
    const auto add = [&] {
        for (const std::string& name : NamesOf(record))
            if (known.insert(name).second)
                text += name + "\n";
    };
    add();
    VisitProtocols(record, add);
    return Print(text);
}

} // namespace ostrand::tool
