// Transactions of the stores: all or nothing, seen from inside and from other programs. What a crash leaves is the
// matter of the crash stories.
#include "profile/key.h"
#include "stores/file_store.h"
#include "stores/memory_store.h"
#include "stores/store_messages.h"
#include "tests/support/faulty_files.h"
#include "tests/support/journal_text.h"
#include "tests/support/recording_router.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace ostrand {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

unsigned Read(const VProfileStore& store, const char16_t* key, const char16_t* name = u"N")
{
    unsigned value = 999;
    VProfileKey(store.GetRootKey(), key).ReadDword(name, &value);
    return value;
}

void Write(const VProfileStore& store, const char16_t* key, unsigned value)
{
    EXPECT_TRUE(VProfileKey(store.GetRootKey(), key).WriteDword(u"N", value));
}

void CheckTransactions(VProfileStoreFactory& factory)
{
    VProfileStore store(false, &factory);
    const VProfileStore readOnly(true, &factory);
    IStoreExtras& extras = store.Extras();
    VReportMessageParams report;
    Write(store, u"A", 1);
    Write(store, u"B", 1);
    EXPECT_FALSE(extras.CommitTransaction(report)) << "none is open";

    ASSERT_TRUE(extras.BeginTransaction(report));
    EXPECT_FALSE(extras.BeginTransaction(report)) << "they don't nest";
    Write(store, u"A", 2);
    VProfileKey b(store.GetRootKey(), u"b");
    EXPECT_TRUE(b.DeleteValue(u"N"));
    EXPECT_TRUE(b.WriteString(u"Text", u"new"));
    Write(store, u"New\\Deep", 1);
    EXPECT_TRUE(store.GetRootKey()->WriteDword(u"N", 1));
    EXPECT_EQ(Read(readOnly, u"A"), 2u) << "this process sees its writes";
    EXPECT_TRUE(store.GetRootKey()->KeyExists(u"NEW\\deep"));
    EXPECT_EQ(Read(store, u"new\\deep"), 1u);
    EXPECT_FALSE(store.GetRootKey()->DeleteKey(u"A")) << "no part of a transaction";
    EXPECT_EQ(store.GetRootKey()->GetStatus().GetCode(), kErrorNotSupported);
    extras.RollBackTransaction();
    EXPECT_EQ(Read(readOnly, u"A"), 1u);
    EXPECT_EQ(Read(readOnly, u"B"), 1u);
    VUnicodeString text;
    EXPECT_FALSE(b.ReadString(u"Text", text));
    EXPECT_FALSE(store.GetRootKey()->KeyExists(u"New\\Deep"));
    unsigned value = 999;
    EXPECT_FALSE(store.GetRootKey()->ReadDword(u"N", &value));

    ASSERT_TRUE(extras.BeginTransaction(report));
    Write(store, u"A", 3);
    Write(store, u"B", 3);
    Write(store, u"New\\Deep", 3);
    EXPECT_TRUE(extras.CommitTransaction(report));
    for (const char16_t* const key : {u"A", u"B", u"New\\Deep"})
        EXPECT_EQ(Read(readOnly, key), 3u);
    EXPECT_TRUE(store.GetRootKey()->DeleteKey(u"New"));
}

TEST(Transaction, EachStoreThatOffersThemMeansTheSame)
{
    MemoryStoreFactory memory;
    {
        SCOPED_TRACE("memory");
        CheckTransactions(memory);
    }
    test::TempFolder folder;
    FileStoreFactory files(folder.Path());
    {
        SCOPED_TRACE("files");
        CheckTransactions(files);
    }
    EXPECT_FALSE(folder.Exists("%journal"));
}

