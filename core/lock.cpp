#include "core/lock.h"

namespace ostrand {

void VCriticalSection::Lock()
{
    for (unsigned turn = 0; turn < m_spinCount; ++turn)
        if (m_mutex.try_lock())
            return;
    m_mutex.lock();
}

} // namespace ostrand
