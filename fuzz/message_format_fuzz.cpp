// Templates of messages, which may come from a foreign table. First byte: the arguments and the form; the rest is the
// template, as 16-bit units.
#include "core/format.h"
#include "platform/error_codes.h"

#include <cstdlib>
#include <string>
#include <vector>

using namespace ostrand;

namespace {

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

/// Whether the template has an insert, found without the help of the formatter.
bool HasInsert(std::u16string_view format)
{
    for (size_t i = 0; i + 1 < format.size(); ++i) {
        if (format[i] != u'%')
            continue;
        const char16_t next = format[++i];
        if (next == u'0')
            return false;
        if (next >= u'1' && next <= u'9')
            return true;
    }
    return false;
}

std::u16string Quoted(std::u16string_view text)
{
    std::u16string quoted;
    for (const char16_t c : text)
        quoted.append(c == u'%' ? 2 : 1, c);
    return quoted;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    std::u16string format;
    for (size_t i = 1; i + 1 < size; i += 2)
        format.push_back(static_cast<char16_t>(data[i] | data[i + 1] << 8));
    const VFormatArgument all[] = {-42, 0xFFFFFFFFu, u"a text", int64_t{1} << 62, u"%1!d!", u'c'};
    const std::span<const VFormatArgument> arguments = std::span(all).first(data[0] % (std::size(all) + 1));
    const VFormatLines lines = data[0] & 8 ? VFormatLines::AsBlanks : VFormatLines::Keep;

    const std::u16string_view untouched = u"untouched";
    VUnicodeString strict(untouched);
    const unsigned code = FormatMessageText(format, arguments, lines, strict);
    const VUnicodeString typed = FormatIgnoringInserts(format, lines);
    Check(typed.GetLength() <= format.size());
    Check(code == kErrorSuccess || (code == kErrorInvalidParameter && strict == untouched));
    Check(strict.GetLength() <= (format.size() + 1) * 4200);
    if (!HasInsert(format))
        Check(code == kErrorSuccess && strict == typed);
    if (lines == VFormatLines::Keep)
        Check(FormatList(format, arguments) == (code == kErrorSuccess ? strict : typed));
    Check(FormatList(Quoted(format), arguments) == format);
    return 0;
}
