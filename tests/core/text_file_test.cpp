#include "core/text_file.h"

#include "platform/error_codes.h"
#include "tests/support/memory_files.h"

#include <gtest/gtest.h>

#include <vector>

namespace ostrand {
namespace {

using Lines = std::vector<std::u16string>;

class TextFile : public testing::Test {
protected:
    TextFile() { Platform().files = &files; }

    Lines Read(std::string bytes)
    {
        files.contents["/f"] = std::move(bytes);
        Lines lines;
        EXPECT_EQ(file.Open(u"\\f", VFileAccess::Read, VFileDisposition::OpenExisting), kErrorSuccess);
        for (VUnicodeString line; file.ReadLine(line);)
            lines.emplace_back(line.View());
        EXPECT_EQ(file.GetError(), kErrorSuccess);
        return lines;
    }

    VPlatformScope scope;
    test::MemoryFiles files;
    VTextFile file;
};

TEST_F(TextFile, TheMarkDecidesTheEncoding)
{
    using namespace std::string_literals;
    const struct {
        std::string bytes;
        VTextEncoding encoding;
        Lines lines;
    } kCases[] = {
        {"", VTextEncoding::CodePage, {}},
        {"\x80 \xE4\n", VTextEncoding::CodePage, {u"\u20AC \u00E4"}},
        {"\xC3\xA9", VTextEncoding::CodePage, {u"\u00C3\u00A9"}},
        {"\xEF\xBB", VTextEncoding::CodePage, {u"\u00EF\u00BB"}},
        {"\xEF\xBB\xBF", VTextEncoding::Utf8, {}},
        {"\xEF\xBB\xBFZ\xC3\xBCrich \xE2\x82\xAC\r\n", VTextEncoding::Utf8, {u"Z\u00FCrich \u20AC"}},
        {"\xEF\xBB\xBF\xEF\xBB\xBFx", VTextEncoding::Utf8, {u"\uFEFFx"}},
        {"\xFF\xFE\xE4\0\r\0\n\0\xE5\x65"s, VTextEncoding::Utf16, {u"\u00E4", u"\u65E5"}},
        {"\xFE\xFF\0\xE4\0\n\x65\xE5"s, VTextEncoding::Utf16Swapped, {u"\u00E4", u"\u65E5"}},
        {"\xFF\xFE\0\0a\0"s, VTextEncoding::Utf16, {std::u16string(u"\0a", 2)}},
        {"\xFF\xFE\x61\0\x62"s, VTextEncoding::Utf16, {u"a"}}, // half a character at the end
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(testing::PrintToString(c.bytes));
        EXPECT_EQ(Read(c.bytes), c.lines);
        EXPECT_EQ(file.encoding, c.encoding);
    }
}

TEST_F(TextFile, EveryKindOfLineEndEndsALine)
{
    EXPECT_EQ(Read("a\r\nb\rc\nd"), (Lines{u"a", u"b", u"c", u"d"}));
    EXPECT_EQ(Read("\n\n\n"), (Lines{u"", u"", u""}));
    EXPECT_EQ(Read("\r\n\r\n"), (Lines{u"", u""}));
    EXPECT_EQ(Read("\r\r\n\n"), (Lines{u"", u"", u""}));
    EXPECT_EQ(Read("a\r"), (Lines{u"a"}));
}

TEST_F(TextFile, LinesGoOnAcrossBlocks)
{
    EXPECT_EQ(Read(std::string(4095, 'a') + "\r\nb"), (Lines{std::u16string(4095, u'a'), u"b"}));
    EXPECT_EQ(Read(std::string(4095, 'a') + "\rb"), (Lines{std::u16string(4095, u'a'), u"b"}));
    EXPECT_EQ(Read(std::string(10000, 'a') + "\n" + std::string(5000, 'b')),
              (Lines{std::u16string(10000, u'a'), std::u16string(5000, u'b')}));
}

TEST_F(TextFile, CharactersGoOnAcrossBlocks)
{
    // Each start moves the border of a block to another byte of a character; reads as short as they like don't.
    for (const size_t most : {size_t{1}, size_t{7}, size_t{5000}}) {
        files.mostPerRead = most;
        for (size_t start = 4088; start < 4096; ++start) {
            SCOPED_TRACE(start);
            const std::u16string lead(start, u'x');
            EXPECT_EQ(Read("\xEF\xBB\xBF" + std::string(start, 'x') + "\xE2\x82\xAC\xC3\xA4!"),
                      (Lines{lead + u"\u20AC\u00E4!"}));
            EXPECT_EQ(Read("\xFE\xFF" + EncodeText(VTextEncoding::Utf16Swapped, lead + u"\u20AC\r\n")),
                      (Lines{lead + u"\u20AC"}));
        }
    }
}

TEST_F(TextFile, ABadSequenceEndsItsBlockAlone)
{
    for (const char* const bad : {"\xF0\x9F\x98\x80", "\x80", "\xC0\xAF", "\xFF", "\xE2\x28\xA1", "\xE0\x80\x80"}) {
        const std::string block = "\xEF\xBB\xBF"
                                  "first\nsecond" +
                                  std::string(bad);
        EXPECT_EQ(Read(block + "lost\n" + std::string(4096 - block.size() - 5, 'x') + "next"),
                  (Lines{u"first", u"secondnext"}));
    }
    EXPECT_EQ(Read("\xEF\xBB\xBF" + std::string(4091, 'x') + "\xE2\x28" + "ab"),
              (Lines{std::u16string(4091, u'x') + u"ab"}))
        << "a sequence that is bad already in its own block takes nothing of the next";
    EXPECT_EQ(Read("\xEF\xBB\xBF"
                   "a\xE2\x82"),
              (Lines{u"a"}))
        << "a cut one at the end is dropped";
}

TEST_F(TextFile, TooLongALineIsRefusedWithoutReadingItAll)
{
    files.contents["/f"] = std::string(1000000, 'a') + "\nb\n";
    VTextFile big;
    VUnicodeString line(u"kept");
    ASSERT_EQ(big.Open(u"/f", VFileAccess::Read, VFileDisposition::OpenExisting), kErrorSuccess);
    EXPECT_FALSE(big.ReadLine(line, 9999));
    EXPECT_EQ(big.GetError(), kErrorMoreData);
    EXPECT_EQ(line, u"kept");

    files.contents["/f"] = "12345\n1234\n\n";
    ASSERT_EQ(big.Open(u"/f", VFileAccess::Read, VFileDisposition::OpenExisting), kErrorSuccess);
    EXPECT_FALSE(big.ReadLine(line, 4));
    EXPECT_TRUE(big.ReadLine(line, 4) && line == u"5") << "the next call goes on in its midst";
    EXPECT_TRUE(big.ReadLine(line, 4) && line == u"1234");
    EXPECT_TRUE(big.ReadLine(line, 0) && line == u"");
    EXPECT_FALSE(big.ReadLine(line, 4));
    EXPECT_EQ(big.GetError(), kErrorSuccess);
}

TEST_F(TextFile, WritesMarkTextAndLineEnd)
{
    using namespace std::string_literals;
    const struct {
        VTextEncoding encoding;
        VLineEnd lineEnd;
        std::u16string line;
        std::string bytes;
    } kCases[] = {
        {VTextEncoding::Unknown, VLineEnd::CrLf, u"a", "\xFF\xFE\x61\0\r\0\n\0"s},
        {VTextEncoding::CodePage, VLineEnd::Lf, u"\u20AC\u0142", "\x80?\n"},
        {VTextEncoding::Utf8, VLineEnd::CrLfToo, u"\u00E9", "\xEF\xBB\xBF\xC3\xA9\r\n"},
        {VTextEncoding::Utf16, VLineEnd::Cr, u"\xD800", "\xFF\xFE\0\xD8\r\0"s},
        {VTextEncoding::Utf16Swapped, VLineEnd::CrLf, u"a\u00E4", "\xFE\xFF\0a\0\xE4\0\r\0\n"s},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(static_cast<int>(c.encoding));
        VTextFile out(c.encoding, c.lineEnd);
        ASSERT_EQ(out.Open(u"/out", VFileAccess::Write, VFileDisposition::CreateAlways), kErrorSuccess);
        EXPECT_EQ(out.WriteLine(c.line), kErrorSuccess);
        EXPECT_EQ(files.contents["/out"], c.bytes);
        EXPECT_EQ(out.encoding, c.encoding == VTextEncoding::Unknown ? VTextEncoding::Utf16 : c.encoding);
    }
}

TEST_F(TextFile, OpenAlwaysGoesByWhatIsThere)
{
    VTextFile log(VTextEncoding::Utf8, VLineEnd::Lf);
    ASSERT_EQ(log.Open(u"/log", VFileAccess::Write, VFileDisposition::OpenAlways), kErrorSuccess);
    EXPECT_EQ(log.WriteLine(u"one"), kErrorSuccess);
    log.encoding = VTextEncoding::Utf16;
    ASSERT_EQ(log.Open(u"/log", VFileAccess::Write, VFileDisposition::OpenAlways), kErrorSuccess);
    EXPECT_EQ(log.encoding, VTextEncoding::Utf8);
    EXPECT_EQ(log.WriteLine(u"two"), kErrorSuccess);
    EXPECT_EQ(files.contents["/log"], "\xEF\xBB\xBFone\ntwo\n") << "behind what is there, with no second mark";

    VUnicodeString line;
    ASSERT_EQ(log.Open(u"/log", VFileAccess::ReadWrite, VFileDisposition::OpenExisting), kErrorSuccess);
    EXPECT_TRUE(log.ReadLine(line) && line == u"one");
    EXPECT_EQ(log.WriteLine(u"three"), kErrorSuccess);
    EXPECT_EQ(files.contents["/log"], "\xEF\xBB\xBFone\ntwo\nthree\n");
}

TEST_F(TextFile, FailuresReachTheCaller)
{
    VUnicodeString line;
    EXPECT_EQ(file.Open(u"/missing", VFileAccess::Read, VFileDisposition::OpenExisting), kErrorFileNotFound);
    EXPECT_EQ(file.Open(std::u16string_view(u"/a\xD800", 3), VFileAccess::Write, VFileDisposition::CreateAlways),
              kErrorFileNotFound);
    EXPECT_EQ(file.Open(std::u16string_view(u"/f\0x", 4), VFileAccess::Write, VFileDisposition::CreateAlways),
              kErrorFileNotFound);
    EXPECT_TRUE(files.contents.empty());
    EXPECT_FALSE(file.ReadLine(line));
    EXPECT_EQ(file.GetError(), kErrorInvalidParameter);
    EXPECT_EQ(file.WriteLine(u"x"), kErrorInvalidParameter);

    files.contents["/f"] = std::string(9000, 'a');
    ASSERT_EQ(file.Open(u"/f", VFileAccess::Read, VFileDisposition::OpenExisting), kErrorSuccess);
    files.readFailure = kErrorGeneralFailure;
    EXPECT_FALSE(file.ReadLine(line)) << "half a line is no line";
    EXPECT_EQ(file.GetError(), kErrorGeneralFailure);
    EXPECT_EQ(file.Open(u"/f", VFileAccess::Read, VFileDisposition::OpenExisting), kErrorGeneralFailure);
    EXPECT_FALSE(file.IsOpen());

    files.readFailure = kErrorHandleEof;
    EXPECT_EQ(file.Open(u"/f", VFileAccess::Read, VFileDisposition::OpenExisting), kErrorSuccess)
        << "the end is no failure";
    EXPECT_FALSE(file.ReadLine(line));
    EXPECT_EQ(file.GetError(), kErrorSuccess);

    files.writeFailure = kErrorDiskFull;
    EXPECT_EQ(file.Open(u"/g", VFileAccess::Write, VFileDisposition::CreateAlways), kErrorDiskFull)
        << "the mark didn't fit";
    file.encoding = VTextEncoding::CodePage;
    files.writeFailure = kErrorSuccess;
    ASSERT_EQ(file.Open(u"/g", VFileAccess::Write, VFileDisposition::CreateAlways), kErrorSuccess);
    files.writeFailure = kErrorDiskFull;
    EXPECT_EQ(file.WriteLine(u"x"), kErrorDiskFull);
}

} // namespace
} // namespace ostrand
