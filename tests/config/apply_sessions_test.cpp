// One change made to many sessions: seen before, made as one, taken back.
#include "config/session/apply_undo.h"
#include "core/messages.h"
#include "stores/file_store.h"
#include "tests/config/session_scene.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace ostrand::test {
namespace {

using testing::IsEmpty;

/// Three sessions: one complete, one in a folder that lacks most, one with an old form.
struct Scene : SessionScene {
    Scene()
    {
        PutSession(u"Whole");
        VProfileStore defaultStore;
        VProfileKey key(defaultStore.GetRootKey(), u"Sessions\\Whole");
        Open(u"Whole")->Save(&key, true);
        PutSession(u"Lab\\Bare");
        Put(u"Sessions\\Lab\\Bare", u"Scrollback", 700u);
        PutSession(u"Old");
        Put(u"Sessions\\Old", u"XModem Send Packet Size", 128u);
        before = store.factory.Dump();
    }

    std::vector<StoreEntry> Sessions() const
    {
        std::vector<StoreEntry> entries = store.factory.Dump();
        std::erase_if(entries, [](const StoreEntry& e) { return e.key.starts_with(u"Apply Undo"); });
        return entries;
    }

    std::vector<StoreEntry> before;
    VReportMessageParams report;
};

const SessionEdit kDeepen = [](SessionConfig& session) { session.terminal.scrollback = 9000; };

const AppliedLine& LineOf(const ApplyPreview& preview, std::u16string_view name)
{
    const auto found = std::find_if(preview.lines.begin(), preview.lines.end(),
                                    [name](const AppliedLine& line) { return line.name == name; });
    if (found == preview.lines.end())
        throw std::runtime_error("no such line");
    return *found;
}

TEST(ApplySessions, APreviewShowsEveryLineAndWritesNone)
{
    Scene scene;
    ApplyPreview preview;
    scene.store.TakeWrites();
    PreviewApply(kDeepen, {}, preview);
    EXPECT_THAT(scene.store.TakeWrites(), IsEmpty());
    EXPECT_EQ(preview.total, 3u);
    EXPECT_EQ(preview.changed, 3u);
    const AppliedLine& scrollback = LineOf(preview, u"Scrollback");
    EXPECT_EQ(scrollback.sessions, 3u);
    EXPECT_EQ(scrollback.missing, 1u);
    EXPECT_EQ(scrollback.after, StoreValue(9000u));
    EXPECT_FALSE(scrollback.varies);
    EXPECT_EQ(LineOf(preview, u"XModem Send Packet Size").sessions, 2u) << "a default and a migrated value";
    EXPECT_EQ(LineOf(preview, u"XModem Send Packet Size").missing, 1u);

    PreviewApply([](SessionConfig& s) { s.titleBar = s.GetPathName(); }, {u"Lab", {}}, preview);
    EXPECT_EQ(preview.total, 1u);
    EXPECT_EQ(LineOf(preview, u"Title Bar").after, StoreValue(VUnicodeString(u"Lab\\Bare")));
    PreviewApply([](SessionConfig& s) { s.titleBar = s.GetPathName(); }, {}, preview);
    EXPECT_TRUE(LineOf(preview, u"Title Bar").varies);
    scene.store.factory.SetReadOnly(true);
    PreviewApply(kDeepen, {}, preview);
    EXPECT_EQ(preview.readOnly.GetCount(), 3u);
    EXPECT_EQ(preview.changed, 0u);
}

TEST(ApplySessions, WhatWasAppliedIsUndoneToTheLine)
{
    Scene scene;
    ApplyOutcome outcome;
    ASSERT_TRUE(ApplyToSessions(kDeepen, {}, outcome, scene.report));
    EXPECT_EQ(outcome.counts.updated, 3u);
    EXPECT_EQ(scene.Get(u"Lab\\Bare", u"Scrollback"), StoreValue(9000u));
    EXPECT_EQ(scene.Get(u"Old", u"XModem Send Packet Size"), StoreValue(0u));
    ASSERT_TRUE(HasApplyToUndo());

    ASSERT_TRUE(ApplyToSessions(kDeepen, {}, outcome, scene.report)) << "nothing left to change";
    EXPECT_EQ(outcome.changed, 0u);
    UndoOutcome undone;
    ASSERT_TRUE(UndoLastApply({}, undone, scene.report));
    EXPECT_EQ(undone.restored, 3u);
    EXPECT_TRUE(undone.kept.IsEmpty());
    EXPECT_EQ(scene.store.factory.Dump(), scene.before);
    EXPECT_FALSE(UndoLastApply({}, undone, scene.report));
    EXPECT_EQ(scene.report.GetCode(), kNothingToUndo);
}

TEST(ApplySessions, OnlyTheLastOneIsUndone)
{
    Scene scene;
    ApplyOutcome outcome;
    ASSERT_TRUE(ApplyToSessions(kDeepen, {}, outcome, scene.report));
    const auto first = scene.Sessions();
    ASSERT_TRUE(ApplyToSessions([](SessionConfig& s) { s.titleBar = u"t"; }, {u"Lab", {}}, outcome, scene.report));
    EXPECT_EQ(outcome.changed, 1u);
    UndoOutcome undone;
    ASSERT_TRUE(UndoLastApply({}, undone, scene.report));
    EXPECT_EQ(scene.store.factory.Dump(), first) << "and the record of the first one is gone";
}

TEST(ApplySessions, AnUndoLeavesWhatWasChangedSince)
{
    Scene scene;
    ApplyOutcome outcome;
    ASSERT_TRUE(ApplyToSessions(kDeepen, {}, outcome, scene.report));
    scene.Put(u"Sessions\\Whole", u"Scrollback", 50u);
    VProfileStore(false).GetRootKey()->DeleteKey(u"Sessions\\Old");
    UndoOutcome undone;
    ASSERT_TRUE(UndoLastApply({}, undone, scene.report));
    ASSERT_EQ(undone.kept.GetCount(), 1u);
    EXPECT_EQ(undone.kept[0], u"Whole: Scrollback");
    EXPECT_EQ(undone.missing, 1u);
    EXPECT_EQ(scene.Get(u"Whole", u"Scrollback"), StoreValue(50u));
    EXPECT_EQ(scene.Get(u"Lab\\Bare", u"Scrollback"), StoreValue(700u));
    EXPECT_FALSE(scene.Open(u"Old")) << "a session that is gone stays gone";
}

TEST(ApplySessions, StoppedOrRefusedMeansNothingWasDone)
{
    Scene scene;
    ApplyOutcome outcome;
    unsigned told = 0;
    EXPECT_FALSE(
        ApplyToSessions(kDeepen, {{}, [&](unsigned done) { return (told = done) < 2; }}, outcome, scene.report));
    EXPECT_TRUE(outcome.wasStopped);
    EXPECT_EQ(told, 2u);
    EXPECT_EQ(scene.store.factory.Dump(), scene.before);
    scene.store.factory.FailWrites(112);
    EXPECT_FALSE(ApplyToSessions(kDeepen, {}, outcome, scene.report));
    EXPECT_FALSE(outcome.wasStopped);
    EXPECT_EQ(scene.report.GetCode(), 112u);
    scene.store.factory.FailWrites(0);
    EXPECT_EQ(scene.store.factory.Dump(), scene.before);

    ASSERT_TRUE(ApplyToSessions(kDeepen, {}, outcome, scene.report));
    const auto applied = scene.store.factory.Dump();
    UndoOutcome undone;
    EXPECT_FALSE(UndoLastApply({{}, [](unsigned) { return false; }}, undone, scene.report));
    EXPECT_TRUE(undone.wasStopped);
    EXPECT_EQ(scene.store.factory.Dump(), applied);
}

TEST(ApplySessions, AnUndoRecordThatIsGarbledIsSkipped)
{
    Scene scene;
    ApplyOutcome outcome;
    ASSERT_TRUE(ApplyToSessions(kDeepen, {}, outcome, scene.report));
    VStringArray garbled;
    const auto put = [&](const char16_t* name, std::initializer_list<const char16_t*> texts) {
        garbled.RemoveAll();
        for (const char16_t* text : texts)
            garbled.Append(text);
        scene.Put(u"Apply Undo\\1\\1", name, garbled);
    };
    put(u"7", {});
    put(u"8", {u"Whole", u"", u"Scrollback", u"d5"});
    put(u"9", {u"Whole", u"", u"Scrollback", u"d99999999999", u"d9000"});
    put(u"10", {u"Whole", u"", u"Scrollback", u"m3:ab", u"q"});
    put(u"11", {u"..\\..", u"", u"Scrollback", u"d1", u"-"});
    scene.Put(u"Apply Undo\\1\\1", u"12", 5u);
    UndoOutcome undone;
    ASSERT_TRUE(UndoLastApply({}, undone, scene.report));
    EXPECT_EQ(scene.Sessions(), scene.before);
}

TEST(ApplySessions, AFileStoreTakesItAsOneTransaction)
{
    SessionScene scene;
    TempFolder folder;
    static FileStoreFactory* files = nullptr;
    FileStoreFactory factory(folder.Path());
    files = &factory;
    SetProfileStoreFactoryGetter([]() -> VProfileStoreFactory* { return files; });
    VReportMessageParams report;
    SessionFolderAccess access(false);
    constexpr unsigned kSessions = 600; // more than one chunk of the record
    for (unsigned i = 0; i < kSessions; ++i) {
        VProfileStore store;
        const VUnicodeString path = BuildSessionKeyPath(u"S" + std::u16string(1, static_cast<char16_t>(u'a' + i % 26)) +
                                                        std::u16string(i / 26 + 1, u'x'));
        VProfileKey key(store.GetRootKey(), path.c_str());
        key.WriteDword(u"Is Session", 1);
        key.WriteDword(u"Scrollback", i);
    }
    const auto source = access.OpenSession(u"Sax");
    source->AcceptChanges();
    source->terminal.scrollback = 9000;
    ApplyOutcome outcome;
    ASSERT_TRUE(ApplyToSessions(CopyChangesOf(*source), {}, outcome, report)) << ToUtf8(report.GetText());
    EXPECT_EQ(outcome.changed, kSessions);
    EXPECT_EQ(access.OpenSession(u"Szxxx")->terminal.scrollback, 9000);
    UndoOutcome undone;
    ASSERT_TRUE(UndoLastApply({}, undone, report)) << ToUtf8(report.GetText());
    EXPECT_EQ(undone.restored, kSessions);
    EXPECT_TRUE(undone.kept.IsEmpty());
    EXPECT_EQ(access.OpenSession(u"Szxxx")->terminal.scrollback, 77);
    EXPECT_FALSE(HasApplyToUndo());
    SetProfileStoreFactoryGetter(nullptr);
}

} // namespace
} // namespace ostrand::test
