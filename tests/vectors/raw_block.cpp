// The raw block, which departs from the model of other values.

#include "profile/blob.h"
#include "tests/vectors/json_store.h"

#include <array>

namespace ostrand::vectors {

namespace {

std::optional<JsonStore> BlocksOf(const Json& step)
{
    if (!step.contains("blocks") || step.at("blocks").is_null())
        return std::nullopt;
    Json values = Json::object();
    for (const auto& [name, block] : step.at("blocks").items())
        values[name] = {{"block", block}};
    return std::optional<JsonStore>(std::in_place, values);
}

VProfileBlob Other(const Json& step, const VUnicodeString& name)
{
    VProfileBlob other;
    other.SetName(name);
    if (auto store = BlocksOf(step))
        other.Load(store->Key(), name);
    if (step.contains("block"))
        other.SetData(ToBytes(step.at("block")));
    return other;
}

Json RunStep(VProfileBlob& blob, const Json& step, JsonStore& written)
{
    const std::string act = step.at("do");
    Json after;
    if (act == "load" || act == "read" || act == "merge") {
        auto store = BlocksOf(step);
        VProfileKey* const key = store ? store->Key() : nullptr;
        after["result"] = act == "load" ? blob.Load(key, blob.name) : blob.ReadValue(key);
    } else if (act == "save") {
        blob.Save(written.Key(), step.at("force"));
        after["wrote"] = written.TakeWrote();
    } else if (act == "set") {
        blob.SetData(ToBytes(step.at("block")));
    } else if (act == "accept") {
        blob.AcceptChanges();
    } else if (act == "revert") {
        blob.RevertChanges();
    } else if (act == "copy from") {
        blob.CopyValue(Other(step, blob.name));
    } else if (act == "assign") {
        blob = Other(step, blob.name);
    } else {
        Unknown("step", act);
    }
    after["modified"] = blob.IsModified();
    after["dirty"] = blob.dirty;
    after["size"] = blob.GetSize();
    after["block"] = FromBytes(blob.data);
    return after;
}

Json RunSteps(const Json& theCase)
{
    VProfileBlob blob;
    blob.SetName(ToText(theCase.at("value_name")));
    JsonStore written;
    Json after = Json::array();
    for (const Json& step : theCase.at("steps"))
        after.push_back(RunStep(blob, step, written));
    return {{"after", after}, {"store", written.Values()}};
}

constexpr std::array kKinds = {Kind{"steps", RunSteps}};

} // namespace

std::span<const Kind> RawBlockKinds() { return kKinds; }

} // namespace ostrand::vectors
