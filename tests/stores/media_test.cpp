// A store on media that can do less than others, in folders and files that aren't as it left them, and what its history
// brings back.
#include "platform/error_codes.h"
#include "profile/key.h"
#include "stores/file_store.h"
#include "stores/store_messages.h"
#include "tests/support/faulty_files.h"
#include "tests/support/recording_router.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace ostrand {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
namespace fs = std::filesystem;

/// The real files on a medium that lacks something.
class PoorMedium : public test::FaultyFiles {
public:
    bool hasLocks = true;
    bool hasExchange = true;
    bool canOpenAlone = true;

    unsigned Open(const std::string& path, VFileAccess access, VFileDisposition disposition, unsigned mode,
                  std::unique_ptr<IFile>& file, bool* existed) override
    {
        const unsigned code = FaultyFiles::Open(path, access, disposition, mode, file, existed);
        if (code == kErrorSuccess && !hasLocks)
            file = std::make_unique<LocklessFile>(std::move(file));
        return code;
    }
    unsigned OpenAlone(const std::string& path, std::unique_ptr<IFile>& file, VFileInfo& info) override
    {
        return canOpenAlone ? FaultyFiles::OpenAlone(path, file, info) : kErrorNotSupported;
    }
    unsigned Exchange(const std::string& a, const std::string& b) override
    {
        return hasExchange ? FaultyFiles::Exchange(a, b) : kErrorNotSupported;
    }

private:
    class LocklessFile : public IFile {
    public:
        explicit LocklessFile(std::unique_ptr<IFile> real) : m_real(std::move(real)) {}
        unsigned Read(void* data, size_t size, size_t& got) override { return m_real->Read(data, size, got); }
        unsigned Write(const void* data, size_t size) override { return m_real->Write(data, size); }
        unsigned Seek(uint64_t position) override { return m_real->Seek(position); }
        unsigned GetInfo(VFileInfo& info) override { return m_real->GetInfo(info); }
        unsigned SetSize(uint64_t size) override { return m_real->SetSize(size); }
        unsigned SetRights(const VFileInfo& like) override { return m_real->SetRights(like); }
        unsigned Sync() override { return m_real->Sync(); }
        unsigned Lock(unsigned) override { return kErrorNotSupported; }

    private:
        std::unique_ptr<IFile> m_real;
    };
};

/// One program with the store open.
struct Program {
    explicit Program(const test::TempFolder& folder, bool isReadOnly = false)
        : factory(folder.Path()),
          store(isReadOnly, &factory)
    {
    }
    bool Save(const char16_t* key, const char16_t* name, unsigned value)
    {
        VProfileKey handle(store.GetRootKey(), key);
        const bool isWritten = handle.WriteDword(name, value);
        report.SetMessage(0);
        return handle.Flush(report) && isWritten;
    }
    /// 0 for one that isn't there.
    unsigned Read(const char16_t* key, const char16_t* name) const
    {
        unsigned value = 0;
        VProfileKey(store.GetRootKey(), key).ReadDword(name, &value);
        return value;
    }
    std::vector<StoreVersion> Versions(const char16_t* key)
    {
        std::vector<StoreVersion> versions;
        EXPECT_TRUE(store.Extras().ListVersions(key, versions, report)) << report.GetCode();
        return versions;
    }
    std::string Version(const char16_t* key, unsigned number)
    {
        std::string text;
        const bool isRead = store.Extras().ReadVersion(key, number, text, report);
        return isRead ? text : "code " + std::to_string(report.GetCode());
    }

    FileStoreFactory factory;
    VProfileStore store;
    VReportMessageParams report;
};

class Media : public testing::Test {
protected:
    std::vector<unsigned> Told() const
    {
        std::vector<unsigned> codes;
        for (const auto& message : m_router.messages)
            codes.push_back(message.code);
        return codes;
    }
    /// All files but the store's own lock, by their paths in the folder.
    std::map<std::string, std::string> Files() const
    {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(m_folder.Path()))
            if (entry.is_regular_file() && entry.path().filename() != "%lock") {
                const std::string name = fs::relative(entry.path(), m_folder.Path()).string();
                files[name] = m_folder.Read(name);
            }
        return files;
    }

    test::TempFolder m_folder;
    test::RecordingRouter m_router;
};

