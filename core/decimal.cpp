#include "core/decimal.h"

#include <array>

namespace ostrand {

VUnicodeString DecimalText(uint64_t number)
{
    std::array<char16_t, 20> digits;
    size_t first = digits.size();
    do
        digits[--first] = static_cast<char16_t>(u'0' + number % 10);
    while ((number /= 10) != 0);
    return std::u16string_view(digits.data() + first, digits.size() - first);
}

} // namespace ostrand
