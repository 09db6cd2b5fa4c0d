#include "platform/error_codes.h"
#include "platform/posix/posix_services.h"

namespace ostrand {

VPlatform& Platform()
{
    static VPlatform services{&posix::Files(),   &posix::Clock(),          &posix::Environment(), &posix::Processes(),
                              &posix::Display(), &posix::DataProtection(), &posix::Modules()};
    return services;
}

unsigned posix::CodeOf(int error)
{
    switch (error) {
    case 0:
        return kErrorSuccess;
    case ENOENT:
        return kErrorFileNotFound;
    case ENOTDIR:
        return kErrorPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return kErrorAccessDenied;
    case EEXIST:
        return kErrorAlreadyExists;
    case ENOSPC:
    case EDQUOT:
        return kErrorDiskFull;
    default:
        return kErrorGeneralFailure;
    }
}

} // namespace ostrand
