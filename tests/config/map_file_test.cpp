// Font and line drawing maps: lines of hexadecimal numbers.
#include "config/session/map_file.h"

#include "core/messages.h"
#include "platform/error_codes.h"
#include "tests/support/memory_files.h"
#include "tests/support/recording_router.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class MapFile : public testing::Test {
protected:
    MapFile() { Platform().files = &files; }

    /// The first entries of a map; the rest is 0.
    std::vector<uint16_t> Read(const std::string& bytes, size_t size = 6)
    {
        files.contents["/map"] = bytes;
        std::vector<uint16_t> entries(size, 0xDEAD);
        code = ReadMapFile(u"\\map", entries, report) ? kErrorSuccess : report.GetCode();
        return entries;
    }

    VPlatformScope platform;
    MemoryFiles files;
    VReportMessageParams report;
    unsigned code = 0;
};

TEST_F(MapFile, EachLineFillsTheNextEntry)
{
    const struct {
        const char* bytes;
        std::vector<uint16_t> entries;
    } cases[] = {
        {"2500\r\n0x2502\r\n  250c  \r\nFFFF ; note\r\n", {0x2500, 0x2502, 0x250C, 0xFFFF, 0, 0}},
        {"", {0, 0, 0, 0, 0, 0}},
        {"\n\n41\n\n\r\r42", {0x41, 0x42, 0, 0, 0, 0}},
        {" \n41\n; no number\n42\n\t\n43", {0, 0x41, 0, 0x42, 0, 0x43}},
        {"0x\n0xg\n0X1f\nx41\n+41\n-1", {0, 0, 0x1F, 0, 0x41, 0xFFFF}},
        {"12345\nFFFFFFFFFFFF0041\ng\n- 1\n41,42\nU+2500", {0x2345, 0x41, 0, 0, 0x41, 0}},
        {"1\n2\n3\n4\n5\n6\n7\n8\n", {1, 2, 3, 4, 5, 6}},
        {"\xEF\xBB\xBF"
         "41\n42",
         {0x41, 0x42, 0, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bytes);
        EXPECT_EQ(Read(c.bytes), c.entries);
        EXPECT_EQ(code, kErrorSuccess);
    }
    using namespace std::string_literals;
    EXPECT_THAT(Read("\xFF\xFE\x34\0\x31\0\n\0\x34\0\x32\0"s, 2), ElementsAre(0x41, 0x42)) << "16-bit text";
    EXPECT_THAT(Read("4\0001\n42\n"s, 2), ElementsAre(0x4, 0x42)) << "a zero byte ends a number";
}

TEST_F(MapFile, AFileWithoutEndIsGivenUp)
{
    const std::string blanks(999'990, ' ');
    EXPECT_THAT(Read(blanks + "41\n42", 2), ElementsAre(0x41, 0x42)) << "a line may be long";
    EXPECT_EQ(code, kErrorSuccess);
    for (const char* filling : {" ", "\n", "4"}) {
        SCOPED_TRACE(filling);
        Read(std::string(1'000'100, *filling) + "\n42", 2);
        EXPECT_EQ(code, kErrorMoreData);
    }
    Read("41\n42\n" + std::string(2'000'000, '\n'), 2);
    EXPECT_EQ(code, kErrorSuccess) << "what stands behind the last entry isn't read";
}

TEST_F(MapFile, TheNameIsATemplateAndFailuresAreTold)
{
    RecordingRouter router;
    std::string lines;
    for (int i = 0; i < 300; ++i)
        lines += i < 256 ? "41\n" : "42\n";
    files.contents["/50%.map"] = lines;
    EXPECT_THAT(LoadMapFile(u"/50%%.map", kFontMapSize), ElementsAreArray(std::vector<uint16_t>(256, 0x41)));
    EXPECT_THAT(LoadMapFile(u"", kFontMapSize), IsEmpty());
    EXPECT_THAT(router.messages, IsEmpty());

    files.contents["/broken"] = "41";
    const struct {
        const char16_t* name;
        unsigned readFailure;
        unsigned code;
        const char16_t* argument;
    } cases[] = {
        {u"/gone%%", kErrorSuccess, kErrorFileNotFound, u"/gone%"},
        {u"/broken", kErrorGeneralFailure, kErrorGeneralFailure, u"/broken"},
        {u"\xD800", kErrorSuccess, kErrorFileNotFound, u"\xD800"},
        {u"/%S.map", kErrorSuccess, kPathTokenUnknown, u"%S"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        files.readFailure = c.readFailure;
        router.messages.clear();
        EXPECT_THAT(LoadMapFile(c.name, kFontMapSize), IsEmpty());
        ASSERT_EQ(router.messages.size(), 1u);
        EXPECT_EQ(router.messages[0].code, c.code);
        EXPECT_EQ(router.messages[0].kind, 0);
        EXPECT_THAT(router.messages[0].arguments, ElementsAre(c.argument));
    }
}

} // namespace
} // namespace ostrand::test
