// A command that takes a while: how far it is, and that a person may stop it.
#pragma once

#include <chrono>
#include <functional>

namespace ostrand::tool {

/// While it lives, Ctrl-C doesn't end the process but is told to who asks. Counts are shown on a terminal behind
/// stderr, on one line that goes with it. One for the process at a time.
class LongRun {
public:
    explicit LongRun(const char* counted);
    ~LongRun();
    LongRun(const LongRun&) = delete;
    LongRun& operator=(const LongRun&) = delete;

    /// False once it was stopped. For config/session/apply_sessions.h.
    bool Tell(unsigned done);

private:
    using Clock = std::chrono::steady_clock;

    const char* m_counted;
    bool m_isShown;
    bool m_hasLine = false;
    Clock::time_point m_told = Clock::now();
    void (*m_formerHandler)(int);
};

} // namespace ostrand::tool
