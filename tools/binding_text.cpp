#include "tools/binding_text.h"

#include "tools/text.h"

namespace ostrand::tool {

Binding BindingOf(const Keymap& map, unsigned index)
{
    return {map.OwnBindings().Function(index), map.OwnBindings().String(index)};
}

bool TakesArgument(unsigned function)
{
    return function == kFunctionSend || function == kFunctionRun || function == kFunctionLaunch;
}

std::string ActionText(const Binding& binding)
{
    const std::string text = "\"" + Plain(Lossless(binding.argument)) + "\"";
    const std::string name = Lossless(FunctionNameOf(binding.function));
    if (!TakesArgument(binding.function))
        return name;
    return binding.function == kFunctionSend ? text : name + "(" + text + ")";
}

} // namespace ostrand::tool
