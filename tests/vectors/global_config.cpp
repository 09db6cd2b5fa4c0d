// The global record: read, merged, saved.

#include "config/global/global_store.h"
#include "tests/support/fake_platform.h"
#include "tests/vectors/json_store.h"
#include "tests/vectors/json_values.h"

#include <array>
#include <stdexcept>

namespace ostrand::vectors {

namespace {

/// The store, the clock and the record of one case.
class Scene {
public:
    explicit Scene(const Json& theCase)
        : m_case(theCase),
          m_store(StoreOf(theCase)),
          m_default(m_store ? &m_store->Factory() : nullptr)
    {
        m_clock.seconds = theCase.value("now", 1'000'000'000u);
        Platform().clock = &m_clock;
        m_config = VUnknownPointer<GlobalConfig>::Adopt(
            new GlobalConfig(m_store ? m_store->Key() : nullptr, theCase.value("orvane", false)));
    }

    GlobalConfig& Config() { return *m_config; }
    JsonStore& Store() { return m_store.value(); }

    void Merge()
    {
        auto merged = StoreOf(m_case, "merged");
        m_config->Merge(merged ? merged->Key() : nullptr);
    }
    void Set()
    {
        const Json values = m_case.value("set", Json::object());
        for (const auto& [name, value] : values.items())
            SetCurrentValue(Value(name), value);
    }
    /// Any value, also one outside the record's table; null for a name that isn't one of this application.
    VProfileData* Find(const std::string& name)
    {
        const VUnicodeString wanted = ToText(name);
        for (const auto& row : GlobalConfig::Schema().Rows())
            if (!row.IsRule() && wanted == row.NameFor(m_config->IsOrvane()))
                return row.member(*m_config);
        return nullptr;
    }
    VProfileData& Value(const std::string& name)
    {
        VProfileData* const value = Find(name);
        if (!value)
            Unknown("value", name);
        return *value;
    }
    Json ShownStates()
    {
        Json states = Json::object();
        for (const std::string name : m_case.at("show"))
            states[name] = StateOf(Value(name));
        return states;
    }

private:
    VPlatformScope m_platform;
    const Json& m_case;
    test::FakeClock m_clock;
    std::optional<JsonStore> m_store;
    DefaultStore m_default;
    VUnknownPointer<GlobalConfig> m_config;
};

struct Override {
    const char* name;
    bool GlobalConfig::* flag;
};

constexpr std::array kOverrides = {
    Override{"transferTypeOverridden", &GlobalConfig::transferTypeOverridden},
    Override{"overwriteActionOverridden", &GlobalConfig::overwriteActionOverridden},
    Override{"logFileOverridden", &GlobalConfig::logFileOverridden},
    Override{"retryOverridden", &GlobalConfig::retryOverridden},
};

void SetOverride(GlobalConfig& config, const std::string& name)
{
    for (const Override& known : kOverrides)
        if (name == known.name) {
            config.*known.flag = true;
            return;
        }
    Unknown("override", name);
}

Json Read(const Json& theCase)
{
    Scene scene(theCase);
    return {{"values", scene.ShownStates()}};
}

Json Merge(const Json& theCase)
{
    Scene scene(theCase);
    scene.Set();
    scene.Merge();
    return {{"values", scene.ShownStates()}};
}

Json Save(const Json& theCase)
{
    Scene scene(theCase);
    scene.Merge();
    scene.Set();
    for (const std::string name : theCase.value("overrides", Json::array()))
        SetOverride(scene.Config(), name);

    VReportMessageParams report;
    const bool saved = WriteGlobalConfig(scene.Config(), theCase.at("force"), report);
    if (!saved)
        throw std::runtime_error("the save failed");

    Json values = Json::object();
    Json store = Json::object();
    for (const std::string name : theCase.at("show")) {
        store[name] = scene.Store().Value(ToText(name));
        // A name may be told for the store's sake alone, such as an old one.
        if (const VProfileData* const value = scene.Find(name))
            values[name] = CurrentValue(*value);
    }
    return {{"values", values}, {"store", store}};
}

constexpr std::array kKinds = {Kind{"read", Read}, Kind{"merge", Merge}, Kind{"save", Save}};

} // namespace

std::span<const Kind> GlobalConfigKinds() { return kKinds; }

} // namespace ostrand::vectors
