#include "config/session/session_edit.h"

#include "core/fold.h"
#include "keymap/profile_keymap.h"
#include "profile/time_value.h"

#include <algorithm>
#include <array>

namespace ostrand {

namespace {

struct KnownClass {
    VValueClass type;
    bool (*isOf)(const VProfileData&);
};

template <class V>
constexpr KnownClass Known(VValueClass type)
{
    return {type, [](const VProfileData& value) { return dynamic_cast<const V*>(&value) != nullptr; }};
}

/// Classes that derive from others stand ahead of them.
constexpr std::array kKnownClasses = {
    Known<VProfile<bool>>(VValueClass::Bool),
    Known<VProfile<int>>(VValueClass::Int),
    Known<VProfile<unsigned int>>(VValueClass::UInt),
    Known<VProfile<unsigned long>>(VValueClass::ULong),
    Known<VProfile<VTriState>>(VValueClass::TriState),
    Known<VProfileListViewState>(VValueClass::ListView),
    Known<VProfileExplorerFrameState>(VValueClass::ExplorerFrame),
    Known<VProfileEncodedString>(VValueClass::Encoded),
    Known<VProfileBlowfishString>(VValueClass::Encrypted),
    Known<VProfileString>(VValueClass::String),
    Known<VProfileMultiLineString>(VValueClass::MultiLine),
    Known<VProfileStringList>(VValueClass::Strings),
    Known<VProfileLogFont>(VValueClass::Font),
    Known<VProfileWindowPlacement>(VValueClass::Placement),
    Known<VProfileMargins>(VValueClass::Margins),
    Known<VProfileColors>(VValueClass::Colors),
    Known<VProfileTime>(VValueClass::Time),
    Known<VProfileBlob>(VValueClass::Blob),
    Known<ProfileKeymap>(VValueClass::Keymap),
};

class LeafList {
public:
    explicit LeafList(std::vector<SessionLeaf>& leaves) : m_leaves(leaves) {}

    void Add(VSchemaEntry entry, VSessionPart part, VProfileData& value)
    {
        entry.name = value.name.c_str();
        if (!FindSessionLeaf(m_leaves, entry.name))
            m_leaves.push_back({entry, part, &value});
    }

    /// A record's rows, those of its parts in their place.
    template <class C>
    void AddRows(C& record, VSessionPart part)
    {
        C::Schema().VisitValues([&](const VSchemaValue<C>& each) { Add(each.entry, part, each.In(record)); });
    }

    void AddProtocolName(ConnectConfigPtr& side, VSessionPart part)
    {
        VSchemaEntry entry;
        entry.type = VValueClass::String;
        entry.meaning = part == VSessionPart::TerminalProtocol ? u"The protocol of the terminal side."
                                                               : u"The protocol of the file transfer side.";
        Add(entry, part, side.protocolName);
    }

    void AddProtocolValues(ConnectConfigPtr& side, VSessionPart part)
    {
        if (ConnectConfig* const active = side.GetActive())
            AddMembers(*active, part, 0);
    }

private:
    /// Of a module's record, whose schema isn't known here.
    void AddMembers(VProfileData& record, VSessionPart part, int depth)
    {
        constexpr int kDeepest = 8; // a record that has itself as a member must not hang anybody
        for (int i = 0; VProfileData* const member = depth < kDeepest ? record.GetMember(i) : nullptr; ++i)
            if (const auto type = ClassOfValue(*member)) {
                VSchemaEntry entry;
                entry.type = *type;
                entry.meaning = u"A value of the protocol's own.";
                Add(entry, part, *member);
            } else if (member != &record) {
                AddMembers(*member, part, depth + 1);
            }
    }

