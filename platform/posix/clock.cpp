#include "platform/posix/posix_services.h"

#include <ctime>

namespace ostrand::posix {

namespace {

constexpr uint64_t kUnitsPerSecond = 10'000'000; // of 100 nanoseconds
constexpr uint64_t kSecondsFrom1601To1970 = 11'644'473'600;

timespec Now()
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return now;
}

class PosixClock final : public IClock {
public:
    uint64_t FileTime() override
    {
        const timespec now = Now();
        return (static_cast<uint64_t>(now.tv_sec) + kSecondsFrom1601To1970) * kUnitsPerSecond +
               static_cast<uint64_t>(now.tv_nsec) / 100;
    }
    uint32_t Seconds() override { return static_cast<uint32_t>(Now().tv_sec); }
};

constinit Forever<PosixClock> g_clock;

} // namespace

IClock& Clock() { return g_clock.object; }

} // namespace ostrand::posix
