// Folders of sessions: what they list, in which order, and what of it is stored; and the names that sessions may have.
#include "config/global/global_config.h"
#include "config/session/folder_data.h"
#include "config/session/session_name.h"
#include "config/session/session_paths.h"
#include "core/module_state.h"
#include "platform/error_codes.h"
#include "tests/support/default_store.h"
#include "tests/support/recording_prompts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

VStringArray ListOf(std::initializer_list<const char16_t*> names)
{
    VStringArray list;
    for (const char16_t* const name : names)
        list.Append(name);
    return list;
}

std::string TextOf(const VStringArray& list) { return ToUtf8(JoinFolderList(list)); }

/// Sessions `Lab\a`, `b`, `c`, `.x` and the temporary one, folders `Lab\Rack` and `Shelf`; `Lab` has no order yet.
class SessionFolders : public testing::Test {
protected:
    SessionFolders()
    {
        for (const char16_t* const session : {u"a", u"b", u"c", u".x", u"_@@TMP@@_", u"Rack\\deep"})
            store.factory.Fill({{std::u16string(u"Sessions\\Lab\\") + session, kIsSession, 0u}});
        store.factory.Fill({{u"Sessions\\Lab\\Shelf", u"Note", 1u}, {u"Sessions\\Top", kIsSession, 1u}});
        config->hideDotSessionFiles = true;
        ModuleState().globalConfig = config;
    }
    ~SessionFolders() override { ModuleState().globalConfig.Reset(); }

    void StoreSessionList(const char16_t* text)
    {
        store.factory.Fill({{kLabData, u"Session List", VUnicodeString(text)},
                            {kLabData, u"Folder List", VUnicodeString(u"Rack:Shelf:")},
                            {kLabData, u"Is Expanded", 1u}});
    }
    static constexpr const char16_t* kLabData = u"Sessions\\Lab\\__FOLDERDATA__";

    DefaultMemoryStore store;
    VUnknownPointer<GlobalConfig> config = VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(nullptr, false));
    VReportMessageParams report;
};

TEST_F(SessionFolders, AFolderWithoutOrderGetsOneAtTheFirstSave)
{
    store.TakeWrites();
    ProfileFolderData lab(u"Lab", false);
    EXPECT_EQ(lab.dataKeyPath, u"Sessions\\Lab\\__FolderData__");
    EXPECT_EQ(TextOf(lab.orderedSessions), "a:b:c:");
    EXPECT_EQ(TextOf(lab.orderedFolders), "Rack:Shelf:");
    EXPECT_FALSE(lab.isExpanded);
    EXPECT_THAT(store.TakeWrites(), ElementsAre(u"Sessions\\Lab\\__FolderData__|")) << "the key, and nothing in it";

    ASSERT_TRUE(lab.SaveLists(report));
    EXPECT_THAT(store.NamesIn(u"Sessions\\Lab\\__FolderData__"),
                ElementsAre(u"Folder List", u"Session List", u"Is Expanded"));
    store.TakeWrites();
    ProfileFolderData again(u"lab", false);
    EXPECT_EQ(TextOf(again.foundSessions), "a:b:c:");
    EXPECT_TRUE(again.SaveLists(report));
    EXPECT_THAT(store.TakeWrites(), IsEmpty()) << "nothing changed";

    store.factory.FailFlush(kErrorDiskFull);
    again.isExpanded = true;
    EXPECT_FALSE(again.SaveLists(report));
    EXPECT_EQ(report.GetCode(), kErrorDiskFull);
    EXPECT_EQ(TextOf(ProfileFolderData(u"", false).orderedFolders), "Lab:");
    EXPECT_EQ(TextOf(ProfileFolderData(u"", false).orderedSessions), "Top:");
}

TEST_F(SessionFolders, AStoredOrderIsBroughtInLineWithTheKeys)
{
    const struct {
        const char16_t* stored;
        bool hidesDotNames;
        const char* shown;
    } kCases[] = {{u"c:b:a:", true, "c:b:a:"},      {u"c:gone:a:", true, "c:a:b:"},   {u"b:b::.x:a", true, "b:a:c:"},
                  {u"C:A:B:", true, "c:a:b:"},      {u"c:.x:a:", false, "c:.x:a:b:"}, {u"", true, "a:b:c:"},
                  {u"Rack:c:Shelf", true, "c:a:b:"}};
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.stored));
        StoreSessionList(c.stored);
        config->hideDotSessionFiles = c.hidesDotNames;
        store.TakeWrites();
        ProfileFolderData lab(u"Lab", false);
        EXPECT_EQ(TextOf(lab.orderedSessions), c.shown);
        EXPECT_EQ(TextOf(lab.orderedFolders), "Rack:Shelf:");
        EXPECT_TRUE(lab.isExpanded);
        EXPECT_THAT(store.TakeWrites(), IsEmpty());
        EXPECT_TRUE(lab.SaveLists(report));
        EXPECT_EQ(ToUtf8(ProfileFolderData(u"Lab", true).sessionList), c.shown);
    }
}

