// What loading a protected value leaves behind.

#include "profile/blowfish_value.h"
#include "profile/capi_string.h"
#include "profile/encoded_string.h"
#include "tests/vectors/json_store.h"
#include "tests/vectors/json_values.h"

#include <array>

namespace ostrand::vectors {

namespace {

template <class V>
Json LoadAndSave(const Json& theCase)
{
    std::optional<JsonStore> store = StoreOf(theCase);
    V value;
    value.Load(store ? store->Key() : nullptr, ToText(theCase.at("value_name")),
               ToText(theCase.value("default", "")).c_str());
    Json got = StateOf(value, FromText(value));
    got["text"] = got.at("value");
    JsonStore written;
    value.Save(written.Key(), false);
    got["unforced_save_writes"] = written.TakeWrote();
    value.Save(written.Key(), true);
    got["forced_save_stores"] = written.Value(value.name).value("string", Json());
    return got;
}

Json FailToUnprotect(const Json& theCase)
{
    VProfileCapiString value;
    value.SetName(ToText(theCase.value("value_name", "Login Script")));
    value.Decode(ToText(theCase.at("stored")));
    return {{"text", FromText(value)}, {"code", value.report.GetCode()}};
}

constexpr std::array kKinds = {Kind{"blowfish value", LoadAndSave<VProfileBlowfishString>},
                               Kind{"encoded value", LoadAndSave<VProfileEncodedString>},
                               Kind{"system protection failure", FailToUnprotect}};

} // namespace

std::span<const Kind> ProtectedValuesKinds() { return kKinds; }

} // namespace ostrand::vectors
