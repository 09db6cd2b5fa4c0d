#include "stores/text_diff.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace ostrand {
namespace {

/// "@AT -BEFORE +AFTER" for each place, line feeds as "|".
std::string Shown(const std::string& before, const std::string& after)
{
    std::string text;
    for (const TextHunk& hunk : DiffTexts(before, after))
        text += "@" + std::to_string(hunk.at) + " -" + std::string(hunk.before) + " +" + std::string(hunk.after) + "  ";
    for (char& c : text)
        c = c == '\n' ? '|' : c;
    return text.substr(0, text.size() - std::min<size_t>(text.size(), 2));
}

std::string Patched(const std::string& before, const std::vector<TextHunk>& hunks)
{
    std::string after;
    size_t done = 0;
    for (const TextHunk& hunk : hunks) {
        EXPECT_TRUE(hunk.at >= done && before.substr(hunk.at, hunk.before.size()) == hunk.before);
        after.append(before, done, hunk.at - done);
        after += hunk.after;
        done = hunk.at + hunk.before.size();
    }
    return after.append(before, done);
}

TEST(TextDiff, ChangedPlacesAreWholeLines)
{
    const std::string lines = "A = 1\nB = 1\nC = 1\nD = 1\nE = 1\n";
    struct Case {
        std::string before, after, expected;
    };
    const Case cases[] = {
        {lines, lines, ""},
        {"", "A = 1\n", "@0 - +A = 1|"},
        {"A = 1", "A = 1\n", "@0 -A = 1 +A = 1|"},
        {lines, "A = 1\nB = 1\nC = 21\nD = 1\nE = 1\n", "@12 -C = 1| +C = 21|"},
        {lines, "A = 2\nB = 1\nC = 1\nE = 2\n", "@0 -A = 1| +A = 2|  @18 -D = 1|E = 1| +E = 2|"},
        // The same lines again, at an end and in the midst.
        {"A = 1\n\n", "A = 1\n\nA = 1\n\n", "@7 - +A = 1||"},
        {"A\n\nB\n\nC\n", "A\n\nC\n", "@3 -B|| +"},
        // What moved is one place, and doesn't hide the others.
        {lines, "B = 1\nC = 2\nD = 1\nE = 1\nA = 1\n", "@0 -A = 1| +  @12 -C = 1| +C = 2|  @30 - +A = 1|"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.after);
        EXPECT_EQ(Shown(c.before, c.after), c.expected);
    }
}

TEST(TextDiff, LongLinesAreNarrowedToWholeCharacters)
{
    const std::string front = "A = \"" + std::string(200, 'x');
    const std::string back = std::string(200, 'y') + "\"\n";
    EXPECT_EQ(Shown(front + "\u00E4" + back, front + "\u00E5" + back), "@205 -\u00E4 +\u00E5");
    EXPECT_EQ(Shown(front + "\u00E4" + back, front + "\u0164" + back), "@205 -\u00E4 +\u0164")
        << "shares the last byte";
    EXPECT_EQ(Shown(front + back, front + "1" + back), "@205 - +1");
}

TEST(TextDiff, AnyPairOfTextsIsJoined)
{
    std::mt19937 random(7);
    const auto text = [&random](size_t kinds) {
        std::string made;
        for (size_t i = random() % 40; i > 0; --i)
            made +=
                std::string(random() % 3 * 60, 'z') + std::to_string(random() % kinds) + (random() % 30 ? "\n" : "");
        return made;
    };
    for (int round = 0; round < 3000; ++round) {
        const size_t kinds = 1 + random() % 50;
        const std::string before = text(kinds);
        const std::string after = text(kinds);
        ASSERT_EQ(Patched(before, DiffTexts(before, after)), after) << round;
    }
}

TEST(TextDiff, ManyChangesInALargeTextTakeLittle)
{
    std::string before;
    std::string after;
    for (int i = 0; i < 20'000; ++i) {
        before += "Value " + std::to_string(i) + " = 1\n";
        after += "Value " + std::to_string(i) + (i % 100 == 0 ? " = 2\n" : " = 1\n");
    }
    const std::vector<TextHunk> hunks = DiffTexts(before, after);
    EXPECT_EQ(hunks.size(), 200u);
    EXPECT_EQ(Patched(before, hunks), after);
    // Beyond the limit all between the first and the last change is one place.
    for (std::string* const side : {&before, &after})
        *side = *side + std::string(1u << 20, 'x') + "\n" + *side;
    EXPECT_EQ(DiffTexts(before, after).size(), 1u);
}

} // namespace
} // namespace ostrand
