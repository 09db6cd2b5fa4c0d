#include "tools/session_record.h"

#include "config/session/session_paths.h"
#include "core/fold.h"
#include "core/messages.h"
#include "tools/output.h"
#include "tools/suggest.h"

#include <algorithm>

namespace ostrand::tool {

namespace {

constexpr std::array kSides = {Side::Terminal, Side::Transfer};

const char* PartName(VSessionPart part)
{
    switch (part) {
    case VSessionPart::TerminalProtocol:
        return "terminal protocol";
    case VSessionPart::TransferProtocol:
        return "transfer protocol";
    case VSessionPart::Terminal:
        return "terminal";
    case VSessionPart::Session:
        break;
    }
    return "session";
}

bool Refuse(std::string& problem, const std::string& text)
{
    problem = text;
    return false;
}

std::string Listed(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + Cited(name);
    return text;
}

/// A protocol by its name in any case; empty, with the problem, for a text that is none.
VUnicodeString ProtocolNamed(Side side, std::span<const std::string> words, std::string& problem)
{
    const std::vector<std::string> names = ProtocolNames(side);
    VUnicodeString typed, known;
    for (const std::string& name : names)
        if (words.size() == 1 && FromUtf8(words[0], typed) && FromUtf8(name, known) && EqualNoCase(typed, known))
            return known;
    const std::string word = words.size() == 1 ? words[0] : std::to_string(words.size()) + " words";
    const std::string near = NearestName(word, names);
    problem = "no protocol of the " + std::string(side == Side::Terminal ? "terminal" : "file transfer") +
              " side is named " + Cited(word) + "; " +
              (near.empty() ? "there are " + Listed(names) : "did you mean " + Cited(near) + "?");
    return {};
}

} // namespace

std::vector<NamedValue> SessionRecord::Values()
{
    std::vector<NamedValue> values;
    for (const SessionLeaf& leaf : SessionLeaves(*m_session))
        values.push_back({leaf.entry, leaf.value, PartName(leaf.part)});
    return values;
}

VUnicodeString SessionRecord::KeyPath() const { return BuildSessionKeyPath(m_session->GetPathName()); }

std::unique_ptr<ValueRecord> SessionRecord::Clone() const
{
    return std::make_unique<SessionRecord>(VUnknownPointer<SessionConfig>::Adopt(m_session->Clone()));
}

std::unique_ptr<ValueRecord> SessionRecord::Defaults(bool) const
{
    const VUnknownPointer<SessionConfig> defaults = SessionDefaults(*m_session);
    // The values of this session's protocols, but the names of the usual ones.
    const auto fresh = VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(u"", nullptr));
    defaults->terminalProtocol.protocolName.CopyValue(fresh->terminalProtocol.protocolName);
    defaults->transferProtocol.protocolName.CopyValue(fresh->transferProtocol.protocolName);
    return std::make_unique<SessionRecord>(defaults);
}

bool SessionRecord::IsStored(const NamedValue& value) const
{
    if (!value.value->IsDirty())
        return true;
    // A number that a global limit cut counts as pending, too.
    unsigned number = 0;
    return value.entry.type == VValueClass::Int && VProfileKey(VProfileStore(true).GetRootKey(), KeyPath().c_str())
                                                       .ReadDword(value.value->name.c_str(), &number);
}

std::string SessionRecord::WhyUnknown(std::u16string_view name)
{
    return NearestName(Lossless(name), NamesOf(*this)).empty() ? MissingProtocols() : std::string();
}

std::string SessionRecord::MissingProtocols() const
{
    for (const Side side : kSides)
        if (const std::string why = WhyProtocolIsMissing(side, ProtocolOf(side)); !why.empty())
            return why;
    return {};
}

bool SessionRecord::Set(const NamedValue& value, std::span<const std::string> words, std::string& problem)
{
    const std::optional<Side> side = SideOf(value);
    if (!side)
        return ValueRecord::Set(value, words, problem);
    const VUnicodeString name = ProtocolNamed(*side, words, problem);
    if (name.IsEmpty())
        return false;
    const Side other = *side == Side::Terminal ? Side::Transfer : Side::Terminal;
    if (name == kNoProtocol && ProtocolOf(other) == kNoProtocol)
        return Refuse(problem, "Both selected protocols cannot be 'None'.");
    Select(*side, name);
    return true;
}

bool SessionRecord::CheckProtocol(const NamedValue& value, std::span<const std::string> words,
                                  std::string& problem) const
{
    return !ProtocolNamed(*SideOf(value), words, problem).IsEmpty();
}

void SessionRecord::Copy(const NamedValue& value, const VProfileData& other)
{
    const std::optional<Side> side = SideOf(value);
    if (side)
        Select(*side, dynamic_cast<const VProfileString&>(other).Value());
    else
        value.value->CopyValue(other);
}

SettledEdit SessionRecord::Settle(const VUnicodeString& edited, ValueRecord& before)
{
    SettledEdit settled{SettleSessionEdit(*m_session, edited), {edited}};
    for (const VUnicodeString& name : SessionDifferences(dynamic_cast<SessionRecord&>(before).Session(), *m_session))
        if (!EqualNoCase(name, edited))
            settled.names.push_back(name);
    return settled;
}

bool SessionRecord::Save(std::span<const VUnicodeString> names, IReportMessageParams& report)
{
    const VUnicodeString path = KeyPath();
    VProfileStore store;
    const bool isThere = store.GetRootKey()->KeyExists(path.c_str());
    if (!isThere && !m_session->IsDefaultSession())
        return Fail(report, kNameUnknown, u"session", m_session->GetPathName());
    VProfileKey key(store.GetRootKey(), path.c_str());
    if (isThere)
        return SaveSessionValues(*m_session, names, key, report);
    m_session->Save(&key, true);
    // In a default session a name that is there and empty means no protocol, and not that no module was at hand.
    for (const ConnectConfigPtr* const side : {&m_session->terminalProtocol, &m_session->transferProtocol})
        if (side->GetProtocolName().IsEmpty())
            key.DeleteValue(side->name.c_str());
    return key.Flush(report);
}

std::optional<Side> SessionRecord::SideOf(const NamedValue& value) const
{
    if (value.value == &m_session->terminalProtocol.protocolName)
        return Side::Terminal;
    if (value.value == &m_session->transferProtocol.protocolName)
        return Side::Transfer;
    return std::nullopt;
}

const VUnicodeString& SessionRecord::ProtocolOf(Side side) const
{
    return (side == Side::Terminal ? m_session->terminalProtocol : m_session->transferProtocol).GetProtocolName();
}

void SessionRecord::Select(Side side, const VUnicodeString& name)
{
    side == Side::Terminal ? m_session->SetTerminalProtocol(name) : m_session->SetTransferProtocol(name);
}

void VisitProtocols(SessionRecord& record, const std::function<void()>& visit)
{
    VUnicodeString name;
    for (const Side side : kSides)
        for (const std::string& known : ProtocolNames(side))
            if (FromUtf8(known, name) && IsProtocolLoaded(side, name)) {
                SessionConfig& session = record.Session();
                side == Side::Terminal ? session.SetTerminalProtocol(name) : session.SetTransferProtocol(name);
                visit();
            }
}

} // namespace ostrand::tool
