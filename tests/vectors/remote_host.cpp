// Host, firewall and user name of a session.

#include "config/session/remote_host.h"
#include "tests/support/hive_folders.h"
#include "tests/vectors/json_store.h"
#include "tests/vectors/json_values.h"

namespace ostrand::vectors {

namespace {

/// The record of one case under its policy, with no firewalls in the default store.
class Scene {
public:
    explicit Scene(const Json& theCase) : m_store(StoreOf(theCase))
    {
        if (!theCase.value("may_save_username", true))
            m_hives.Write("machine/Software/Policies/Hollowmere.ini", "Save Usernames = 0\n");
        m_host = VUnknownPointer<RemoteHostConfig>::Adopt(new RemoteHostConfig(m_store ? m_store->Key() : nullptr));
    }
    RemoteHostConfig& Host() { return *m_host; }

private:
    test::HiveFolders m_hives;
    DefaultStore m_default;
    std::optional<JsonStore> m_store;
    VUnknownPointer<RemoteHostConfig> m_host;
};

Json Read(const Json& theCase) { return {{"values", StatesOf(Scene(theCase).Host())}}; }

Json UserName(const Json& theCase)
{
    VUnicodeStringI name;
    Scene(theCase).Host().GetUsername(&name);
    return {{"text", FromText(name)}};
}

constexpr std::array kKinds = {Kind{"read", Read}, Kind{"user name", UserName}};

} // namespace

std::span<const Kind> RemoteHostKinds() { return kKinds; }

} // namespace ostrand::vectors
