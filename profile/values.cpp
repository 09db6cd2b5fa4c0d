#include "profile/values.h"

#include "core/messages.h"
#include "profile/color_values.h"
#include "profile/margins.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string>

namespace ostrand {

namespace {

// strtol as releases for the original platform had it: a wide text looked at byte by byte, and a result of 32 bits.
int32_t ParseNarrow(const VUnicodeString& text, int radix)
{
    std::string bytes;
    for (const char16_t c : text.View()) {
        const char low = static_cast<char>(c & 0xFF);
        const char high = static_cast<char>(c >> 8);
        if (low == 0)
            break;
        bytes.push_back(low);
        if (high == 0)
            break;
        bytes.push_back(high);
    }
    const long value = std::strtol(bytes.c_str(), nullptr, radix);
    return static_cast<int32_t>(
        std::clamp<long>(value, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
}

// One pair of conversions for each class of number.

void ToVariant(int value, VVariant& out) { out.data = static_cast<int32_t>(value); }
void ToVariant(unsigned value, VVariant& out) { out.data = VVariant::UnsignedInt{value}; }
void ToVariant(unsigned long value, VVariant& out) { out.data = VVariant::UnsignedLong{static_cast<uint32_t>(value)}; }
void ToVariant(bool value, VVariant& out) { out.data = value; }
void ToVariant(VTriState value, VVariant& out)
{
    if (value == VTriState::Undetermined)
        out.data = std::monostate();
    else
        out.data = value == VTriState::True;
}

template <class N>
bool FromVariant(const VVariant& in, N& value)
{
    uint32_t bits = 0;
    if (!ConvertVariant(in, bits))
        return false;
    value = static_cast<N>(bits);
    return true;
}
/// Besides what the unsigned conversion takes, a negative number: what GetVariant gave must be good enough here.
bool FromVariant(const VVariant& in, int& value) { return FromVariant<int>(in, value) || ConvertVariant(in, value); }
bool FromVariant(const VVariant& in, bool& value) { return ConvertVariant(in, value); }
bool FromVariant(const VVariant& in, VTriState& value)
{
    bool on = false;
    if (!ConvertVariant(in, on))
        return false;
    value = on ? VTriState::True : VTriState::False;
    return true;
}

} // namespace

template <class T>
bool VProfile<T>::Parse(const VUnicodeString& text, IProfileValueParser* parser, IReportMessageParams&)
{
    if constexpr (std::is_same_v<T, bool>) {
        bool parsed = value;
        if (!parser->ParseBool(&parsed, text))
            return false;
        value = parsed;
    } else {
        value = FromStored(static_cast<unsigned>(ParseNarrow(text, radix)));
    }
    saved = value;
    dirty = false;
    return true;
}

template <class T>
bool VProfile<T>::GetVariant(VVariant* out, IReportMessageParams&)
{
    ToVariant(value, *out);
    return true;
}

template <class T>
bool VProfile<T>::SetVariant(const VVariant* in, IReportMessageParams& report)
{
    return FromVariant(*in, value) || Fail(report, kVariantNotConvertible, name);
}

template class VProfile<int>;
template class VProfile<unsigned int>;
template class VProfile<unsigned long>;
template class VProfile<bool>;
template class VProfile<VTriState>;
template class VProfile2<VUnicodeString, VProfileSz>;
template class VProfile2<VStringArray, VProfileMultiSz>;
template class VProfile2<CustomColors, VProfileBinary>;
template class VProfile2<VMarginData, VProfileBinary>;

} // namespace ostrand
