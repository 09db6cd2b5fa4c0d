// Reading through several handles, and what of it a later save knows.
#include "platform/error_codes.h"
#include "profile/key.h"
#include "stores/file_store.h"
#include "stores/store_messages.h"
#include "tests/support/recording_router.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace ostrand {
namespace {

class FileReading : public testing::Test {
protected:
    VProfileKey Open(const char16_t* name) const { return VProfileKey(m_store.GetRootKey(), name); }
    static unsigned Read(const VProfileKey& key, const char16_t* name)
    {
        unsigned value = 999;
        key.ReadDword(name, &value);
        return value;
    }
    /// Code of a save of this value.
    static unsigned Write(VProfileKey& key, const char16_t* name, unsigned value)
    {
        VReportMessageParams report;
        EXPECT_TRUE(key.WriteDword(name, value));
        EXPECT_TRUE(key.Flush(report));
        return report.GetCode();
    }

    test::TempFolder m_folder;
    test::RecordingRouter m_router;
    FileStoreFactory m_factory{m_folder.Path()};
    VProfileStore m_store{false, &m_factory};
};

TEST_F(FileReading, WhatWasReadIsTheBaseLongAfterTheDocumentIsGone)
{
    // So large that a few of them push each other out of memory, and alike, so that they share a layout.
    const std::string filler = '"' + std::string(150000, 'f') + '"';
    const auto text = [&](const char* a, const char* b) {
        return std::string("A = ") + a + "\nB = " + b + "\nC = " + filler + "\nD = " + filler + "\n";
    };
    const std::vector<std::u16string> keys = {u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8"};
    for (size_t i = 0; i < keys.size(); ++i)
        m_folder.Write(std::to_string(i + 1) + ".ini", text("1", "2"));
    for (const std::u16string& name : keys) {
        const VProfileKey key = Open(name.c_str());
        EXPECT_EQ(Read(key, u"a"), 1u);
        EXPECT_EQ(Read(key, u"b"), 2u);
    }
    m_folder.Write("1.ini", text("0x1", "3"));
    m_folder.Write("2.ini", "b = 3\n" + text("1", "2"));
    VProfileKey first = Open(u"1");
    EXPECT_EQ(Write(first, u"A", 7), kErrorSuccess) << "another spelling is no change";
    EXPECT_EQ(Write(first, u"B", 7), kValueConflict);
    VProfileKey second = Open(u"2");
    EXPECT_EQ(Write(second, u"A", 7), kErrorSuccess);
    EXPECT_EQ(Write(second, u"B", 7), kErrorSuccess) << "the last of two counts, and that one is as it was";
}

TEST_F(FileReading, HandlesSeeEachOthersWritesAndRemoveNoBase)
{
    m_folder.Write("Key.ini", "A = 1\nB = 1\nC = 1\n");
    const VProfileKey reader = Open(u"Key");
    VProfileKey writer = Open(u"Key");
    EXPECT_EQ(Read(reader, u"A") + Read(reader, u"B") + Read(reader, u"A"), 3u);
    EXPECT_TRUE(writer.WriteDword(u"B", 5));
    EXPECT_EQ(Read(reader, u"B"), 5u) << "queued";
    EXPECT_EQ(Write(writer, u"C", 6), kErrorSuccess);
    EXPECT_EQ(Read(reader, u"C"), 6u) << "saved";
    m_folder.Write("Key.ini", "A = 2\nB = 5\nC = 6\n");
    EXPECT_EQ(Read(reader, u"A"), 1u) << "handles on one key show what they opened";
    EXPECT_EQ(Write(writer, u"A", 3), kValueConflict) << "the reader's base counts for all";
    EXPECT_EQ(Read(reader, u"A"), 3u);
}

TEST_F(FileReading, AReaderOnAnotherThreadSeesNothingHalf)
{
    std::string text;
    for (unsigned i = 0; i < 50; ++i)
        text += "Value " + std::to_string(i) + " = 0\n";
    m_folder.Write("Key.ini", text);
    std::vector<std::u16string> names;
    for (unsigned i = 0; i < 50; ++i) {
        const std::string number = std::to_string(i);
        names.push_back(u"Value " + std::u16string(number.begin(), number.end()));
    }
    std::atomic<bool> isDone = false;
    std::thread reader([&] {
        const VProfileKey key = Open(u"Key");
        std::vector<unsigned> last(names.size(), 0);
        while (!isDone)
            for (size_t i = 0; i < names.size(); ++i) {
                const unsigned value = Read(key, names[i].c_str());
                EXPECT_TRUE(value >= last[i] && value <= 20) << value << " after " << last[i];
                last[i] = value;
            }
    });
    for (unsigned round = 1; round <= 20; ++round) {
        VProfileKey key = Open(u"Key");
        for (const std::u16string& name : names)
            EXPECT_TRUE(key.WriteDword(name.c_str(), round));
        VReportMessageParams report;
        EXPECT_TRUE(key.Flush(report));
        EXPECT_EQ(report.GetCode(), kErrorSuccess);
    }
    isDone = true;
    reader.join();
}

} // namespace
} // namespace ostrand
