#include "stores/file_damage.h"

#include "stores/damage_scan.h"
#include "stores/file_check.h"
#include "stores/file_document.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>

namespace ostrand {
namespace {

constexpr uint64_t kTime = 134'401'027'223'456'789; // 25 November 2026, 17:52:02

const std::string kGood = "; Mine\nA = 0x10\nB = \"two\"\n# and\nC = [\"x\", \"y\"]\n\nD = 42\n";

TEST(FileDamage, WhatCountsAsDamageAndWhatIsLeft)
{
    struct Case {
        const char* what;
        std::string text;
        const std::string* good;
        bool isDamaged;
        std::string repaired;
    };
    using namespace std::string_literals;
    const std::string without = "; Nothing\nA = oops\n";
    const Case cases[] = {
        {"as it was", kGood, &kGood, false, kGood},
        {"a line that doesn't parse is an edit", "A = oops\nnonsense\nD = 42\n", &kGood, false,
         "A = oops\nnonsense\nD = 42\n"},
        {"zeros in the midst", "A = 1\nB = \0\0\0\nD = 4\n"s, &kGood, true,
         "A = 1\nB = \"two\"\nC = [\"x\", \"y\"]\nD = 4\n"},
        {"zeros at the front", "\0\0\0\0\nB = \"2\"\nE = 5\n"s, &kGood, true,
         "A = 0x10\nB = \"2\"\nC = [\"x\", \"y\"]\nD = 42\nE = 5\n"},
        {"zeros, with nothing to go by", "A = 1\nB\0 = 2\n"s, nullptr, true, "A = 1\n"},
        {"nothing whole is left", "; A comment\n\0\0\0"s, &kGood, true, kGood},
        {"bytes that are no UTF-8", "A = \"\xE4\"\nB = \"3\"\n; caf\xE9\n", &kGood, true,
         "A = 0x10\nB = \"3\"\nC = [\"x\", \"y\"]\nD = 42\n"},
        {"a merge", "<<<<<<< ours\nA = 1\n=======\nA = 2\n>>>>>>> theirs\n; end\nB = 1\nC = 1\nD = 1\n", &kGood, true,
         "A = 1\nA = 2\n; end\nB = 1\nC = 1\nD = 1\n"},
        {"cut in a value", "A = 0x10\nB = \"tw", &kGood, true, "A = 0x10\nB = \"two\"\nC = [\"x\", \"y\"]\nD = 42\n"},
        {"cut in a name", "A = 1\nB", nullptr, true, "A = 1\n"},
        {"cut so that it parses", kGood.substr(0, kGood.size() - 2), &kGood, true,
         "; Mine\nA = 0x10\nB = \"two\"\n# and\nC = [\"x\", \"y\"]\nD = 42\n\n"},
        {"the same, with nothing to go by", "D = 4", nullptr, false, "D = 4"},
        {"cut before its line end", kGood.substr(0, kGood.size() - 1), &kGood, false,
         kGood.substr(0, kGood.size() - 1)},
        {"written by hand", "A = 0x10\nD = 43", &kGood, false, "A = 0x10\nD = 43"},
        {"a comment without its end", "A = 1\n; com", &kGood, false, "A = 1\n; com"},
        {"no bytes", "", &kGood, true, kGood},
        {"no bytes, and none before", "", nullptr, false, ""},
        {"no bytes, and no values before", "", &without, false, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(IsDamaged(c.text, c.good), c.isDamaged);
        EXPECT_EQ(Repaired(c.text, c.good), c.repaired);
        EXPECT_TRUE(!c.isDamaged || LooksDamaged(c.text)) << "the quick look would miss it";
        EXPECT_FALSE(IsDamaged(c.repaired, nullptr));
    }
}

TEST(FileDamage, ValuesComeBackAsTheyWereSpelled)
{
    struct Case {
        const char* what;
        std::string text, good, repaired;
    };
    const Case cases[] = {
        {"other cases of a name are the same value", "b = 2\nbroken \xFF\n", "\"A\"\t=  0x1 \nB = 1\n",
         "\"A\"\t=  0x1 \nb = 2\n"},
        {"the last of several lines counts", "A = 1\n\xFF\n", "A = 1\nB = 1\nC = 1\nB = 2\n", "A = 1\nC = 1\nB = 2\n"},
        {"line ends", "\xEF\xBB\xBF\xFF\r\nB = 1", "A = 1\r\nB = 0\r\nC = 1",
         "\xEF\xBB\xBF"
         "A = 1\r\nB = 1\nC = 1\n"},
        {"a mark in front of what comes back", "B = 1\n\xFF\n",
         "\xEF\xBB\xBF"
         "A = 1\nB = 1\n",
         "A = 1\nB = 1\n"},
        {"what moved stays where it is", "C = 1\n\xFF\nA = 1\n", "A = 1\nB = 1\nC = 1\nD = 1\n",
         "C = 1\nD = 1\nA = 1\nB = 1\n"},
        {"a broken line of its name stays, too", "A = 1\nB = oops\n\xFF\n", "A = 1\nB = 1\n",
         "A = 1\nB = 1\nB = oops\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_TRUE(IsDamaged(c.text, &c.good));
        EXPECT_EQ(Repaired(c.text, &c.good), c.repaired);
    }
}

TEST(FileDamage, NoCutAndNoHoleLosesAValue)
{
    const auto values = [](const std::string& text) {
        const FileDocument document(text);
        std::string all;
        for (const char16_t* const name : {u"A", u"B", u"C", u"D"})
            if (const FileDocument::Found found = document.FindWhole(name))
                all += std::string(ValueText(found.value)) + "|";
        return all;
    };
    const auto isLineEnd = [](size_t at) { return at == 0 || kGood[at - 1] == '\n' || kGood[at] == '\n'; };
    for (size_t at = 0; at < kGood.size(); ++at) {
        SCOPED_TRACE(at);
        const std::string cut = kGood.substr(0, at);
        const bool isInComment = at < kGood.find('\n') || (at > kGood.find('#') && at < kGood.find("\nC"));
        const bool isDamage = at == 0 || (!isLineEnd(at) && !isInComment);
        EXPECT_EQ(IsDamaged(cut, &kGood), isDamage);
        EXPECT_EQ(values(Repaired(cut, &kGood)), values(isDamage ? kGood : cut));
        for (size_t size = 1; size + at <= kGood.size(); ++size) {
            std::string hole = kGood;
            hole.replace(at, size, size, '\0');
            EXPECT_TRUE(IsDamaged(hole, &kGood));
            EXPECT_EQ(values(Repaired(hole, &kGood)), values(kGood));
        }
    }
}

TEST(FileDamage, ARepairedFileIsRepairedForGood)
{
    std::mt19937 random(11);
    const std::string parts[] = {
        "A = 1", "B",         " = ", "\"x",          "\"", "\n", "\n",        "\r\n",    std::string(1, '\0'),
        "\xC3",  "=======\n", "; c", "\xEF\xBB\xBF", "[",  "]",  "C = 0x1\n", "<<<<<<< "};
    const auto text = [&] {
        std::string made;
        for (size_t i = random() % 12; i > 0; --i)
            made += parts[random() % std::size(parts)];
        return made;
    };
    for (int round = 0; round < 20'000; ++round) {
        const std::string damaged = text();
        const std::string good = text();
        const std::string repaired = Repaired(damaged, &good);
        SCOPED_TRACE(testing::PrintToString(damaged) + " from " + testing::PrintToString(good));
        ASSERT_FALSE(IsDamaged(repaired, &good));
        ASSERT_FALSE(IsDamaged(Repaired(damaged, nullptr), nullptr));
        ASSERT_TRUE(!IsDamaged(damaged, &good) || LooksDamaged(damaged));
    }
}

TEST(FileDamage, DamagedFilesStandAside)
{
    const test::TempFolder folder;
    const std::string file = folder.Path("Router 1.ini");
    for (const char* const ending : {"", "-2", "-3"}) {
        const std::string aside = AsideName(file, kTime);
        EXPECT_EQ(aside, file + ".damaged-20261125-175202" + ending);
        folder.Write(std::filesystem::path(aside).filename().string(), "");
    }
    std::string name;
    for (int i = 0; i < 125; ++i)
        name += "\u00E4";
    const std::string aside = AsideName(folder.Path(name + "x.ini"), kTime);
    EXPECT_EQ(std::filesystem::path(aside).filename().string(), name.substr(0, 230) + ".damaged-20261125-175202");
    EXPECT_EQ(AsideName(file, ~uint64_t{0}), file + ".damaged");
}

} // namespace
} // namespace ostrand
