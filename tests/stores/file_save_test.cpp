// Saves that meet other writers, and saves that fail.
#include "core/messages.h"
#include "profile/key.h"
#include "stores/file_store.h"
#include "stores/store_messages.h"
#include "tests/support/faulty_files.h"
#include "tests/support/recording_router.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace ostrand {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// One program with the store open.
struct Program {
    explicit Program(const test::TempFolder& folder)
        : factory(std::make_unique<FileStoreFactory>(folder.Path())),
          store(std::make_unique<VProfileStore>(false, factory.get())),
          key(std::make_unique<VProfileKey>(store->GetRootKey(), u"Key"))
    {
    }
    unsigned Read(const char16_t* name) const
    {
        unsigned value = 999;
        key->ReadDword(name, &value);
        return value;
    }
    bool Flush()
    {
        report.SetMessage(0);
        return key->Flush(report);
    }
    /// Opens the key anew.
    void Reopen()
    {
        key.reset();
        key = std::make_unique<VProfileKey>(store->GetRootKey(), u"Key");
    }

    std::unique_ptr<FileStoreFactory> factory;
    std::unique_ptr<VProfileStore> store;
    std::unique_ptr<VProfileKey> key;
    VReportMessageParams report;
};

class FileSave : public testing::Test {
protected:
    FileSave() { m_folder.Write("Key.ini", kBefore); }
    std::string File() const { return m_folder.Read("Key.ini"); }

    static constexpr const char* kBefore = "A = 1\nB = 1\n";
    test::TempFolder m_folder;
    test::RecordingRouter m_router;
};

TEST_F(FileSave, ChangesOfTwoProgramsBothSurvive)
{
    for (const bool firstClosesFirst : {true, false}) {
        SCOPED_TRACE(firstClosesFirst);
        m_folder.Write("Key.ini", kBefore);
        Program first(m_folder);
        Program second(m_folder);
        for (Program* const program : {&first, &second}) {
            EXPECT_EQ(program->Read(u"A"), 1u);
            EXPECT_EQ(program->Read(u"B"), 1u);
        }
        EXPECT_TRUE(first.key->WriteDword(u"A", 2));
        EXPECT_TRUE(first.key->WriteDword(u"New of first", 1));
        EXPECT_TRUE(second.key->DeleteValue(u"B"));
        EXPECT_TRUE(second.key->WriteDword(u"New of second", 1));
        (firstClosesFirst ? first : second).key.reset();
        (firstClosesFirst ? second : first).key.reset();
        EXPECT_EQ(File(), firstClosesFirst ? "A = 2\nNew of first = 1\nNew of second = 1\n"
                                           : "A = 2\nNew of second = 1\nNew of first = 1\n");
    }
    EXPECT_THAT(m_router.messages, IsEmpty());
}

