#include "dialogs/kit/number_text.h"

#include "core/format.h"

#include <limits>

namespace ostrand {

std::optional<int64_t> ParseWholeNumber(std::u16string_view text)
{
    const VUnicodeString trimmed = VUnicodeString(text).Trimmed();
    std::u16string_view digits = trimmed;
    const bool isNegative = digits.starts_with(u'-');
    if (isNegative || digits.starts_with(u'+'))
        digits.remove_prefix(1);
    if (digits.empty())
        return std::nullopt;
    int64_t number = 0;
    for (const char16_t c : digits) {
        constexpr int64_t kRoom = std::numeric_limits<int64_t>::max() / 10 - 1;
        if (c < u'0' || c > u'9' || number > kRoom)
            return std::nullopt;
        number = number * 10 + (c - u'0');
    }
    return isNegative ? -number : number;
}

VUnicodeString NumberText(int64_t number)
{
    std::u16string text;
    for (const char c : std::to_string(number))
        text += static_cast<char16_t>(c);
    return VUnicodeString(text);
}

} // namespace ostrand
