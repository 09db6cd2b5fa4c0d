// The session's record as a whole: its table, against a list of its values, and walks over every leaf.
#include "config/session/session_edit.h"
#include "core/fold.h"
#include "tests/config/expected_schema.h"
#include "tests/config/record_walks.h"
#include "tests/config/session_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::u16string_view kKey = u"Sessions\\S";

VUnknownPointer<SessionConfig> Fresh()
{
    return VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(u"S", nullptr));
}

/// Saves to the session's key and tells the names that were written.
std::vector<std::u16string> WrittenBy(SessionScene& scene, SessionConfig& session, bool force)
{
    scene.store.TakeWrites();
    VProfileStore store;
    VProfileKey key(store.GetRootKey(), kKey.data());
    session.Save(&key, force);
    std::vector<std::u16string> names;
    for (const std::u16string& write : scene.store.TakeWrites())
        names.push_back(write.substr(write.find(u'|') + 1));
    return names;
}

TEST(SessionValues, TheSchemaIsTheList)
{
    ExpectSchemaIsTheList(EntriesOf(SessionValues::Schema().View()), ReadExpectedValues("session_values.txt"));
}

TEST(SessionValues, TheTableHasItsHeadAndEveryFieldOnce)
{
    SessionScene scene;
    const auto session = Fresh();
    EXPECT_EQ(session->GetMember(0), &session->isSession);
    EXPECT_EQ(session->GetMember(1), &session->terminalProtocol);
    EXPECT_EQ(session->GetMember(2), &session->transferProtocol);
    EXPECT_EQ(session->GetMember(3), &session->terminal);
    EXPECT_EQ(session->GetMember(83), &session->printerSerial);
    EXPECT_EQ(session->GetMember(84), nullptr);
    SessionValues& values = *session;
    ExpectRowsTile(values, &values.isSession, &values + 1);

    EXPECT_EQ(session->FindValue(u"PRINTER name"), &session->printerName);
    EXPECT_EQ(session->FindValue(u"transfer protocol name"), &session->transferProtocol);
    EXPECT_EQ(session->FindValue(u"Scrollback"), nullptr) << "a value of the terminal's own table";
}

/// Folded names of all leaves below a member.
void CollectNames(VProfileData& member, std::vector<std::u16string>& names)
{
    if (ClassOfValue(member)) {
        std::u16string& name = names.emplace_back(member.name.View());
        std::transform(name.begin(), name.end(), name.begin(), FoldCase);
        return;
    }
    for (int i = 0; VProfileData* const below = member.GetMember(i); ++i)
        CollectNames(*below, names);
}

TEST(SessionValues, NoTwoLeavesOfTheKeyShareAName)
{
    SessionScene scene;
    std::vector<std::u16string> names;
    CollectNames(*Fresh(), names);
    EXPECT_EQ(std::find(names.begin(), names.end(), u""), names.end());
    EXPECT_EQ(std::set(names.begin(), names.end()).size(), names.size());
    EXPECT_EQ(names.size(), 80u + 2 + 4 + 78 + 10) << "values, protocols with host and port, terminal, printer's line";
}

/// A view's change is seen once its text was made.
void ChangeText(VProfileData& value)
{
    Change(value);
    if (auto* const list = dynamic_cast<VProfileListViewState*>(&value))
        list->FormatText();
    if (auto* const frame = dynamic_cast<VProfileExplorerFrameState*>(&value))
        frame->FormatText();
}

TEST(SessionValues, EachChangeIsWrittenAloneAndUndoneByARevert)
{
    SessionScene scene;
    const auto session = Fresh();
    WrittenBy(scene, *session, true);
    EXPECT_THAT(WrittenBy(scene, *session, false), IsEmpty());
    session->AcceptChanges();
    for (const SessionLeaf& leaf : SessionLeaves(*session)) {
        if (!leaf.entry.isInTable || leaf.part == VSessionPart::TransferProtocol ||
            leaf.value == &session->terminalProtocol.protocolName || leaf.value == &session->terminal.keymap)
            continue;
        SCOPED_TRACE(ToUtf8(leaf.entry.name));
        ASSERT_FALSE(session->IsModified());
        const auto other = VUnknownPointer<SessionConfig>::Adopt(session->Clone());
        ChangeText(*leaf.value);
        EXPECT_TRUE(session->IsModified());
        const auto copy = VUnknownPointer<SessionConfig>::Adopt(session->Clone());
        EXPECT_TRUE(copy->IsModified());
        other->CopyFrom(copy.Get());
        EXPECT_THAT(SessionDifferences(*session, *other), IsEmpty());
        EXPECT_THAT(WrittenBy(scene, *session, false), ElementsAre(leaf.entry.name));
        Change(*leaf.value);
        session->RevertChanges();
        EXPECT_FALSE(session->IsModified());
        session->AcceptChanges();
        WrittenBy(scene, *session, false); // what reverts scheduled
    }
}

TEST(SessionValues, AValueOfAnyOtherKindReadsAsItsDefaultAndIsRepaired)
{
    SessionScene scene;
    const auto defaults = Fresh();
    WrittenBy(scene, *defaults, true);
    const std::vector<StoreEntry> whole = scene.store.factory.Dump();
    // A stored session has an idle timeout, so the missing switch counts as on; and it begins with the global layout.
    const std::set<std::u16string> otherDefault = {u"Idle Check", u"Remote ExplorerFrame State",
                                                   u"Remote ListView State"};
    for (const StoreEntry& entry : whole) {
        if (entry.key != kKey || entry.name == u"Keymap v2" || entry.name == u"Is Session")
            continue;
        for (const StoreValue& unfit : Unfit(entry.value)) {
            SCOPED_TRACE(ToUtf8(entry.name) + " as kind " + std::to_string(unfit.index()));
            scene.Put(entry.key, entry.name, unfit);
            const auto session = scene.Open(u"S");
            ASSERT_TRUE(session);
            EXPECT_EQ(SessionDifferences(*defaults, *session).size(), otherDefault.count(entry.name));
            WrittenBy(scene, *defaults, true);
            ASSERT_EQ(scene.store.factory.Dump(), whole);
        }
    }
}

} // namespace
} // namespace ostrand::test
