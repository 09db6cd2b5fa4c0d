#include "core/paths/path_tokens.h"

#include "core/calendar.h"
#include "core/messages.h"
#include "core/paths/environment.h"
#include "tests/support/fake_platform.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

class PathTokens : public testing::Test {
protected:
    PathTokens()
    {
        ForgetU3Environment();
        VFileTime now;
        EXPECT_TRUE(ToFileTime({2024, 3, 0, 7, 4, 5, 6, 7}, now));
        platform.clock.fileTime = now.ticks;
    }
    ~PathTokens() override { ForgetU3Environment(); }

    VUnicodeString Expand(std::u16string_view path, const char16_t* host = nullptr, const char16_t* session = nullptr)
    {
        return ExpandPathTokens(path, report, host, session);
    }

    test::FakePlatform platform;
    VReportMessageParams report;
};

TEST_F(PathTokens, StandForTimeSessionAndHost)
{
    const struct {
        std::u16string_view path;
        const char16_t *host, *session;
        std::u16string_view text;
    } kCases[] = {
        {u"C:\\log\\%Y-%M-%D", nullptr, nullptr, u"C:\\log\\2024-03-07"},
        {u"%h%m%s.%t", nullptr, nullptr, u"040506.007"},
        {u"%%D", nullptr, nullptr, u"%D"},
        {u"%%%Y%%", nullptr, nullptr, u"%2024%"},
        {u"%H.log", u"fe80::1", nullptr, u"fe80__1.log"},
        {u"a:%H:%S", u"h:1", u"s:1", u"a:h_1:s:1"},
        {u"%S", nullptr, u"", u""},
        {u"%S", nullptr, u"%Y", u"%Y"},
        {u"plain", nullptr, nullptr, u"plain"},
        {u"", nullptr, nullptr, u""},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.path));
        report.SetMessage(99);
        EXPECT_EQ(Expand(c.path, c.host, c.session), c.text);
        EXPECT_EQ(report.GetCode(), 0u);
    }
    platform.clock.fileTime = ~uint64_t{0};
    EXPECT_EQ(Expand(u"%Y%t"), u"0000000") << "a broken clock isn't a failure";
}

TEST_F(PathTokens, RefusalsNameTheToken)
{
    const struct {
        std::u16string_view path;
        unsigned code;
        std::u16string_view argument;
    } kCases[] = {
        {u"%", kPathTokenIncomplete, {}},  {u"%Y%", kPathTokenIncomplete, {}},
        {u"%x", kPathTokenUnknown, u"%x"}, {u"a%xb%Yc", kPathTokenUnknown, u"%xb%"},
        {u"%H", kPathTokenUnknown, u"%H"}, {u"%S\\%Y", kPathTokenUnknown, u"%S\\%"},
        {u"%y", kPathTokenUnknown, u"%y"}, {u"%\U0001F600b", kPathTokenUnknown, u"%\U0001F600"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.path));
        EXPECT_EQ(Expand(c.path), u"");
        EXPECT_EQ(report.GetCode(), c.code);
        ASSERT_EQ(report.GetArgumentCount(), c.argument.empty() ? 0 : 1);
        if (!c.argument.empty()) {
            EXPECT_EQ(report.GetArguments()[0], c.argument);
        }
    }
}

TEST_F(PathTokens, TheEnvironmentGoesFirst)
{
    platform.environment.variables = {{"DATA_ROOT", "D:\\d\xC3\xA4ta"},
                                      {"Data_Root", "exact"},
                                      {"Y", "year"},
                                      {"T", "%D"},
                                      {"BAD", "\xFF"},
                                      {"\xC3\x84", "umlaut"}};
    const struct {
        std::u16string_view path, text;
    } kCases[] = {
        {u"%DATA_ROOT%\\%Y", u"D:\\däta\\2024"},
        {u"%data_root%", u"D:\\däta"},
        {u"%Data_Root%", u"exact"},
        {u"%ä%", u"umlaut"},
        {u"%Y%M", u"yearM"},
        {u"%Y-%M", u"2024-03"},
        {u"%T%", u"07"},
        {u"%D%DATA_ROOT%", u"07D:\\däta"},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(Expand(c.path), c.text) << ToUtf8(c.path);
    EXPECT_EQ(ExpandEnvironment(u"%%DATA_ROOT%%"), u"%D:\\däta%");
    Expand(u"%BAD%");
    EXPECT_EQ(report.GetCode(), kPathTokenUnknown) << "no text";
}

TEST_F(PathTokens, AnEndlessExpansionIsGivenUp)
{
    platform.environment.variables["A"] = std::string(510, 'a');
    EXPECT_EQ(ExpandEnvironment(u"%A%b").GetLength(), 511u);
    EXPECT_EQ(ExpandEnvironment(u"%A%bc"), u"%A%bc");
}

TEST_F(PathTokens, APortableRunHasItsFolders)
{
    EXPECT_FALSE(IsU3Environment());
    auto& variables = platform.environment.variables;
    variables = {{"U3_APP_DATA_PATH", "E:\\app"}, {"U3_DEVICE_DOCUMENT_PATH", "E:\\doc"}};
    EXPECT_FALSE(IsU3Environment()) << "looked up once";
    ForgetU3Environment();
    EXPECT_TRUE(IsU3Environment());
    EXPECT_EQ(Expand(u"%u3doc%\\a;%u3data%\\%Y;%u3doc%"), u"E:\\doc\\a;E:\\app\\2024;E:\\doc");

    variables = {{"U3_APP_DATA_PATH", ""}, {"U3_DEVICE_DOCUMENT_PATH", "%u3doc%"}};
    VUnicodeString text(u"%u3data%%u3doc%%U3DOC%");
    ExpandU3Tokens(text);
    EXPECT_EQ(text, u"%u3data%%u3doc%%U3DOC%") << "an empty folder replaces nothing; a folder isn't expanded again";
}

TEST_F(PathTokens, TemplatesAreComparedByWhatTheyExpandTo)
{
    EXPECT_TRUE(PathsEqual(u"C:\\Log\\%Y", u"c:\\log\\2024"));
    EXPECT_TRUE(PathsEqual(u"%%", u"%"));
    EXPECT_FALSE(PathsEqual(u"C:\\a", u"C:\\b"));
    EXPECT_FALSE(PathsEqual(u"a", u"%%a")) << "the second text is no template";
    EXPECT_TRUE(PathsEqual(u"%H/%S", u"h/S", u"H", u"s"));
    EXPECT_TRUE(PathsEqual(u"/home/Ann", u"\\home\\ann")) << "separators of a system that has \"/\"";
    EXPECT_TRUE(PathsEqual(u"%x", u""));
}

} // namespace
} // namespace ostrand
