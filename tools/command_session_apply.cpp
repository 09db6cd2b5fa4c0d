// session apply, session undo
#include "config/session/apply_undo.h"
#include "core/fold.h"
#include "core/messages.h"
#include "tools/commands.h"
#include "tools/long_run.h"
#include "tools/output.h"
#include "tools/session_folder.h"
#include "tools/session_record.h"
#include "tools/standard_input.h"
#include "tools/value_json.h"

#include <algorithm>

namespace ostrand::tool {

namespace {

constexpr size_t kValueWidth = 44;
constexpr const char* kStopped = "stopped; no session was changed";

/// Values that some session may have, by name, with what is known of them.
class KnownValues {
public:
    explicit KnownValues(const GlobalConfig& global)
        : m_record(VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(u"", nullptr, global)))
    {
        Add();
        VisitProtocols(m_record, [this] { Add(); });
    }
    const VSchemaEntry* Find(std::u16string_view name) const
    {
        const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                        [name](const VSchemaEntry& entry) { return EqualNoCase(entry.name, name); });
        return found == m_entries.end() ? nullptr : &*found;
    }
    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const VSchemaEntry& entry : m_entries)
            names.push_back(Lossless(entry.name));
        return names;
    }

private:
    void Add()
    {
        for (const NamedValue& value : m_record.Values())
            if (!Find(value.value->name)) {
                m_entries.push_back(value.entry);
                m_entries.back().name = value.value->name.c_str(); // lent by a protocol's settings, which stay
            }
    }

    SessionRecord m_record;
    std::vector<VSchemaEntry> m_entries;
};

/// One value to set in every session.
struct Asked {
    VUnicodeString name;
    std::vector<std::string> words;
    unsigned refused = 0; ///< sessions that don't take it
    std::string why;
};

bool IsProtocolName(std::u16string_view name)
{
    return EqualNoCase(name, u"Protocol Name") || EqualNoCase(name, u"Transfer Protocol Name");
}

/// NAME=VALUE words, those of one name together. A protocol's name comes first, since it brings values along.
Exit ReadAsked(const Request& request, const KnownValues& known, std::vector<Asked>& asked)
{
    for (const std::string& typed : request.values) {
        const size_t equals = typed.find('=');
        VUnicodeString name;
        if (equals == std::string::npos || !FromUtf8(typed.substr(0, equals), name))
            return Fail(Exit::Usage, Cited(typed) + " is no NAME=VALUE; see ostrandcfg --help");
        const VSchemaEntry* const entry = known.Find(name);
        if (!entry)
            return Fail(Exit::Failed, UnknownName(typed.substr(0, equals), known.Names(), ""));
        std::string word = typed.substr(equals + 1);
        if (IsSecret(*entry))
            if (const Exit taken = TakeSecretWord(Lossless(entry->name), Lossless(entry->name) + "=-", word);
                taken != Exit::Done)
                return taken;
        auto place =
            std::find_if(asked.begin(), asked.end(), [&](const Asked& a) { return EqualNoCase(a.name, name); });
        if (place == asked.end())
            place = asked.insert(IsProtocolName(name) ? asked.begin() : asked.end(), Asked{entry->name, {}, 0, {}});
        place->words.push_back(word);
    }
    return Exit::Done;
}

/// Sets what was asked, in its order.
class Edit {
public:
    explicit Edit(std::vector<Asked>& asked) : m_asked(asked) {}

    /// What of it the session doesn't take is counted.
    void operator()(SessionConfig& session)
    {
        SessionRecord record(VUnknownPointer<SessionConfig>::Share(&session));
        for (Asked& asked : m_asked)
            Set(record, asked);
        RunSessionRules(session);
        for (Asked& asked : m_asked)
            CheckKept(record, asked);
    }

private:
    void Set(SessionRecord& record, Asked& asked)
    {
        const std::optional<NamedValue> value = FindValue(record, asked.name);
        std::string problem;
        if (value && !record.Set(*value, asked.words, problem))
            Refuse(asked, problem);
        m_set.push_back(value ? JsonOf(*value) : Json());
    }
    void CheckKept(SessionRecord& record, Asked& asked)
    {
        const Json set = m_set.front();
        m_set.erase(m_set.begin());
        const std::optional<NamedValue> value = FindValue(record, asked.name);
        if (!value || JsonOf(*value) == set)
            return;
        if (asked.why.empty()) {
            const std::unique_ptr<ValueRecord> again = record.Clone();
            const std::unique_ptr<ValueRecord> before = record.Clone();
            std::string ignored;
            const VSchemaEntry* rule = nullptr;
            if (again->Set(*FindValue(*again, asked.name), asked.words, ignored))
                rule = again->Settle(asked.name, *before).refusedBy;
            asked.why = rule ? Lossless(rule->meaning) : "a rule changes it";
        }
        ++asked.refused;
    }
    static void Refuse(Asked& asked, const std::string& problem)
    {
        ++asked.refused;
        if (asked.why.empty())
            asked.why = problem;
    }

    std::vector<Asked>& m_asked;
    std::vector<Json> m_set; // by the asked values
};

