#include "config/session/common_config.h"

namespace ostrand {

namespace {

template <class I>
VUnknownPointer<I> CopyOf(const VUnknownPointer<I>& object)
{
    return VUnknownPointer<I>::Adopt(object ? static_cast<I*>(object->Clone()) : nullptr);
}

template <class I>
I* WithReference(const VUnknownPointer<I>& object)
{
    if (object)
        object->AddRef();
    return object.Get();
}

} // namespace

CommonConfig::CommonConfig(const CommonConfig& other)
    : m_remoteHost(CopyOf(other.m_remoteHost)),
      m_shared{CopyOf(other.m_shared[0]), CopyOf(other.m_shared[1])}
{
}

IRemoteHostConfig* CommonConfig::GetRemoteHostConfig(const VProfileKey* key)
{
    if (!m_remoteHost)
        m_remoteHost = VUnknownPointer<IRemoteHostConfig>::Adopt(new RemoteHostConfig(key));
    return WithReference(m_remoteHost);
}

IClonable* CommonConfig::GetSharedObject(const VProfileKey* key, bool which, VSharedObjectFactory factory)
{
    VUnknownPointer<IClonable>& object = m_shared[which ? 1 : 0];
    if (!object)
        object = VUnknownPointer<IClonable>::Adopt(factory(key, which, which, nullptr));
    return WithReference(object);
}

} // namespace ostrand
