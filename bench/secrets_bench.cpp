// A secret of 16 characters into its stored forms and back.
#include "platform/platform.h"
#include "profile/blowfish_value.h"
#include "profile/capi_string.h"
#include "profile/encoded_string.h"

#include <benchmark/benchmark.h>

#include <filesystem>

#include <stdlib.h>

namespace ostrand {
namespace {

constexpr const char16_t* kSecret = u"sixteen letters.";

template <class V>
void EncodeAndDecode(benchmark::State& state)
{
    V value;
    value.SetName(u"Firewall Password");
    VUnicodeString stored;
    for (auto _ : state) {
        value.SetValue(kSecret);
        value.Encode(stored);
        value.Decode(stored);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(EncodeAndDecode<VProfileEncodedString>)->Name("EncodeAndDecodeXor")->Unit(benchmark::kMicrosecond);
/// Four key schedules.
BENCHMARK(EncodeAndDecode<VProfileBlowfishString>)->Name("EncodeAndDecodeBlowfish")->Unit(benchmark::kMicrosecond);

/// The system's protection, which reads the key file twice; in a data folder of its own.
void EncodeAndDecodeCapi(benchmark::State& state)
{
    char folder[] = "/tmp/ostrand-bench-XXXXXX";
    if (!mkdtemp(folder) || setenv("XDG_DATA_HOME", folder, 1) != 0)
        state.SkipWithError("no temporary folder");
    EncodeAndDecode<VProfileCapiString>(state);
    std::filesystem::remove_all(folder);
}
BENCHMARK(EncodeAndDecodeCapi)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace ostrand
