// What a log file's name and the list of time zones cost.
#include "core/paths/path_tokens.h"
#include "profile/time_zones.h"

#include <benchmark/benchmark.h>

namespace ostrand {
namespace {

/// A template of five tokens, with a variable in front, in the environment of this process.
void ExpandFiveTokens(benchmark::State& state)
{
    VReportMessageParams report;
    for (auto _ : state)
        benchmark::DoNotOptimize(ExpandPathTokens(u"%HOME%/logs/%S/%H-%Y-%M-%D.log", report, u"fe80::1", u"Router 1"));
}
BENCHMARK(ExpandFiveTokens)->Unit(benchmark::kNanosecond);

/// All zones of the system, each file opened and read.
void ListTimeZones(benchmark::State& state)
{
    for (auto _ : state) {
        const VTimeZone zones;
        benchmark::DoNotOptimize(zones.GetCount());
    }
}
BENCHMARK(ListTimeZones)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace ostrand
