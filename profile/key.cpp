#include "profile/key.h"

#include <cstdio>
#include <cstdlib>

namespace ostrand {

namespace {

VProfileStoreFactoryGetter g_getter = nullptr;

VProfileStoreFactory* InstalledFactory()
{
    VProfileStoreFactory* const factory = GetProfileStoreFactory();
    if (!factory) {
        std::fputs("OstrandUI: a store was opened before OstrandUiInitProfileFactory gave a factory\n", stderr);
        std::abort();
    }
    return factory;
}

} // namespace

void SetProfileStoreFactoryGetter(VProfileStoreFactoryGetter getter) { g_getter = getter; }
VProfileStoreFactory* GetProfileStoreFactory() { return g_getter ? g_getter() : nullptr; }

VProfileStore::VProfileStore(bool readOnly, VProfileStoreFactory* factory)
    : m_private((factory ? factory : InstalledFactory())->CreateStore()),
      m_readOnly(readOnly)
{
    m_root = std::make_unique<VProfileKey>(*this);
}

VProfileStore::~VProfileStore()
{
    // The store goes before its root key: handles outlive their store.
    m_private.reset();
}

IStoreExtras& VProfileStore::Extras() const
{
    static IStoreExtras none;
    auto* const extras = dynamic_cast<IStoreExtras*>(m_private.get());
    return extras ? *extras : none;
}

} // namespace ostrand
