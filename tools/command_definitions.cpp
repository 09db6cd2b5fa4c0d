// firewall, filter and scheme: list, show, set, new, rename, delete
#include "core/messages.h"
#include "tools/definitions.h"
#include "tools/output.h"
#include "tools/standard_input.h"
#include "tools/suggest.h"
#include "tools/value_json.h"

#include <algorithm>

namespace ostrand::tool {

namespace {

constexpr size_t kValueWidth = 40;

/// One command's view of a list.
class Definitions {
public:
    explicit Definitions(const DefinitionKind& kind) : m_kind(kind) {}

    Exit Open(const Request& request, Access access)
    {
        m_access = access;
        return m_folder.OpenGlobal(request, access);
    }
    ConfigFolder& Folder() { return m_folder; }

    /// "firewall 'Gate'".
    std::string Cite(const std::string& name) const { return std::string(m_kind.noun) + " " + Cited(name); }

    Exit Load(const std::string& typed, std::unique_ptr<Definition>& definition)
    {
        if (!FromUtf8(typed, m_name) || m_name.IsEmpty() || !(definition = m_kind.load(m_folder, m_name)))
            return FailUnknown(typed);
        if (m_access == Access::Write && m_kind.isFixed && IsAlwaysThere())
            return FailBuiltIn(typed);
        return Exit::Done;
    }
    /// Of a definition that may go.
    Exit Find(const std::string& typed)
    {
        std::unique_ptr<Definition> definition;
        if (!FromUtf8(typed, m_name) || m_name.IsEmpty() || !m_kind.load(m_folder, m_name))
            return FailUnknown(typed);
        return IsAlwaysThere() ? FailBuiltIn(typed) : Exit::Done;
    }
    const VUnicodeString& Name() const { return m_name; }

    Exit FailWith(IReportMessageParams& report)
    {
        for (const unsigned code :
             {kNameMissing, kNameIllegalCharacter, kNameExists, kNameInUse, kNameUnknown, kValueNotCopied})
            if (report.GetCode() == code)
                return Fail(Exit::Failed, ReportText(report));
        return m_folder.FailSaveBelow(report);
    }
    Exit FailBuiltIn(const std::string& typed)
    {
        return Fail(Exit::Failed, Cite(typed) + " is built in and can't be changed so");
    }

private:
    bool IsAlwaysThere() const { return m_kind.alwaysThere && m_name == m_kind.alwaysThere; }
    Exit FailUnknown(const std::string& typed)
    {
        std::vector<std::string> names;
        for (const VUnicodeString& name : m_kind.names(m_folder))
            names.push_back(Lossless(name));
        const std::string near = NearestName(typed, names);
        return Fail(Exit::Failed,
                    "there is no " + Cite(typed) + (near.empty() ? "" : "; did you mean " + Cited(near) + "?"));
    }

