// Texts of times: one that is read is written as a text that reads as the same time. The input's first bytes also serve
// as a moment, which is written and read back but for what is less than a millisecond.
#include "profile/time_value.h"

#include <cstdint>
#include <cstdlib>
#include <string>

using namespace ostrand;

namespace {

void CheckWritten(VFileTime time)
{
    constexpr uint64_t kTicksOfMillisecond = 10'000;
    VUnicodeString text;
    if (!FormatTimeText(time, text))
        return;
    VFileTime back;
    if (!ParseTimeText(text, back) || back.ticks != time.ticks - time.ticks % kTicksOfMillisecond)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::u16string text(data, data + size);
    VFileTime time;
    if (ParseTimeText(text, time)) {
        VUnicodeString written;
        if (!FormatTimeText(time, written))
            std::abort();
        CheckWritten(time);
    }
    uint64_t ticks = 0;
    for (size_t i = 0; i < size && i < sizeof ticks; ++i)
        ticks = ticks << 8 | data[i];
    CheckWritten({ticks});
    return 0;
}