TEST(Transaction, AMemoryStoreForgetsWhatWasRolledBack)
{
    MemoryStoreFactory factory;
    factory.Fill({{u"A", u"First", 1u}, {u"A", u"N", 1u}, {u"A", u"Last", 1u}});
    const std::vector<StoreEntry> before = factory.Dump();
    VProfileStore store(false, &factory);
    VReportMessageParams report;
    ASSERT_TRUE(store.Extras().BeginTransaction(report));
    EXPECT_TRUE(VProfileKey(store.GetRootKey(), u"A").DeleteValue(u"First"));
    Write(store, u"A", 2);
    Write(store, u"X\\Y", 2);
    factory.FailFlush(kErrorDiskFull);
    EXPECT_FALSE(store.Extras().CommitTransaction(report));
    EXPECT_EQ(report.GetCode(), kErrorDiskFull);
    store.Extras().RollBackTransaction();
    EXPECT_EQ(factory.Dump(), before);
    EXPECT_THAT(factory.Keys(), ElementsAre(u"A"));
    EXPECT_THAT(factory.Log(), IsEmpty());
}

class FileTransaction : public testing::Test {
protected:
    FileTransaction()
    {
        m_folder.Write("A.ini", "N = 1\n");
        m_folder.Write("Folder/B.ini", "N = 1\n");
    }
    bool Begin() { return m_store.Extras().BeginTransaction(m_report); }
    bool Commit() { return m_store.Extras().CommitTransaction(m_report); }
    std::string Files() const { return m_folder.Read("A.ini") + m_folder.Read("Folder/B.ini"); }

    test::TempFolder m_folder;
    test::RecordingRouter m_router;
    FileStoreFactory m_factory{m_folder.Path()};
    VProfileStore m_store{false, &m_factory};
    VReportMessageParams m_report;
};

constexpr const char* kBoth1 = "N = 1\nN = 1\n";
constexpr const char* kBoth2 = "N = 2\nN = 2\n";

TEST_F(FileTransaction, NothingReachesTheFilesBeforeTheCommit)
{
    VProfileKey held(m_store.GetRootKey(), u"A");
    ASSERT_TRUE(Begin());
    EXPECT_TRUE(held.WriteDword(u"N", 2));
    EXPECT_TRUE(held.Flush(m_report)) << "waits, and doesn't fail";
    Write(m_store, u"Folder\\B", 2);
    Write(m_store, u"C", 2);
    EXPECT_EQ(Files(), kBoth1);
    EXPECT_FALSE(m_folder.Exists("C.ini"));
    EXPECT_TRUE(Commit());
    EXPECT_EQ(Files(), kBoth2);
    EXPECT_EQ(m_folder.Read("C.ini"), "N = 2\n");
    EXPECT_TRUE(held.WriteDword(u"N", 3));
    EXPECT_TRUE(held.Flush(m_report));
    EXPECT_EQ(m_folder.Read("A.ini"), "N = 3\n");
}

TEST_F(FileTransaction, OthersChangesAreMergedAndConflictsTold)
{
    ASSERT_TRUE(Begin());
    EXPECT_EQ(Read(m_store, u"A"), 1u);
    Write(m_store, u"A", 2);
    Write(m_store, u"Folder\\B", 2);
    m_folder.Write("A.ini", "; theirs\nN = 7\nM = 7\n");
    EXPECT_TRUE(Commit());
    EXPECT_EQ(m_folder.Read("A.ini"), "; theirs\nN = 2\nM = 7\n");
    EXPECT_EQ(m_report.GetCode(), kValueConflict);
    ASSERT_THAT(m_router.messages, SizeIs(1));
    EXPECT_THAT(m_router.messages[0].arguments, ElementsAre(u"A", u"N"));
}

