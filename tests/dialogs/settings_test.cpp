// What every page has for nothing: marks, undo and reset, the origin of values, locks, search.
#include "tests/dialogs/kit_page.h"
#include "tests/support/default_store.h"
#include "tests/support/hive_folders.h"
#include "tests/support/page_driver.h"

#include "config/global/global_config.h"
#include "dialogs/kit/origin_text.h"
#include "dialogs/kit/word_match.h"
#include "stores/file_store.h"
#include "stores/memory_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using P = KitPage;
using testing::HasSubstr;

/// A record from a store, with defaults and the globals behind third states.
struct Scene {
    explicit Scene(VProfileStoreFactory& factory, const char16_t* key = u"Sessions\\Router")
        : place{&factory, key},
          store(true, &factory),
          profileKey(store.GetRootKey(), key),
          record(&profileKey)
    {
    }

    const VRecordPlace place;
    VProfileStore store;
    VProfileKey profileKey;
    KitRecord record, defaults{nullptr};
    KitGlobals globals{nullptr}, globalDefaults{nullptr};
    VRecordInfo<KitRecord> info{record, defaults, place};
    VRecordInfo<KitGlobals> globalInfo{globals, globalDefaults};
    PageDriver<KitPage> page{record, std::initializer_list<const IRecordInfo*>{&info, &globalInfo}};

    std::string Origin(VControlId id) { return ToUtf8(OriginText(*page->BindingOf(id))); }
};

class Settings : public testing::Test {
protected:
    HiveFolders hives;
};

TEST_F(Settings, MarksFollowTheControlAndGoBack)
{
    MemoryStoreFactory factory;
    factory.Fill({{u"Sessions\\Router", u"Retry Count", 7u}, {u"Sessions\\Router", u"Transfer Mode", 2u}});
    Scene scene(factory);
    const auto marks = [&](VControlId id) { return scene.page[id].GetMarks(); };
    EXPECT_TRUE(marks(P::Retries).differs);
    EXPECT_FALSE(marks(P::Retries).isChanged);
    EXPECT_FALSE(marks(P::Beep).differs);

    int told = 0;
    for (const auto& [id, event] : {std::pair{P::Retries, VEventKind::TextChanged}, {P::Transfer, VEventKind::Clicked}})
        scene.page->On({id}, event, [&] { ++told; });
    scene.page.Type(P::Retries, u"3");
    EXPECT_FALSE(marks(P::Retries).differs);
    EXPECT_TRUE(marks(P::Retries).isChanged);
    ASSERT_TRUE(scene.page.Leave());
    scene.page.Return();
    EXPECT_TRUE(marks(P::Retries).isChanged) << "since the dialog opened, not since the page was left";
    EXPECT_TRUE(scene.page->UndoChange(P::Retries));
    EXPECT_EQ(scene.page[P::Retries].GetText(), u"7");
    EXPECT_TRUE(scene.page->ResetToDefault(P::Transfer));
    EXPECT_EQ(scene.page.At<VRadioControl>(P::Transfer).GetIndex(), 0);
    EXPECT_EQ(told, 3) << "the page's rules see an undo and a reset as the user's doing";
    ASSERT_TRUE(scene.page.Leave());
    EXPECT_EQ(scene.record.retryCount, 7);
    EXPECT_EQ(scene.record.transferMode, 0);

    scene.page.Return();
    scene.page.Type(P::Retries, u"");
    EXPECT_FALSE(scene.page->UndoChange(P::Nick)) << "read-only";
    EXPECT_FALSE(scene.page->ResetToDefault(P::Remarks)) << "a value without a default";
    EXPECT_FALSE(scene.page->ResetToDefault(P::AddRow)) << "a control without a value";
    scene.page[P::Retries].Enable(false);
    EXPECT_FALSE(scene.page->UndoChange(P::Retries)) << "disabled";
    scene.page[P::Retries].Enable(true);
    EXPECT_TRUE(scene.page->UndoChange(P::Retries));
}

