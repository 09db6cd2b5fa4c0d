// The session's record: read.
#include "config/session/session_config.h"

#include "config/global/global_config.h"
#include "config/session/session_edit.h"
#include "tests/support/fake_platform.h"
#include "tests/vectors/json_store.h"
#include "tests/vectors/json_values.h"

#include <array>

namespace ostrand::vectors {

namespace {

Json Read(const Json& theCase)
{
    const VPlatformScope platform;
    auto ofGlobal = StoreOf(theCase, "global");
    auto store = StoreOf(theCase);
    const DefaultStore defaultStore(ofGlobal ? &ofGlobal->Factory() : nullptr);
    const auto global =
        VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(ofGlobal ? ofGlobal->Key() : nullptr, false));
    const auto session =
        VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(u"S", store ? store->Key() : nullptr, *global));
    const std::vector<SessionLeaf> leaves = SessionLeaves(*session);
    Json states = Json::object();
    for (const std::string shown : theCase.at("show")) {
        const SessionLeaf* const leaf = FindSessionLeaf(leaves, ToText(shown));
        if (!leaf)
            Unknown("value", shown);
        states[shown] = StateOf(*leaf->value);
    }
    return {{"values", states}};
}

constexpr std::array kKinds = {Kind{"read", Read}};

} // namespace

std::span<const Kind> SessionConfigKinds() { return kKinds; }

} // namespace ostrand::vectors
