// CommonConfig: what the protocol configurations of one session share, so that a switch of the protocol keeps host and
// user.
#pragma once

#include "config/session/remote_host.h"

#include <array>

namespace ostrand {

/// Makes a shared object; called with the same `which` twice and null.
using VSharedObjectFactory = IClonable* (*)(const VProfileKey* key, bool which, bool whichAgain, void* reserved);

/// The order of the operations is a contract with foreign modules.
class ICommonConfig {
public:
    /// Made from the key, which may be null, by the first call. With a reference for the caller.
    virtual IRemoteHostConfig* GetRemoteHostConfig(const VProfileKey* key) = 0;
    /// One of two further objects, whose types only the modules know; made by the first call for each, which may make
    /// none. With a reference for the caller.
    virtual IClonable* GetSharedObject(const VProfileKey* key, bool which, VSharedObjectFactory factory) = 0;
    virtual ~ICommonConfig() = default;
};

/// One thread at a time. A copy has copies of all objects.
class OSTRAND_API CommonConfig : public ICommonConfig {
public:
    CommonConfig() = default;
    CommonConfig(const CommonConfig& other);
    CommonConfig& operator=(const CommonConfig&) = delete;

    IRemoteHostConfig* GetRemoteHostConfig(const VProfileKey* key) override;
    IClonable* GetSharedObject(const VProfileKey* key, bool which, VSharedObjectFactory factory) override;

private:
    VUnknownPointer<IRemoteHostConfig> m_remoteHost;
    std::array<VUnknownPointer<IClonable>, 2> m_shared;
};

} // namespace ostrand
