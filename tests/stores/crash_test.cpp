// Stories over a file store, cut at any call. bench/crash_points runs the same at many more points.
#include "tests/crash/crash_story.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

constexpr size_t kPointsOfStory = 340;

TEST(Crash, EachKeyIsWholeAndWhatWasToldAsSavedIsThere)
{
    uint64_t seed = 1;
    for (const auto& story : test::AllCrashStories()) {
        SCOPED_TRACE(story->Name());
        EXPECT_GT(story->Calls(), 10u);
        test::ForEachPoint(*story, kPointsOfStory, seed++, [&](const test::CrashPoint& point) {
            if (const std::string lost = story->Lost(point); !lost.empty())
                ADD_FAILURE() << lost << "\nagain: crash_points " << story->Name() << ' ' << point.call << ' '
                              << NameOf(point.fate) << ' ' << point.seed;
        });
    }
}

} // namespace
} // namespace ostrand