TEST_F(FileTransaction, AFailureAtAnyCallLeavesAllOrNothing)
{
    for (const bool isLasting : {false, true}) {
        size_t at = 0;
        for (bool isReached = true; isReached; ++at) {
            m_folder.Write("A.ini", "N = 1\n");
            m_folder.Write("Folder/B.ini", "N = 1\n");
            FileStoreFactory factory(m_folder.Path());
            VProfileStore store(false, &factory);
            ASSERT_TRUE(store.Extras().BeginTransaction(m_report));
            Write(store, u"A", 2);
            Write(store, u"Folder\\B", 2);
            test::FaultyFiles files;
            (isLasting ? files.dieAt : files.failAt) = at;
            const bool isCommitted = store.Extras().CommitTransaction(m_report);
            isReached = files.calls.size() > at;
            SCOPED_TRACE("call " + std::to_string(at) + (isReached ? " " + files.calls[at] : ""));
            EXPECT_TRUE(isReached || isCommitted);
            files.Reset();
            if (isCommitted || isLasting) {
                // A journal that could not be taken back is finished by whoever comes next.
                FileStoreFactory next(m_folder.Path());
                const VProfileStore opened(true, &next);
                EXPECT_THAT(Files(), testing::AnyOf(kBoth1, kBoth2));
                EXPECT_EQ(isCommitted && Files() != kBoth2, false);
            } else {
                EXPECT_EQ(Files(), kBoth1);
            }
            EXPECT_FALSE(m_folder.Exists("%journal"));
            if (!isCommitted) {
                EXPECT_TRUE(store.Extras().CommitTransaction(m_report)) << "again";
            }
            EXPECT_EQ(Files(), kBoth2);
        }
        EXPECT_GT(at, 20u);
    }
}

TEST_F(FileTransaction, AJournalIsFinishedOrThrownAway)
{
    const std::string whole = test::JournalText({{"A", "N = 5\n"}, {"Folder/B", "N = 5\n"}, {"", "R = 5\n"}});
    struct Case {
        const char* what;
        std::string journal;
        bool isDone;
    };
    const std::string kLong = "N = 5\n" + std::string(3'000'000, ';');
    std::string flipped = whole;
    flipped[flipped.find("N = 5") + 4] = '6';
    const Case cases[] = {
        {"cut", whole.substr(0, whole.size() - 1), false},
        {"empty", "", false},
        {"zeros", std::string(whole.size(), '\0'), false},
        {"a changed byte", flipped, false},
        {"leads out of the store", test::JournalText({{"../evil", "N = 1\n"}}), false},
        {"leads to a file of the store's own", test::JournalText({{"%journal", "N = 1\n"}}), false},
        {"an absolute path", test::JournalText({{"/tmp/evil", "N = 1\n"}}), false},
        {"a size beyond its end", test::SignedJournal("key 1 99\nA\nN = 9\n\n", 1), false},
        {"a size beyond all numbers", test::SignedJournal("key 1 99999999999999999999999\nA\n\n", 1), false},
        {"another number of entries", test::SignedJournal("key 1 6\nA\nN = 9\n\n", 2), false},
        {"whole", whole, true},
        {"large", test::JournalText({{"A", "N = 5\n"}, {"Long", kLong}, {"Folder/B", "N = 5\n"}}), true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        m_folder.Write("%journal", c.journal);
        FileStoreFactory next(m_folder.Path());
        const VProfileStore opened(true, &next);
        EXPECT_EQ(Read(opened, u"A"), c.isDone ? 5u : 1u);
        EXPECT_EQ(Files(), c.isDone ? "N = 5\nN = 5\n" : kBoth1);
        EXPECT_FALSE(m_folder.Exists("%journal"));
    }
    EXPECT_EQ(m_folder.Read("%root.ini"), "R = 5\n");
    EXPECT_EQ(m_folder.Read("Long.ini"), kLong);
}

TEST_F(FileTransaction, WhatWaitedBeforeSurvivesARollBack)
{
    VProfileKey key(m_store.GetRootKey(), u"A");
    {
        test::FaultyFiles files;
        EXPECT_TRUE(key.WriteDword(u"N", 2));
        files.dieAt = files.calls.size();
        EXPECT_FALSE(key.Flush(m_report));
    }
    ASSERT_TRUE(Begin());
    EXPECT_TRUE(key.WriteDword(u"N", 3));
    m_store.Extras().RollBackTransaction();
    EXPECT_EQ(Read(m_store, u"A"), 2u);
    EXPECT_TRUE(key.Flush(m_report));
    EXPECT_EQ(m_folder.Read("A.ini"), "N = 2\n");
}

/// More keys than a small budget holds in memory: most of them wait on the disk.
class WideTransaction : public testing::Test {
protected:
    static constexpr size_t kKeys = 399;
    static constexpr size_t kBudget = 16 << 10;

    WideTransaction()
    {
        for (size_t i = 0; i < kKeys; ++i)
            m_folder.Write(FileOf(i), Text(1));
    }
    static std::string Text(unsigned number)
    {
        return "; " + std::string(200, '-') + "\nN = " + std::to_string(number) + '\n';
    }
    static std::string FileOf(size_t i) { return "F" + std::to_string(i % 7) + "/K" + std::to_string(i) + ".ini"; }
    static std::u16string KeyOf(size_t i)
    {
        const std::string file = FileOf(i);
        std::u16string name(file.begin(), file.end() - 4);
        name[2] = u'\\';
        return name;
    }
    void WriteAll(unsigned number)
    {
        for (size_t i = 0; i < kKeys; ++i)
            Write(m_store, KeyOf(i).c_str(), number);
    }
    /// Files with that text.
    size_t Count(const std::string& text) const
    {
        size_t count = 0;
        for (size_t i = 0; i < kKeys; ++i)
            count += m_folder.Read(FileOf(i)) == text;
        return count;
    }
    size_t CountNew() const
    {
        size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.Path()))
            count += entry.path().filename().string().starts_with("New") ? 1 : 0;
        return count;
    }
    bool Begin() { return m_store.Extras().BeginTransaction(m_report); }
    bool Commit() { return m_store.Extras().CommitTransaction(m_report); }

    test::TempFolder m_folder;
    test::RecordingRouter m_router;
    FileStoreFactory m_factory{m_folder.Path(), kBudget};
    VProfileStore m_store{false, &m_factory};
    VReportMessageParams m_report;
};