TEST_F(Settings, OriginsInAFileStore)
{
    TempFolder folder;
    folder.Write("Sessions/Router.ini", "Attempts = 9\nPacket Size = 512\nTransfer Mode = 2\nHostname = \"\"\n");
    folder.Write("Sessions/Other.ini", "Retry Count = 99\n");
    FileStoreFactory factory(folder.Path());
    Scene scene(factory);
    const std::string file = folder.Path("Sessions/Router.ini");
    EXPECT_EQ(scene.Origin(P::Transfer),
              "How files are sent.\nStored in " + file + ", line 3.\nIts default is another: ASCII.");
    EXPECT_THAT(scene.Origin(P::Retries), HasSubstr("under its old name \"Attempts\" in " + file + ", line 1."));
    EXPECT_THAT(scene.Origin(P::Retries), HasSubstr("default is another: 3."));
    EXPECT_THAT(scene.Origin(P::Beep), HasSubstr("Not stored yet.\nEquals the default: on."));
    EXPECT_THAT(scene.Origin(P::Packet), HasSubstr("Equals the default: 512."));
    EXPECT_THAT(scene.Origin(P::Scrollbar), HasSubstr("Decided by the global setting: on."));
    EXPECT_EQ(scene.page.At<VCheckControl>(P::Scrollbar).GetThirdStateWords(), u"global setting: on");
    scene.page.Click(P::Scrollbar);
    EXPECT_EQ(scene.Origin(P::Scrollbar).find("Decided"), std::string::npos);
    EXPECT_EQ(scene.Origin(P::Remarks), "") << "no record knows it";
    scene.page.Type(P::Password, u"sesame");
    EXPECT_EQ(scene.Origin(P::Password).find("sesame"), std::string::npos);
    scene.record.AcceptChanges();
    EXPECT_THAT(Scene(factory, u"Sessions\\Other").Origin(P::Retries),
                HasSubstr("line 1.\nCorrected from 99: the setting takes 1 to 20.\n"));
}

TEST_F(Settings, WhatAnAdministratorDecidesIsLocked)
{
    hives.Write("machine/Software/Policies/Hollowmere.ini", "Retry Count = 2\n");
    MemoryStoreFactory factory;
    factory.Fill({{u"Sessions\\Router", u"Retry Count", 7u}});
    Scene scene(factory);
    EXPECT_TRUE(scene.page[P::Retries].GetMarks().isLocked);
    scene.page[P::Retries].Enable(true);
    EXPECT_FALSE(VUserInput(*scene.page).Type(P::Retries, u"5")) << "a page's own rules can't unlock";
    EXPECT_FALSE(scene.page->ResetToDefault(P::Retries));
    EXPECT_THAT(scene.Origin(P::Retries), HasSubstr("Locked by an administrator's policy, to 2, in "));
    scene.page[P::Retries].SetText(u"5");
    ASSERT_TRUE(scene.page.Leave());
    EXPECT_EQ(scene.record.retryCount, 7);
}

constexpr auto kSerial = layout::Page(u"Serial", layout::Field(u"&Speed:", layout::Edit(1)),
                                      layout::Field(u"&DTR:", layout::Edit(2)), layout::Check(3, u"&Raw"));

class SerialPage : public VPropertyTreePage {
public:
    SerialPage(GlobalConfig& config, const IRecordInfo& info)
        : VPropertyTreePage(kSerial),
          m_baudRate(*this, 1, config.printerSerial.baudRate),
          m_dtr(*this, 2, config.printerSerial.dtrFlowControl),
          m_raw(*this, 3, config.useRawMode)
    {
        AddRecord(info);
    }

private:
    VEdited<int> m_baudRate, m_dtr;
    VEdited<bool> m_raw;
};

