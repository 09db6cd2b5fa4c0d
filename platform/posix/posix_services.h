// The services of a POSIX system, and how its error numbers become the library's codes.
#pragma once

#include "platform/platform.h"

#include <cerrno>

namespace ostrand::posix {

/// The code for a value of errno.
unsigned CodeOf(int error);

/// Whether an errno says that the medium or the system has no such operation.
inline bool LacksOperation(int error)
{
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP || error == ENOTTY;
}

/// Repeats a call that a signal interrupted.
template <class Call>
auto Retry(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

/// 0 for a call that went well, else the code of errno.
inline unsigned Outcome(int result) { return result == -1 ? CodeOf(errno) : 0; }

/// An object that is made by the compiler and never destroyed, so that code which runs before main or behind exit can
/// use it.
template <class T>
union Forever {
    constexpr Forever() : object() {}
    constexpr ~Forever() {}
    T object;
};

// Each lives as long as the process.
IFiles& Files();
IClock& Clock();
IEnvironment& Environment();
IProcesses& Processes();
IDisplay& Display();
IDataProtection& DataProtection();
IModules& Modules();

} // namespace ostrand::posix
