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

/// A memory store and a handle on its key Global. The first one of a test is the default store, too, where the record
/// keeps what has keys of its own.
class GlobalStore {
public:
    explicit GlobalStore(std::initializer_list<std::pair<const char16_t*, StoreValue>> values = {})
    {
        if (!s_default) {
            s_default = &m_factory;
            SetProfileStoreFactoryGetter([]() -> VProfileStoreFactory* { return s_default; });
        }
        m_factory.Log().clear(); // the key was made
        for (const auto& [name, value] : values)
            Put(name, value);
    }

    ~GlobalStore()
    {
        if (s_default != &m_factory)
            return;
        s_default = nullptr;
        SetProfileStoreFactoryGetter(nullptr);
    }
    GlobalStore(const GlobalStore&) = delete;
    GlobalStore& operator=(const GlobalStore&) = delete;

    MemoryStoreFactory& Factory() { return m_factory; }
    const MemoryStoreFactory& Factory() const { return m_factory; }
    VProfileKey* Key() { return &m_key; }
    void Put(std::u16string_view name, StoreValue value)
    {
        m_factory.Fill({{u"Global", std::u16string(name), std::move(value)}});
    }
    std::optional<StoreValue> Get(std::u16string_view name) const
    {
        for (StoreEntry& entry : m_factory.Dump())
            if (entry.key == u"Global" && entry.name == name)
                return std::move(entry.value);
        return std::nullopt;
    }
    /// Names of the values written to the key Global since the last call.
    std::vector<std::u16string> TakeWrites()
    {
        std::vector<std::u16string> names;
        for (StoreWrite& write : std::exchange(m_factory.Log(), {}))
            if (write.key == u"Global")
                names.push_back(std::move(write.name));
        return names;
    }

private:
    static inline VProfileStoreFactory* s_default = nullptr;

    MemoryStoreFactory m_factory;
    VProfileStore m_store{&m_factory};
    VProfileKey m_key{m_store.GetRootKey(), u"Global"};
};

using ConfigPointer = VUnknownPointer<GlobalConfig>;

inline ConfigPointer Read(const VProfileKey* key, bool isOrvane = false)
{
    return ConfigPointer::Adopt(new GlobalConfig(key, isOrvane));
}

/// All leaves of the key Global, with those of the printer's serial line in its place; the colour schemes are left out,
/// which have their own key.
inline std::vector<VProfileData*> LeavesOf(GlobalConfig& config)
{
    std::vector<VProfileData*> leaves;
    for (int i = 0; VProfileData* const member = config.GetMember(i); ++i)
        if (member == &config.printerSerial)
            for (int j = 0; VProfileData* const leaf = member->GetMember(j); ++j)
                leaves.push_back(leaf);
        else if (member != &config.colorSchemes)
            leaves.push_back(member);
    return leaves;
}

inline std::vector<VProfileData*> MembersOf(VProfileData& record)
{
    std::vector<VProfileData*> members;
    for (int i = 0; VProfileData* const member = record.GetMember(i); ++i)
        members.push_back(member);
    return members;
}

inline std::u16string NameOf(const VProfileData& value) { return std::u16string(value.name.View()); }

} // namespace ostrand::test
