// The steps of values that are kept as text and seen as fields.
#pragma once

#include "tests/vectors/json_store.h"
#include "tests/vectors/json_values.h"

namespace ostrand::vectors {

/// A step's "text" under the value's name; without one the store is empty.
inline Json StoredText(const Json& theCase, const Json& step)
{
    if (!step.contains("text"))
        return Json::object();
    return {{theCase.at("value_name").get<std::string>(), {{"string", step.at("text")}}}};
}

template <class State>
Json RunStateStep(State& state, const Json& theCase, const Json& step, JsonStore& written)
{
    const std::string act = step.at("do");
    Json after;
    if (act == "load") {
        JsonStore store(StoredText(theCase, step));
        state.Load(store.Key(), ToText(theCase.value("default", "")));
    } else if (act == "merge") {
        JsonStore store(StoredText(theCase, step));
        state.Merge(store.Key());
    } else if (act == "save") {
        state.Save(written.Key(), step.at("force"));
        const bool wrote = written.TakeWrote();
        after["wrote"] = wrote;
        const Json stored = written.Value(state.name);
        after["stored"] = wrote ? stored.at("string") : Json();
    } else if (act == "set") {
        FieldsFromJson(step.at("fields"), state);
    } else if (act == "accept") {
        state.AcceptChanges();
    } else if (act == "revert") {
        state.RevertChanges();
    } else {
        Unknown("step", act);
    }
    after["fields"] = FieldsToJson(state);
    after.update(StateOf(state));
    return after;
}

template <class State>
Json RunStateSteps(const Json& theCase)
{
    State state;
    state.SetName(ToText(theCase.at("value_name")));
    JsonStore written;
    Json after = Json::array();
    for (const Json& step : theCase.at("steps"))
        after.push_back(RunStateStep(state, theCase, step, written));
    return {{"after", after}};
}

} // namespace ostrand::vectors