    const DefinitionKind& m_kind;
    ConfigFolder m_folder;
    Access m_access = Access::Read;
    VUnicodeString m_name;
};

Json ToJson(const std::string& name, Definition& definition, bool reveal)
{
    Json object = {{"name", name}};
    const Json fields = definition.Fields(reveal);
    for (const auto& [field, value] : fields.items())
        object[field] = value;
    return object;
}

std::string CellText(const Json& value)
{
    return value.is_string() ? Plain(value.get_ref<const std::string&>()) : ValueToText(value);
}

std::string ShownText(const Json& object)
{
    std::vector<std::vector<std::string>> rows;
    for (const auto& [field, value] : object.items())
        rows.push_back({field, CellText(value)});
    return Table(rows);
}

Exit SetFields(const Request& request, Definition& definition)
{
    for (const std::string& typed : request.values) {
        const size_t equals = typed.find('=');
        if (equals == std::string::npos)
            return Fail(Exit::Usage, Cited(typed) + " is no FIELD=VALUE; see ostrandcfg --help");
        const std::string field = typed.substr(0, equals);
        std::string word = typed.substr(equals + 1);
        std::string problem;
        if (definition.IsSecret(field))
            if (const Exit taken = TakeSecretWord(field, field + "=-", word); taken != Exit::Done)
                return taken;
        if (!definition.Set(field, word, problem))
            return Fail(Exit::Failed, problem);
    }
    return Exit::Done;
}

Exit SaveAndShow(const Request& request, Definitions& list, Definition& definition)
{
    VReportMessageParams report;
    if (!definition.Save(report))
        return list.FailWith(report);
    const Json object = ToJson(request.name, definition, false);
    return Print(request.asJson ? WriteJson(object) : ShownText(object));
}

} // namespace

Exit ListDefinitions(const Request& request, const DefinitionKind& kind)
{
    Definitions list(kind);
    if (const Exit opened = list.Open(request, Access::Read); opened != Exit::Done)
        return opened;
    Json all = Json::array();
    std::vector<std::vector<std::string>> rows = {{"NAME"}};
    for (std::string column : kind.columns) {
        std::transform(column.begin(), column.end(), column.begin(), [](char c) { return c >= 'a' ? c - 32 : c; });
        rows[0].push_back(column);
    }
    for (const VUnicodeString& name : kind.names(list.Folder())) {
        const std::unique_ptr<Definition> definition = kind.load(list.Folder(), name);
        if (!definition)
            continue; // deleted by another program in between
        all.push_back(ToJson(Lossless(name), *definition, false));
        rows.push_back({Plain(Lossless(name))});
        for (const char* const column : kind.columns)
            rows.back().push_back(Shortened(CellText(all.back()[column]), kValueWidth));
    }
    return Print(request.asJson ? WriteJson(all) : Table(rows));
}

Exit ShowDefinition(const Request& request, const DefinitionKind& kind)
{
    Definitions list(kind);
    if (const Exit opened = list.Open(request, Access::Read); opened != Exit::Done)
        return opened;
    std::unique_ptr<Definition> definition;
    if (const Exit loaded = list.Load(request.name, definition); loaded != Exit::Done)
        return loaded;
    const Json object = ToJson(request.name, *definition, request.reveal);
    return Print(request.asJson ? WriteJson(object) : ShownText(object));
}

Exit SetDefinition(const Request& request, const DefinitionKind& kind)
{
    Definitions list(kind);
    if (const Exit opened = list.Open(request, Access::Write); opened != Exit::Done)
        return opened;
    std::unique_ptr<Definition> definition;
    if (const Exit loaded = list.Load(request.name, definition); loaded != Exit::Done)
        return loaded;
    if (const Exit set = SetFields(request, *definition); set != Exit::Done)
        return set;
    return SaveAndShow(request, list, *definition);
}

Exit NewDefinition(const Request& request, const DefinitionKind& kind)
{
    Definitions list(kind);
    if (const Exit opened = list.Open(request, Access::Write); opened != Exit::Done)
        return opened;
    VUnicodeString name;
    if (!FromUtf8(request.name, name))
        return Fail(Exit::Failed, Cited(request.name));
    if (kind.alwaysThere && name == kind.alwaysThere)
        return list.FailBuiltIn(request.name);
    VReportMessageParams report;
    if (!kind.checkNewName(list.Folder(), name, report))
        return list.FailWith(report);
    const std::unique_ptr<Definition> definition = kind.make(list.Folder(), name);
    if (const Exit set = SetFields(request, *definition); set != Exit::Done)
        return set;
    return SaveAndShow(request, list, *definition);
}

Exit RenameDefinition(const Request& request, const DefinitionKind& kind)
{
    Definitions list(kind);
    if (const Exit opened = list.Open(request, Access::Write); opened != Exit::Done)
        return opened;
    VUnicodeString to;
    if (const Exit found = list.Find(request.name); found != Exit::Done)
        return found;
    if (!FromUtf8(request.tail, to))
        return Fail(Exit::Failed, Cited(request.tail));
    VReportMessageParams report;
    if (!kind.rename(list.Folder(), list.Name(), to, report))
        return list.FailWith(report);
    return Print(request.asJson ? WriteJson({{"renamed", request.name}, {"name", request.tail}})
                                : "Renamed " + list.Cite(request.name) + " to " + Cited(request.tail) + ".\n");
}

Exit DeleteDefinition(const Request& request, const DefinitionKind& kind)
{
    Definitions list(kind);
    if (const Exit opened = list.Open(request, Access::Write); opened != Exit::Done)
        return opened;
    if (const Exit found = list.Find(request.name); found != Exit::Done)
        return found;
    VReportMessageParams report;
    if (!kind.remove(list.Folder(), list.Name(), report))
        return list.FailWith(report);
    return Print(request.asJson ? WriteJson({{"deleted", request.name}})
                                : "Deleted " + list.Cite(request.name) + ".\n");
}

Exit CompleteDefinitions(const Request& request, const DefinitionKind& kind)
{
    Definitions list(kind);
    if (const Exit opened = list.Open(request, Access::Read); opened != Exit::Done)
        return opened;
    std::string text;
    for (const VUnicodeString& name : kind.names(list.Folder()))
        text += Lossless(name) + "\n";
    return Print(text);
}

} // namespace ostrand::tool
