#include "stores/damage_scan.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrand {
namespace {

TEST(DamageScan, TellsWholeTextsFromDamagedOnes)
{
    const struct {
        std::string text;
        bool isDamaged;
    } cases[] = {
        {"A = 1\nB = \"x\"\n", false},
        {"A = 1\r\n", false},
        {"\n", false},
        {"\xEF\xBB\xBF; gr\xC3\xBC\xC3\x9F Gott \xF0\x9F\x98\x80\n", false},
        {"A = \"<<<<<<< ours\"\nB = \"==========\"\n????????????\n <<<<<<<\n", false},
        {"<<<<<< six\n======\n", false},
        {"<>=|<>=|<>=|\n", false},
        {"======== Colours ========\n<<<<<<<\n", false},
        {"", true},
        {"A = 1", true},
        {"A = 1\r", true},
        {"\xEF\xBB\xBF", true},
        {"\xEF\xBB\xBF<<<<<<< ours\n", true},
        {"A = 1\n=======\nA = 2\n", true},
        {"A = 1\r\n=======\r\n", true},
        {"A = \"\xC3\"\n", true},
        {"A = \"\xED\xA0\x80\"\n", true},
    };
    for (const auto& [text, isDamaged] : cases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(LooksDamaged(text), isDamaged);
    }
}

// Whatever the place of a sign in the stretches that are looked at as one.
TEST(DamageScan, FindsASignAtEveryPlace)
{
    for (size_t size = 0; size < 80; ++size)
        for (size_t place = 0; place <= size; ++place) {
            SCOPED_TRACE(testing::Message() << place << " of " << size);
            const std::string before(place, 'a');
            const std::string after(size - place, 'b');
            EXPECT_FALSE(LooksDamaged(before + "\n" + after + "\xC3\xA9\n"));
            EXPECT_TRUE(LooksDamaged(before + '\0' + after + "\n"));
            EXPECT_TRUE(LooksDamaged(before + '\xFF' + after + "\n"));
            for (const char* const mark : {"<<<<<<< ", "||||||| ", "=======\n", ">>>>>>> "})
                EXPECT_TRUE(LooksDamaged(before + "\n" + mark + after + "\n"));
        }
}

} // namespace
} // namespace ostrand
