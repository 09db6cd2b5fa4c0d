// Live reload: what other programs did, and nothing of what this one did.
#include "profile/key.h"
#include "stores/file_store.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <poll.h>

namespace ostrand {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;
namespace fs = std::filesystem;

class Poll : public testing::Test {
protected:
    struct Program {
        explicit Program(const std::string& folder) : factory(folder) {}
        FileStoreFactory factory;
        VProfileStore store{false, &factory};
    };

    std::vector<std::u16string> News()
    {
        std::vector<VUnicodeString> keys;
        VReportMessageParams report;
        EXPECT_TRUE(m_mine.store.Extras().Poll(keys, report));
        std::vector<std::u16string> names;
        for (const VUnicodeString& key : keys)
            names.emplace_back(key.View());
        return names;
    }
    static void Write(const Program& program, const char16_t* key, unsigned value)
    {
        EXPECT_TRUE(VProfileKey(program.store.GetRootKey(), key).WriteDword(u"N", value));
    }
    static unsigned Read(const VProfileKey& key)
    {
        unsigned value = 999;
        key.ReadDword(u"N", &value);
        return value;
    }
    bool IsReadable()
    {
        pollfd descriptor{m_mine.store.Extras().PollDescriptor(), POLLIN, 0};
        return poll(&descriptor, 1, 0) == 1;
    }

    test::TempFolder m_folder;
    Program m_mine{m_folder.Path()};
    Program m_theirs{m_folder.Path()};
};

TEST_F(Poll, OthersChangesShowInOpenHandles)
{
    Write(m_mine, u"A", 1);
    Write(m_mine, u"Folder\\B", 1);
    VProfileKey a(m_mine.store.GetRootKey(), u"A");
    VProfileKey b(m_mine.store.GetRootKey(), u"Folder\\B");
    EXPECT_EQ(Read(a), 1u);
    Write(m_theirs, u"A", 2);
    EXPECT_THAT(News(), UnorderedElementsAre(u"A")) << "also what came before the first call";
    EXPECT_EQ(Read(a), 2u);
    EXPECT_THAT(News(), IsEmpty());
    EXPECT_FALSE(IsReadable());

    Write(m_theirs, u"Folder\\B", 2);
    Write(m_theirs, u"New\\Deep\\Key", 1);
    EXPECT_TRUE(m_theirs.store.GetRootKey()->WriteDword(u"N", 5));
    VReportMessageParams report;
    EXPECT_TRUE(m_theirs.store.GetRootKey()->Flush(report));
    EXPECT_TRUE(IsReadable());
    EXPECT_THAT(News(), UnorderedElementsAre(u"", u"Folder\\B", u"New\\Deep\\Key"));
    EXPECT_EQ(Read(b), 2u);
    Write(m_theirs, u"New\\Deep\\Key", 2);
    EXPECT_THAT(News(), UnorderedElementsAre(u"New\\Deep\\Key")) << "new folders are watched, too";

    EXPECT_TRUE(m_theirs.store.GetRootKey()->DeleteKey(u"A"));
    EXPECT_THAT(News(), UnorderedElementsAre(u"A"));
    EXPECT_EQ(Read(a), 999u);
    m_folder.Write("Folder/B.ini", "N = 9\n"); // by an editor, in place
    EXPECT_THAT(News(), UnorderedElementsAre(u"Folder\\B"));
    EXPECT_EQ(Read(b), 9u);
}

TEST_F(Poll, OwnChangesAreNoNews)
{
    EXPECT_THAT(News(), IsEmpty());
    Write(m_mine, u"A", 1);
    Write(m_mine, u"Folder\\B", 1);
    Write(m_mine, u"A", 2);
    EXPECT_TRUE(m_mine.store.GetRootKey()->DeleteKey(u"Folder"));
    VReportMessageParams report;
    ASSERT_TRUE(m_mine.store.Extras().BeginTransaction(report));
    Write(m_mine, u"A", 3);
    Write(m_mine, u"C", 3);
    ASSERT_TRUE(m_mine.store.Extras().CommitTransaction(report));
    EXPECT_THAT(News(), IsEmpty());
    Write(m_theirs, u"A", 3); // as it is
    m_folder.Write("notes.txt", "no key");
    EXPECT_THAT(News(), IsEmpty());
}

TEST_F(Poll, AnUnsavedChangeStaysOverTheNews)
{
    m_folder.Write("A.ini", "N = 1\nM = 1\n");
    VProfileKey a(m_mine.store.GetRootKey(), u"A");
    EXPECT_EQ(Read(a), 1u);
    EXPECT_TRUE(a.WriteDword(u"N", 2));
    News();
    m_folder.Write("A.ini", "N = 1\nM = 7\n");
    EXPECT_THAT(News(), UnorderedElementsAre(u"A"));
    EXPECT_EQ(Read(a), 2u);
    unsigned other = 0;
    EXPECT_TRUE(a.ReadDword(u"M", &other));
    EXPECT_EQ(other, 7u);
}

} // namespace
} // namespace ostrand
