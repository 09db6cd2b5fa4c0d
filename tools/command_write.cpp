// set and reset of global and session; global save
#include "core/entry.h"
#include "tools/commands.h"
#include "tools/global_record.h"
#include "tools/output.h"
#include "tools/session_record.h"
#include "tools/standard_input.h"
#include "tools/value_commands.h"
#include "tools/value_json.h"

#include <algorithm>

namespace ostrand::tool {

namespace {

/// Changes one value of the record; Failed or Usage after one line on stderr.
using Change = Exit (*)(const Request&, const NamedValue&, ValueRecord&);

Exit TakeWords(const Request& request, const NamedValue& value, ValueRecord& record)
{
    std::vector<std::string> words = request.values;
    if (IsSecret(value.entry) && words.size() == 1)
        if (const Exit taken = TakeSecretWord(NameOf(value), "-", words[0]); taken != Exit::Done)
            return taken;
    std::string problem;
    return record.Set(value, words, problem) ? Exit::Done : Fail(Exit::Failed, problem);
}

Exit TakeDefault(const Request&, const NamedValue& value, ValueRecord& record)
{
    const std::unique_ptr<ValueRecord> defaults = record.Defaults(true);
    if (const std::optional<NamedValue> usual = FindValue(*defaults, value.value->name))
        record.Copy(value, *usual->value);
    return Exit::Done;
}

/// Whether the record's own save writes the value.
bool IsSaved(const NamedValue& value, bool force)
{
    const auto* const block = dynamic_cast<const VProfileBlob*>(value.value);
    const bool isEmpty = block && block->data.empty();
    return value.entry.isInTable && !isEmpty && (force || value.value->IsModified() || IsPending(*value.value));
}

/// The values of these names that the record has; a protocol that was left takes its own along.
std::vector<NamedValue> ValuesOf(ValueRecord& record, const std::vector<VUnicodeString>& names)
{
    std::vector<NamedValue> values;
    for (const VUnicodeString& name : names)
        if (const std::optional<NamedValue> value = FindValue(record, name))
            values.push_back(*value);
    return values;
}

std::string ChangeText(const NamedValue& after, const std::optional<NamedValue>& before)
{
    const Json now = JsonOf(after);
    if (!before)
        return ValueToText(now);
    const Json was = JsonOf(*before);
    if (IsSecret(after.entry))
        return ValueToText(was) + " -> " + ValueToText(now);
    return was == now ? ValueToText(now) + ", as before" : DifferenceText(was, now) + " -> " + DifferenceText(now, was);
}

std::string WrittenText(const std::vector<NamedValue>& values, ValueRecord& before)
{
    std::string text;
    for (const NamedValue& value : values)
        text += NameOf(value) + ": " + ChangeText(value, FindValue(before, value.value->name)) + "\n";
    return text;
}

std::string WrittenJson(const std::vector<NamedValue>& values)
{
    Json list = Json::array();
    for (const NamedValue& value : values)
        list.push_back(RowToJson(value));
    return WriteJson(list);
}

/// Values of a protocol whose module isn't there are neither read nor written.
void WarnOfMissingProtocol(const NamedValue& value, ValueRecord& record)
{
    const auto* const session = dynamic_cast<SessionRecord*>(&record);
    const std::string why = session && session->IsProtocolName(value) ? session->MissingProtocols() : "";
    if (!why.empty())
        Warn(why);
}

/// All checks come before the store is opened for writing, so that a refused change leaves no trace.
Exit ChangeOne(const Request& request, RecordOpener open, Change change)
{
    OpenedRecord opened;
    if (const Exit done = open(request, Access::Write, opened); done != Exit::Done)
        return done;
    ValueRecord& record = *opened.record;
    const std::optional<NamedValue> value = AskedValue(record, request.name);
    if (!value)
        return Exit::Failed;
    const std::unique_ptr<ValueRecord> before = record.Clone();
    if (const Exit changed = change(request, *value, record); changed != Exit::Done)
        return changed;
    const SettledEdit edit = record.Settle(value->value->name, *before);
    if (edit.refusedBy)
        return Fail(Exit::Failed,
                    Cited(NameOf(*value)) + " can't take this value now. " + Lossless(edit.refusedBy->meaning));
    if (const Exit saved = opened.sessions.Folder().SaveValues(record, edit.names); saved != Exit::Done)
        return saved;
    WarnOfMissingProtocol(*value, record);
    const std::vector<NamedValue> written = ValuesOf(record, edit.names);
    return Print(request.asJson ? WrittenJson(written) : WrittenText(written, *before));
}

} // namespace

Exit SetValue(const Request& request, RecordOpener open) { return ChangeOne(request, open, TakeWords); }

Exit ResetValue(const Request& request, RecordOpener open) { return ChangeOne(request, open, TakeDefault); }

Exit SaveGlobal(const Request& request)
{
    OpenedRecord opened;
    if (const Exit done = OpenGlobalRecord(request, Access::Write, opened); done != Exit::Done)
        return done;
    const ConfigFolder& folder = opened.sessions.Folder();
    std::vector<NamedValue> values = opened.record->Values();
    std::erase_if(values, [&](const NamedValue& value) { return !IsSaved(value, request.force); });
    if (const Exit writable = folder.CheckWritable(); writable != Exit::Done)
        return writable;
    VReportMessageParams report;
    if (!SaveGlobalConfig(request.force, &report))
        return folder.FailSave(report);
    if (request.asJson)
        return Print(WrittenJson(values));
    return Print(values.empty() ? "Every value is stored already.\n"
                                : std::to_string(values.size()) + " values saved to " + folder.GlobalFile() + "\n");
}

} // namespace ostrand::tool
