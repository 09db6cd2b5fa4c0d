#include "tools/session_folder.h"

#include "config/session/session_name.h"
#include "config/session/session_paths.h"
#include "core/fold.h"
#include "core/messages.h"
#include "profile/hives.h"
#include "tools/output.h"
#include "tools/suggest.h"

namespace ostrand::tool {

namespace {

using Session = VUnknownPointer<SessionConfig>;

/// A level in the spelling of the store; as it is where the store has none.
VUnicodeString SpellingOf(const VProfileKey& folder, std::u16string_view level)
{
    VProfileKeyIterator keys(&folder, false);
    VUnicodeString name;
    while (keys.Next(name))
        if (EqualNoCase(name, level))
            return name;
    return level;
}

/// The levels of a path, the first first.
std::vector<VUnicodeString> LevelsOf(std::u16string_view path)
{
    std::vector<VUnicodeString> levels;
    while (!path.empty()) {
        const size_t end = path.find(u'\\');
        levels.emplace_back(path.substr(0, end));
        path = end == std::u16string_view::npos ? std::u16string_view() : path.substr(end + 1);
    }
    return levels;
}

/// Empty levels are left out.
bool ReadPath(const std::string& typed, VUnicodeString& path)
{
    VUnicodeString text;
    const bool isUtf8 = FromUtf8(typed, text);
    path = JoinKeys({}, text);
    return isUtf8;
}

void CollectPaths(const VProfileKey& folder, const VUnicodeString& path, bool ofFolders,
                  std::vector<std::string>& paths)
{
    VProfileKeyIterator keys(&folder, false);
    VUnicodeString name;
    while (keys.Next(name)) {
        if (EqualNoCase(name, kFolderDataKey) || EqualNoCase(name, kTemporarySession))
            continue;
        const VProfileKey key(&folder, name.c_str());
        const VUnicodeString below = JoinKeys(path, name);
        const bool isFolder = !HasSessionMark(key);
        if (isFolder == ofFolders)
            paths.push_back(Lossless(below));
        if (isFolder)
            CollectPaths(key, below, ofFolders, paths);
    }
}

bool IsReserved(const VUnicodeString& level, bool isTop)
{
    return EqualNoCase(level, kFolderDataKey) || EqualNoCase(level, kTemporarySession) ||
           (isTop && EqualNoCase(level, kDefaultSession));
}

} // namespace

Exit SessionFolder::Open(const Request& request, Access access)
{
    if (const Exit opened = m_folder.OpenGlobal(request, access); opened != Exit::Done)
        return opened;
    return m_modules.Load(request);
}

Exit SessionFolder::Open(const Request& request, Access access, Session& session)
{
    const Exit opened = Open(request, access);
    return opened == Exit::Done ? OpenSession(request.path, session) : opened;
}

Exit SessionFolder::Find(const std::string& typed, VUnicodeString& path, bool& isFolder) const
{
    return Find(typed, "session or folder", path, isFolder);
}

Exit SessionFolder::Find(const std::string& typed, const char* noun, VUnicodeString& path, bool& isFolder) const
{
    if (!ReadPath(typed, path) || path.IsEmpty() || !m_folder.Root().KeyExists(BuildSessionKeyPath(path).c_str()))
        return FailUnknown(typed, noun);
    VUnicodeString spelled;
    for (const VUnicodeString& level : LevelsOf(path)) {
        const VProfileKey folder(&m_folder.Root(), BuildSessionKeyPath(spelled).c_str());
        spelled = JoinKeys(spelled, SpellingOf(folder, level));
    }
    path = spelled;
    const VProfileKey key(&m_folder.Root(), BuildSessionKeyPath(path).c_str());
    if (IReportMessageParams& status = key.GetStatus(); status.GetCode() != 0)
        return Fail(Exit::Store, m_folder.Path() + ": " + CiteSession(path) + ": " + ReportText(status));
    isFolder = !HasSessionMark(key);
    return Exit::Done;
}

Exit SessionFolder::FindSession(const std::string& typed, VUnicodeString& path) const
{
    if (ReadPath(typed, path) && path == kDefaultSession &&
        !m_folder.Root().KeyExists(BuildSessionKeyPath(path).c_str()))
        return Exit::Done;
    bool isFolder = false;
    if (const Exit found = Find(typed, "session", path, isFolder); found != Exit::Done)
        return found;
    return isFolder ? Fail(Exit::Failed, Cited(Lossless(path)) + " is a folder, not a session") : Exit::Done;
}

Exit SessionFolder::FindFolder(const std::string& typed, VUnicodeString& path) const
{
    if (typed.empty()) {
        path.Clear();
        return Exit::Done;
    }
    bool isFolder = false;
    if (const Exit found = Find(typed, "folder", path, isFolder); found != Exit::Done)
        return found;
    return isFolder ? Exit::Done : Fail(Exit::Failed, Cited(Lossless(path)) + " is a session, not a folder");
}

Exit SessionFolder::CheckNewPath(const std::string& typed, VUnicodeString& path) const
{
    VUnicodeString text;
    if (!FromUtf8(typed, text))
        return Fail(Exit::Failed, Cited(typed));
    path.Clear();
    std::vector<VUnicodeString> levels = LevelsOf(text);
    if (levels.empty() || text[text.GetLength() - 1] == u'\\')
        levels.emplace_back();
    for (const VUnicodeString& level : levels) {
        const VUnicodeString name = level.Trimmed();
        VUnicodeString reason;
        if (!CheckSessionName(name, reason))
            return Fail(Exit::Failed, Cited(typed) + ": " + Lossless(reason));
        if (IsReserved(name, path.IsEmpty()))
            return Fail(Exit::Failed, Cited(Lossless(name)) + " is a name that the applications keep for themselves");
        if (!path.IsEmpty() && m_folder.Root().KeyExists(BuildSessionKeyPath(path).c_str()) && !IsFolder(path))
            return Fail(Exit::Failed, Cited(Lossless(path)) + " is a session, not a folder");
        path = JoinKeys(path, name);
    }
    return Exit::Done;
}

Session SessionFolder::Read(const VUnicodeString& path) const
{
    const VUnicodeString keyPath = BuildSessionKeyPath(path);
    Session session;
    if (!m_folder.Root().KeyExists(keyPath.c_str())) {
        if (path == kDefaultSession)
            session = Session::Adopt(new SessionConfig(path, nullptr, m_folder.Config()));
        return session;
    }
    const VProfileKey key(&m_folder.Root(), keyPath.c_str());
    if (!HasSessionMark(key))
        return session;
    session = Session::Adopt(new SessionConfig(SplitSessionPath(path).name, &key, m_folder.Config()));
    session->SetPathName(path);
    return session;
}

Exit SessionFolder::OpenSession(const std::string& typed, Session& session) const
{
    VUnicodeString path;
    if (const Exit found = FindSession(typed, path); found != Exit::Done)
        return found;
    session = Read(path);
    return session ? Exit::Done : FailUnknown(typed, "session");
}

Exit SessionFolder::FailUnknown(const std::string& typed, const char* noun) const
{
    std::vector<std::string> paths = SessionPaths(m_folder, false);
    const std::vector<std::string> folders = SessionPaths(m_folder, true);
    paths.insert(paths.end(), folders.begin(), folders.end());
    const std::string near = NearestName(typed, paths);
    return Fail(Exit::Failed, m_folder.Path() + ": there is no " + noun + " " + Cited(typed) +
                                  (near.empty() ? "" : "; did you mean " + Cited(near) + "?"));
}

std::vector<std::string> SessionPaths(const ConfigFolder& folder, bool ofFolders)
{
    std::vector<std::string> paths;
    if (folder.Root().KeyExists(kSessionsKey))
        CollectPaths(VProfileKey(&folder.Root(), kSessionsKey), {}, ofFolders, paths);
    return paths;
}

std::string CiteSession(const VUnicodeString& path) { return "session " + Cited(Lossless(path)); }

std::string SummaryOf(const SessionConfig& session)
{
    VUnicodeString summary;
    session.GetConnectionSummary(summary);
    std::string text = Lossless(summary);
    std::erase(text, '\r'); // a description's lines end with both
    return text;
}

} // namespace ostrand::tool
