// The list of colour schemes: what loads and saves do to the store, and what the global record does with it.
#include "config/global/color_scheme_list.h"
#include "config/global/global_store.h"
#include "platform/error_codes.h"
#include "stores/file_store.h"
#include "tests/support/default_store.h"
#include "tests/support/fake_platform.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char16_t* kKey = u"Color Schemes";

class ColoredDisplay : public IDisplay {
public:
    bool SmoothsFonts() override { return false; }
    uint32_t WindowTextColor() override { return text; }
    uint32_t WindowColor() override { return 0x112233; }
    uint32_t text = 0x445566;
};

class ColorSchemes : public testing::Test {
protected:
    static StoreValue Block(uint32_t foreground)
    {
        StoreBlock block(ColorScheme::kStoredSize);
        ColorScheme::Of(foreground, 0).Pack(std::span<uint8_t, ColorScheme::kStoredSize>(block));
        return block;
    }
    static ProfileColorSchemeList Load()
    {
        const VProfileStore open(true);
        ProfileColorSchemeList list;
        list.LoadPart(open.GetRootKey());
        return list;
    }
    static std::vector<std::u16string> NamesOf(const ProfileColorSchemeList& list)
    {
        std::vector<std::u16string> names;
        for (size_t i = 0; i < list.GetCount(); ++i)
            names.emplace_back(list.GetAt(i).name.View());
        return names;
    }

    DefaultMemoryStore store;
};

TEST_F(ColorSchemes, OneSchemeSuppressesTheBuiltInOnes)
{
    EXPECT_THAT(NamesOf(Load()),
                ElementsAre(u"Monochrome", u"Black / Floral White", u"Yellow / Black", u"Traditional", u"Windows",
                            u"Black / Cyan", u"Floral White / Dark Cyan", u"White / Black"));
    store.factory.Fill({{kKey, u"Mine", Block(7)}});
    ProfileColorSchemeList list = Load();
    EXPECT_THAT(NamesOf(list), ElementsAre(u"Mine", u"Monochrome"));
    EXPECT_FALSE(list.GetAt(0).IsPending());
    EXPECT_TRUE(list.GetAt(1).IsPending());
    list.LoadByName(nullptr, VUnicodeString(kKey));
    EXPECT_THAT(NamesOf(list), ElementsAre(u"Mine", u"Monochrome", u"Mine")) << "a load appends";
}

TEST_F(ColorSchemes, WindowsFollowsTheSystem)
{
    FakePlatform platform;
    ColoredDisplay display;
    Platform().display = &display;
    ProfileColorSchemeList list = Load();
    EXPECT_EQ(list.GetByName(u"windows").foreground[3], 0x445566u);
    list.Save(nullptr, false);
    EXPECT_FALSE(Load().IsAnyPending()) << "the same colours as stored";
    display.text = 1;
    const ProfileColorScheme changed = Load().GetByName(u"Windows");
    EXPECT_EQ(changed.foreground[0], 1u);
    EXPECT_TRUE(changed.IsModified());
    EXPECT_EQ(changed.saved.foreground[0], 0x445566u);
}

TEST_F(ColorSchemes, UnfitBlocksBecomeBlackOnWhite)
{
    for (const StoreValue& unfit : {StoreValue(StoreBlock(67)), StoreValue(StoreBlock(69)), StoreValue(StoreBlock()),
                                    StoreValue(5u), StoreValue(ForeignValue())}) {
        store.factory.Fill({{kKey, u"Mine", unfit}});
        ProfileColorSchemeList list = Load();
        EXPECT_TRUE(list.GetAt(0).IsPending());
        EXPECT_EQ(list.GetAt(0).Value(), ColorScheme::Of(0, 0xFFFFFF));
    }
}

TEST_F(ColorSchemes, ASaveWritesWhatIsDueAndDeletesWhatTheListLacks)
{
    ProfileColorSchemeList list = Load();
    list.Save(nullptr, false);
    EXPECT_EQ(store.TakeWrites().size(), 9u) << "the key, and eight schemes";
    list.Save(nullptr, false);
    EXPECT_THAT(store.TakeWrites(), IsEmpty());

    list.RemoveAt(list.Find(u"TRADITIONAL"));
    list.ReplaceAt(0, ProfileColorScheme(u"Mono", ColorScheme::Of(1, 2)));
    ProfileColorScheme added(u"New", ColorScheme::Of(3, 4));
    added.dirty = true;
    list.Add(added);
    list.Save(nullptr, false);
    EXPECT_THAT(store.TakeWrites(), testing::UnorderedElementsAre(u"Color Schemes|Monochrome",
                                                                  u"Color Schemes|Traditional", u"Color Schemes|New"))
        << "a scheme that counts as saved isn't written, also under another name";
    store.factory.Fill({{kKey, u"Of Another Program", Block(1)}});
    list.Save(nullptr, false);
    EXPECT_FALSE(store.Get(kKey, u"Of Another Program"));

    store.factory.FailFlush(kErrorDiskFull);
    list.Save(nullptr, true);
    EXPECT_EQ(list.GetSaveReport().GetCode(), kErrorDiskFull);
}