TEST(FolderList, EditsKeepThePlacesOfOthers)
{
    const VStringArray before = ListOf({u"a", u"b", u"c", u"d"});
    const auto edited = [&before](auto edit) {
        VStringArray list = before;
        edit(list);
        return TextOf(list);
    };
    const auto inserted = [&](const VStringArray& names, const char16_t* anchor, bool isSorted = false) {
        return edited([&](VStringArray& list) { InsertNames(list, names, anchor, isSorted); });
    };
    EXPECT_EQ(inserted(ListOf({u"x", u"y"}), u"B"), "a:b:x:y:c:d:");
    EXPECT_EQ(inserted(ListOf({u"x", u"y"}), u"q"), "a:b:c:d:x:y:");
    EXPECT_EQ(inserted(ListOf({u"x", u"y"}), u"b", true), "a:b:c:d:x:y:");
    EXPECT_EQ(inserted(ListOf({u"D", u"x", u"d", u"X"}), u"a"), "a:D:x:b:c:") << "each once";
    EXPECT_EQ(inserted(ListOf({u"b"}), u"b"), "a:c:d:b:") << "no anchor is left";
    EXPECT_EQ(inserted(VStringArray(), u"b"), "a:b:c:d:");
    EXPECT_EQ(edited([](VStringArray& list) { InsertName(list, list[3], list[0], true, false); }), "a:d:b:c:");

    EXPECT_EQ(edited([](VStringArray& list) { EXPECT_TRUE(RenameName(list, u"B", u"x")); }), "a:x:c:d:");
    EXPECT_EQ(edited([](VStringArray& list) { EXPECT_TRUE(RenameName(list, u"c", u"A")); }), "b:A:d:") << "overwritten";
    EXPECT_EQ(edited([](VStringArray& list) { EXPECT_TRUE(RenameName(list, u"c", u"C")); }), "a:b:C:d:");
    EXPECT_EQ(edited([](VStringArray& list) { EXPECT_TRUE(MoveName(list, u"D", 0)); }), "d:a:b:c:");
    EXPECT_EQ(edited([](VStringArray& list) { EXPECT_TRUE(MoveName(list, u"a", 2)); }), "b:c:a:d:");
    EXPECT_EQ(edited([](VStringArray& list) { EXPECT_TRUE(MoveName(list, u"b", 99)); }), "a:c:d:b:");
    EXPECT_EQ(edited([](VStringArray& list) { EXPECT_TRUE(RemoveName(list, u"C")); }), "a:b:d:");
    EXPECT_EQ(edited([](VStringArray& list) {
                  EXPECT_FALSE(RenameName(list, u"q", u"a") || MoveName(list, u"q", 0) || RemoveName(list, u"q"));
              }),
              "a:b:c:d:");
}

TEST_F(SessionFolders, WhatIsNoSessionIsAFolder)
{
    EXPECT_EQ(BuildSessionKeyPath(u""), u"Sessions");
    EXPECT_EQ(BuildSessionKeyPath(u"Lab\\a"), u"Sessions\\Lab\\a");
    for (const char16_t* const folder : {u"", u"Lab", u"Lab\\Shelf", u"gone", u"Lab\\gone\\too"})
        EXPECT_TRUE(IsFolder(folder)) << ToUtf8(folder);
    EXPECT_FALSE(IsFolder(u"LAB\\A"));
    EXPECT_TRUE(SessionExists(u"lab\\rack") && SessionExistsIn(u"Lab", u"a") && SessionExistsIn(u"", u"Top"));
    EXPECT_FALSE(SessionExists(u"a") || SessionExistsIn(u"Lab", u"Top"));
    for (const auto& [path, folder, name] :
         {std::array{u"Lab\\Rack\\deep", u"Lab\\Rack", u"deep"}, {u"Top", u"", u"Top"}, {u"Lab\\", u"Lab", u""}}) {
        EXPECT_EQ(SplitSessionPath(path).folder, folder);
        EXPECT_EQ(SplitSessionPath(path).name, name);
    }
}

TEST_F(SessionFolders, NamesThatCantBeAreTold)
{
    RecordingPrompts prompts;
    const struct {
        const char16_t *path, *oldName, *newName;
        bool isNew;
        const char16_t* message; // null: the name is good
    } kCases[] = {
        {u"Lab", u"", u"", true, u"The name must be specified"},
        {u"Lab", u"", u"a|b:c", true, u"The name contains an illegal character: ' : '"},
        {u"Lab", u"", u"clock$", true, u"clock$ is a reserved device name on Windows and cannot be used as a name."},
        {u"Lab\\Com1", u"Com1", u"Com1", false,
         u"Com1 is a reserved device name on Windows and cannot be used as a name."},
        {u"Lab", u"", u"COM10", true, nullptr},
        {u"Lab", u"", u"Foo.", true, nullptr},
        {u"Lab", u"", u"R\u00F6uter %1", true, nullptr},
        {u"Lab", u"", u"A", true, u"'A' is already in use."},
        {u"", u"", u"lab", true, u"'lab' is already in use."},
        {u"Lab\\a", u"a", u"a", false, nullptr},
        {u"Lab\\a", u"a", u"A", false, nullptr},
        {u"Lab\\a", u"a", u"b", false, u"'b' is already in use."},
        {u"Lab\\a", u"a", u"top", false, nullptr},
        {u"Top", u"Top", u"LAB", false, u"'LAB' is already in use."},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.newName));
        prompts.texts.clear();
        EXPECT_EQ(ValidateSessionName(c.path, c.oldName, c.newName, c.isNew), c.message == nullptr);
        ASSERT_EQ(prompts.texts.size(), c.message ? 1u : 0u);
        if (!c.message)
            continue;
        EXPECT_EQ(prompts.texts[0], c.message);
        const bool isTaken = prompts.texts[0].ends_with(u"in use.");
        EXPECT_EQ(prompts.lastIcon, isTaken ? VPromptIcon::Warning : VPromptIcon::None);
    }
}

} // namespace
} // namespace ostrand::test
