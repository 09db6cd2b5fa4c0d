// session summary, diff, actions
#include "tools/commands.h"
#include "tools/output.h"
#include "tools/session_folder.h"
#include "tools/session_record.h"
#include "tools/value_json.h"

namespace ostrand::tool {

namespace {

constexpr size_t kValueWidth = 44;
constexpr const char* kMask = "********";

Json ValueOrNull(const std::optional<NamedValue>& value) { return value ? JsonOf(*value) : Json(); }

/// Of a value that only one of two sessions has, such as a protocol's.
std::string ValueOrNothing(const std::optional<NamedValue>& value, const std::optional<NamedValue>& other)
{
    if (!value)
        return "-";
    return other ? DifferenceText(JsonOf(*value), JsonOf(*other)) : TextOf(*value);
}

/// Two secrets look the same, whatever they are.
std::string OtherText(const std::optional<NamedValue>& value, const std::optional<NamedValue>& other)
{
    const bool looksSame = value && other && IsSecret(value->entry) && JsonOf(*value) == JsonOf(*other);
    return looksSame ? "<another>" : ValueOrNothing(value, other);
}

Json ToJson(const LogonAction& action, bool reveal)
{
    return {{"hide", action.hide},
            {"expect", Lossless(action.expect)},
            {"send", action.hide && !reveal ? Json(kMask) : Json(Lossless(action.send))}};
}

} // namespace

Exit SummarizeSession(const Request& request)
{
    SessionFolder sessions;
    VUnknownPointer<SessionConfig> session;
    if (const Exit opened = sessions.Open(request, Access::Read, session); opened != Exit::Done)
        return opened;
    if (const std::string why = SessionRecord(session).MissingProtocols(); !why.empty())
        Warn(why);
    const std::string summary = SummaryOf(*session);
    return Print(request.asJson ? WriteJson({{"path", Lossless(session->GetPathName())}, {"summary", summary}})
                                : Plain(summary) + "\n");
}

Exit DiffSessions(const Request& request)
{
    SessionFolder sessions;
    VUnknownPointer<SessionConfig> first, second;
    if (const Exit opened = sessions.Open(request, Access::Read, first); opened != Exit::Done)
        return opened;
    if (const Exit found = sessions.OpenSession(request.tail, second); found != Exit::Done)
        return found;
    SessionRecord a(first), b(second);
    Json list = Json::array();
    std::vector<std::vector<std::string>> rows = {
        {"NAME", Plain(Lossless(first->GetPathName())), Plain(Lossless(second->GetPathName()))}};
    for (const VUnicodeString& name : SessionDifferences(*first, *second)) {
        const std::optional<NamedValue> left = FindValue(a, name);
        const std::optional<NamedValue> right = FindValue(b, name);
        list.push_back({{"name", Lossless(name)}, {"first", ValueOrNull(left)}, {"second", ValueOrNull(right)}});
        rows.push_back({Lossless(name), Shortened(ValueOrNothing(left, right), kValueWidth),
                        Shortened(OtherText(right, left), kValueWidth)});
    }
    if (request.asJson)
        return Print(WriteJson(list));
    return Print(rows.size() == 1 ? "Both sessions are the same.\n" : Table(rows));
}

Exit ShowLogonActions(const Request& request)
{
    SessionFolder sessions;
    VUnknownPointer<SessionConfig> session;
    if (const Exit opened = sessions.Open(request, Access::Read, session); opened != Exit::Done)
        return opened;
    LogonActionList actions;
    try {
        session->ReadLogonActions(actions);
    } catch (const LogonActionList::OutOfRange&) {
        Warn(CiteSession(session->GetPathName()) + ": the last logon action is incomplete, and left out");
    }
    Json list = Json::array();
    std::vector<std::vector<std::string>> rows = {{"EXPECT", "SEND"}};
    for (const LogonAction& action : actions) {
        list.push_back(ToJson(action, request.reveal));
        rows.push_back(
            {Quoted(Lossless(action.expect)), action.hide && !request.reveal ? kMask : Quoted(Lossless(action.send))});
    }
    if (request.asJson)
        return Print(WriteJson(list));
    return Print(actions.IsEmpty() ? "There are no logon actions.\n" : Table(rows));
}

} // namespace ostrand::tool
