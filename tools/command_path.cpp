// path join, split, expand, check, executable: the library's operations on paths, as its dialogs see them
#include "tools/commands.h"

#include "core/messages.h"
#include "core/paths/executable_text.h"
#include "core/paths/path_text.h"
#include "core/paths/path_tokens.h"
#include "tools/json_writer.h"
#include "tools/output.h"

namespace ostrand::tool {

namespace {

bool Decode(const std::string& word, VUnicodeString& text)
{
    if (FromUtf8(word, text))
        return true;
    Fail(Exit::Failed, Cited(word));
    return false;
}

/// One text, bare for scripts.
Exit PrintText(const Request& request, const char* member, const VUnicodeString& text)
{
    const std::string lossless = Lossless(text);
    return Print(request.asJson ? WriteJson({{member, lossless}}) : Plain(lossless) + "\n");
}

/// What the application says is in its own table of texts.
std::string ExpansionFault(const IReportMessageParams& report)
{
    if (report.GetCode() == kPathTokenIncomplete)
        return "a % stands at the end; %% stands for a percent sign";
    return "there is no token " + Cited(Lossless(report.GetArguments()[0])) + " here; see path expand --help";
}

} // namespace

Exit JoinPaths(const Request& request)
{
    VUnicodeString path, tail;
    if (!Decode(request.path, path) || !Decode(request.tail, tail))
        return Exit::Failed;
    return PrintText(request, "path", JoinPath(path, tail));
}

Exit SplitPathText(const Request& request)
{
    VUnicodeString path, name;
    if (!Decode(request.path, path))
        return Exit::Failed;
    const std::string folder = Lossless(SplitPath(path, name));
    if (request.asJson)
        return Print(WriteJson({{"folder", folder}, {"name", Lossless(name)}}));
    return Print(Table({{"folder", Plain(folder)}, {"name", Plain(Lossless(name))}}));
}

Exit ExpandPath(const Request& request)
{
    VUnicodeString path, host, session;
    if (!Decode(request.path, path) || !Decode(request.host.value_or(""), host) ||
        !Decode(request.session.value_or(""), session))
        return Exit::Failed;
    VReportMessageParams report;
    const VUnicodeString text = ExpandPathTokens(path, report, request.host ? host.c_str() : nullptr,
                                                 request.session ? session.c_str() : nullptr);
    if (report.GetCode() != 0)
        return Fail(Exit::Failed, Cited(request.path) + ": " + ExpansionFault(report));
    return PrintText(request, "path", text);
}

Exit CheckPath(const Request& request)
{
    VUnicodeString path;
    if (!Decode(request.path, path))
        return Exit::Failed;
    int badIndex = 0;
    if (CheckPathSyntax(path, &badIndex))
        return PrintText(request, "path", path);
    const std::string bad = Lossless(path.Mid(static_cast<size_t>(badIndex), 1));
    return Fail(Exit::Failed,
                Cited(request.path) + ": " + Cited(bad) + " can't stand at character " + std::to_string(badIndex + 1));
}

Exit ExecutableOf(const Request& request)
{
    VUnicodeString line;
    if (!Decode(request.path, line))
        return Exit::Failed;
    if (ExtractExecutable(line) == 0)
        return Fail(Exit::Failed, Cited(request.path) + ": names no executable in quotes or with .exe");
    return PrintText(request, "path", line);
}

} // namespace ostrand::tool
