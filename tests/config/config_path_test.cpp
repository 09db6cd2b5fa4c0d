#include "config/app_paths/config_path.h"

#include "core/messages.h"
#include "core/product.h"
#include "tests/support/fake_platform.h"
#include "tests/support/hive_folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand {
namespace {

/// Tessaly runs, alone at first.
class ConfigPath : public testing::Test {
protected:
    ~ConfigPath() override
    {
        SetCurrentAppProductID(kProductNone);
        Install({});
    }

    void Install(std::initializer_list<const char*> programs)
    {
        platform.processes.majorVersions.clear();
        for (const char* program : programs)
            platform.processes.majorVersions[std::string("/opt/h/") + program] = 9;
        OstrandUiInitClientApplications(u"/opt/h");
    }
    std::string Stored(const char* application) const
    {
        return hives.Folder().Read(std::string("user/SOFTWARE/Hollowmere/") + application + ".ini");
    }

    test::FakePlatform platform;
    test::HiveFolders hives;
};

TEST_F(ConfigPath, IsStoredUnderTheApplicationsName)
{
    EXPECT_EQ(GetAppConfigPath(u"Tessaly"), u"");
    EXPECT_FALSE(hives.Folder().Exists("user")) << "asking writes nothing";
    EXPECT_TRUE(SaveAppConfigPath(u"/home/ann/My Config", false));
    EXPECT_EQ(Stored("Tessaly"), "Config Path = \"/home/ann/My Config\"\n");
    EXPECT_EQ(GetAppConfigPath(u"Tessaly"), u"/home/ann/My Config");
    EXPECT_EQ(GetAppConfigPath(u"Orvane"), u"") << "the other one isn't there";

    hives.Write("user/SOFTWARE/Hollowmere/Tessaly.ini", "Config Path =   \"/x\"\n");
    EXPECT_TRUE(SaveAppConfigPath(u"/x", true));
    EXPECT_EQ(Stored("Tessaly"), "Config Path =   \"/x\"\n") << "what it is already isn't written";
}

TEST_F(ConfigPath, APairSharesItUnlessTheOtherHasChosen)
{
    Install({"Tessaly", "Orvane"});
    SetCurrentAppProductID(kProductTessaly);
    EXPECT_TRUE(SaveAppConfigPath(u"/a", false));
    EXPECT_EQ(GetAppConfigPath(u"Orvane"), u"/a");
    EXPECT_TRUE(SaveAppConfigPath(u"/b", false));
    EXPECT_EQ(GetAppConfigPath(u"Tessaly"), u"/b");
    EXPECT_EQ(GetAppConfigPath(u"Orvane"), u"/a");
    EXPECT_TRUE(SaveAppConfigPath(u"/b", true));
    EXPECT_EQ(GetAppConfigPath(u"Orvane"), u"/b");
    Install({"Tessaly", "Orvane", "Quillo"});
    EXPECT_TRUE(SaveAppConfigPath(u"/c", true));
    EXPECT_EQ(GetAppConfigPath(u"Orvane"), u"/b") << "Quillo's presence makes it no pair";
}

TEST_F(ConfigPath, ReadingMovesTheDefaultFactory)
{
    Install({"Tessaly", "Orvane"});
    SetCurrentAppProductID(kProductTessaly);
    hives.Write("machine/SOFTWARE/Hollowmere.ini", "");
    EXPECT_TRUE(SaveAppConfigPath(u"/a", false));
    EXPECT_EQ(hives.Folder().Read("machine/SOFTWARE/Hollowmere/Tessaly.ini"), "Config Path = \"/a\"\n");
    EXPECT_EQ(Stored("Orvane"), "Config Path = \"/a\"\n") << "the look at the other's value came between";
    EXPECT_EQ(DefaultRegistryFactory().hive, VHive::CurrentUser);
}

TEST_F(ConfigPath, TheCommonOneOfOldReleasesBecomesOnesOwn)
{
    EXPECT_EQ(GetAppConfigPathAlpha(), u"");
    EXPECT_EQ(Stored("Tessaly"), "");
    hives.Write("user/SOFTWARE/Hollowmere/Global.ini", "Config Path = \"/old\"\n");
    EXPECT_EQ(GetAppConfigPathAlpha(), u"/old");
    EXPECT_EQ(GetAppConfigPath(u"Tessaly"), u"/old");
}

TEST_F(ConfigPath, ARefusalIsTold)
{
    SetHiveFolderFunction([](VHive) { return std::string(); });
    FindRegistryBase();
    VReportMessageParams report;
    EXPECT_FALSE(SaveAppConfigPath(u"/a", false, &report));
    EXPECT_EQ(report.GetCode(), kErrorFileNotFound);
    EXPECT_FALSE(SaveAppConfigPath(u"/a", false));
}

TEST_F(ConfigPath, APortableFolderIsMarkedByItsGlobalFile)
{
    const test::TempFolder folder;
    const std::u16string under = folder.WidePath();
    EXPECT_EQ(GetAppConfigPathUnderExe(under.c_str()), u"");
    folder.Write("Config/Sessions/x.ini", "");
    folder.Write("Config/global.ini/x", "");
    folder.Write("global.ini", "");
    EXPECT_EQ(GetAppConfigPathUnderExe(under.c_str()), u"") << "a folder of that name is no mark";
    folder.Write("Config/Global.INI", "");
    EXPECT_EQ(GetAppConfigPathUnderExe(under.c_str()), folder.WidePath("Config"));
    EXPECT_EQ(GetAppConfigPathUnderExe((under + u"/").c_str()), folder.WidePath("Config"));
    EXPECT_EQ(GetAppConfigPathUnderExe(nullptr), u"");
}

TEST_F(ConfigPath, TheCommandLinesFolderMustExist)
{
    const test::TempFolder folder;
    folder.Write("a file", "");
    const std::u16string path = folder.WidePath();
    for (const std::u16string_view tail : {u"", u"/", u"\\\\\\", u"/\\/"}) {
        SCOPED_TRACE(ToUtf8(tail));
        VUnicodeString result;
        VReportMessageParams report;
        EXPECT_TRUE(CheckAppConfigPathCommandLine((path + std::u16string(tail)).c_str(), result, report));
        EXPECT_EQ(result, path + std::u16string(tail.size(), u'\0')) << "the length stays";
        EXPECT_EQ(report.GetCode(), 0u);
    }
    VUnicodeString result;
    VReportMessageParams report;
    EXPECT_TRUE(CheckAppConfigPathCommandLine(u"//", result, report));
    EXPECT_EQ(result, std::u16string_view(u"/\0", 2)) << "the root keeps its name";
    for (const std::u16string& bad : {folder.WidePath("a file\\"), folder.WidePath("none\\\\"), std::u16string()}) {
        EXPECT_FALSE(CheckAppConfigPathCommandLine(bad.c_str(), result, report));
        EXPECT_EQ(report.GetCode(), kCommandLineFolderInvalid);
        ASSERT_EQ(report.GetArgumentCount(), 1);
        EXPECT_EQ(report.GetArguments()[0], bad) << "as given";
    }
}

} // namespace
} // namespace ostrand
