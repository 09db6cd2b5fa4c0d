// Times as texts.

#include "tests/vectors/json_store.h"
#include "tests/vectors/json_values.h"

#include <array>

namespace ostrand::vectors {

namespace {

constexpr const char* kName = "Last Time";

VProfileTime MakeValue()
{
    VProfileTime time;
    time.SetName(ToText(kName));
    return time;
}

Json Parse(const Json& theCase)
{
    const Json stored = {{kName, {{"string", theCase.at("text")}}}};
    JsonStore store(stored);
    VProfileTime time = MakeValue();
    if (!time.ReadValue(store.Key()))
        return {{"valid", false}};
    return {{"valid", true}, {"file_time", time.ticks}};
}

Json Write(const Json& theCase)
{
    JsonStore store;
    VProfileTime time = MakeValue();
    time.ticks = theCase.at("file_time");
    time.Save(store.Key(), true);
    const Json stored = store.Value(time.name);
    if (stored.is_null())
        return {{"written", false}};
    return {{"written", true}, {"text", stored.at("string")}};
}

constexpr std::array kKinds = {Kind{"parse", Parse}, Kind{"write", Write}};

} // namespace

std::span<const Kind> TimeTextKinds() { return kKinds; }

} // namespace ostrand::vectors
