// Hives over folders, and the policies in them.
#include "profile/key.h"
#include "tests/support/fake_platform.h"
#include "tests/support/hive_folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace ostrand {
namespace {

using testing::IsEmpty;

class Hives : public testing::Test {
protected:
    bool Exists(std::string_view file) const { return hives.Folder().Exists(file); }

    test::HiveFolders hives;
};

TEST_F(Hives, TheFirstBaseThatIsThereDecides)
{
    const auto base = [] {
        const VRegistryStoreFactory& factory = DefaultRegistryFactory();
        return std::pair(factory.hive, ToUtf8(factory.path));
    };
    EXPECT_EQ(base(), std::pair(VHive::CurrentUser, std::string("SOFTWARE\\Hollowmere")));
    hives.Write("machine/SOFTWARE/Hollowmere Works.ini", "");
    EXPECT_EQ(base(), std::pair(VHive::LocalMachine, std::string("SOFTWARE\\Hollowmere Works")));
    hives.Write("user/SOFTWARE/Hollowmere Works/Tessaly.ini", "");
    EXPECT_EQ(base(), std::pair(VHive::CurrentUser, std::string("SOFTWARE\\Hollowmere Works")));
    hives.Write("machine/SOFTWARE/hollowmere.ini", "");
    EXPECT_EQ(base(), std::pair(VHive::LocalMachine, std::string("SOFTWARE\\Hollowmere")));
    hives.Write("user/SOFTWARE/Hollowmere.ini", "");
    EXPECT_EQ(base(), std::pair(VHive::CurrentUser, std::string("SOFTWARE\\Hollowmere")));
}

TEST_F(Hives, AStoreShowsThePartBelowItsKey)
{
    hives.Write("user/SOFTWARE/Hollowmere/Tessaly.ini", "# line 1\nNumber = 7\n");
    VRegistryStoreFactory factory(VHive::CurrentUser, kRegistryBase);
    VProfileStore store(&factory);
    VProfileKey key(store.GetRootKey(), u"Tessaly");
    unsigned number = 0;
    EXPECT_TRUE(key.ReadDword(u"number", &number));
    EXPECT_EQ(number, 7u);
    VUnicodeString text(u"untouched");
    EXPECT_FALSE(key.ReadString(u"Number", text));
    EXPECT_EQ(key.GetStatus().GetCode(), kErrorUnsupportedType);
    EXPECT_TRUE(key.IsWritable());
    ValuePlace place;
    EXPECT_TRUE(store.Extras().FindPlace(u"Tessaly", u"Number", place));
    EXPECT_EQ(place.file, hives.Folder().Path("user/SOFTWARE/Hollowmere/Tessaly.ini"));
    EXPECT_EQ(place.line, 2u);

    VProfileStore readOnly(true, &factory);
    EXPECT_FALSE(readOnly.GetRootKey()->IsWritable());
    factory.hive = VHive::LocalMachine;
    VProfileStore missing(true, &factory);
    EXPECT_FALSE(missing.GetRootKey()->ReadDword(u"Number", &number));
    EXPECT_EQ(missing.GetRootKey()->GetStatus().GetCode(), kErrorFileNotFound);
    EXPECT_FALSE(Exists("machine")) << "reading makes nothing";
}

TEST_F(Hives, UsualFoldersFollowTheUsersHome)
{
    test::FakePlatform platform;
    SetHiveFolderFunction(nullptr);
    EXPECT_EQ(HiveFolder(VHive::LocalMachine), "/etc/xdg/hollowmere/registry");
    EXPECT_THAT(HiveFolder(VHive::CurrentUser), IsEmpty());
    VRegistryStoreFactory factory(VHive::CurrentUser, kRegistryBase);
    VProfileStore store(&factory);
    EXPECT_FALSE(store.GetRootKey()->WriteDword(u"Number", 1)) << "no home, no hive";
    platform.environment.variables = {{"HOME", "/home/ann"}, {"XDG_CONFIG_DIRS", "/tmp/own"}};
    EXPECT_EQ(HiveFolder(VHive::CurrentUser), "/home/ann/.config/hollowmere/registry");
    EXPECT_EQ(HiveFolder(VHive::LocalMachine), "/etc/xdg/hollowmere/registry") << "not the user's to move";
    platform.environment.variables["XDG_CONFIG_HOME"] = "/cfg";
    EXPECT_EQ(HiveFolder(VHive::CurrentUser), "/cfg/hollowmere/registry");
}

TEST_F(Hives, ProductKeysOfFormerReleasesCountWhereNoneIsCurrent)
{
    EXPECT_EQ(BuildProductKeyPath(u"Quillo"), u"SOFTWARE\\Hollowmere\\Quillo");
    const struct {
        const char* file;
        std::u16string_view application, path;
    } kSteps[] = {
        {"user/SOFTWARE/Hollowmere Works/Quillo 3.0.ini", u"Quillo", u"SOFTWARE\\Hollowmere Works\\Quillo 3.0"},
        {"user/SOFTWARE/Hollowmere Works/Tessaly.ini", u"Tessaly", u"SOFTWARE\\Hollowmere Works\\Tessaly"},
        {"user/SOFTWARE/Hollowmere/Tessaly.ini", u"Tessaly", u"SOFTWARE\\Hollowmere\\Tessaly"},
        {"machine/SOFTWARE/Hollowmere Works/Tessaly.ini", u"Tessaly", u"SOFTWARE\\Hollowmere Works\\Tessaly"},
        {"machine/SOFTWARE/Hollowmere/Tessaly.ini", u"Tessaly", u"SOFTWARE\\Hollowmere\\Tessaly"},
    };
    for (const auto& step : kSteps) {
        hives.Write(step.file, "");
        EXPECT_EQ(BuildProductKeyPath(step.application), step.path) << step.file;
    }
}

class Policy : public Hives {};

constexpr const char* kMachinePolicy = "machine/Software/Policies/Hollowmere.ini";
constexpr const char* kUserPolicy = "user/Software/Policies/Hollowmere.ini";
constexpr const char* kCommonValues = "machine/SOFTWARE/Hollowmere/Global.ini";

TEST_F(Policy, TheMachineGoesAheadAndItsPlaceIsTold)
{
    unsigned value = 99;
    EXPECT_FALSE(ReadPolicyDword(u"Limit", &value));
    EXPECT_FALSE(FindPolicy(u"Limit"));
    EXPECT_EQ(value, 99u);
    const struct {
        const char* file;
        unsigned value;
    } kSteps[] = {{kCommonValues, 3}, {kUserPolicy, 2}, {kMachinePolicy, 1}};
    for (const auto& step : kSteps) {
        SCOPED_TRACE(step.file);
        hives.Write(step.file, "; by the administrator\nlimit = " + std::to_string(step.value) + "\n");
        EXPECT_TRUE(ReadPolicyDword(u"Limit", &value));
        EXPECT_EQ(value, step.value);
        const std::optional<VPolicyValue> policy = FindPolicy(u"Limit");
        ASSERT_TRUE(policy);
        EXPECT_EQ(policy->value, step.value);
        EXPECT_EQ(policy->place.file, hives.Folder().Path(step.file));
        EXPECT_EQ(policy->place.line, 2u);
    }
    hives.Write(kMachinePolicy, "Limit = \"1\"\n");
    EXPECT_TRUE(ReadPolicyDword(u"Limit", &value));
    EXPECT_EQ(value, 2u) << "a value of another kind is none";
}

TEST_F(Policy, ProductValuesLieInTheApplicationsSubkey)
{
    unsigned value = 99;
    EXPECT_FALSE(ReadProductDword(u"Limit", nullptr, u"Global", &value));
    EXPECT_FALSE(ReadProductDword(u"Limit", u"Tessaly", nullptr, &value));
    hives.Write("machine/SOFTWARE/Hollowmere Works/Tessaly 3.0/Global.ini", "Limit = 3\n");
    hives.Write("machine/SOFTWARE/Hollowmere Works/Orvane 3.0/Global.ini", "Limit = 3\n");
    hives.Write("user/SOFTWARE/Hollowmere/Tessaly/Global.ini", "Limit = 4\n");
    EXPECT_FALSE(ReadProductDword(u"Limit", u"Orvane", u"Global", &value)) << "terminals alone had such keys";
    EXPECT_TRUE(ReadProductDword(u"Limit", u"TESSALY", u"Global", &value));
    EXPECT_EQ(value, 3u);
    hives.Write("machine/SOFTWARE/Hollowmere/Tessaly.ini", "Limit = 5\n");
    hives.Write("machine/SOFTWARE/Hollowmere/Tessaly/Global.ini", "Limit = 6\n");
    EXPECT_TRUE(ReadProductDword(u"Limit", u"Tessaly", u"Global", &value));
    EXPECT_EQ(value, 6u);
    EXPECT_TRUE(ReadProductDword(u"Limit", u"Tessaly", u"", &value));
    EXPECT_EQ(value, 5u) << "no subkey: the application's own";
}

TEST_F(Policy, StoredSecretsAreAllowedUntilSomebodyForbidsThem)
{
    const char* const kTessaly = "machine/SOFTWARE/Hollowmere/Tessaly/Global.ini";
    const char* const kOrvane = "machine/SOFTWARE/Hollowmere/Orvane/Global.ini";
    const char* const kPellucid = "machine/SOFTWARE/Hollowmere/Pellucid/Global.ini";
    const struct {
        const char16_t* application;
        std::vector<std::pair<const char*, const char*>> files;
        bool usernames, passwords;
    } kCases[] = {
        {u"Tessaly", {}, true, true},
        {u"Orvane", {}, true, true},
        {nullptr, {}, true, true},
        {u"Tessaly", {{kTessaly, "Save Usernames = 0\nSave Passwords = 1\n"}}, false, false},
        {u"Tessaly", {{kTessaly, "Save Passwords = 0\n"}}, true, false},
        {u"Tessaly", {{kTessaly, "Save Passwords = 0\n"}, {kUserPolicy, "Save Passwords = 2\n"}}, true, true},
        {u"Tessaly", {{kTessaly, "Disable Passwords = 1\n"}}, true, true},
        {u"Tessaly", {{kMachinePolicy, "Save Passwords = 0\n"}}, true, false},
        {u"Orvane", {{kMachinePolicy, "Save Passwords = 0\n"}}, true, false},
        {u"Orvane", {{kOrvane, "Save Passwords = 0\n"}}, true, true},
        {u"Orvane", {{kOrvane, "Save Usernames = 0\n"}}, false, false},
        {u"orvane", {{kOrvane, "Disable Passwords = 1\n"}}, true, false},
        {u"Orvane", {{kPellucid, "Disable Passwords = 1\n"}}, true, false},
        {u"Orvane", {{kOrvane, "Disable Passwords = 0\n"}, {kPellucid, "Disable Passwords = 1\n"}}, true, true},
        {u"Orvane", {{kOrvane, "Disable Passwords = 1\n"}, {kMachinePolicy, "Save Passwords = 1\n"}}, true, true},
    };
    for (size_t i = 0; i < std::size(kCases); ++i) {
        SCOPED_TRACE(i);
        test::HiveFolders fresh;
        for (const auto& [file, text] : kCases[i].files)
            fresh.Write(file, text);
        EXPECT_EQ(CanSavePasswords(kCases[i].application, u"Global"), kCases[i].passwords);
        EXPECT_EQ(CanSaveUsernames(kCases[i].application, u"Global"), kCases[i].usernames);
    }
}

TEST_F(Policy, AnswersAreKeptForTheProcess)
{
    hives.Write("machine/SOFTWARE/Hollowmere/Orvane/Global.ini", "Disable Passwords = 1\n");
    EXPECT_FALSE(CanSavePasswords(u"Orvane", u"Global"));
    EXPECT_FALSE(CanSavePasswords(u"Tessaly", u"Global")) << "the first answer";
    ForgetPolicyAnswers();
    EXPECT_TRUE(CanSavePasswords(u"Tessaly", u"Global"));
    EXPECT_TRUE(CanSavePasswords(u"Orvane", u"Global"));
}

} // namespace
} // namespace ostrand
