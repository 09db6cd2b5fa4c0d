// Folders that users name, on a real tree.
#include "core/paths/folders.h"

#include "core/messages.h"
#include "core/paths/known_folders.h"
#include "core/paths/path_tokens.h"
#include "tests/support/fake_platform.h"
#include "tests/support/recording_prompts.h"
#include "tests/support/recording_router.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace ostrand {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The tree has "Zürich 50% off/logs" and the file "note".
class Folders : public testing::Test {
protected:
    Folders()
    {
        ForgetU3Environment();
        tree.Write("note", "");
        std::filesystem::create_directories(tree.Path("Zürich 50% off/logs"));
        platform.environment.variables["BASE"] = tree.Path();
    }

    VUnicodeString Place(std::string_view name) const { return VUnicodeString(tree.WidePath(name)); }
    /// Validates a template below the tree; what the field holds afterwards, and the answer in `valid`.
    VUnicodeString Validate(std::u16string_view typed)
    {
        VUnicodeString path(typed);
        prompts.texts.clear();
        prompts.questions.clear();
        valid = ValidateLocalFolder(path);
        return path;
    }

    test::TempFolder tree;
    test::FakePlatform platform;
    test::RecordingPrompts prompts;
    bool valid = false;
};

TEST_F(Folders, AnExistingFolderIsSilentlyGood)
{
    for (const std::u16string_view typed :
         {u"%BASE%/Zürich 50%% off", u"%BASE%/Zürich 50%% off/logs/", u"%base%/note", u"/"}) {
        SCOPED_TRACE(ToUtf8(typed));
        EXPECT_EQ(Validate(typed), typed) << "the template stays";
        EXPECT_TRUE(valid);
        EXPECT_THAT(prompts.questions, IsEmpty());
        EXPECT_THAT(prompts.texts, IsEmpty());
    }
    EXPECT_EQ(Validate(u"%BASE%\\Zürich 50%% off"), Place("Zürich 50% off")) << "told in the system's spelling";
    EXPECT_TRUE(valid);
}

TEST_F(Folders, AMissingFolderIsMadeWhenTheUserAgrees)
{
    prompts.answer = false;
    EXPECT_EQ(Validate(u"%BASE%/new"), u"%BASE%/new");
    EXPECT_FALSE(valid);
    EXPECT_FALSE(tree.Exists("new"));
    EXPECT_THAT(prompts.questions,
                ElementsAre(u"The directory specified does not exist.\n\nWould you like to create it?"));
    EXPECT_EQ(prompts.lastIcon, VPromptIcon::Warning);

    prompts.answer = true;
    EXPECT_EQ(Validate(u"%BASE%/new"), u"%BASE%/new");
    EXPECT_TRUE(valid);
    EXPECT_TRUE(std::filesystem::is_directory(tree.Path("new")));

    Validate(u"%BASE%/one/two");
    EXPECT_FALSE(valid) << "one level at a time";
    EXPECT_THAT(prompts.texts, ElementsAre(u"Failed to create new directory."));
}

TEST_F(Folders, ANameAloneBecomesAFullPath)
{
    platform.processes.currentFolder = tree.Path();
    prompts.answer = false;
    EXPECT_EQ(Validate(u"note"), u"note");
    EXPECT_FALSE(valid);
    prompts.answer = true;
    EXPECT_EQ(Validate(u"note"), Place("note"));
    EXPECT_TRUE(valid);
    ASSERT_EQ(prompts.questions.size(), 1u);
    EXPECT_EQ(prompts.questions[0],
              u"The directory 'note' entered does not specify a full path.\n\nIts equivalent full "
              u"path is '" +
                  tree.WidePath("note") + u"'.\n\nWould you like to replace the entry with its full path?");
}

TEST_F(Folders, RefusalsSayWhy)
{
    platform.processes.currentFolder = "/" + std::string(257, 'x'); // a full path of 260 characters
    const struct {
        std::u16string_view typed, why;
    } kCases[] = {
        {u"X:", u"Invalid drive specified for creating a local directory."},
        {u"x:\\", u"Invalid drive specified for creating a local directory."},
        {u"%BASE%/a*b", u"Invalid path syntax specified for creating a local directory."},
        {u"%BASE%/note/x", u"Invalid directory specified for creation."},
        {u"y", u"Invalid directory specified for creation."},
        {u"", u"Invalid directory specified for creation."},
        {u"%BASE%/%x", u"Invalid directory specified for creation."},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.typed));
        EXPECT_EQ(Validate(c.typed), c.typed == u"x:\\" ? u"x:/" : c.typed);
        EXPECT_FALSE(valid);
        EXPECT_THAT(prompts.texts, ElementsAre(c.why));
        EXPECT_EQ(prompts.lastIcon, VPromptIcon::Warning);
        EXPECT_THAT(prompts.questions, IsEmpty());
    }
}

