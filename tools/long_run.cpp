#include "tools/long_run.h"

#include "platform/platform.h"

#include <csignal>
#include <cstdio>

namespace ostrand::tool {

namespace {

constexpr std::chrono::milliseconds kBetweenLines{200};

volatile std::sig_atomic_t theStop = 0;

void Stop(int) { theStop = 1; }

} // namespace

LongRun::LongRun(const char* counted) : m_counted(counted), m_isShown(Platform().processes->IsErrorTerminal())
{
    theStop = 0;
    m_formerHandler = std::signal(SIGINT, Stop);
}

LongRun::~LongRun()
{
    std::signal(SIGINT, m_formerHandler);
    if (m_hasLine)
        std::fputs("\r\x1b[K", stderr); // erases to the end of the line
}

bool LongRun::Tell(unsigned done)
{
    const Clock::time_point now = Clock::now();
    if (m_isShown && now - m_told >= kBetweenLines) {
        std::fprintf(stderr, "\r%u %s", done, m_counted);
        m_told = now;
        m_hasLine = true;
    }
    return theStop == 0;
}

} // namespace ostrand::tool
