// Functions, virtual keys and default bindings.

#include "keymap/default_bindings.h"
#include "keymap/function_names.h"
#include "keymap/virtual_keys.h"
#include "tests/vectors/json_keymap.h"

#include <array>

namespace ostrand::vectors {

namespace {

template <class Find>
Json Codes(const Json& theCase, Find find)
{
    Json codes = Json::array();
    for (const Json& name : theCase.at("names"))
        codes.push_back(find(ToText(name)));
    return {{"codes", codes}};
}

template <class Name>
Json Names(const Json& theCase, Name nameOf)
{
    Json names = Json::array();
    for (const Json& code : theCase.at("codes"))
        names.push_back(FromText(nameOf(ToNumber(code))));
    return {{"names", names}};
}

Json FunctionCodes(const Json& theCase)
{
    return Codes(theCase, [](const VUnicodeString& name) { return FunctionCodeOf(name.View()); });
}

Json FunctionNames(const Json& theCase) { return Names(theCase, FunctionNameOf); }

Json KeyCodes(const Json& theCase)
{
    return Codes(theCase, [](const VUnicodeString& name) { return VirtualKeyCodeOf(name); });
}

Json KeyNames(const Json& theCase) { return Names(theCase, VirtualKeyName); }

Json Defaults(const Json& theCase)
{
    Keymap keymap;
    InstallDefaultKeymap(keymap);
    Json bindings = Json::array();
    for (const Json& index : theCase.at("indexes"))
        if (keymap.GetFunction(ToNumber(index)) != kFunctionNone)
            bindings.push_back(FromBinding(keymap, ToNumber(index)));
    return {{"bindings", bindings}};
}

constexpr std::array kKinds = {Kind{"functions", FunctionCodes}, Kind{"function names", FunctionNames},
                               Kind{"virtual keys", KeyCodes}, Kind{"key names", KeyNames},
                               Kind{"default bindings", Defaults}};

} // namespace

std::span<const Kind> KeymapTablesKinds() { return kKinds; }

} // namespace ostrand::vectors