TEST_F(Folders, TheNearestExistingFolderIsFound)
{
    EXPECT_EQ(FindExistingFolder(Place("Zürich 50% off/logs/2024/x")), Place("Zürich 50% off/logs"));
    EXPECT_EQ(FindExistingFolder(Place("note")), Place("note")) << "a file, too, exists";
    EXPECT_EQ(FindExistingFolder(u"/no such folder/x"), u"/");
    EXPECT_EQ(FindExistingFolder(u"C:\\a\\b"), u"");
    EXPECT_EQ(FindExistingFolder(u""), u"");
    std::filesystem::create_directory(tree.Path("ends:"));
    EXPECT_EQ(FindExistingFolder(Place("ends:")), Place("ends:"));
}

TEST_F(Folders, TheConfigurationFolderIsPickedFromWhereItIs)
{
    VUnicodeString path(u"%BASE%/Zürich 50%% off/gone");
    prompts.picked = tree.WidePath("new");
    EXPECT_TRUE(BrowseForConfigFolder(path));
    EXPECT_EQ(path, Place("new"));
    EXPECT_EQ(prompts.pickedFrom, Place("Zürich 50% off").View());
    EXPECT_THAT(prompts.questions, ElementsAre(u"Select a folder to be used as the configuration folder:"));

    path = u"%BASE%/NEW";
    EXPECT_FALSE(BrowseForConfigFolder(path)) << "the same folder again";
    EXPECT_EQ(path, u"%BASE%/NEW");
    prompts.picked.clear();
    EXPECT_FALSE(BrowseForConfigFolder(path));
    EXPECT_THAT(prompts.texts, ElementsAre(u"Failed to retrieve a valid path."));
    prompts.answer = false;
    EXPECT_FALSE(BrowseForConfigFolder(path));
    EXPECT_EQ(path, u"%BASE%/NEW");

    test::RecordingRouter router;
    path = u"%x";
    EXPECT_FALSE(BrowseForConfigFolder(path));
    ASSERT_EQ(router.messages.size(), 1u);
    EXPECT_EQ(router.messages[0].code, kPathTokenUnknown);
    EXPECT_EQ(router.messages[0].kind, 101);
}

TEST_F(Folders, KnownFoldersComeFromTheUsersList)
{
    const auto find = [](VKnownFolder folder) {
        VUnicodeString path(u"none");
        GetKnownFolder(folder, path);
        return path;
    };
    auto& variables = platform.environment.variables;
    EXPECT_EQ(find(VKnownFolder::Downloads), u"none") << "without a home folder";
    variables["HOME"] = "/home/ann";
    EXPECT_EQ(find(VKnownFolder::Home), u"/home/ann");
    EXPECT_EQ(find(VKnownFolder::Config), u"/home/ann/.config");
    EXPECT_EQ(find(VKnownFolder::Downloads), u"/home/ann/Downloads");
    EXPECT_EQ(find(VKnownFolder::Documents), u"/home/ann/Documents");
    variables["XDG_CONFIG_HOME"] = "relative";
    EXPECT_EQ(find(VKnownFolder::Config), u"/home/ann/.config") << "only full paths count";

    variables["XDG_CONFIG_HOME"] = tree.Path();
    EXPECT_EQ(find(VKnownFolder::Downloads), u"/home/ann/Downloads") << "no list";
    const struct {
        const char* list;
        std::u16string_view downloads;
    } kCases[] = {
        {"# mine\nXDG_DOWNLOAD_DIR=\"$HOME/Nieder \\\"ladungen\\\"\"\nXDG_DOCUMENTS_DIR=\"/srv\"\n",
         u"/home/ann/Nieder \"ladungen\""},
        {"XDG_DOWNLOAD_DIR=\"/old\"\n \tXDG_DOWNLOAD_DIR = \"/new\"", u"/new"},
        {"XDG_DOWNLOAD_DIR=\"$HOME\"\n", u"/home/ann"},
        {"XDG_DOWNLOAD_DIR=\"$HOMER/x\"\n", u"/home/ann/Downloads"},
        {"XDG_DOWNLOAD_DIR=\"x\"\nXDG_DOWNLOAD_DIR=/x\nXDG_DOWNLOAD_DIR=\"/x\\", u"/home/ann/Downloads"},
        {"\n\nXDG_DOWNLOAD_DIRECTORY=\"/x\"", u"/home/ann/Downloads"},
    };
    for (const auto& c : kCases) {
        tree.Write("user-dirs.dirs", c.list);
        EXPECT_EQ(find(VKnownFolder::Downloads), c.downloads) << c.list;
    }
}

TEST_F(Folders, TheProgramKnowsItsOwn)
{
    platform.processes.executablePath = "/opt/hollowmere/Tessaly";
    EXPECT_EQ(GetExeFolder(), u"/opt/hollowmere");
}

} // namespace
} // namespace ostrand
