// session new, clone, rename, delete
#include "config/session/session_access.h"
#include "config/session/session_moves.h"
#include "config/session/session_paths.h"
#include "core/fold.h"
#include "core/messages.h"
#include "tools/commands.h"
#include "tools/json_writer.h"
#include "tools/key_walk.h"
#include "tools/output.h"
#include "tools/session_folder.h"

namespace ostrand::tool {

namespace {

Exit FailTaken(const VUnicodeString& path)
{
    VReportMessageParams report;
    ostrand::Fail(report, kNameInUse, path);
    return Fail(Exit::Failed, ReportText(report));
}

/// What the request's path names, to be changed.
Exit OpenAndFind(const Request& request, SessionFolder& sessions, VUnicodeString& path, bool& isFolder)
{
    const Exit opened = sessions.Open(request, Access::Write);
    return opened == Exit::Done ? sessions.Find(request.path, path, isFolder) : opened;
}

/// A new path that nothing has.
Exit FindFreePath(const SessionFolder& sessions, const std::string& typed, VUnicodeString& path)
{
    if (const Exit checked = sessions.CheckNewPath(typed, path); checked != Exit::Done)
        return checked;
    return SessionExists(path) ? FailTaken(path) : Exit::Done;
}

Exit Told(const Request& request, const char* done, const VUnicodeString& path, const std::string& text)
{
    return Print(request.asJson ? WriteJson({{done, Lossless(path)}}) : text + ".\n");
}

/// Whether the path is the other one, or lies below it.
bool IsWithin(std::u16string_view path, std::u16string_view other)
{
    return path.size() >= other.size() && EqualNoCase(path.substr(0, other.size()), other) &&
           (path.size() == other.size() || path[other.size()] == u'\\');
}

struct Contents {
    size_t sessions = 0;
    size_t folders = 0;
};

Contents ContentsOf(const ConfigFolder& folder, const VUnicodeString& path)
{
    const auto count = [&](bool ofFolders) {
        size_t found = 0;
        VUnicodeString below;
        for (const std::string& text : SessionPaths(folder, ofFolders))
            found += FromUtf8(text, below) && IsWithin(below, path) && below.GetLength() > path.GetLength() ? 1 : 0;
        return found;
    };
    return {count(false), count(true)};
}

std::string Counted(size_t count, const char* one)
{
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::string ContentsText(const Contents& contents)
{
    return Counted(contents.sessions, "session") + " and " + Counted(contents.folders, "subfolder");
}

std::string CiteAny(const VUnicodeString& path, bool isFolder)
{
    return isFolder ? "folder " + Cited(Lossless(path)) : CiteSession(path);
}

} // namespace

Exit NewSession(const Request& request)
{
    SessionFolder sessions;
    if (const Exit opened = sessions.Open(request, Access::Write); opened != Exit::Done)
        return opened;
    VUnicodeString path;
    if (const Exit found = FindFreePath(sessions, request.tail, path); found != Exit::Done)
        return found;
    VUnknownPointer<SessionConfig> model;
    const std::string like = request.path.empty() ? Lossless(kDefaultSession) : request.path;
    if (const Exit found = sessions.OpenSession(like, model); found != Exit::Done)
        return found;
    const auto session = VUnknownPointer<SessionConfig>::Adopt(model->Clone());
    const SessionPathParts parts = SplitSessionPath(path);
    session->SetSessionName(parts.name);
    VReportMessageParams report;
    if (!SessionFolderAccess().SaveNewSession(parts.folder, parts.name, *session, report))
        return sessions.Folder().FailSaveBelow(report);
    return Told(request, "made", path, "Made " + CiteSession(path) + " like " + Cited(Lossless(model->GetPathName())));
}

Exit CloneSession(const Request& request)
{
    SessionFolder sessions;
    VUnicodeString from, to;
    bool isFolder = false;
    if (const Exit found = OpenAndFind(request, sessions, from, isFolder); found != Exit::Done)
        return found;
    if (isFolder)
        return Fail(Exit::Failed, Cited(Lossless(from)) + " is a folder, not a session");
    if (const Exit found = FindFreePath(sessions, request.tail, to); found != Exit::Done)
        return found;
    VReportMessageParams report;
    if (!CopySession(from, to, sessions.Folder().Config().sortAlphabetical, report))
        return sessions.Folder().FailChange(report);
    return Told(request, "made", to, "Copied " + CiteSession(from) + " to " + Cited(Lossless(to)));
}

Exit RenameSessionPath(const Request& request)
{
    SessionFolder sessions;
    VUnicodeString from, to;
    bool isFolder = false;
    if (const Exit found = OpenAndFind(request, sessions, from, isFolder); found != Exit::Done)
        return found;
    if (from == kDefaultSession && !isFolder)
        return Fail(Exit::Failed, "the default session keeps its name; session clone makes a copy");
    if (const Exit checked = sessions.CheckNewPath(request.tail, to); checked != Exit::Done)
        return checked;
    const bool isSamePath = EqualNoCase(from, to);
    if (!isSamePath && IsWithin(to, from))
        return Fail(Exit::Failed, CiteAny(from, isFolder) + " can't move into itself");
    if (!isSamePath && SessionExists(to))
        return FailTaken(to);
    VReportMessageParams report;
    if (from != to && !RenameSession(from, to, sessions.Folder().Config().sortAlphabetical, report))
        return sessions.Folder().FailChange(report);
    return Told(request, "name", to, "Renamed " + CiteAny(from, isFolder) + " to " + Cited(Lossless(to)));
}

Exit DeleteSessionPath(const Request& request)
{
    SessionFolder sessions;
    VUnicodeString path;
    bool isFolder = false;
    if (const Exit found = OpenAndFind(request, sessions, path, isFolder); found != Exit::Done)
        return found;
    const Contents contents = isFolder ? ContentsOf(sessions.Folder(), path) : Contents{};
    if (isFolder && !request.force)
        return Fail(Exit::Failed, Cited(Lossless(path)) + " is a folder with " + ContentsText(contents) +
                                      "; --force deletes it with all of them");
    VReportMessageParams report;
    if (!DeleteSession(path, sessions.Folder().Config().sortAlphabetical, report))
        return sessions.Folder().FailChange(report);
    return Told(request, "deleted", path,
                "Deleted " + CiteAny(path, isFolder) + (isFolder ? " with " + ContentsText(contents) : ""));
}

} // namespace ostrand::tool
