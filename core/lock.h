// VCriticalSection: the recursive lock behind ISynchObject.
#pragma once

#include "core/sync.h"
#include "platform/export.h"

#include <mutex>

namespace ostrand {

/// Turns at a taken lock before the thread sleeps. The lock of the configuration is mostly held for short times.
inline constexpr unsigned kSpinCount = 4000;

/// A thread that holds the lock may lock again, and unlocks as often.
class OSTRAND_API VCriticalSection : public VUnknown<ISynchObject> {
public:
    explicit VCriticalSection(unsigned spinCount = kSpinCount) : m_spinCount(spinCount) {}

    void Lock() override;
    void Unlock() override { m_mutex.unlock(); }

private:
    std::recursive_mutex m_mutex;
    unsigned m_spinCount;
};

} // namespace ostrand
