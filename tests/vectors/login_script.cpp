// Logon actions, their older form, and the load that converts it.

#include "config/session/logon_actions.h"
#include "tests/vectors/json_store.h"

#include <array>

namespace ostrand::vectors {

namespace {

Json Convert(const Json& theCase)
{
    ConvertedLoginScript converted;
    ConvertLoginScript(ToText(theCase.at("decoded")), converted);
    return {{"text", FromText(WriteLogonActions(converted.actions))},
            {"send_initial_carriage_return", converted.sendInitialCarriageReturn}};
}

Json ReadSteps(const Json& theCase)
{
    LogonActionList list;
    try {
        ReadLogonActions(ToText(theCase.at("text")), list);
    } catch (const LogonActionList::OutOfRange&) {
        return {{"error", true}};
    }
    Json steps = Json::array();
    for (const LogonAction& action : list)
        steps.push_back(
            {{"hide", action.hide}, {"expect_text", FromText(action.expect)}, {"send", FromText(action.send)}});
    return {{"error", false}, {"steps", steps}};
}

Json WriteSteps(const Json& theCase)
{
    LogonActionList list;
    for (const Json& step : theCase.at("steps"))
        list.Append({step.at("hide"), ToText(step.at("expect_text")), ToText(step.at("send"))});
    return {{"text", FromText(WriteLogonActions(list))}};
}

Json Load(const Json& theCase)
{
    std::optional<JsonStore> store = StoreOf(theCase);
    VProfileKey* const key = store ? store->Key() : nullptr;
    VProfile<bool> sendInitialCarriageReturn;
    sendInitialCarriageReturn.SetName(u"Send Initial Carriage Return");
    sendInitialCarriageReturn.Load(key, true);
    VProfileEncodedString script;
    LoadLogonActions(key, script, sendInitialCarriageReturn);
    Json got = {{"text", FromText(script)}, {"send_initial_carriage_return", sendInitialCarriageReturn.value}};
    JsonStore written;
    script.Save(written.Key(), false);
    got["unforced_save_writes"] = written.TakeWrote();
    return got;
}

constexpr std::array kKinds = {Kind{"convert", Convert}, Kind{"read steps", ReadSteps}, Kind{"write steps", WriteSteps},
                               Kind{"load", Load}};

} // namespace

std::span<const Kind> LoginScriptKinds() { return kKinds; }

} // namespace ostrand::vectors