TEST_F(Media, WithoutLocksSavesWorkAndThePersonIsToldOnce)
{
    PoorMedium medium;
    medium.hasLocks = false;
    {
        Program program(m_folder);
        EXPECT_TRUE(program.Save(u"A", u"N", 1));
        EXPECT_TRUE(program.Save(u"A", u"N", 2));
        EXPECT_TRUE(program.store.Extras().BeginTransaction(program.report));
        EXPECT_TRUE(program.Save(u"A", u"N", 3));
        EXPECT_TRUE(program.Save(u"B", u"N", 3));
        EXPECT_TRUE(program.store.Extras().CommitTransaction(program.report));
        EXPECT_TRUE(program.store.GetRootKey()->DeleteKey(u"B"));
    }
    EXPECT_EQ(m_folder.Read("A.ini"), "N = 3\n");
    EXPECT_FALSE(m_folder.Exists("B.ini"));
    ASSERT_THAT(Told(), ElementsAre(kNoStoreLock));
    EXPECT_THAT(m_router.messages[0].arguments, ElementsAre(m_folder.WidePath()));
}

TEST_F(Media, WithoutExchangeOrSpareAFileIsReplacedByRenaming)
{
    for (const bool hasExchange : {false, true}) {
        SCOPED_TRACE(hasExchange);
        PoorMedium medium;
        medium.hasExchange = hasExchange;
        medium.canOpenAlone = false;
        m_folder.Write("A.ini", "; Mine\nN = 0 \n");
        fs::permissions(m_folder.Path("A.ini"), fs::perms(0640));
        {
            Program program(m_folder);
            for (unsigned value = 1; value < 5; ++value) {
                EXPECT_TRUE(program.Save(u"A", u"N", value));
                EXPECT_EQ(m_folder.Read("A.ini"), "; Mine\nN = " + std::to_string(value) + " \n");
            }
        }
        if (!hasExchange) {
            EXPECT_THAT(medium.calls, Contains("Rename"));
        }
        EXPECT_EQ(fs::status(m_folder.Path("A.ini")).permissions(), fs::perms(0640));
        for (const auto& [name, text] : Files())
            EXPECT_FALSE(name.starts_with("%tmp-")) << name;
    }
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(Media, AReadOnlyFolderRefusesWritesAndAFlushTells)
{
    m_folder.Write("A.ini", "N = 1\n");
    test::FaultyFiles files;
    files.notWritable = true;
    const std::map<std::string, std::string> before = Files();
    {
        Program program(m_folder);
        VProfileKey key(program.store.GetRootKey(), u"A");
        EXPECT_FALSE(key.IsWritable());
        EXPECT_FALSE(key.WriteDword(u"N", 2));
        EXPECT_EQ(key.GetStatus().GetCode(), kErrorAccessDenied);
        EXPECT_FALSE(key.Flush(program.report));
        EXPECT_EQ(program.report.GetCode(), kErrorAccessDenied);
        EXPECT_TRUE(key.WriteDword(u"N", 1)) << "changes nothing";
        EXPECT_EQ(program.Read(u"A", u"N"), 1u);
    }
    EXPECT_EQ(Files(), before);
    EXPECT_FALSE(m_folder.Exists("%lock"));
}

TEST_F(Media, ALinkIsWrittenThroughAndStays)
{
    const test::TempFolder elsewhere;
    elsewhere.Write("real.ini", "; Mine\nN = 1\n");
    fs::create_symlink("real.ini", elsewhere.Path("second"));
    fs::create_symlink(elsewhere.Path("second"), m_folder.Path("A.ini"));
    m_folder.Write("B.ini", "N = 1\n");
    Program program(m_folder);
    for (unsigned value = 2; value < 6; ++value) {
        const bool isTransaction = value % 2 != 0;
        if (isTransaction) {
            EXPECT_TRUE(program.store.Extras().BeginTransaction(program.report));
        }
        EXPECT_TRUE(program.Save(u"A", u"N", value));
        EXPECT_TRUE(program.Save(u"B", u"N", value));
        if (isTransaction) {
            EXPECT_TRUE(program.store.Extras().CommitTransaction(program.report));
        }
        EXPECT_EQ(elsewhere.Read("real.ini"), "; Mine\nN = " + std::to_string(value) + "\n");
        EXPECT_EQ(fs::read_symlink(m_folder.Path("A.ini")), elsewhere.Path("second"));
        EXPECT_TRUE(fs::is_symlink(elsewhere.Path("second")));
        EXPECT_EQ(program.Read(u"A", u"N"), value);
    }
}

class DamagedFile : public Media {
protected:
    DamagedFile()
    {
        m_folder.Write("Key.ini", "; Mine\nA = 1\n\n# and\nB = 0x2\n");
        Program program(m_folder);
        EXPECT_TRUE(program.Save(u"Key", u"C", 3));
        EXPECT_TRUE(program.Save(u"Key", u"A", 10));
    }
    std::vector<std::string> Aside() const
    {
        std::vector<std::string> names;
        for (const auto& [name, text] : Files())
            if (name.starts_with("Key.ini.damaged-"))
                names.push_back(name);
        return names;
    }
    void CheckValues(const Program& program, unsigned b)
    {
        EXPECT_EQ(program.Read(u"Key", u"A"), 10u);
        EXPECT_EQ(program.Read(u"Key", u"B"), b);
        EXPECT_EQ(program.Read(u"Key", u"C"), 3u);
        ASSERT_THAT(Told(), ElementsAre(kFileDamaged)) << "once";
        EXPECT_THAT(m_router.messages[0].arguments, ElementsAre(m_folder.WidePath("Key.ini")));
        m_router.messages.clear();
    }
    void CheckDamage(const std::string& damaged, unsigned b)
    {
        m_folder.Write("Key.ini", damaged);
        const std::map<std::string, std::string> before = Files();
        {
            const Program reader(m_folder, true);
            CheckValues(reader, b);
        }
        EXPECT_EQ(Files(), before) << "a read-only opening writes nothing";
        {
            Program writer(m_folder);
            CheckValues(writer, b);
            EXPECT_THAT(Aside(), IsEmpty()) << "nor does reading";
            EXPECT_TRUE(writer.Save(u"Key", u"D", 4));
            EXPECT_TRUE(writer.Save(u"Key", u"D", 5));
        }
        ASSERT_THAT(Aside(), SizeIs(damaged.empty() ? 0 : 1));
        for (const std::string& name : Aside()) {
            EXPECT_EQ(m_folder.Read(name), damaged);
            fs::remove(m_folder.Path(name));
        }
        const Program next(m_folder);
        EXPECT_EQ(next.Read(u"Key", u"A"), 10u);
        EXPECT_EQ(next.Read(u"Key", u"B"), b);
        EXPECT_EQ(next.Read(u"Key", u"C"), 3u);
        EXPECT_EQ(next.Read(u"Key", u"D"), 5u);
        EXPECT_THAT(Told(), IsEmpty()) << "the file is good";
        m_router.messages.clear();
    }
};

TEST_F(DamagedFile, ReadsAsTheLastGoodVersionAndTheNextSaveMakesItGood)
{
    using namespace std::string_literals;
    const std::string good = m_folder.Read("Key.ini");
    ASSERT_EQ(good, "; Mine\nA = 10\n\n# and\nB = 0x2\nC = 3\n");
    const struct {
        const char* what;
        std::string text;
        unsigned b;
    } cases[] = {
        {"zeros in the midst, behind an edit", "; Mine\nA = 10\nB = 7\n\0\0\0\0\0"s, 7},
        {"zeros", std::string(good.size(), '\0'), 2},
        {"no bytes", "", 2},
        {"cut in a line", good.substr(0, good.find("0x2") + 1), 2},
        {"cut so that it parses", good.substr(0, good.size() - 2), 2},
        {"no UTF-8", "; Mine\nA = 1\xE4\nB = 8\nC = 3\n", 8},
        {"marks of a merge", "<<<<<<< ours\nB = 7\n=======\nB = 9\n>>>>>>> theirs\n", 9},
    };
    for (const auto& [what, text, b] : cases) {
        SCOPED_TRACE(what);
        CheckDamage(text, b);
        m_folder.Write("Key.ini", good);
        EXPECT_TRUE(Program(m_folder).Save(u"Key", u"E", 1)); // the history knows the good text again
        EXPECT_TRUE(VProfileKey(Program(m_folder).store.GetRootKey(), u"Key").DeleteValue(u"E"));
        ASSERT_EQ(m_folder.Read("Key.ini"), good);
        m_router.messages.clear();
    }
}

TEST_F(DamagedFile, IsToldWhateverLookedAtItBefore)
{
    Program program(m_folder);
    VProfileKey held(program.store.GetRootKey(), u"Key");
    m_folder.Write("Key.ini", "<<<<<<< ours\nA = 11\n");
    std::string text;
    EXPECT_TRUE(program.store.Extras().ProposeRepair(u"Key", text, program.report));
    EXPECT_TRUE(held.WriteDword(u"D", 4));
    {
        test::FaultyFiles files;
        files.dieAt = 6; // behind the reading of the file
        EXPECT_FALSE(held.Flush(program.report));
    }
    EXPECT_THAT(Told(), IsEmpty()) << "nothing was done about it yet";
    EXPECT_TRUE(held.Flush(program.report));
    EXPECT_THAT(Told(), ElementsAre(kFileDamaged));
    EXPECT_THAT(Aside(), SizeIs(1));
    EXPECT_EQ(Program(m_folder).Read(u"Key", u"A"), 11u);
    EXPECT_EQ(Program(m_folder).Read(u"Key", u"C"), 3u);
}

TEST_F(DamagedFile, AMissingFileIsNoDamage)
{
    fs::remove(m_folder.Path("Key.ini"));
    {
        const Program program(m_folder);
        EXPECT_EQ(program.Read(u"Key", u"A"), 0u);
        EXPECT_EQ(m_folder.Read("Key.ini"), "") << "made anew";
    }
    {
        Program next(m_folder);
        EXPECT_EQ(next.Read(u"Key", u"A"), 0u) << "also to another program, which finds no bytes";
        EXPECT_TRUE(next.Save(u"Key", u"E", 5));
    }
    EXPECT_EQ(Program(m_folder).Read(u"Key", u"A"), 0u);
    EXPECT_EQ(m_folder.Read("Key.ini"), "E = 5\n");
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_THAT(Aside(), IsEmpty());
}

using History = Media;

TEST_F(History, VersionsAreListedReadAndRestored)
{
    m_folder.Write("Key.ini", "; Mine\nN = 1\n");
    Program program(m_folder);
    EXPECT_TRUE(program.Save(u"Key", u"N", 2));
    EXPECT_TRUE(program.Save(u"Key", u"N", 3));
    m_folder.Write("Key.ini", "; Mine\nN = 4\n");
    std::vector<StoreVersion> versions = program.Versions(u"Key");
    ASSERT_THAT(versions, SizeIs(4));
    for (unsigned i = 0; i < 4; ++i) {
        const StoreVersion& version = versions[i];
        EXPECT_EQ(version.number, versions[0].number + i);
        EXPECT_EQ(program.Version(u"key", version.number), "; Mine\nN = " + std::to_string(i + 1) + "\n");
        EXPECT_EQ(version.by.empty(), i == 0 || i == 3) << "what a person wrote is nobody's";
        EXPECT_NE(version.time, 0u);
        // An edit has the stamp of its file, whose clock lags by some milliseconds.
        constexpr uint64_t kLag = 1'000'000;
        EXPECT_TRUE(i == 0 || version.time + kLag >= versions[i - 1].time);
        EXPECT_FALSE(version.isDeleted);
        EXPECT_TRUE(version.conflicts.empty());
    }
    const unsigned second = versions[1].number;
    EXPECT_EQ(program.Version(u"Key", second + 10), "code " + std::to_string(kErrorFileNotFound));
    EXPECT_FALSE(program.store.Extras().RestoreVersion(u"Key", second + 10, program.report));

    VProfileKey held(program.store.GetRootKey(), u"Key");
    EXPECT_TRUE(program.store.Extras().RestoreVersion(u"Key", second, program.report));
    EXPECT_EQ(m_folder.Read("Key.ini"), "; Mine\nN = 2\n");
    unsigned value = 0;
    EXPECT_TRUE(held.ReadDword(u"N", &value));
    EXPECT_EQ(value, 2u) << "open handles follow";
    EXPECT_THAT(program.Versions(u"Key"), SizeIs(5));

    EXPECT_TRUE(program.store.GetRootKey()->DeleteKey(u"Key"));
    versions = program.Versions(u"Key");
    ASSERT_THAT(versions, SizeIs(6));
    EXPECT_TRUE(versions.back().isDeleted);
    EXPECT_EQ(program.Version(u"Key", versions.back().number), "");
    EXPECT_FALSE(m_folder.Exists("Key.ini"));
    EXPECT_TRUE(program.store.Extras().RestoreVersion(u"Key", second + 1, program.report)) << program.report.GetCode();
    EXPECT_EQ(m_folder.Read("Key.ini"), "; Mine\nN = 3\n");
    EXPECT_EQ(program.Read(u"Key", u"N"), 3u);
    EXPECT_TRUE(program.Save(u"Key", u"N", 5));
    EXPECT_EQ(m_folder.Read("Key.ini"), "; Mine\nN = 5\n");
    EXPECT_THAT(program.Versions(u"Key"), SizeIs(8));
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(History, AVersionNamesItsConflicts)
{
    m_folder.Write("Deep/Key.ini", "N = 1\nM = 1\n");
    Program first(m_folder);
    Program second(m_folder);
    VProfileKey key(first.store.GetRootKey(), u"Deep\\Key");
    unsigned value = 0;
    EXPECT_TRUE(key.ReadDword(u"N", &value));
    EXPECT_TRUE(key.WriteDword(u"N", 2));
    EXPECT_TRUE(key.WriteDword(u"M", 2));
    EXPECT_TRUE(second.Save(u"Deep\\Key", u"N", 3));
    EXPECT_TRUE(key.Flush(first.report));
    EXPECT_THAT(Told(), ElementsAre(kValueConflict));
    const std::vector<StoreVersion> versions = first.Versions(u"Deep\\Key");
    ASSERT_THAT(versions, SizeIs(3));
    EXPECT_THAT(versions[1].conflicts, IsEmpty());
    ASSERT_THAT(versions[2].conflicts, SizeIs(1));
    EXPECT_EQ(versions[2].conflicts[0].View(), u"N");
    EXPECT_EQ(first.Version(u"Deep\\Key", versions[1].number), "N = 3\nM = 1\n") << "theirs isn't gone";
}

TEST_F(History, APersonCanTurnItOff)
{
    m_folder.Write("%store.ini", "History Versions = 0\n");
    m_folder.Write("Key.ini", "N = 1\n");
    Program program(m_folder);
    EXPECT_TRUE(program.Save(u"Key", u"N", 2));
    EXPECT_TRUE(program.store.GetRootKey()->DeleteKey(u"Key"));
    EXPECT_FALSE(m_folder.Exists("%history"));
    EXPECT_FALSE(program.store.GetRootKey()->KeyExists(u"%store"));
    EXPECT_THAT(Told(), IsEmpty());
}

} // namespace
} // namespace ostrand
