// Spares: old files that are overwritten by the next save, unseen by anybody who has them open.
#include "profile/key.h"
#include "stores/file_store.h"
#include "tests/support/faulty_files.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace ostrand {
namespace {

using testing::Contains;
using testing::Not;
namespace fs = std::filesystem;

class FileReplacer : public testing::Test {
protected:
    void Save(const char16_t* key, unsigned value) const
    {
        VProfileKey handle(m_store->GetRootKey(), key);
        VReportMessageParams report;
        EXPECT_TRUE(handle.WriteDword(u"N", value));
        EXPECT_TRUE(handle.Flush(report)) << report.GetCode();
    }
    std::string SpareName() const
    {
        for (const auto& entry : fs::directory_iterator(m_folder.Path()))
            if (const std::string name = entry.path().filename().string(); name.starts_with("%tmp-"))
                return name;
        return "none";
    }
    static struct stat Look(const std::string& path)
    {
        struct stat info{};
        EXPECT_EQ(stat(path.c_str(), &info), 0) << path;
        return info;
    }

    test::TempFolder m_folder;
    std::unique_ptr<FileStoreFactory> m_factory = std::make_unique<FileStoreFactory>(m_folder.Path());
    std::unique_ptr<VProfileStore> m_store = std::make_unique<VProfileStore>(false, m_factory.get());
};

TEST_F(FileReplacer, TheOldFileServesTheNextSave)
{
    Save(u"A", 1);
    Save(u"B", 1);
    const ino_t before = Look(m_folder.Path("A.ini")).st_ino;
    Save(u"A", 2);
    ASSERT_NE(SpareName(), "none");
    EXPECT_EQ(Look(m_folder.Path(SpareName())).st_ino, before);
    {
        test::FaultyFiles files;
        Save(u"B", 2);
        EXPECT_EQ(Look(m_folder.Path("B.ini")).st_ino, before);
        EXPECT_THAT(files.calls, Contains("OpenAlone"));
        EXPECT_THAT(files.calls, Not(Contains("Rename")));
    }
    EXPECT_EQ(m_folder.Read("A.ini"), "N = 2\n");
    EXPECT_EQ(m_folder.Read("B.ini"), "N = 2\n");
    m_store.reset();
    m_factory.reset();
    EXPECT_EQ(SpareName(), "none") << "nothing is left behind";
}

TEST_F(FileReplacer, AReaderKeepsWhatItOpened)
{
    Save(u"A", 1);
    std::ifstream reader(m_folder.Path("A.ini"));
    for (unsigned i = 2; i < 6; ++i) // the second of these would overwrite the file that the reader has open
        Save(u"A", i);
    std::string line;
    ASSERT_TRUE(std::getline(reader, line));
    EXPECT_EQ(line, "N = 1");
    EXPECT_EQ(m_folder.Read("A.ini"), "N = 5\n");
}

TEST_F(FileReplacer, OthersFilesAreNoSpares)
{
    struct Case {
        const char* what;
        void (*change)(const std::string& spare);
    };
    static std::string other;
    other = m_folder.Path("precious");
    m_folder.Write("precious", "a person's");
    const Case cases[] = {
        {"gone", [](const std::string& spare) { fs::remove(spare); }},
        {"another file", [](const std::string& spare) { fs::rename(other + "2", spare); }},
        {"a link",
         [](const std::string& spare) {
             fs::remove(spare);
             fs::create_symlink(other, spare);
         }},
        {"a second name of a file",
         [](const std::string& spare) {
             fs::remove(spare);
             fs::create_hard_link(other, spare);
         }},
    };
    unsigned value = 1;
    Save(u"A", value);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        m_folder.Write("precious2", "another");
        Save(u"A", ++value);
        ASSERT_NE(SpareName(), "none");
        c.change(m_folder.Path(SpareName()));
        Save(u"A", ++value);
        EXPECT_EQ(m_folder.Read("A.ini"), "N = " + std::to_string(value) + "\n");
        EXPECT_EQ(m_folder.Read("precious"), "a person's");
    }
}

TEST_F(FileReplacer, RightsGoWithTheKeyNotWithTheSpare)
{
    Save(u"Open", 1);
    Save(u"Secret", 1);
    fs::permissions(m_folder.Path("Open.ini"), fs::perms(0664));
    if (geteuid() == 0) {
        ASSERT_EQ(chown(m_folder.Path("Open.ini").c_str(), 12, 34), 0);
    }
    for (unsigned i = 2; i < 5; ++i) {
        Save(u"Open", i);
        Save(u"Secret", i);
        EXPECT_EQ(Look(m_folder.Path("Open.ini")).st_mode & 07777u, 0664u);
        EXPECT_EQ(Look(m_folder.Path("Secret.ini")).st_mode & 07777u, 0600u);
        EXPECT_EQ(Look(m_folder.Path("Secret.ini")).st_uid, geteuid());
        if (geteuid() == 0) {
            EXPECT_EQ(Look(m_folder.Path("Open.ini")).st_uid, 12u);
            EXPECT_EQ(Look(m_folder.Path("Open.ini")).st_gid, 34u);
        }
    }
}

/// An editor that saves in the last moment before a save takes the file's place.
class Editor : public test::FaultyFiles {
public:
    unsigned Exchange(const std::string& a, const std::string& b) override
    {
        const bool isFirst = !m_bytes.empty();
        if (isFirst)
            std::ofstream(b) << std::exchange(m_bytes, {});
        return isFirst || canGoBack ? FaultyFiles::Exchange(a, b) : kErrorGeneralFailure;
    }
    explicit Editor(std::string bytes) : m_bytes(std::move(bytes)) {}

    bool canGoBack = true;

private:
    std::string m_bytes;
};

TEST_F(FileReplacer, WhatAnEditorSavedInBetweenIsMerged)
{
    Save(u"A", 1);
    {
        Editor editor("; by hand\nN = 1\nM = 1\n");
        Save(u"A", 2);
    }
    EXPECT_EQ(m_folder.Read("A.ini"), "; by hand\nN = 2\nM = 1\n");
    {
        Editor editor("; by hand\nN = 2\nM = 5\n");
        editor.canGoBack = false;
        VProfileKey key(m_store->GetRootKey(), u"A");
        VReportMessageParams report;
        EXPECT_TRUE(key.WriteDword(u"N", 7));
        EXPECT_FALSE(key.Flush(report)) << "no exchange goes any more";
        EXPECT_EQ(m_folder.Read("A.ini"), "; by hand\nN = 2\nM = 5\n") << "yet what the editor saved is there";
        editor.canGoBack = true;
        EXPECT_TRUE(key.Flush(report));
        EXPECT_EQ(m_folder.Read("A.ini"), "; by hand\nN = 7\nM = 5\n");
    }
    Save(u"A", 2);
    EXPECT_EQ(m_folder.Read("A.ini"), "; by hand\nN = 2\nM = 5\n");
    Save(u"B", 1);
    Editor editor("; by hand\nN = 2\nM = 2\n");
    VReportMessageParams report;
    ASSERT_TRUE(m_store->Extras().BeginTransaction(report));
    VProfileKey(m_store->GetRootKey(), u"A").WriteDword(u"N", 3);
    VProfileKey(m_store->GetRootKey(), u"B").WriteDword(u"N", 3);
    EXPECT_TRUE(m_store->Extras().CommitTransaction(report));
    EXPECT_EQ(m_folder.Read("A.ini"), "; by hand\nN = 3\nM = 2\n");
    EXPECT_EQ(m_folder.Read("B.ini"), "N = 3\n");
}

} // namespace
} // namespace ostrand
