#include "stores/file_store.h"

#include "profile/key.h"
#include "stores/stray_files.h"
#include "tests/support/faulty_files.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

namespace ostrand {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

class FileStore : public testing::Test {
protected:
    VProfileKey Open(const char16_t* name) const { return VProfileKey(m_writable.GetRootKey(), name); }
    VProfileKey Look(const char16_t* name) const { return VProfileKey(m_readOnly.GetRootKey(), name); }
    static unsigned Status(const VProfileKey& key) { return key.GetStatus().GetCode(); }

    test::TempFolder m_folder;
    FileStoreFactory m_factory{m_folder.Path("Config/")}; // a final separator is no part of the name
    VProfileStore m_writable{false, &m_factory};
    VProfileStore m_readOnly{true, &m_factory};
};

fs::perms ModeOf(const std::string& path) { return fs::status(path).permissions(); }

TEST_F(FileStore, AKeyIsAFileAndAFolderThatPeopleCanRead)
{
    unsigned nothing = 0;
    EXPECT_FALSE(m_readOnly.GetRootKey()->ReadDword(u"N", &nothing));
    EXPECT_FALSE(m_writable.GetRootKey()->KeyExists(u"Sessions"));
    EXPECT_FALSE(m_folder.Exists("Config")) << "looking makes nothing";

    EXPECT_TRUE(m_writable.GetRootKey()->WriteDword(u"Version", 2));
    VReportMessageParams report;
    EXPECT_TRUE(m_writable.GetRootKey()->Flush(report));
    {
        VProfileKey key = Open(u"Sessions\\Router 1");
        EXPECT_EQ(m_folder.Read("Config/Sessions/Router 1.ini"), "") << "made at once, values or none";
        EXPECT_TRUE(m_folder.Exists("Config/Sessions/Router 1.ini"));
        EXPECT_TRUE(key.WriteString(u"Hostname", u"router"));
        EXPECT_TRUE(key.WriteBinary(u"Block", "\x01\xFE", 2));
        EXPECT_EQ(m_folder.Read("Config/Sessions/Router 1.ini"), "") << "kept until the handle closes";
    }
    EXPECT_EQ(m_folder.Read("Config/Sessions/Router 1.ini"), "Hostname = \"router\"\nBlock = hex:01fe\n");
    EXPECT_EQ(m_folder.Read("Config/%root.ini"), "Version = 2\n");
    EXPECT_FALSE(m_folder.Exists("Config/Sessions.ini")) << "a level on the way needs no values";
    EXPECT_TRUE(m_readOnly.GetRootKey()->KeyExists(u"Sessions"));
    EXPECT_EQ(Status(Look(u"Sessions")), kErrorSuccess);
    for (const char* const file : {"Config/Sessions/Router 1.ini", "Config/%root.ini", "Config/%lock"})
        EXPECT_EQ(ModeOf(m_folder.Path(file)), fs::perms(0600)) << file;
    for (const char* const folder : {"Config", "Config/Sessions"})
        EXPECT_EQ(ModeOf(m_folder.Path(folder)), fs::perms(0700)) << folder;
}

TEST_F(FileStore, AFileWrittenByHandIsReadAsItStands)
{
    m_folder.Write("Config/Hand.ini", "\xEF\xBB\xBF; by hand\r\n\r\nColour=0x00FF00\r\n \"List\" = [ \"a\",\"b\" ]\r\n"
                                      "Later = qword:12\r\nBroken = \"open\r\nTwice = 1\r\nnonsense\r\nTWICE = 2\r\n"
                                      "Both = 7\r\nBoth = oops\r\n");
    VProfileKey key = Look(u"hand");
    unsigned value = 0;
    VStringArray list;
    VUnicodeString text;
    EXPECT_TRUE(key.ReadDword(u"colour", &value));
    EXPECT_EQ(value, 0xFF00u);
    EXPECT_TRUE(key.ReadMultiSz(u"LIST", list));
    EXPECT_EQ(list.GetCount(), 2u);
    EXPECT_TRUE(key.ReadDword(u"Twice", &value));
    EXPECT_EQ(value, 2u) << "the last of one name counts";
    EXPECT_TRUE(key.ReadDword(u"Both", &value));
    EXPECT_EQ(value, 7u) << "a broken line doesn't";
    EXPECT_FALSE(key.ReadString(u"Broken", text));
    EXPECT_EQ(Status(key), kErrorFileNotFound);
    EXPECT_FALSE(key.ReadString(u"Later", text));
    EXPECT_EQ(Status(key), kErrorUnsupportedType);

    std::vector<std::pair<std::u16string, int>> entries;
    VProfileKeyIterator iterator(&key, true);
    VUnicodeString name;
    for (int type = 0; iterator.NextValue(name, &type);)
        entries.emplace_back(name.View(), type);
    using Entry = std::pair<std::u16string, int>;
    EXPECT_THAT(entries, ElementsAre(Entry(u"Colour", 0), Entry(u"List", 3), Entry(u"Later", -1), Entry(u"TWICE", 0),
                                     Entry(u"Both", 0)));

    EXPECT_TRUE(Open(u"Hand").WriteDword(u"Colour", 0xFF00)) << "the value that is there, spelled otherwise";
    EXPECT_TRUE(Open(u"Hand").WriteDword(u"Twice", 3));
    EXPECT_EQ(m_folder.Read("Config/Hand.ini"),
              "\xEF\xBB\xBF; by hand\r\n\r\nColour=0x00FF00\r\n \"List\" = [ \"a\",\"b\" ]\r\n"
              "Later = qword:12\r\nBroken = \"open\r\nTwice = 1\r\nnonsense\r\nTWICE = 3\r\n"
              "Both = 7\r\nBoth = oops\r\n");
}

TEST_F(FileStore, ReadingCostsOneCallAndNothingMore)
{
    EXPECT_TRUE(Open(u"Folder\\Key").WriteDword(u"N", 1));
    test::FaultyFiles files;
    unsigned value = 0;
    {
        VProfileStore store(true, &m_factory);
        VProfileKey key(store.GetRootKey(), u"Folder\\Key");
        EXPECT_TRUE(key.ReadDword(u"N", &value));
        EXPECT_FALSE(key.ReadDword(u"Missing", &value));
    }
    EXPECT_THAT(files.calls, ElementsAre("ReadWhole"));
    files.Reset();
    {
        VProfileStore store(false, &m_factory);
        VProfileKey key(store.GetRootKey(), u"Folder\\Key");
        EXPECT_TRUE(key.WriteDword(u"N", 1)) << "as it stands";
        VReportMessageParams report;
        EXPECT_TRUE(key.Flush(report));
    }
    EXPECT_THAT(files.calls, ElementsAre("ReadWhole"));
}

TEST_F(FileStore, ANewHandleShowsTheFileAsItIsNow)
{
    VProfileKey old = Open(u"Key");
    EXPECT_TRUE(old.WriteDword(u"Mine", 1));
    m_folder.Write("Config/Key.ini", "Mine = 5\nTheirs = 6\n");
    unsigned value = 0;
    VProfileKey fresh = Look(u"Key");
    EXPECT_TRUE(fresh.ReadDword(u"Theirs", &value));
    EXPECT_TRUE(old.ReadDword(u"Theirs", &value)) << "one key, one document";
    EXPECT_TRUE(fresh.ReadDword(u"Mine", &value));
    EXPECT_EQ(value, 1u) << "what waits here comes first";
}

TEST_F(FileStore, WhatCannotBeOpenedSaysWhy)
{
    const std::u16string longest(251, u'k');
    VProfileKey* const root = m_writable.GetRootKey();
    EXPECT_TRUE(Open(longest.c_str()).WriteDword(u"N", 1));
    EXPECT_TRUE(m_readOnly.GetRootKey()->KeyExists(longest.c_str()));
    for (const std::u16string& name :
         {longest + u"k", std::u16string(126, u'\u00E4'), std::u16string(10000, u'k'), u"A\\" + longest + u"k"}) {
        EXPECT_EQ(Status(VProfileKey(root, name.c_str())), kErrorInvalidParameter);
        EXPECT_FALSE(root->KeyExists(name.c_str()));
    }

    m_folder.Write("Config/Large.ini", "N = 1\n");
    fs::resize_file(m_folder.Path("Config/Large.ini"), (64u << 20) + 1);
    EXPECT_EQ(Status(VProfileKey(root, u"Large")), kErrorMoreData) << "too large to be settings";

    fs::create_directories(m_folder.Path("Config/Odd.ini"));
    EXPECT_NE(Status(VProfileKey(root, u"Odd")), kErrorSuccess) << "a folder where the file should be";
    EXPECT_FALSE(root->KeyExists(u"Odd"));

    test::FaultyFiles files;
    files.failAt = 0;
    files.failure = kErrorAccessDenied;
    VProfileKey denied(root, longest.c_str());
    EXPECT_EQ(Status(denied), kErrorAccessDenied);
    unsigned value = 0;
    EXPECT_FALSE(denied.ReadDword(u"N", &value));
    EXPECT_EQ(Status(denied), kErrorAccessDenied);
}

TEST_F(FileStore, WithoutRightsAKeyIsReadOnly)
{
    EXPECT_TRUE(Open(u"Key").WriteDword(u"N", 1));
    EXPECT_TRUE(Open(u"Key").IsWritable());
    test::FaultyFiles files;
    files.notWritable = true;
    VProfileKey key = Open(u"Key");
    unsigned value = 0;
    EXPECT_FALSE(key.IsWritable());
    EXPECT_TRUE(key.ReadDword(u"N", &value));
    EXPECT_FALSE(key.WriteDword(u"N", 2));
    EXPECT_EQ(Status(key), kErrorAccessDenied);
    EXPECT_FALSE(key.DeleteValue(u"N"));
    EXPECT_TRUE(key.ReadDword(u"N", &value));
    EXPECT_EQ(value, 1u);
}

TEST_F(FileStore, AnEmptyStoreIsWritableWhereItsFolderCanBeMade)
{
    EXPECT_TRUE(m_writable.GetRootKey()->IsWritable());
    FileStoreFactory factory("/proc/no/such/folder");
    VProfileStore store(false, &factory);
    EXPECT_NE(Status(VProfileKey(store.GetRootKey(), u"Key")), kErrorSuccess);
    EXPECT_TRUE(store.GetRootKey()->WriteDword(u"N", 1) == store.GetRootKey()->IsWritable());
    VReportMessageParams report;
    if (store.GetRootKey()->IsWritable()) { // the super-user is told that he may
        EXPECT_FALSE(store.GetRootKey()->Flush(report));
        EXPECT_NE(report.GetCode(), kErrorSuccess);
    }
}

TEST_F(FileStore, ALinkIsWrittenThroughAndModesAreKept)
{
    m_folder.Write("Elsewhere/real.ini", "N = 1\n");
    fs::permissions(m_folder.Path("Elsewhere/real.ini"), fs::perms(0664));
    fs::create_directories(m_folder.Path("Config"));
    fs::create_symlink("../Elsewhere/real.ini", m_folder.Path("Config/Key.ini"));
    EXPECT_TRUE(Open(u"Key").WriteDword(u"N", 2));
    EXPECT_TRUE(fs::is_symlink(m_folder.Path("Config/Key.ini")));
    EXPECT_EQ(m_folder.Read("Elsewhere/real.ini"), "N = 2\n");
    EXPECT_EQ(ModeOf(m_folder.Path("Elsewhere/real.ini")), fs::perms(0664));

    fs::create_symlink(m_folder.Path("Elsewhere/new.ini"), m_folder.Path("Config/Dangling.ini"));
    EXPECT_FALSE(m_writable.GetRootKey()->KeyExists(u"Dangling"));
}

TEST_F(FileStore, DeletingAKeySparesWhatIsNotTheStores)
{
    m_folder.Write("Elsewhere/Deep.ini", "N = 1\n");
    m_folder.Write("Config/Key/Sub.ini", "N = 1\n");
    m_folder.Write("Config/Key/%tmp-0123", "left by a killed process");
    fs::create_directory_symlink(m_folder.Path("Elsewhere"), m_folder.Path("Config/Key/Linked"));
    EXPECT_TRUE(m_writable.GetRootKey()->KeyExists(u"Key\\Linked\\Deep"));
    EXPECT_TRUE(m_writable.GetRootKey()->DeleteKey(u"Key"));
    EXPECT_FALSE(m_folder.Exists("Config/Key"));
    EXPECT_TRUE(m_folder.Exists("Elsewhere/Deep.ini")) << "the link goes, not what it leads to";

    m_folder.Write("Config/Key/Sub.ini", "N = 1\n");
    m_folder.Write("Config/Key/notes.txt", "a person's");
    EXPECT_FALSE(m_writable.GetRootKey()->DeleteKey(u"Key"));
    EXPECT_NE(Status(*m_writable.GetRootKey()), kErrorSuccess);
    EXPECT_TRUE(m_folder.Exists("Config/Key/notes.txt"));
    EXPECT_FALSE(m_folder.Exists("Config/Key/Sub.ini"));
}

/// Keys below this one, at most so many: a walk without an end stops there.
size_t CountKeys(const VProfileKey& key, size_t most)
{
    size_t count = 0;
    VProfileKeyIterator names(&key, false);
    for (VUnicodeString name; count < most && names.Next(name);)
        count += 1 + CountKeys(VProfileKey(&key, name.c_str()), most - count - 1);
    return count;
}

TEST_F(FileStore, ALinkThatLeadsBackIsPassedOver)
{
    m_folder.Write("Config/A/B/Deep.ini", "N = 1\n");
    m_folder.Write("Config/A/Values.ini", "N = 1\n");
    m_folder.Write("Elsewhere/Sub.ini", "N = 1\n");
    for (const char* const loop : {"Config/Up", "Config/A/Loop", "Config/A/B/Loop", "Config/A/Values"})
        fs::create_directory_symlink(m_folder.Path("Config"), m_folder.Path(loop));
    fs::create_directory_symlink(m_folder.Path("Elsewhere"), m_folder.Path("Config/A/Out"));
    fs::create_directory_symlink("Itself", m_folder.Path("Config/Itself"));
    fs::create_symlink("Circle.ini", m_folder.Path("Config/Circle.ini"));
    // A, A\B, A\B\Deep, A\Out, A\Out\Sub, A\Values, which has a file, too, and Circle
    EXPECT_EQ(CountKeys(*m_readOnly.GetRootKey(), 1000), 7u);
    EXPECT_TRUE(m_readOnly.GetRootKey()->KeyExists(u"Up\\A\\Values"));
    EXPECT_FALSE(m_readOnly.GetRootKey()->KeyExists(u"Circle"));

    std::vector<VUnicodeString> changed;
    VReportMessageParams report;
    ASSERT_TRUE(m_writable.Extras().Poll(changed, report)) << "the watch ends its walk, too";
    m_folder.Write("Config/A/Values.ini", "N = 2\n");
    EXPECT_TRUE(m_writable.Extras().Poll(changed, report));
    EXPECT_THAT(changed, ElementsAre(u"A\\Values")) << "by its path without links";
    std::vector<StrayFile> strays;
    EXPECT_EQ(FindStrayFiles(m_folder.Path("Config"), strays), kErrorSuccess);
}

TEST_F(FileStore, AMessageCanTellWhereAValueStands)
{
    m_folder.Write("Config/Key.ini", "; head\nA = 1\n\nB = oops\na = 2\n");
    VProfileKey key = Open(u"KEY");
    EXPECT_TRUE(key.WriteDword(u"New", 1));
    ValuePlace place;
    for (const auto& [name, line] :
         {std::pair(u"A", 5u), {u"B", 0u}, {u"New", 0u}, {static_cast<const char16_t*>(nullptr), 0u}}) {
        EXPECT_TRUE(m_readOnly.Extras().FindPlace(u"KEY", name, place));
        EXPECT_EQ(place.file, m_folder.Path("Config/Key.ini"));
        EXPECT_EQ(place.line, line);
    }
    const ValuePlace before = place;
    EXPECT_FALSE(m_readOnly.Extras().FindPlace(u"Missing", u"A", place));
    EXPECT_EQ(place.file, before.file);
}

TEST_F(FileStore, ManyKeysComeAndGo)
{
    // More bytes than are kept of closed keys, so documents go while others are in use.
    const std::u16string text(20000, u't');
    VProfileKey held = Open(u"Key 0");
    for (int round = 0; round < 2; ++round)
        for (unsigned i = 0; i < 60; ++i) {
            const std::string number = std::to_string(i);
            VProfileKey key = Open((u"Key " + std::u16string(number.begin(), number.end())).c_str());
            VUnicodeString back;
            EXPECT_TRUE(round > 0 || key.WriteString(u"Text", text.c_str()));
            EXPECT_TRUE(key.ReadString(u"Text", back));
            EXPECT_EQ(back.GetLength(), text.size());
        }
    VUnicodeString back;
    EXPECT_TRUE(held.ReadString(u"Text", back));
}

TEST_F(FileStore, HandlesMayBeUsedByDifferentThreads)
{
    EXPECT_TRUE(Open(u"Shared").WriteDword(u"N", 0));
    const auto work = [this](unsigned number) {
        const std::string own = std::to_string(number);
        const std::u16string name(own.begin(), own.end());
        for (unsigned i = 1; i <= 15; ++i) {
            VProfileStore store(false, &m_factory);
            VProfileKey shared(store.GetRootKey(), u"Shared");
            unsigned value = 0;
            shared.ReadDword(u"N", &value);
            EXPECT_TRUE(shared.WriteDword(name.c_str(), i));
            EXPECT_TRUE(VProfileKey(&shared, name.c_str()).WriteDword(u"N", i));
        }
    };
    std::thread other(work, 1u);
    work(2);
    other.join();
    for (const char16_t* const name : {u"1", u"2"}) {
        unsigned value = 0;
        EXPECT_TRUE(Look(u"Shared").ReadDword(name, &value));
        EXPECT_EQ(value, 15u);
    }
}

} // namespace
} // namespace ostrand