    std::vector<SessionLeaf>& m_leaves;
};

/// Whether both hold the same current value; false also for two classes. `scratch` loses its own.
bool Differs(VProfileData& scratch, const VProfileData& other)
{
    if (ClassOfValue(scratch) != ClassOfValue(other))
        return true;
    // Copying one of these brings the saved copy along.
    if (const auto* const block = dynamic_cast<const VProfileBlob*>(&other))
        return dynamic_cast<const VProfileBlob&>(scratch).data != block->data;
    scratch.AcceptChanges();
    scratch.CopyValue(other);
    return scratch.IsModified();
}

/// The first rule of a record that changes the named value.
template <class C>
const VSchemaEntry* FirstRuleThatChanges(SessionConfig& session, C& record, std::u16string_view name)
{
    for (const VSchemaRow<C>& row : C::Schema().Rows()) {
        if (!row.IsRule())
            continue;
        const auto before = VUnknownPointer<SessionConfig>::Adopt(session.Clone());
        row.merge(record, row, nullptr);
        const auto was = SessionLeaves(*before);
        const auto is = SessionLeaves(session);
        const SessionLeaf* const old = FindSessionLeaf(was, name);
        const SessionLeaf* const now = FindSessionLeaf(is, name);
        if (old && now && Differs(*old->value, *now->value))
            return &row;
    }
    return nullptr;
}

template <class C>
void RunRules(C& record)
{
    for (const VSchemaRow<C>& row : C::Schema().Rows())
        if (row.IsRule())
            row.merge(record, row, nullptr);
}

} // namespace

std::optional<VValueClass> ClassOfValue(const VProfileData& value)
{
    for (const KnownClass& known : kKnownClasses)
        if (known.isOf(value))
            return known.type;
    return std::nullopt;
}

std::vector<SessionLeaf> SessionLeaves(SessionConfig& session)
{
    std::vector<SessionLeaf> leaves;
    LeafList list(leaves);
    const auto sides = {std::pair(&session.terminalProtocol, VSessionPart::TerminalProtocol),
                        std::pair(&session.transferProtocol, VSessionPart::TransferProtocol)};
    for (const auto& [side, part] : sides)
        list.AddProtocolName(*side, part);
    for (const auto& [side, part] : sides)
        list.AddProtocolValues(*side, part);
    list.AddRows<SessionValues>(session, VSessionPart::Session);
    list.AddRows(session.terminal, VSessionPart::Terminal);
    return leaves;
}

const SessionLeaf* FindSessionLeaf(const std::vector<SessionLeaf>& leaves, std::u16string_view name)
{
    const auto found = std::find_if(leaves.begin(), leaves.end(),
                                    [name](const SessionLeaf& leaf) { return EqualNoCase(leaf.entry.name, name); });
    return found == leaves.end() ? nullptr : &*found;
}

const VSchemaEntry* SettleSessionEdit(SessionConfig& session, std::u16string_view editedName)
{
    const VSchemaEntry* const refused = FirstRuleThatChanges<SessionValues>(session, session, editedName);
    return refused ? refused : FirstRuleThatChanges(session, session.terminal, editedName);
}

void RunSessionRules(SessionConfig& session)
{
    RunRules<SessionValues>(session);
    RunRules(session.terminal);
}

bool SaveSessionValues(SessionConfig& session, std::span<const VUnicodeString> names, VProfileKey& key,
                       IReportMessageParams& report)
{
    const std::vector<SessionLeaf> leaves = SessionLeaves(session);
    for (const VUnicodeString& name : names)
        if (const SessionLeaf* const leaf = FindSessionLeaf(leaves, name))
            leaf->value->Save(&key, true);
    return key.Flush(report);
}

std::vector<VUnicodeString> SessionDifferences(SessionConfig& before, SessionConfig& after)
{
    std::vector<VUnicodeString> names;
    const auto scratch = VUnknownPointer<SessionConfig>::Adopt(before.Clone());
    const std::vector<SessionLeaf> was = SessionLeaves(*scratch);
    const std::vector<SessionLeaf> is = SessionLeaves(after);
    for (const SessionLeaf& leaf : is)
        if (const SessionLeaf* const old = FindSessionLeaf(was, leaf.entry.name);
            !old || Differs(*old->value, *leaf.value))
            names.emplace_back(leaf.entry.name);
    for (const SessionLeaf& leaf : was)
        if (!FindSessionLeaf(is, leaf.entry.name))
            names.emplace_back(leaf.entry.name);
    return names;
}

VUnknownPointer<SessionConfig> SessionDefaults(const SessionConfig& like)
{
    auto defaults = VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(u"", nullptr));
    defaults->terminalProtocol.SetProtocol(like.terminalProtocol.GetProtocolName());
    defaults->transferProtocol.SetProtocol(like.transferProtocol.GetProtocolName());
    return defaults;
}

} // namespace ostrand
