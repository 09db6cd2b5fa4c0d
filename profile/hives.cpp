#include "profile/hives.h"

#include "profile/key.h"
#include "profile/store_extras.h"

#include <algorithm>
#include <iterator>

namespace ostrand {

namespace {

/// The part of a hive below one key.
class RegistryStore final : public VProfilePrivateStore, public IStoreExtras {
public:
    RegistryStore(std::unique_ptr<VProfilePrivateStore> hive, VUnicodeString path)
        : m_hive(std::move(hive)),
          m_path(std::move(path))
    {
    }

    VProfilePrivateKey* OpenRootKey(bool readOnly) override
    {
        std::unique_ptr<VProfilePrivateKey> root(m_hive->OpenRootKey(readOnly));
        return m_path.IsEmpty() ? root.release() : root->OpenKey(m_path.c_str(), nullptr);
    }

    bool FindPlace(const char16_t* key, const char16_t* valueName, ValuePlace& place) override
    {
        auto* const extras = dynamic_cast<IStoreExtras*>(m_hive.get());
        const VUnicodeString path = JoinKeys(m_path, key ? key : u"");
        return extras && extras->FindPlace(path.c_str(), valueName, place);
    }

private:
    std::unique_ptr<VProfilePrivateStore> m_hive;
    VUnicodeString m_path;
};

struct Base {
    VHive hive;
    const char16_t* path;
};

/// In the order of search; the first is also the answer where none is there.
constexpr Base kBases[] = {
    {VHive::CurrentUser, kRegistryBase},
    {VHive::LocalMachine, kRegistryBase},
    {VHive::CurrentUser, kFormerRegistryBase},
    {VHive::LocalMachine, kFormerRegistryBase},
};

bool CanOpen(VHive hive, std::u16string_view path)
{
    VRegistryStoreFactory factory(hive, {});
    const VProfileStore store(true, &factory);
    return store.GetRootKey()->KeyExists(VUnicodeString(path).c_str());
}

VRegistryStoreFactory FoundBase()
{
    const auto* found =
        std::find_if(std::begin(kBases), std::end(kBases), [](const Base& b) { return CanOpen(b.hive, b.path); });
    if (found == std::end(kBases))
        found = kBases;
    return {found->hive, found->path};
}

} // namespace

VProfilePrivateStore* VRegistryStoreFactory::CreateStore() { return new RegistryStore(OpenHive(hive), path); }

VRegistryStoreFactory& DefaultRegistryFactory()
{
    // Never destroyed: an application may save its path while static objects go.
    static VRegistryStoreFactory& factory = *new VRegistryStoreFactory(FoundBase());
    return factory;
}

void FindRegistryBase() { DefaultRegistryFactory() = FoundBase(); }

VUnicodeString BuildProductKeyPath(std::u16string_view application)
{
    const bool isQuillo = application.find(u"Quillo") != application.npos;
    const VUnicodeString current = JoinKeys(kRegistryBase, application);
    VUnicodeString former = JoinKeys(kFormerRegistryBase, application);
    if (isQuillo)
        former += u" 3.0";
    for (const VHive hive : {VHive::LocalMachine, VHive::CurrentUser})
        for (const VUnicodeString& path : {current, former})
            if (CanOpen(hive, path))
                return path;
    return current;
}

VUnicodeString JoinKeys(std::u16string_view a, std::u16string_view b)
{
    VUnicodeString path(a);
    if (!a.empty() && !b.empty())
        path += u"\\";
    path += b;
    return path;
}

} // namespace ostrand
