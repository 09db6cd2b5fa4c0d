// What a key can do: numbers of functions and their names, as key map files and stored maps hold them. A number is the
// name's place in one table, which only ever grows at its end.
#pragma once

#include "platform/export.h"

#include <cstddef>
#include <string_view>

namespace ostrand {

inline constexpr unsigned kFunctionNone = 0;     ///< no binding
inline constexpr unsigned kFunctionSend = 1;     ///< send the string
inline constexpr unsigned kFunctionRun = 2;      ///< run the script that the string names
inline constexpr unsigned kFunctionLaunch = 3;   ///< run the command line in the string
inline constexpr unsigned kFunctionDisabled = 4; ///< do nothing, and hide any default

/// Codes of one group, both ends included. They are also places in the table.
struct KeyFunctionRange {
    unsigned first;
    unsigned last;
};
inline constexpr KeyFunctionRange kScrollbackFunctions{5, 16};
inline constexpr KeyFunctionRange kMenuFunctions{17, 106};
inline constexpr KeyFunctionRange kTelnetFunctions{107, 111};
inline constexpr KeyFunctionRange kSshFunctions{112, 118};
inline constexpr KeyFunctionRange kTerminalKeyFunctions{119, 164};

/// By exact case; -1 for an unknown name. The empty name is 0. VT_HELP and VT_DO are second names of VT_F15 and VT_F16.
OSTRAND_API int FunctionCodeOf(std::u16string_view name);
/// The same for a name in ASCII.
OSTRAND_API int FunctionCodeOf(std::string_view name);
/// Empty for an unknown code. Lives as long as the process, as does the next.
OSTRAND_API std::u16string_view FunctionNameOf(unsigned code);
/// The name at a place of the table, 0 to 165; the last is empty. The place isn't checked.
OSTRAND_API std::u16string_view FunctionNameAt(size_t place);

} // namespace ostrand