/// Words that no session takes are refused at once.
Exit CheckAsked(const std::vector<Asked>& asked, const GlobalConfig& global)
{
    for (const Asked& one : asked) {
        SessionRecord record(VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(u"", nullptr, global)));
        std::string problem;
        bool isTaken = true;
        const auto attempt = [&] {
            const std::optional<NamedValue> value = FindValue(record, one.name);
            isTaken = value && (record.IsProtocolName(*value) ? record.CheckProtocol(*value, one.words, problem)
                                                              : record.Set(*value, one.words, problem));
            return value.has_value();
        };
        bool isFound = attempt();
        if (!isFound)
            VisitProtocols(record, [&] { isFound = isFound || attempt(); });
        if (!isTaken)
            return Fail(Exit::Failed, problem);
    }
    return Exit::Done;
}

Json ValueOf(const StoreValue& value)
{
    struct ToJson {
        Json operator()(unsigned number) const { return number; }
        Json operator()(const VUnicodeString& text) const { return Lossless(text); }
        Json operator()(const StoreBlock& bytes) const
        {
            VProfileBlob block;
            block.SetData(bytes);
            return ValueToJson(VValueClass::Blob, block);
        }
        Json operator()(const VStringArray& texts) const
        {
            Json list = Json::array();
            for (const VUnicodeString& text : texts)
                list.push_back(Lossless(text));
            return list;
        }
        Json operator()(const ForeignValue&) const { return {}; }
    };
    return std::visit(ToJson{}, value);
}

/// What sessions get, as the value's class has it.
Json AfterOf(const AppliedLine& line, const VSchemaEntry* entry)
{
    if (!line.after || line.varies)
        return {};
    if (entry && IsSecret(*entry))
        return "<set>";
    const auto* const number = std::get_if<unsigned>(&*line.after);
    if (number && entry && entry->type == VValueClass::Bool)
        return *number != 0;
    if (number && entry && entry->type == VValueClass::TriState)
        return *number > 1 ? Json("undetermined") : Json(*number != 0);
    if (number && entry && entry->type == VValueClass::Int)
        return static_cast<int>(*number);
    return ValueOf(*line.after);
}

std::string AfterText(const AppliedLine& line, const VSchemaEntry* entry)
{
    if (line.varies)
        return "(varies)";
    if (!line.after)
        return "(goes)";
    const Json after = AfterOf(line, entry);
    const bool isWord = after.is_string() && (entry && (IsSecret(*entry) || entry->type == VValueClass::TriState));
    return isWord ? after.get<std::string>() : ValueToText(after);
}

class PreviewPage {
public:
    PreviewPage(const ApplyPreview& preview, const std::vector<Asked>& asked, const KnownValues& known)
        : m_preview(preview),
          m_asked(asked),
          m_known(known)
    {
    }

    std::string Text() const
    {
        std::string text = std::to_string(m_preview.changed) + " of " + std::to_string(m_preview.total) +
                           " sessions would change.\n" + LinesText("", true) +
                           LinesText("Written along, since each of them is saved whole:\n", false);
        for (const VUnicodeString& path : m_preview.readOnly)
            text += "read-only, stays as it is: " + Plain(Lossless(path)) + "\n";
        return text;
    }
    std::string ToJson() const
    {
        Json lines = Json::array();
        for (const AppliedLine& line : m_preview.lines)
            lines.push_back({{"name", NameOf(line)},
                             {"asked", IsAsked(line)},
                             {"value", AfterOf(line, EntryOf(line))},
                             {"varies", line.varies},
                             {"sessions", line.sessions},
                             {"missing", line.missing}});
        Json readOnly = Json::array();
        for (const VUnicodeString& path : m_preview.readOnly)
            readOnly.push_back(Lossless(path));
        return WriteJson(
            {{"total", m_preview.total}, {"changed", m_preview.changed}, {"lines", lines}, {"readOnly", readOnly}});
    }

private:
    static std::string NameOf(const AppliedLine& line)
    {
        return (line.key.IsEmpty() ? "" : Lossless(line.key) + "\\") + Lossless(line.name);
    }
    bool IsAsked(const AppliedLine& line) const
    {
        return line.key.IsEmpty() &&
               std::ranges::any_of(m_asked, [&line](const Asked& asked) { return EqualNoCase(asked.name, line.name); });
    }
    const VSchemaEntry* EntryOf(const AppliedLine& line) const
    {
        return line.key.IsEmpty() ? m_known.Find(line.name) : nullptr;
    }
    std::string LinesText(const char* heading, bool ofAsked) const
    {
        std::vector<std::vector<std::string>> rows = {{"NAME", "VALUE", "SESSIONS", "NOT THERE YET"}};
        for (const AppliedLine& line : m_preview.lines)
            if (IsAsked(line) == ofAsked)
                rows.push_back({Plain(NameOf(line)), Shortened(AfterText(line, EntryOf(line)), kValueWidth),
                                std::to_string(line.sessions), std::to_string(line.missing)});
        return rows.size() == 1 ? "" : "\n" + std::string(heading) + Table(rows);
    }