TEST_F(WideTransaction, KeysThatWaitOnTheDiskAreAsGoodAsOthers)
{
    VProfileKey held(m_store.GetRootKey(), KeyOf(5).c_str());
    ASSERT_TRUE(Begin());
    EXPECT_TRUE(held.WriteString(u"Held", u"open"));
    WriteAll(2);
    for (size_t i = 0; i < kKeys; ++i) {
        const std::u16string name = u"New" + std::u16string(i % 50, u'n') + static_cast<char16_t>(0x4e00 + i);
        Write(m_store, name.c_str(), 1);
    }
    EXPECT_EQ(Count(Text(1)), kKeys) << "nothing is written yet";
    EXPECT_EQ(CountNew(), 0u);
    // Opened again, read, and written once more, shorter and longer than before; spelled in another way.
    EXPECT_EQ(Read(m_store, u"f0\\k7"), 2u);
    EXPECT_EQ(Read(m_store, u"NEWn\u4e01"), 1u);
    EXPECT_TRUE(m_store.GetRootKey()->KeyExists(u"newN\u4e01"));
    for (size_t i = 0; i < kKeys; i += 3) {
        VProfileKey key(m_store.GetRootKey(), KeyOf(i).c_str());
        unsigned there = 0;
        ASSERT_TRUE(key.ReadDword(u"N", &there) && there == 2) << i;
        EXPECT_TRUE(i % 2 == 0 ? key.WriteString(u"Text", std::u16string(i / 2, u'x').c_str()) : key.DeleteValue(u"N"));
    }
    EXPECT_TRUE(Commit());
    EXPECT_EQ(Count(Text(2)), kKeys - kKeys / 3 - 1) << "all but those, and the one that was held";
    EXPECT_EQ(m_folder.Read(FileOf(5)), Text(2) + "Held = \"open\"\n");
    for (size_t i = 0; i < kKeys; i += 3) {
        const std::string text = Text(2) + "Text = \"" + std::string(i / 2, 'x') + "\"\n";
        EXPECT_EQ(m_folder.Read(FileOf(i)), i % 2 == 0 ? text : Text(2).substr(0, 203));
    }
    EXPECT_EQ(CountNew(), kKeys);
    EXPECT_THAT(m_router.messages, IsEmpty());
    std::vector<StoreVersion> versions;
    EXPECT_TRUE(m_store.Extras().ListVersions(KeyOf(8).c_str(), versions, m_report));
    EXPECT_THAT(versions, SizeIs(2));
    EXPECT_FALSE(m_folder.Exists("%journal"));
}