TEST_F(Settings, ValuesOfAPartOfARecord)
{
    hives.Write("machine/Software/Policies/Hollowmere.ini", "Printer DTR Flow Control = 2\n");
    const DefaultMemoryStore schemes; // which are no values of the key
    TempFolder folder;
    folder.Write("Global.ini", "Use Raw Mode = 1\nPrinter Baud Rate = 9600\n");
    FileStoreFactory factory(folder.Path());
    const VProfileStore store(true, &factory);
    const VProfileKey key(store.GetRootKey(), u"Global");
    const auto config = VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(&key, false));
    const auto defaults = VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(nullptr, false));
    const VRecordInfo<GlobalConfig> info(*config, *defaults, {&factory, u"Global"});
    PageDriver<SerialPage> page(*config, info);
    const auto origin = [&](VControlId id) { return ToUtf8(OriginText(*page->BindingOf(id))); };

    EXPECT_THAT(origin(1), HasSubstr("Global.ini, line 2.\nIts default is another: 38400."));
    EXPECT_THAT(origin(2), HasSubstr("Locked by an administrator's policy, to 2, in "));
    EXPECT_THAT(origin(2), HasSubstr("Its default depends on 2 with DSR Flow on, else 1."));
    EXPECT_THAT(origin(3), HasSubstr("Global.ini, line 1."));
    EXPECT_TRUE(page[1].GetMarks().differs);
    EXPECT_TRUE(page[2].GetMarks().isLocked);
    EXPECT_FALSE(page->ResetToDefault(2));
    EXPECT_EQ(info.FindValue(u"printer baud rate"), &config->printerSerial.baudRate);
    EXPECT_TRUE(page->ResetToDefault(1));
    EXPECT_TRUE(page.Leave());
    EXPECT_EQ(config->printerSerial.baudRate, 38400);
}

TEST(SettingSearch, WordsMatchWithSlips)
{
    const struct {
        const char16_t* word;
        const char16_t* text;
        int better; // than the next row; 0: no match
    } kRows[] = {
        {u"scroll", u"The Scroll bar", 1}, {u"scroll", u"Show scrollbar", 1}, {u"bar", u"Show scrollbar", 1},
        {u"scorll", u"Show scrollbar", 1}, {u"scrolblar", u"scrollbar", 0},
    };
    const auto match = [](std::u16string_view word, std::u16string_view text) {
        return MatchWord(word, VFoldedText(text));
    };
    for (size_t i = 0; i + 1 < std::size(kRows); ++i)
        EXPECT_GE(match(kRows[i].word, kRows[i].text), match(kRows[i + 1].word, kRows[i + 1].text)) << i;
    EXPECT_GT(match(u"scrolblar", u"scrollbar"), 0);
    for (const auto& [word, text] : {std::pair{u"abc", u"abd"}, {u"x", u"box"}, {u"prot", u"wrap"}, {u"a", u""}})
        EXPECT_EQ(match(word, text), 0) << ToUtf8(word);
    const std::u16string longest(80, u'x');
    EXPECT_EQ(match(longest, longest + u"y"), match(u"scroll", u"scrollbar")) << "too long for slips, not for a match";
    EXPECT_EQ(match(longest, std::u16string(79, u'x') + u"y"), 0);
}

TEST_F(Settings, TheSearchFindsByAnyNameAndLeadsThere)
{
    using D = VPropertyTreeDialog;
    MemoryStoreFactory factory;
    Scene scene(factory);
    D& dialog = scene.page.dialog;
    const auto first = [&](std::u16string_view words) {
        const std::vector<VSearchHit> hits = dialog.Search(words);
        return hits.empty() ? VControlId{0} : hits.front().control;
    };
    const struct {
        const char16_t* words;
        VControlId control;
    } kCases[] = {
        {u"retries", P::Retries},         {u"Retry Count", P::Retries},
        {u"lost connection", P::Retries}, {u"bell", P::Beep},
        {u"bytes packet", P::Packet},     {u"scrolbar", P::Scrollbar},
        {u"automatc", P::Transfer},       {u"odd", P::Parity},
        {u"nothing like that", 0},        {u"  ", 0},
    };
    for (const auto& [words, control] : kCases)
        EXPECT_EQ(first(words), control) << ToUtf8(words);
    EXPECT_EQ(dialog.Search(u"retries").front().name, u"Retries");
    scene.page[P::Retries].Show(false);
    EXPECT_NE(first(u"retries"), P::Retries);
    scene.page[P::Retries].Show(true);

    ASSERT_TRUE(scene.page.Leave());
    FormDriver user(dialog);
    user.Type(D::SearchText, u"host").Key(u"VK_RETURN");
    EXPECT_EQ(scene.page->GetFocus(), P::Host);
}

} // namespace
} // namespace ostrand::test
