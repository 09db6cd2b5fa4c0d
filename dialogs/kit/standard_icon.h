// Pictures that every view has: those of message boxes and of buttons with an icon in place of a text.
#pragma once

#include <cstdint>

namespace ostrand {

enum class VIcon : uint8_t { None, Error, Question, Warning, Information, Up, Down, Play };

} // namespace ostrand
