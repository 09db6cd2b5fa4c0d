#include "tests/vectors/json_keymap.h"

namespace ostrand::vectors {

Json FromBinding(const IKeymap& keymap, unsigned keyIndex)
{
    return {{"index", keyIndex},
            {"function", keymap.GetFunction(keyIndex)},
            {"string", FromText(keymap.GetString(keyIndex))}};
}

Json FromBindings(const Keymap& keymap)
{
    const Keymap own(keymap); // a copy has no fallback
    Json bindings = Json::array();
    for (unsigned index = 0; index < kKeyCount; ++index)
        if (own.GetFunction(index) != 0 || !own.GetString(index).IsEmpty())
            bindings.push_back(FromBinding(own, index));
    return bindings;
}

void SetBinding(const Json& binding, IKeymap& keymap)
{
    const unsigned index = ToNumber(binding.at("index"));
    keymap.SetFunction(index, ToNumber(binding.at("function")));
    keymap.SetString(index, ToText(binding.at("string")));
}

void SetBindings(const Json& bindings, IKeymap& keymap)
{
    for (const Json& binding : bindings)
        SetBinding(binding, keymap);
}

} // namespace ostrand::vectors
