// Key maps as stored blocks.

#include "keymap/profile_keymap.h"
#include "tests/vectors/json_keymap.h"
#include "tests/vectors/json_store.h"

#include <array>

namespace ostrand::vectors {

namespace {

constexpr const char16_t* kName = u"Keymap v2";

bool Load(const Json& blocks, const VUnicodeString& name, ProfileKeymap& keymap)
{
    if (blocks.is_null())
        return keymap.Load(nullptr, name);
    Json values = Json::object();
    for (const auto& [valueName, block] : blocks.items())
        values[valueName] = {{"block", block}};
    return keymap.Load(JsonStore(values).Key(), name);
}

/// The block that a save writes under the map's name; null for none.
Json SavedBlock(ProfileKeymap& keymap, bool force)
{
    JsonStore store;
    keymap.Save(store.Key(), force);
    const Json value = store.Value(keymap.name);
    return value.is_null() ? value : value.at("block");
}

Json Read(const Json& theCase)
{
    ProfileKeymap keymap;
    Json got = {{"result", Load(theCase.at("blocks"), ToText(theCase.at("value_name")), keymap)},
                {"bindings", FromBindings(keymap)}};
    got["unforced_save_writes"] = !SavedBlock(keymap, false).is_null();
    return got;
}

Json Write(const Json& theCase)
{
    ProfileKeymap keymap;
    keymap.SetName(kName);
    SetBindings(theCase.at("bindings"), keymap);
    return {{"block", SavedBlock(keymap, true)}};
}

Json RunStep(ProfileKeymap& keymap, const VUnicodeString& name, const Json& step)
{
    const std::string act = step.at("do");
    Json after;
    if (act == "read") {
        after["result"] = Load(step.at("blocks"), name, keymap);
    } else if (act == "save") {
        after["written"] = SavedBlock(keymap, step.at("force"));
    } else if (act == "set") {
        SetBinding(step, keymap);
    } else if (act == "accept") {
        keymap.AcceptChanges();
    } else if (act == "revert") {
        keymap.RevertChanges();
    } else {
        Unknown("step", act);
    }
    after["modified"] = keymap.IsModified();
    after["dirty"] = keymap.IsDirty();
    after["bindings"] = FromBindings(keymap);
    return after;
}

Json RunSteps(const Json& theCase)
{
    const VUnicodeString name = ToText(theCase.at("value_name"));
    ProfileKeymap keymap;
    keymap.SetName(name);
    Json after = Json::array();
    for (const Json& step : theCase.at("steps"))
        after.push_back(RunStep(keymap, name, step));
    return {{"after", after}};
}

constexpr std::array kKinds = {Kind{"read", Read}, Kind{"write", Write}, Kind{"steps", RunSteps}};

} // namespace

std::span<const Kind> KeymapBlockKinds() { return kKinds; }

} // namespace ostrand::vectors
