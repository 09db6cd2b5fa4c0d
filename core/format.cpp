#include "core/format.h"

#include "platform/error_codes.h"

#include <algorithm>

namespace ostrand {

namespace {

/// Widths and precisions end here: a template may come from a foreign table, and must not cost gigabytes.
constexpr unsigned kWidest = 4096;

/// What stands between the two "!" of an insert.
struct Spec {
    bool left = false;
    bool zeros = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    unsigned width = 0;
    unsigned precision = 0;
    bool hasPrecision = false;
    bool isLong = false;
    char16_t conversion = u's';
};

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

bool TakeFlag(std::u16string_view& text, Spec& spec)
{
    if (text.empty())
        return false;
    switch (text.front()) {
    case u'-':
        spec.left = true;
        break;
    case u'0':
        spec.zeros = true;
        break;
    case u'+':
        spec.plus = true;
        break;
    case u' ':
        spec.blank = true;
        break;
    case u'#':
        spec.alternate = true;
        break;
    default:
        return false;
    }
    text.remove_prefix(1);
    return true;
}

/// Digits, maybe none. False above kWidest.
bool TakeWidth(std::u16string_view& text, unsigned& out)
{
    out = 0;
    for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1)) {
        out = out * 10 + (text.front() - u'0');
        if (out > kWidest)
            return false;
    }
    return true;
}

bool Take(std::u16string_view& text, char16_t c)
{
    if (!text.starts_with(c))
        return false;
    text.remove_prefix(1);
    return true;
}

bool ParseSpec(std::u16string_view text, Spec& spec)
{
    while (TakeFlag(text, spec)) {
    }
    if (!TakeWidth(text, spec.width))
        return false;
    spec.hasPrecision = Take(text, u'.');
    if (spec.hasPrecision && !TakeWidth(text, spec.precision))
        return false;
    spec.isLong = Take(text, u'l');
    if (text == u"hs")
        text.remove_prefix(1);
    if (text.size() != 1 || std::u16string_view(u"diuxXocs").find(text[0]) == std::u16string_view::npos)
        return false;
    spec.conversion = text[0];
    return true;
}

/// Digits of a number, least first, room for 64 bits in octal.
struct Digits {
    char16_t reversed[22];
    size_t count = 0;

    Digits(uint64_t value, unsigned base, bool capitals)
    {
        const char16_t* const names = capitals ? u"0123456789ABCDEF" : u"0123456789abcdef";
        for (; value != 0; value /= base)
            reversed[count++] = names[value % base];
    }
};

enum class Inserts { Filled, AsTyped };

/// One walk over a template.
class Writer {
public:
    Writer(std::span<const VFormatArgument> arguments, Inserts inserts, VFormatLines lines)
        : m_arguments(arguments),
          m_inserts(inserts),
          m_lines(lines)
    {
    }

    unsigned Run(std::u16string_view format)
    {
        m_out.reserve(format.size() + 48);
        while (!format.empty()) {
            const auto special = std::find_if(format.begin(), format.end(),
                                              [](char16_t c) { return c == u'%' || c == u'\r' || c == u'\n'; });
            const auto plain = static_cast<size_t>(special - format.begin());
            m_out.append(format.substr(0, plain));
            format.remove_prefix(plain);
            if (format.empty())
                break;
            if (format.front() != u'%')
                LineBreak(format);
            else if (!Escape(format))
                return kErrorInvalidParameter;
        }
        return kErrorSuccess;
    }

    std::u16string_view Text() const { return m_out; }

private:
    void LineBreak(std::u16string_view& format)
    {
        const size_t size = format.starts_with(u"\r\n") ? 2 : 1;
        if (m_lines == VFormatLines::AsBlanks)
            m_out.push_back(u' ');
        else
            m_out.append(format.substr(0, size));
        format.remove_prefix(size);
    }

    /// `format` begins with "%". False for an insert that can't be filled.
    bool Escape(std::u16string_view& format)
    {
        const char16_t c = format.size() > 1 ? format[1] : u'%';
        if (c >= u'1' && c <= u'9')
            return Insert(format);
        format.remove_prefix(std::min<size_t>(2, format.size()));
        switch (c) {
        case u'0':
            format = {};
            break; // the end of the text
        case u'n':
            m_out.append(u"\r\n");
            break;
        case u'r':
            m_out.push_back(u'\r');
            break;
        case u't':
            m_out.push_back(u'\t');
            break;
        case u'b':
            m_out.push_back(u' ');
            break;
        default:
            m_out.push_back(c);
            break; // "%%", "%.", "%!"; any other sign, too, loses its "%"
        }
        return true;
    }

