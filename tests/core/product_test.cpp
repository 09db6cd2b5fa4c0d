#include "core/product.h"

#include "tests/support/fake_platform.h"
#include "tests/support/recording_prompts.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

/// A folder /opt/h with the programs that a test puts there, by name and major version.
class Product : public testing::Test {
protected:
    ~Product() override
    {
        SetCurrentAppProductID(kProductNone);
        Detect({});
    }

    void Detect(std::initializer_list<std::pair<const char*, unsigned>> programs)
    {
        platform.processes.majorVersions.clear();
        for (const auto& [name, major] : programs)
            platform.processes.majorVersions[std::string("/opt/h/") + name] = major;
        EXPECT_TRUE(OstrandUiInitClientApplications(u"/opt/h"));
    }

    test::FakePlatform platform;
    test::RecordingPrompts prompts;
};

std::u16string_view View(const char16_t* text) { return text; }

TEST_F(Product, TheApplicationsNameTellsTheProduct)
{
    const struct {
        const char* executable;
        std::u16string_view name;
        int product;
    } kCases[] = {
        {"/opt/Quillo", u"Quillo", kProductQuillo},       {"/opt/tessALY.exe", u"tessALY", kProductTessaly},
        {"C:\\H\\Orvane.EXE", u"Orvane", kProductOrvane}, {"/opt/Orvane.bin", u"Orvane.bin", kProductNone},
        {"/opt/Migrate", u"Migrate", kProductNone},       {"", u"", kProductNone},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.executable);
        platform.processes.executablePath = c.executable;
        EXPECT_EQ(VGetAppName(), c.name);
        EXPECT_EQ(GetProductFromAppName(), c.product);
    }
    SetAppNameFunction([] { return VUnicodeString(u"QUILLO"); });
    EXPECT_EQ(GetProductFromAppName(), kProductQuillo);
    SetAppNameFunction(nullptr);
    EXPECT_EQ(GetProductFromAppName(), kProductNone);
    EXPECT_EQ(GetProductName(kProductOrvane), u"Orvane");
    EXPECT_EQ(GetProductName(7), u"");
}

TEST_F(Product, SiblingsAreFoundByFileAndVersion)
{
    Detect({{"Tessaly", 5}, {"Tessaly.exe", 9}, {"Orvane.exe", 3}, {"Quillo.exe", 4}});
    EXPECT_EQ(View(GetTessalyPath()), u"/opt/h/Tessaly");
    EXPECT_EQ(View(GetOrvanePath()), u"/opt/h/Orvane.exe");
    EXPECT_FALSE(IsQuilloInstalled()) << "too old";
    EXPECT_EQ(View(GetQuilloPath()), u"");
    EXPECT_TRUE(IsTessalyOrQuilloInstalled());

    EXPECT_TRUE(OstrandUiInitClientApplications(nullptr));
    EXPECT_TRUE(IsTessalyInstalled()) << "no folder changes nothing";

    SetOrvaneInstalled(false);
    EXPECT_EQ(View(GetOrvanePath()), u"");
    EXPECT_FALSE(CanLaunchFileTransferApp());
    SetOrvaneInstalled(true);
    EXPECT_EQ(View(GetOrvanePath()), u"/opt/h/Orvane.exe") << "the path had stayed";

    Detect({});
    SetTessalyInstalled(true);
    EXPECT_EQ(View(GetTessalyPath()), u"/opt/h/Tessaly.exe") << "an absent one keeps the name of the table";
}

TEST_F(Product, AWindowsFolderIsJoinedInItsOwnWay)
{
    platform.processes.majorVersions["C:/H/Orvane.exe"] = 3;
    EXPECT_TRUE(OstrandUiInitClientApplications(u"C:\\H\\"));
    EXPECT_EQ(View(GetOrvanePath()), u"C:\\H\\Orvane.exe");
}

TEST_F(Product, ThePairWorksTogetherOnlyWithoutQuillo)
{
    VUnicodeString other(u"untouched");
    Detect({{"Tessaly", 5}});
    EXPECT_FALSE(IsIntegrated());
    Detect({{"Tessaly", 5}, {"Orvane", 3}, {"Quillo", 5}});
    EXPECT_FALSE(IsIntegrated(other));
    EXPECT_EQ(other, u"untouched");
    Detect({{"Tessaly", 5}, {"Orvane", 3}});
    EXPECT_TRUE(IsIntegrated());
    EXPECT_TRUE(IsIntegrated(other));
    EXPECT_EQ(other, u"Orvane");
    SetCurrentAppProductID(kProductOrvane);
    EXPECT_TRUE(IsIntegrated(other));
    EXPECT_EQ(other, u"Tessaly");
}

TEST_F(Product, TheTerminalIsTessalyFirst)
{
    Detect({{"Quillo", 5}});
    EXPECT_FALSE(CanLaunchTerminalApp()) << "though it can be started";
    LaunchTerminalApp(u"/S \"My Session\"  /T ");
    Detect({{"Quillo", 5}, {"Tessaly", 5}});
    EXPECT_TRUE(CanLaunchTerminalApp());
    LaunchTerminalApp(nullptr);
    const auto& started = platform.processes.started;
    ASSERT_EQ(started.size(), 2u);
    EXPECT_EQ(started[0].path, "/opt/h/Quillo");
    EXPECT_EQ(started[0].arguments, (std::vector<std::string>{"/S", "My Session", "/T"}));
    EXPECT_EQ(started[1].path, "/opt/h/Tessaly");
    EXPECT_TRUE(started[1].arguments.empty());
    EXPECT_TRUE(prompts.texts.empty());
}

TEST_F(Product, AFailedLaunchIsShown)
{
    LaunchTerminalApp(u"");
    EXPECT_EQ(prompts.texts.back(), u"Quillo could not be launched from the following location:\r\n")
        << "absent: no path";
    EXPECT_EQ(prompts.lastIcon, VPromptIcon::Warning);
    EXPECT_TRUE(platform.processes.started.empty());
    Detect({{"Orvane.exe", 3}});
    platform.processes.startResult = kErrorAccessDenied;
    LaunchFileTransferApp(u"x");
    EXPECT_EQ(prompts.texts.back(), u"Orvane could not be launched from the following location:\r\n/opt/h/Orvane.exe");
}

TEST_F(Product, WaitCursorsNest)
{
    {
        const VWaitCursor outer;
        const VWaitCursor inner;
        EXPECT_EQ(prompts.waiting, 2);
    }
    EXPECT_EQ(prompts.waiting, 0);
}

} // namespace
} // namespace ostrand
