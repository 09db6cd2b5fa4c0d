// What the global record does when it is read, merged and saved.
#include "config/global/global_store.h"
#include "tests/config/global_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(GlobalConfig, TheOldNameCountsOnlyWhereTheNewOneIsMissing)
{
    struct Case {
        std::optional<StoreValue> oldValue, newValue;
        bool shown, isModified, isDirty;
    };
    const Case cases[] = {
        {1u, {}, true, true, true},
        {7u, {}, true, true, true},
        {0u, {}, false, false, true},
        {1u, 0u, false, false, false},
        {0u, 1u, true, false, false},
        {VUnicodeString(u"1"), {}, false, false, true},
        {1u, VUnicodeString(u"0"), true, true, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(&c - cases);
        GlobalStore store;
        if (c.oldValue)
            store.Put(u"Chat Window", *c.oldValue);
        if (c.newValue)
            store.Put(u"Show Chat Window", *c.newValue);
        const ConfigPointer config = Read(store.Key());
        EXPECT_EQ(config->showChatWindow, c.shown);
        EXPECT_EQ(config->showChatWindow.IsModified(), c.isModified);
        EXPECT_EQ(config->showChatWindow.dirty, c.isDirty);
        config->Save(store.Key(), false);
        EXPECT_EQ(store.Get(u"Show Chat Window"), StoreValue(c.shown ? 1u : 0u));
        EXPECT_EQ(store.Get(u"Chat Window"), c.oldValue) << "the old value is left where it is";
    }
}

TEST(GlobalConfig, RawModeExcludesTheDirectPort)
{
    GlobalStore store({{u"Use Raw Mode", 2u}, {u"Use Printer Port", 1u}});
    const ConfigPointer config = Read(store.Key());
    EXPECT_EQ(config->usePrinterPort, 0);
    EXPECT_TRUE(config->usePrinterPort.IsModified());

    GlobalStore plain({{u"Use Printer Port", 1u}});
    const ConfigPointer merged = Read(plain.Key());
    EXPECT_EQ(merged->usePrinterPort, 1);
    GlobalStore administrator({{u"Use Raw Mode", 1u}});
    merged->Merge(administrator.Key());
    EXPECT_EQ(merged->usePrinterPort, 0) << "the rule runs behind both values";
}

TEST(GlobalConfig, TheHintIsShownInANewStoreAlone)
{
    const struct {
        std::optional<StoreValue> version;
        bool isShown;
    } cases[] = {{{}, false}, {VUnicodeString(u""), true}, {VUnicodeString(u"old"), true}, {1u, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        GlobalStore store;
        if (c.version)
            store.Put(u"Version", *c.version);
        EXPECT_EQ(Read(store.Key())->rightClickPopupShown, c.isShown);
    }
}

TEST(GlobalConfig, OverridesOfOneRunAreUndoneByASave)
{
    const struct {
        bool GlobalConfig::* flag;
        std::vector<const char16_t*> names;
    } cases[] = {
        {&GlobalConfig::transferTypeOverridden, {u"Transfer Type"}},
        {&GlobalConfig::overwriteActionOverridden, {u"Overwrite Action"}},
        {&GlobalConfig::logFileOverridden, {u"Enable Log File", u"Log File"}},
        {&GlobalConfig::retryOverridden, {u"Retry Attempts", u"Retry Delay"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(ToUtf8(c.names.front()));
        GlobalStore store;
        const ConfigPointer config = Read(store.Key());
        config->Save(store.Key(), true);
        store.TakeWrites();

        for (VProfile<int>* number : {&config->transferType, &config->overwriteAction, &config->enableLogFile,
                                      &config->retryAttempts, &config->retryDelay})
            *number = 2;
        config->logFile = VUnicodeString(u"x.log");
        config.Get()->*c.flag = true;
        VReportMessageParams report;
        EXPECT_TRUE(WriteGlobalConfig(*config, false, report));
        const auto writes = store.TakeWrites();
        EXPECT_EQ(writes.size(), 6 - c.names.size()) << "the values of the other flags are ordinary changes";
        for (const char16_t* name : c.names)
            EXPECT_THAT(writes, testing::Not(testing::Contains(std::u16string(name))));
        EXPECT_FALSE(config->IsModified()) << "the current values are the stored ones again";
        EXPECT_TRUE(config.Get()->*c.flag) << "the flag stays";
    }
}

TEST(GlobalConfig, AMergeLaysOnlyWhatItFindsOverTheRecord)
{
    GlobalStore store;
    const ConfigPointer config = Read(store.Key());
    config->Save(store.Key(), false);
    config->timeout = 7;
    config->retryDelay = 8;
    store.TakeWrites();

    GlobalStore administrator({{u"Timeout", 60u},
                               {u"MRU Count", 99u},
                               {u"Chat Window", 1u},
                               {u"Log File", 5u},
                               {u"Line Send Delay", 30u},
                               {u"Selected Termcap Entries", VStringArray()}});
    config->Merge(administrator.Key());
    EXPECT_EQ(config->timeout, 60);
    EXPECT_FALSE(config->timeout.IsModified()) << "counts as saved";
    EXPECT_EQ(config->mruCount, 9);
    EXPECT_TRUE(config->mruCount.IsModified()) << "the bound changed it";
    EXPECT_EQ(config->retryDelay, 8) << "what the key lacks stays";
    EXPECT_FALSE(config->showChatWindow) << "old names are looked at once, when the record is read";
    EXPECT_EQ(config->lineSendDelay, 30);
    config->Save(store.Key(), false);
    EXPECT_THAT(store.TakeWrites(), ElementsAre(u"MRU Count", u"Retry Delay"));

    config->Merge(nullptr);
    EXPECT_FALSE(config->IsModified());
}

TEST(GlobalConfig, SevenValuesAreNeverMerged)
{
    const ConfigPointer config = Read(nullptr);
    const std::vector<std::u16string> kept = {u"Alpha Transparency",
                                              u"Active Window Alpha Transparency",
                                              u"Inactive Window Alpha Transparency",
                                              u"Right Click Popup Shown",
                                              u"Quillo XML File Fixed",
                                              u"Tessaly XML File Fixed",
                                              u"Orvane XML File Fixed"};
    GlobalStore administrator;
    for (const std::u16string& name : kept)
        administrator.Put(name, 1u);
    administrator.Put(u"Disable Resize", 1u);
    config->Merge(administrator.Key());
    for (const std::u16string& name : kept)
        EXPECT_TRUE(config->FindMember(name)->IsDirty()) << ToUtf8(name);
    EXPECT_TRUE(config->disableResize);
    EXPECT_FALSE(config->disableResize.dirty);
}

TEST(GlobalConfig, TheApplicationsShareAllButTheirOwnNames)
{
    GlobalStore store;
    Read(store.Key(), false)->Save(store.Key(), false);
    store.TakeWrites();
    Read(store.Key(), true)->Save(store.Key(), false);
    EXPECT_THAT(store.TakeWrites(),
                ElementsAre(u"Show Toolbar OVN", u"Show Menu Bar OVN", u"Show Status Bar OVN", u"Use Auto Session OVN",
                            u"Auto Session Name OVN", u"Use Remembered Sessions OVN", u"Remembered Sessions List OVN",
                            u"OVN Never Check For Updates", u"OVN Update Prompt Date"));
}

TEST(GlobalConfig, TheSendDelaysAreReadAndNeverWritten)
{
    GlobalStore store({{u"Line Send Delay", 9u}});
    const ConfigPointer config = Read(store.Key());
    EXPECT_EQ(config->lineSendDelay, 9);
    config->lineSendDelay = 1;
    config->characterSendDelay = 1;
    config->Save(store.Key(), true);
    EXPECT_EQ(store.Get(u"Line Send Delay"), StoreValue(9u));
    EXPECT_FALSE(store.Get(u"Character Send Delay"));
    EXPECT_EQ(config->FindMember(u"Line Send Delay"), nullptr);
}

TEST(GlobalConfig, WithoutAKeyNoStoreIsOpened)
{
    static int asked;
    asked = 0;
    SetProfileStoreFactoryGetter([]() -> VProfileStoreFactory* {
        ++asked;
        static MemoryStoreFactory factory;
        return &factory;
    });
    const ConfigPointer config = Read(nullptr);
    config->Merge(nullptr);
    config->mruCount.Save(nullptr, true);
    SetProfileStoreFactoryGetter(nullptr);
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(config->colorSchemes.Exists(u"Monochrome"));
    EXPECT_FALSE(config->quickSynchronizeTask.IsModified());
    EXPECT_TRUE(config->mruCount.dirty) << "a save without a key leaves the default waiting";
}

TEST(GlobalConfig, FramesGoOutAheadOfTheOthers)
{
    GlobalStore store;
    const ConfigPointer config = Read(store.Key());
    config->Save(store.Key(), false);
    store.TakeWrites();
    config->mruCount = 5;
    config->remoteExplorerFrameState.third = 7;
    VReportMessageParams report;
    EXPECT_TRUE(WriteGlobalConfig(*config, false, report));
    EXPECT_THAT(store.TakeWrites(), ElementsAre(u"Remote ExplorerFrame State", u"MRU Count"));
}

TEST(GlobalConfig, MembersAreFoundInAnyCaseByTheApplicationsOwnName)
{
    const ConfigPointer tessaly = Read(nullptr, false);
    const ConfigPointer orvane = Read(nullptr, true);
    EXPECT_EQ(tessaly->FindMember(u"mru COUNT"), &tessaly->mruCount);
    EXPECT_EQ(tessaly->FindMember(u"show toolbar"), &tessaly->showToolbar);
    EXPECT_EQ(orvane->FindMember(u"SHOW TOOLBAR OVN"), &orvane->showToolbar);
    for (const std::u16string& name :
         {std::u16string(u"Show Toolbar OVN"), std::u16string(), std::u16string(u"MRU Coun"),
          std::u16string(u"MRU Count "), std::u16string(u"MRU Count\0", 10), std::u16string(u"MRU C\u00F6unt"),
          std::u16string(10'000, u'M'), std::u16string(u"Chat Window"), std::u16string(u"Printer Font")})
        EXPECT_EQ(tessaly->FindMember(name), nullptr) << ToUtf8(name.substr(0, 40));
    EXPECT_EQ(orvane->FindMember(u"Show Toolbar"), nullptr);
    EXPECT_EQ(tessaly->GetMember(-1), nullptr);
}

TEST(GlobalConfig, ACopyCarriesOnlyWhatWasChanged)
{
    const ConfigPointer record = Read(nullptr);
    const ConfigPointer first = Read(nullptr);
    const ConfigPointer second = Read(nullptr);
    first->timeout = 1;
    first->lineSendDelay = 77;
    first->transferTypeOverridden = true;
    second->logFile = VUnicodeString(u"x.log");
    record->CopyValue(*first);
    record->CopyValue(*second);
    EXPECT_EQ(record->timeout, 1);
    EXPECT_EQ(record->logFile.Value(), u"x.log");
    EXPECT_EQ(record->lineSendDelay, 5) << "outside the table";
    EXPECT_FALSE(record->transferTypeOverridden);
}

TEST(GlobalConfig, ABlobOfAnotherKindIsLeftInTheStore)
{
    GlobalStore store({{u"OVN Custom Toolbar Data", VUnicodeString(u"kept")}});
    const ConfigPointer config = Read(store.Key());
    EXPECT_EQ(config->ovnCustomToolbarData.GetSize(), 0u);
    config->Save(store.Key(), true);
    EXPECT_EQ(store.Get(u"OVN Custom Toolbar Data"), StoreValue(VUnicodeString(u"kept")));
}

TEST(GlobalConfig, AShortBlockFillsItsFront)
{
    GlobalStore store({{u"Window Placement", StoreBlock{44, 0, 0, 0, 2}}, {u"Custom Colors", StoreBlock()}});
    const ConfigPointer config = Read(store.Key());
    EXPECT_EQ(config->windowPlacement.flags, 2u);
    EXPECT_EQ(config->windowPlacement.maxPositionX, 0) << "what the block lacks is no default";
    EXPECT_EQ(config->customColors[15], 0u);
    EXPECT_FALSE(config->windowPlacement.dirty);
}

} // namespace
} // namespace ostrand::test