    const ApplyPreview& m_preview;
    const std::vector<Asked>& m_asked;
    const KnownValues& m_known;
};

void WarnOfRefused(const std::vector<Asked>& asked)
{
    for (const Asked& one : asked)
        if (one.refused > 0)
            Warn(Cited(Lossless(one.name)) + " is not taken by " + std::to_string(one.refused) +
                 " sessions: " + one.why);
}

Exit Preview(const Request& request, const ApplyOptions& options, std::vector<Asked>& asked, const KnownValues& known)
{
    ApplyPreview preview;
    {
        LongRun run("sessions");
        ApplyOptions watched = options;
        watched.progress = [&run](unsigned done) { return run.Tell(done); };
        PreviewApply(Edit(asked), watched, preview);
    }
    if (preview.wasStopped)
        return Fail(Exit::Failed, kStopped);
    WarnOfRefused(asked);
    const PreviewPage page(preview, asked, known);
    return Print(request.asJson ? page.ToJson() : page.Text());
}

std::string OutcomeText(const ApplyOutcome& outcome)
{
    const unsigned readOnly = outcome.counts.total - outcome.counts.updated;
    std::string text = outcome.changed == 0
                           ? "Nothing to change in " + std::to_string(outcome.counts.updated) + " sessions."
                           : "Changed " + std::to_string(outcome.changed) + " of " +
                                 std::to_string(outcome.counts.total) + " sessions; session undo takes it back.";
    if (readOnly > 0)
        text += " " + std::to_string(readOnly) + " are read-only and stay as they are.";
    return text + "\n";
}

Exit Apply(const Request& request, const ConfigFolder& folder, const ApplyOptions& options, std::vector<Asked>& asked)
{
    ApplyOutcome outcome;
    VReportMessageParams report;
    bool isDone = false;
    {
        LongRun run("sessions");
        ApplyOptions watched = options;
        watched.progress = [&run](unsigned done) { return run.Tell(done); };
        isDone = ApplyToSessions(Edit(asked), watched, outcome, report);
    }
    if (outcome.wasStopped)
        return Fail(Exit::Failed, kStopped);
    if (!isDone)
        return folder.FailSaveBelow(report);
    WarnOfRefused(asked);
    return Print(request.asJson ? WriteJson({{"total", outcome.counts.total},
                                             {"updated", outcome.counts.updated},
                                             {"changed", outcome.changed}})
                                : OutcomeText(outcome));
}

std::string UndoText(const UndoOutcome& outcome)
{
    std::string text = std::to_string(outcome.restored) + " sessions are as before the change.\n";
    if (outcome.missing > 0)
        text += std::to_string(outcome.missing) + " are not there any more, or under another path.\n";
    if (outcome.readOnly > 0)
        text += std::to_string(outcome.readOnly) + " are read-only; session undo can be tried again.\n";
    for (const VUnicodeString& line : outcome.kept)
        text += "changed since, stays as it is: " + Plain(Lossless(line)) + "\n";
    return text;
}

std::string UndoJson(const UndoOutcome& outcome)
{
    Json kept = Json::array();
    for (const VUnicodeString& line : outcome.kept)
        kept.push_back(Lossless(line));
    return WriteJson(
        {{"restored", outcome.restored}, {"missing", outcome.missing}, {"readOnly", outcome.readOnly}, {"kept", kept}});
}

} // namespace

Exit ApplyToAll(const Request& request)
{
    SessionFolder sessions;
    const Access access = request.preview ? Access::Read : Access::Write;
    if (const Exit opened = sessions.Open(request, access); opened != Exit::Done)
        return opened;
    ApplyOptions options;
    if (const Exit found = sessions.FindFolder(request.path, options.folder); found != Exit::Done)
        return found;
    const GlobalConfig& global = sessions.Folder().Config();
    const KnownValues known(global);
    std::vector<Asked> asked;
    if (const Exit read = ReadAsked(request, known, asked); read != Exit::Done)
        return read;
    if (const Exit checked = CheckAsked(asked, global); checked != Exit::Done)
        return checked;
    return request.preview ? Preview(request, options, asked, known)
                           : Apply(request, sessions.Folder(), options, asked);
}

Exit UndoApply(const Request& request)
{
    SessionFolder sessions;
    if (const Exit opened = sessions.Open(request, Access::Write); opened != Exit::Done)
        return opened;
    UndoOutcome outcome;
    VReportMessageParams report;
    bool isDone = false;
    {
        LongRun run("sessions");
        isDone = UndoLastApply({{}, [&run](unsigned done) { return run.Tell(done); }}, outcome, report);
    }
    if (outcome.wasStopped)
        return Fail(Exit::Failed, kStopped);
    if (!isDone && report.GetCode() == kNothingToUndo)
        return Fail(Exit::Failed, ReportText(report));
    if (!isDone)
        return sessions.Folder().FailSaveBelow(report);
    return Print(request.asJson ? UndoJson(outcome) : UndoText(outcome));
}

} // namespace ostrand::tool