TEST_F(FileSave, TheBaseDecidesBetweenTwoChangesOfOneValue)
{
    struct Case {
        const char* what;
        bool isRead;        // by us, before the other changes it
        const char* theirs; // line of the value afterwards, empty: deleted
        int ours;           // what we write, -1: we delete it
        const char* expected;
        bool isConflict;
    };
    const Case cases[] = {
        {"only we changed it", true, "A = 1\n", 2, "A = 2\n", false},
        {"spelling is no change", true, "A = 0x1\n", 2, "A = 2\n", false},
        {"both changed it alike", true, "A = 0x2\n", 2, "A = 0x2\n", false},
        {"both changed it", true, "A = 3\n", 2, "A = 2\n", true},
        {"we never saw it", false, "A = 3\n", 2, "A = 2\n", false},
        {"they deleted it", true, "", 2, "A = 2\n", true},
        {"we delete what they changed", true, "A = 3\n", -1, "", true},
        {"both deleted it", true, "", -1, "", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        m_folder.Write("Key.ini", "A = 1\n");
        m_router.messages.clear();
        Program program(m_folder);
        if (c.isRead)
            program.Read(u"A");
        EXPECT_TRUE(c.ours < 0 ? program.key->DeleteValue(u"A")
                               : program.key->WriteDword(u"A", static_cast<unsigned>(c.ours)));
        m_folder.Write("Key.ini", std::string("; theirs\n") + c.theirs);
        EXPECT_TRUE(program.Flush());
        EXPECT_EQ(File(), std::string("; theirs\n") + c.expected);
        EXPECT_EQ(program.report.GetCode(), c.isConflict ? kValueConflict : kErrorSuccess);
        ASSERT_EQ(m_router.messages.size(), c.isConflict ? 1u : 0u);
        if (c.isConflict) {
            EXPECT_EQ(m_router.messages[0].code, kValueConflict);
            EXPECT_EQ(m_router.messages[0].kind, 0);
            EXPECT_THAT(m_router.messages[0].arguments, ElementsAre(u"Key", u"A"));
            EXPECT_NE(std::u16string_view(program.report.GetText()).find(u"'A' of 'Key'"), std::u16string_view::npos);
        }
        EXPECT_TRUE(program.Flush()) << "told once";
        EXPECT_EQ(m_router.messages.size(), c.isConflict ? 1u : 0u);
    }
}

TEST_F(FileSave, AForcedSaveOfOldValuesKeepsTheirs)
{
    Program program(m_folder);
    EXPECT_EQ(program.Read(u"A"), 1u);
    EXPECT_EQ(program.Read(u"B"), 1u);
    EXPECT_EQ(program.Read(u"Missing"), 999u);
    // Through closed handles, and with the document gone: the base is the factory's.
    program.key.reset();
    for (int i = 0; i < 60; ++i) {
        const std::string number = std::to_string(i);
        VProfileKey other(program.store->GetRootKey(),
                          (u"Other " + std::u16string(number.begin(), number.end())).c_str());
        EXPECT_TRUE(other.WriteString(u"Text", std::u16string(20000, u'x').c_str()));
    }
    m_folder.Write("Key.ini", "A = 7\nB = 1\nMissing = 8\n");
    program.Reopen();
    EXPECT_TRUE(program.key->WriteDword(u"A", 1)) << "as last read";
    EXPECT_TRUE(program.key->WriteDword(u"B", 2));
    EXPECT_TRUE(program.Flush());
    EXPECT_EQ(File(), "A = 7\nB = 2\nMissing = 8\n");
    EXPECT_EQ(program.Read(u"A"), 7u);
    EXPECT_TRUE(program.key->WriteDword(u"A", 1)) << "a change, now that theirs was read";
    EXPECT_TRUE(program.Flush());
    EXPECT_EQ(File(), "A = 1\nB = 2\nMissing = 8\n");
    EXPECT_THAT(m_router.messages, IsEmpty());
    EXPECT_TRUE(program.key->WriteDword(u"Missing", 9)) << "it was looked for and not there";
    EXPECT_TRUE(program.Flush());
    EXPECT_EQ(m_router.messages.size(), 1u);
}

TEST_F(FileSave, WhatWasWrittenIsTheNextBase)
{
    Program program(m_folder);
    EXPECT_TRUE(program.key->WriteDword(u"A", 2));
    EXPECT_TRUE(program.Flush());
    m_folder.Write("Key.ini", "A = 3\nB = 1\n");
    EXPECT_TRUE(program.key->WriteDword(u"A", 4));
    EXPECT_TRUE(program.Flush());
    EXPECT_EQ(program.report.GetCode(), kValueConflict);
    EXPECT_EQ(File(), "A = 4\nB = 1\n");
    EXPECT_EQ(program.Read(u"A"), 4u);
    m_folder.Write("Key.ini", "A = 4\nB = 5\n");
    EXPECT_TRUE(program.key->WriteDword(u"A", 6));
    EXPECT_TRUE(program.Flush());
    EXPECT_EQ(program.report.GetCode(), kErrorSuccess);
    EXPECT_EQ(File(), "A = 6\nB = 5\n");
}

constexpr const char* kAfter = "A = 1\nB = 2\nC = 3\n";

void Change(Program& program)
{
    EXPECT_TRUE(program.key->WriteDword(u"B", 2));
    EXPECT_TRUE(program.key->WriteDword(u"C", 3));
}

TEST_F(FileSave, AFailureAtAnyCallLosesNothing)
{
    size_t failures = 0;
    for (size_t at = 0;; ++at) {
        m_folder.Write("Key.ini", kBefore);
        test::FaultyFiles files;
        Program program(m_folder);
        Change(program);
        files.Reset();
        files.failAt = at;
        const bool isFlushed = program.Flush();
        if (files.calls.size() <= at) {
            EXPECT_TRUE(isFlushed);
            break;
        }
        SCOPED_TRACE("call " + std::to_string(at) + " " + files.calls[at]);
        EXPECT_EQ(program.report.GetCode(), isFlushed ? kErrorSuccess : kErrorDiskFull);
        // The folder's sync is the last step: the new file is in place, and only its survival is in doubt.
        EXPECT_EQ(File(), isFlushed || files.calls[at] == "SyncFolder" ? kAfter : kBefore);
        EXPECT_EQ(program.Read(u"C"), 3u) << "still readable here";
        failures += isFlushed ? 0 : 1;

        files.Reset();
        EXPECT_TRUE(program.Flush());
        EXPECT_EQ(File(), kAfter);
        EXPECT_EQ(!isFlushed, !files.calls.empty()) << "once is enough";
    }
    EXPECT_GE(failures, 7u); // lock, read twice, create, write, sync, exchange, sync of the folder
}

TEST_F(FileSave, AFailureAtTheCloseIsToldAndTriedAgain)
{
    {
        test::FaultyFiles files;
        Program program(m_folder);
        Change(program);
        files.Reset();
        files.failAt = 0;
        files.failure = kErrorLockViolation;
        program.key.reset();
        ASSERT_EQ(m_router.messages.size(), 1u);
        EXPECT_EQ(m_router.messages[0].code, kChangesNotSaved);
        EXPECT_EQ(m_router.messages[0].arguments[0], u"Key");
        EXPECT_FALSE(m_router.messages[0].arguments[1].empty());
        EXPECT_EQ(File(), kBefore);

        program.Reopen();
        EXPECT_EQ(program.Read(u"C"), 3u);
        EXPECT_TRUE(program.Flush()) << "through another handle";
        EXPECT_EQ(File(), kAfter);

        EXPECT_TRUE(program.key->WriteDword(u"C", 4));
        files.Reset();
        files.failAt = 0;
        program.key.reset();
        EXPECT_EQ(m_router.messages.size(), 2u);
    }
    EXPECT_EQ(File(), "A = 1\nB = 2\nC = 4\n") << "the last try, when all handles are gone";
    EXPECT_EQ(m_router.messages.size(), 2u);
    {
        test::FaultyFiles files;
        Program program(m_folder);
        EXPECT_TRUE(program.key->WriteDword(u"C", 5));
        files.dieAt = files.calls.size();
        program.key.reset();
        program.store.reset();
        program.factory.reset();
    }
    EXPECT_EQ(m_router.messages.back().code, kChangesLost);
}

TEST_F(FileSave, AnotherProgramsLockIsWaitedForASecond)
{
    Program program(m_folder);
    Change(program);
    std::unique_ptr<IFile> lock;
    ASSERT_EQ(Platform().files->Open(m_folder.Path("%lock"), VFileAccess::ReadWrite, VFileDisposition::OpenAlways, 0600,
                                     lock),
              0u);
    ASSERT_EQ(lock->Lock(0), 0u);
    EXPECT_FALSE(program.Flush());
    EXPECT_EQ(program.report.GetCode(), kErrorLockViolation);
    lock.reset();
    EXPECT_TRUE(program.Flush());
    EXPECT_EQ(File(), kAfter);
}

TEST_F(FileSave, ARouterMayLookIntoTheStore)
{
    static Program* current = nullptr;
    class Looking : public VReportMessageRouter {
        void Route(IReportMessageParams*) override { EXPECT_EQ(current->Read(u"A"), 2u); }
    };
    static Looking router;
    Program program(m_folder);
    current = &program;
    SetReportRouterGetter([]() -> VReportMessageRouter* { return &router; });
    EXPECT_EQ(program.Read(u"A"), 1u);
    EXPECT_TRUE(program.key->WriteDword(u"A", 2));
    m_folder.Write("Key.ini", "A = 3\n");
    EXPECT_TRUE(program.Flush());
    EXPECT_EQ(program.report.GetCode(), kValueConflict);
}

} // namespace
} // namespace ostrand
