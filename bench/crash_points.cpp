// Cuts the stories of tests/crash/crash_story.h at many points, and tells what was lost.
//
//     crash_points [POINTS] [SEED]             at least 100,000 points where nothing is said
//     crash_points STORY CALL FATE SEED        one point again, as a loss was told
#include "tests/crash/crash_story.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

using namespace ostrand::test;
using std::chrono::steady_clock;

constexpr size_t kPoints = 100'000;
constexpr uint64_t kSeed = 1;
/// Losses of one story that are told one by one.
constexpr size_t kTold = 5;

struct Tally {
    size_t points = 0;
    size_t losses = 0;
};

uint64_t NumberOf(const char* text) { return std::strtoull(text, nullptr, 0); }

void TellLoss(const CrashStory& story, const CrashPoint& point, const std::string& lost)
{
    std::printf("lost: crash_points %s %zu %s %llu\n      %s\n", story.Name(), point.call, NameOf(point.fate),
                static_cast<unsigned long long>(point.seed), lost.c_str());
}

Tally Run(CrashStory& story, size_t count, uint64_t seed)
{
    constexpr std::chrono::seconds kBetweenNews{5};
    steady_clock::time_point told = steady_clock::now();
    Tally tally;
    ForEachPoint(story, count, seed, [&](const CrashPoint& point) {
        const std::string lost = story.Lost(point);
        ++tally.points;
        if (!lost.empty() && ++tally.losses <= kTold)
            TellLoss(story, point, lost);
        if (steady_clock::now() - told < kBetweenNews)
            return;
        told = steady_clock::now();
        std::fprintf(stderr, "%s: %zu of %zu\n", story.Name(), tally.points, count);
    });
    return tally;
}

int RunAll(size_t points, uint64_t seed)
{
    const auto stories = AllCrashStories();
    const size_t share = (points + stories.size() - 1) / stories.size();
    Tally total;
    std::printf("%-18s %7s %9s %8s\n", "story", "calls", "points", "losses");
    for (const auto& story : stories) {
        const Tally tally = Run(*story, share, seed++);
        std::printf("%-18s %7zu %9zu %8zu\n", story->Name(), story->Calls(), tally.points, tally.losses);
        std::fflush(stdout);
        total.points += tally.points;
        total.losses += tally.losses;
    }
    std::printf("%-18s %7s %9zu %8zu\n", "all", "", total.points, total.losses);
    return total.losses == 0 ? 0 : 1;
}

int RunOne(std::string_view name, const char* call, std::string_view fate, const char* seed)
{
    for (const auto& story : AllCrashStories())
        for (size_t i = 0; story->Name() == name && i < kFates; ++i) {
            const CrashPoint point{NumberOf(call), static_cast<Fate>(i), NumberOf(seed)};
            if (NameOf(point.fate) != fate)
                continue;
            const std::string lost = story->Lost(point);
            if (!lost.empty())
                TellLoss(*story, point, lost);
            return lost.empty() ? 0 : 1;
        }
    std::fprintf(stderr, "no such story or fate\n");
    return 2;
}

} // namespace

int main(int count, char** arguments)
{
    if (count == 5)
        return RunOne(arguments[1], arguments[2], arguments[3], arguments[4]);
    return RunAll(count > 1 ? NumberOf(arguments[1]) : kPoints, count > 2 ? NumberOf(arguments[2]) : kSeed);
}
