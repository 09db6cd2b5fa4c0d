// Colours as texts, in the forms of web pages and of the X Window System. All give 0x00BBGGRR; false leaves `color`.
#pragma once

#include <cstdint>
#include <string_view>

namespace ostrand {

/// "#rgb", which stands for "#rrggbb"; or "#rrggbb".
bool ReadWebColor(std::string_view text, uint32_t& color);

/// "#" and one to four digits a colour; "rgb:" or "rgba:" and one to four digits each; or a name in any case, blanks
/// in it ignored. A number in brackets in front, the opacity that some terminals take, is ignored, as is that of
/// "rgba:".
bool ReadXColor(std::string_view text, uint32_t& color);

/// "red,green,blue", each 0 to 255 in decimal.
bool ReadDecimalColor(std::u16string_view text, uint32_t& color);

} // namespace ostrand