TEST_F(WideTransaction, OthersChangesAreMergedAndTheFirstConflictsTold)
{
    constexpr size_t kTold = 100;
    ASSERT_TRUE(Begin());
    for (size_t i = 0; i < kKeys; ++i) {
        VProfileKey key(m_store.GetRootKey(), KeyOf(i).c_str());
        unsigned there = 0;
        EXPECT_TRUE(key.ReadDword(u"N", &there) && key.WriteDword(u"N", 2));
    }
    // Between the closing of the keys and the commit.
    for (size_t i = 0; i < kKeys; ++i)
        m_folder.Write(FileOf(i), i < 150 ? "N = 7\n" : Text(1) + "M = 7\n");
    EXPECT_TRUE(Commit());
    EXPECT_EQ(Count("N = 2\n"), 150u);
    EXPECT_EQ(Count(Text(2) + "M = 7\n"), kKeys - 150);
    EXPECT_EQ(m_report.GetCode(), kValueConflict);
    ASSERT_THAT(m_router.messages, SizeIs(kTold + 1));
    EXPECT_EQ(m_router.messages[kTold].code, kFurtherConflicts);
    EXPECT_THAT(m_router.messages[kTold].arguments, ElementsAre(u"50"));
}

TEST_F(WideTransaction, ARollBackLeavesNothing)
{
    const auto files = [&] {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(m_folder.Path()))
            names.push_back(entry.path().string());
        return names;
    };
    VProfileKey held(m_store.GetRootKey(), KeyOf(5).c_str());
    const std::vector<std::string> before = files();
    ASSERT_TRUE(Begin());
    WriteAll(2);
    for (size_t i = 0; i < kKeys; ++i)
        Write(m_store, (u"New" + std::u16string(1, static_cast<char16_t>(0x4e00 + i))).c_str(), 1);
    EXPECT_TRUE(held.WriteDword(u"N", 3));
    EXPECT_EQ(files(), before) << "no file has a name meanwhile";
    m_store.Extras().RollBackTransaction();
    EXPECT_EQ(files(), before);
    EXPECT_EQ(Count(Text(1)), kKeys);
    for (const size_t i : {0u, 5u, 300u, 398u})
        EXPECT_EQ(Read(m_store, KeyOf(i).c_str()), 1u);
    EXPECT_FALSE(m_store.GetRootKey()->KeyExists(u"New\u4e00"));
    Write(m_store, KeyOf(7).c_str(), 4);
    EXPECT_EQ(m_folder.Read(FileOf(7)), Text(4)) << "saves go on, each by itself";
}

TEST_F(WideTransaction, WhatTheDiskDoesNotTakeWaitsInMemory)
{
    ASSERT_TRUE(Begin());
    {
        test::FaultyFiles files;
        files.refusesNameless = true;
        WriteAll(2);
        EXPECT_EQ(Read(m_store, KeyOf(1).c_str()), 2u);
    }
    EXPECT_TRUE(Commit());
    EXPECT_EQ(Count(Text(2)), kKeys);
}

TEST(StoreExtras, AStoreWithoutThemSaysSo)
{
    class PlainStore : public VProfilePrivateStore {
    public:
        explicit PlainStore(VProfilePrivateStore* inner) : m_inner(inner) {}
        VProfilePrivateKey* OpenRootKey(bool readOnly) override { return m_inner->OpenRootKey(readOnly); }

    private:
        std::unique_ptr<VProfilePrivateStore> m_inner;
    };
    class PlainFactory : public VProfileStoreFactory {
    public:
        VProfilePrivateStore* CreateStore() override { return new PlainStore(m_memory.CreateStore()); }

    private:
        MemoryStoreFactory m_memory;
    };
    PlainFactory factory;
    VProfileStore store(false, &factory);
    VReportMessageParams report;
    std::vector<VUnicodeString> keys;
    EXPECT_FALSE(store.Extras().BeginTransaction(report));
    EXPECT_EQ(report.GetCode(), kErrorNotSupported);
    EXPECT_FALSE(store.Extras().Poll(keys, report));
    EXPECT_EQ(store.Extras().PollDescriptor(), -1);
}

} // namespace
} // namespace ostrand