    bool Insert(std::u16string_view& format)
    {
        const size_t digits = format.size() > 2 && IsDigit(format[2]) ? 2 : 1;
        if (m_inserts == Inserts::AsTyped) {
            // A following "!spec!" holds nothing that means something in plain text.
            m_out.append(format.substr(0, 1 + digits));
            format.remove_prefix(1 + digits);
            return true;
        }
        size_t number = format[1] - u'0';
        if (digits == 2)
            number = number * 10 + (format[2] - u'0');
        format.remove_prefix(1 + digits);
        Spec spec;
        if (format.starts_with(u'!')) {
            const size_t end = format.find(u'!', 1);
            if (end == std::u16string_view::npos || !ParseSpec(format.substr(1, end - 1), spec))
                return false;
            format.remove_prefix(end + 1);
        }
        return number <= m_arguments.size() && Fill(m_arguments[number - 1], spec);
    }

    bool Fill(const VFormatArgument& argument, const Spec& spec)
    {
        const bool wantsText = spec.conversion == u's';
        if (wantsText != (argument.GetKind() == VFormatArgument::Kind::Text))
            return false;
        if (wantsText) {
            const std::u16string_view text = argument.GetText();
            Padded({}, 0, text.substr(0, spec.hasPrecision ? spec.precision : text.size()), spec);
        } else if (spec.conversion == u'c') {
            const auto c = static_cast<char16_t>(argument.GetNumber());
            Padded({}, 0, {&c, 1}, spec);
        } else {
            Number(argument, spec);
        }
        return true;
    }

    void Number(const VFormatArgument& argument, const Spec& spec)
    {
        const bool isSigned = spec.conversion == u'd' || spec.conversion == u'i';
        uint64_t value = argument.GetNumber();
        if (spec.isLong || argument.GetBytes() <= 4) {
            const auto low = static_cast<uint32_t>(value);
            value = isSigned ? static_cast<uint64_t>(static_cast<int64_t>(static_cast<int32_t>(low))) : low;
        }
        std::u16string_view prefix;
        if (isSigned && static_cast<int64_t>(value) < 0) {
            prefix = u"-";
            value = 0 - value;
        } else if (isSigned && (spec.plus || spec.blank)) {
            prefix = spec.plus ? u"+" : u" ";
        } else if (spec.alternate && value != 0 && (spec.conversion == u'x' || spec.conversion == u'X')) {
            prefix = spec.conversion == u'x' ? u"0x" : u"0X";
        }
        Whole(prefix, value, spec);
    }

    /// Zeros in front by precision, by "#" of octal numbers, or up to the width.
    void Whole(std::u16string_view prefix, uint64_t value, const Spec& spec)
    {
        const bool hex = spec.conversion == u'x' || spec.conversion == u'X';
        const Digits digits(value, hex ? 16 : spec.conversion == u'o' ? 8 : 10, spec.conversion == u'X');
        const size_t least = spec.hasPrecision ? spec.precision : 1;
        size_t zeros = least > digits.count ? least - digits.count : 0;
        if (spec.alternate && spec.conversion == u'o' && zeros == 0)
            zeros = 1;
        const size_t used = prefix.size() + zeros + digits.count;
        if (spec.zeros && !spec.left && !spec.hasPrecision && spec.width > used)
            zeros += spec.width - used;
        char16_t ordered[std::size(digits.reversed)];
        std::reverse_copy(digits.reversed, digits.reversed + digits.count, ordered);
        Padded(prefix, zeros, {ordered, digits.count}, spec);
    }

    void Padded(std::u16string_view prefix, size_t zeros, std::u16string_view body, const Spec& spec)
    {
        const size_t used = prefix.size() + zeros + body.size();
        const size_t blanks = spec.width > used ? spec.width - used : 0;
        if (!spec.left)
            m_out.append(blanks, u' ');
        m_out.append(prefix).append(zeros, u'0').append(body);
        if (spec.left)
            m_out.append(blanks, u' ');
    }

    std::span<const VFormatArgument> m_arguments;
    Inserts m_inserts;
    VFormatLines m_lines;
    std::u16string m_out;
};

} // namespace

unsigned FormatMessageText(std::u16string_view format, std::span<const VFormatArgument> arguments, VFormatLines lines,
                           VUnicodeString& out)
{
    Writer writer(arguments, Inserts::Filled, lines);
    const unsigned code = writer.Run(format);
    if (code == kErrorSuccess)
        out = writer.Text();
    return code;
}

VUnicodeString FormatIgnoringInserts(std::u16string_view format, VFormatLines lines)
{
    Writer writer({}, Inserts::AsTyped, lines);
    writer.Run(format);
    return writer.Text();
}

VUnicodeString FormatList(std::u16string_view format, std::span<const VFormatArgument> arguments)
{
    VUnicodeString text;
    if (FormatMessageText(format, arguments, VFormatLines::Keep, text) != kErrorSuccess)
        text = FormatIgnoringInserts(format);
    return text;
}

} // namespace ostrand