TEST(ColorSchemesOnDisk, AListThatCouldNotBeReadIsNotSavedOverWhatIsThere)
{
    const TempFolder folder;
    folder.Write("Color Schemes.ini/a file where the store has none.txt", "");
    static FileStoreFactory* factory;
    FileStoreFactory files(folder.Path());
    factory = &files;
    SetProfileStoreFactoryGetter([]() -> VProfileStoreFactory* { return factory; });
    {
        const VProfileStore open(true);
        ProfileColorSchemeList list;
        list.LoadPart(open.GetRootKey());
        EXPECT_EQ(list.GetCount(), 8u);
        std::filesystem::remove_all(folder.Path("Color Schemes.ini"));
        folder.Write("Color Schemes.ini", "Mine = hex:00\n");
        list.Save(nullptr, true);
        EXPECT_NE(list.GetSaveReport().GetCode(), 0u);
        EXPECT_EQ(folder.Read("Color Schemes.ini"), "Mine = hex:00\n");
        list.Clear();
        list.LoadPart(open.GetRootKey());
        list.Save(nullptr, false);
        EXPECT_EQ(list.GetSaveReport().GetCode(), 0u);
    }
    SetProfileStoreFactoryGetter(nullptr);
}

TEST_F(ColorSchemes, ChangesAreSeenByPlaceAgainstASnapshot)
{
    ProfileColorSchemeList list = Load();
    list.RemoveAt(0);
    EXPECT_FALSE(list.IsModified()) << "there is no snapshot yet";
    list.RevertChanges();
    EXPECT_EQ(list.GetCount(), 7u);
    list.AcceptChanges();
    EXPECT_FALSE(list.IsModified());
    ProfileColorScheme renamed = list.GetAt(0);
    renamed.SetName(u"Another");
    list.ReplaceAt(0, renamed);
    EXPECT_FALSE(list.IsModified()) << "names don't count";
    const ProfileColorSchemeList copy = list;
    list.ReplaceAt(1, list.GetAt(2));
    EXPECT_TRUE(list.IsModified());
    list.RevertChanges();
    EXPECT_FALSE(list.IsModified());
    EXPECT_FALSE(copy.IsModified()) << "a copy has a snapshot of its own";
    EXPECT_TRUE(copy.Exists(u"another"));

    ProfileColorSchemeList empty;
    EXPECT_EQ(empty.GetByName(u"x").name, u"Monochrome");
    EXPECT_THROW(static_cast<void>(empty.GetAt(0)), VArray<std::unique_ptr<ProfileColorScheme>>::OutOfRange);
}

TEST_F(ColorSchemes, TheGlobalRecordCarriesThem)
{
    const VUnknownPointer<GlobalConfig> config = ReadGlobalConfig(false);
    EXPECT_EQ(config->colorSchemes.GetCount(), 8u);
    EXPECT_FALSE(config->IsModified());
    VReportMessageParams report;
    ASSERT_TRUE(WriteGlobalConfig(*config, false, report));
    EXPECT_EQ(store.NamesIn(kKey).size(), 8u);
    // A merge reads the list again where the key has one of the name; names then stand there twice.
    store.factory.Fill({{u"Policy\\Color Schemes", u"x", 1u}});
    const VProfileStore open(true);
    const VProfileKey policy(open.GetRootKey(), u"Policy");
    config->Merge(&policy);
    EXPECT_EQ(config->colorSchemes.GetCount(), 16u);
    EXPECT_EQ(config->colorSchemes.Find(u"Windows"), 4u);

    store.factory.FailFlush(kErrorDiskFull);
    ProfileColorScheme pending = config->colorSchemes.GetAt(0);
    pending.dirty = true;
    config->colorSchemes.ReplaceAt(0, pending);
    EXPECT_FALSE(WriteGlobalConfig(*config, false, report)) << "the list has a key of its own, and its refusal counts";
    EXPECT_EQ(report.GetCode(), kErrorDiskFull);
}

} // namespace
} // namespace ostrand::test
