// session import
#include "config/session/session_paths.h"
#include "imports/putty_sessions.h"
#include "imports/session_writer.h"
#include "imports/ssh_config.h"
#include "tools/commands.h"
#include "tools/import_file.h"
#include "tools/json_writer.h"
#include "tools/long_run.h"
#include "tools/output.h"
#include "tools/session_folder.h"

namespace ostrand::tool {

namespace {

constexpr size_t kUnmappedTold = 20;

Exit ReadSessions(const Request& request, SessionImport& import)
{
    std::string bytes;
    if (const Exit read = ReadImportFile(request.tail, bytes); read != Exit::Done)
        return read;
    ImportFault error;
    const auto reader = request.form == "putty" ? ReadPuttySessions : ReadSshConfig;
    const bool isRead = reader(bytes, import, error);
    for (const ImportFault& note : import.notes)
        Warn(FaultText(request.tail, note));
    return isRead ? Exit::Done : Fail(Exit::Failed, FaultText(request.tail, error));
}

/// The folder's path, spelled as in the store where it is there.
Exit FindTarget(SessionFolder& sessions, const std::string& typed, VUnicodeString& folder)
{
    if (typed.empty())
        return Exit::Done;
    VUnicodeString path;
    if (!FromUtf8(typed, path))
        return Fail(Exit::Failed, Cited(typed) + " is no UTF-8");
    const VUnicodeString key = BuildSessionKeyPath(path);
    return sessions.Folder().Root().KeyExists(key.c_str()) ? sessions.FindFolder(typed, folder)
                                                           : sessions.CheckNewPath(typed, folder);
}

std::string WhereTo(const ImportedSession& session)
{
    if (session.serial)
        return Lossless(session.serial->port);
    std::string where = session.username.IsEmpty() ? "" : Lossless(session.username) + "@";
    where += Lossless(session.hostname);
    return session.port == 0 ? where : where + ":" + std::to_string(session.port);
}

std::string ImportText(const Request& request, const SessionImport& import, const VStringArray& paths)
{
    std::vector<std::vector<std::string>> rows = {{"SESSION", "PROTOCOL", "CONNECTS TO"}};
    for (size_t i = 0; i < import.sessions.size(); ++i)
        rows.push_back(
            {Plain(Lossless(paths[i])), Lossless(import.sessions[i].protocol), Plain(WhereTo(import.sessions[i]))});
    std::string text = Table(rows) + (request.preview ? "\nWould import " : "\nImported ") +
                       std::to_string(import.sessions.size()) + " sessions.\n";
    for (size_t i = 0; i < std::min(import.unmapped.size(), kUnmappedTold); ++i)
        text += "not taken over: " + Plain(Lossless(import.unmapped[i].name)) + ", " +
                std::to_string(import.unmapped[i].count) + " times, first in line " +
                std::to_string(import.unmapped[i].line) + "\n";
    if (import.unmapped.size() > kUnmappedTold)
        text += "and " + std::to_string(import.unmapped.size() - kUnmappedTold) + " more names; --json tells all\n";
    return text;
}

std::string ImportJson(const SessionImport& import, const VStringArray& paths)
{
    Json sessions = Json::array();
    for (size_t i = 0; i < import.sessions.size(); ++i) {
        const ImportedSession& session = import.sessions[i];
        sessions.push_back({{"path", Lossless(paths[i])},
                            {"protocol", Lossless(session.protocol)},
                            {"connectsTo", WhereTo(session)},
                            {"line", session.line}});
    }
    Json unmapped = Json::array();
    for (const UnmappedName& name : import.unmapped)
        unmapped.push_back({{"name", Lossless(name.name)}, {"line", name.line}, {"count", name.count}});
    return WriteJson({{"sessions", sessions}, {"notTakenOver", unmapped}});
}

Exit Write(const ConfigFolder& folder, const SessionImport& import, const VUnicodeString& target, VStringArray& paths)
{
    VReportMessageParams report;
    bool isDone = false;
    {
        LongRun run("sessions");
        isDone = WriteImportedSessions(import.sessions, {target, [&run](unsigned done) { return run.Tell(done); }},
                                       paths, report);
    }
    if (isDone)
        return Exit::Done;
    return report.GetCode() == 0 ? Fail(Exit::Failed, "stopped; nothing was imported") : folder.FailSaveBelow(report);
}

} // namespace

Exit ImportSessions(const Request& request)
{
    SessionImport import;
    if (const Exit read = ReadSessions(request, import); read != Exit::Done)
        return read;
    SessionFolder sessions;
    if (const Exit opened = sessions.Open(request, request.preview ? Access::Read : Access::Write);
        opened != Exit::Done)
        return opened;
    VUnicodeString target;
    if (const Exit found = FindTarget(sessions, request.path, target); found != Exit::Done)
        return found;
    VStringArray paths;
    if (request.preview)
        paths = PathsOfImport(import.sessions, target);
    else if (const Exit written = Write(sessions.Folder(), import, target, paths); written != Exit::Done)
        return written;
    return Print(request.asJson ? ImportJson(import, paths) : ImportText(request, import, paths));
}

} // namespace ostrand::tool
