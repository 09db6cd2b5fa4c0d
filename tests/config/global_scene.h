// What tests of the global record stand on: a memory store with its key Global, fake services of the platform, and
// leaves seen in their stored form.
#pragma once

#include "config/global/global_config.h"
#include "stores/memory_store.h"
#include "tests/support/fake_platform.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace ostrand::test {

/// A memory store and a handle on its key Global.
class GlobalStore {
public:
    explicit GlobalStore(std::initializer_list<std::pair<const char16_t*, StoreValue>> values = {})
    {
        m_factory.Log().clear(); // the key was made
        for (const auto& [name, value] : values)
            Put(name, value);
    }

    MemoryStoreFactory& Factory() { return m_factory; }
    VProfileKey* Key() { return &m_key; }
    void Put(std::u16string_view name, StoreValue value)
    {
        m_factory.Fill({{u"Global", std::u16string(name), std::move(value)}});
    }
    std::optional<StoreValue> Get(std::u16string_view name) const
    {
        for (StoreEntry& entry : m_factory.Dump())
            if (entry.name == name)
                return std::move(entry.value);
        return std::nullopt;
    }
    /// Names of the values written since the last call.
    std::vector<std::u16string> TakeWrites()
    {
        std::vector<std::u16string> names;
        for (StoreWrite& write : std::exchange(m_factory.Log(), {}))
            names.push_back(std::move(write.name));
        return names;
    }

private:
    MemoryStoreFactory m_factory;
    VProfileStore m_store{&m_factory};
    VProfileKey m_key{m_store.GetRootKey(), u"Global"};
};

using ConfigPointer = VUnknownPointer<GlobalConfig>;

inline ConfigPointer Read(const VProfileKey* key, bool isOrvane = false)
{
    return ConfigPointer::Adopt(new GlobalConfig(key, isOrvane));
}

inline std::vector<VProfileData*> MembersOf(GlobalConfig& config)
{
    std::vector<VProfileData*> members;
    for (int i = 0; VProfileData* const member = config.GetMember(i); ++i)
        members.push_back(member);
    return members;
}

inline std::u16string NameOf(const VProfileData& value) { return std::u16string(value.name.View()); }

} // namespace ostrand::test
