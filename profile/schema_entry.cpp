#include "profile/schema_entry.h"

#include <array>

namespace ostrand {

const char* ValueClassName(VValueClass type)
{
    static constexpr std::array kNames = {
        "bool",           "int",  "uint",      "ulong",   "tristate", "string",        "strings",
        "multi-line",     "font", "placement", "margins", "colors",   "color-schemes", "list-view",
        "explorer-frame", "time", "blob",      "serial",  "encoded",  "encrypted",     "keymap"};
    return kNames[static_cast<size_t>(type)];
}

} // namespace ostrand
