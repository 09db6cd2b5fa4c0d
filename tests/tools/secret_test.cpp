// secret: texts in their stored forms; and that no plain text goes where it shouldn't.
#include "tests/support/temp_folder.h"
#include "tests/tools/tool_runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace ostrand::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;

class ToolSecret : public testing::Test {
protected:
    ToolRun Run(std::vector<std::string> words, const std::string& input) const
    {
        words.insert(words.begin(), "secret");
        return RunTool(words, {"XDG_DATA_HOME=" + m_folder.Path()}, input);
    }

    TempFolder m_folder;
};

TEST_F(ToolSecret, EachFormComesBackAndHidesTheText)
{
    const struct {
        std::vector<std::string> options;
        std::string stored;
    } kCases[] = {
        {{"--form", "encoded"}, "[0-9a-f]{26}\n"},
        {{"--form", "blowfish"}, "u[0-9a-f]{64}\n"},
        {{"--form", "blowfish", "--mode", "1"}, "u[0-9a-f]{64}\n"},
        {{"--form", "blowfish", "--mode", "2"}, "u[0-9a-f]{64}\n"},
        {{"--form", "protected"}, "CAPI:[0-9A-F]{122}\n"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(testing::PrintToString(c.options));
        const auto with = [&c](const char* command) {
            std::vector<std::string> words = c.options;
            words.insert(words.begin(), command);
            return words;
        };
        const ToolRun encoded = Run(with("encode"), "pass wörd\r\n");
        EXPECT_EQ(encoded.code, 0);
        EXPECT_THAT(encoded.out, testing::ContainsRegex("^" + c.stored + "$")) << encoded.err;
        EXPECT_EQ(Run(with("decode"), encoded.out).out, "pass wörd\n");
        std::vector<std::string> asJson = with("decode");
        asJson.emplace_back("--json");
        EXPECT_EQ(json::parse(Run(asJson, encoded.out).out), json({{"form", c.options[1]}, {"text", "pass wörd"}}));
        EXPECT_EQ(Run(with("encode"), "").out, "\n") << "nothing stays nothing";
        EXPECT_EQ(Run(with("decode"), "").out, "\n");
    }
    const std::string stored = Run({"encode", "--form", "protected"}, "x").out;
    EXPECT_EQ(Run({"decode", "--form", "protected", "--name", "Another"}, stored).code, 1)
        << "the name is protected along";
}

TEST_F(ToolSecret, RefusalsAreOneLineWithoutTheText)
{
    const struct {
        std::vector<std::string> words;
        std::string input;
        int code;
        const char* error;
    } kCases[] = {
        {{"encode", "--form", "encoded"}, "hunter2\xE6\xBC\xA2", 1, "characters that this form lacks\n"},
        {{"encode", "--form", "encoded"}, std::string("hunter2\0x", 9), 1, "it holds a zero"},
        {{"encode", "--form", "encoded"}, "hunter2\xFF", 1, "standard input is no UTF-8 text\n"},
        {{"decode", "--form", "encoded"}, "hun", 1, "it is none of this form\n"},
        {{"decode", "--form", "blowfish"}, "hunter2", 1, "it is none of this form\n"},
        {{"decode", "--form", "protected"}, "CAPI:0", 1, "it was cut\n"},
        {{"decode", "--form", "protected"}, "CAPI:00", 1, "the text can't be converted: "},
        {{"encode", "--form", "rot13"}, "", 2, "--form"},
        {{"encode"}, "", 2, "--form"},
        {{"encode", "--form", "blowfish", "--mode", "3"}, "", 2, "--mode"},
        {{"encode", "--form", "encoded", "--mode", "1"}, "", 2, "--mode is for --form blowfish"},
    };
    for (const auto& c : kCases) {
        const ToolRun run = Run(c.words, c.input);
        SCOPED_TRACE(run.err);
        EXPECT_EQ(run.code, c.code);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(c.error));
        EXPECT_THAT(run.err, MatchesRegex("ostrandcfg: [^\n]*\n"));
        EXPECT_THAT(run.err, Not(HasSubstr("hunter2")));
    }
}

TEST_F(ToolSecret, ATextAmongTheArgumentsIsTakenWithAWarning)
{
    ToolRun run = Run({"encode", "--form", "encoded", "--text", "abc"}, "not read");
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.err, HasSubstr("warning: other users of this machine can see the arguments"));
    run = Run({"decode", "--form", "encoded", "--stored", "01020304606060"}, "");
    EXPECT_EQ(run.out, "abc\n");
    EXPECT_THAT(run.err, Not(IsEmpty()));
}

} // namespace
} // namespace ostrand::test
