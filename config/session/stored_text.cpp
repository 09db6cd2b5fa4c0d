#include "config/session/stored_text.h"

#include "core/decimal.h"
#include "core/hex.h"

namespace ostrand {

namespace {

/// Takes a number from the front; false without one, or for one above 32 bits.
bool TakeNumber(std::u16string_view& text, unsigned& number)
{
    uint64_t value = 0;
    size_t used = 0;
    for (; used < text.size() && text[used] >= u'0' && text[used] <= u'9' && value <= UINT32_MAX; ++used)
        value = value * 10 + (text[used] - u'0');
    if (used == 0 || value > UINT32_MAX)
        return false;
    number = static_cast<unsigned>(value);
    text.remove_prefix(used);
    return true;
}

struct Writer {
    VUnicodeString operator()(unsigned number) const { return VUnicodeString(u"d") + DecimalText(number); }
    VUnicodeString operator()(const VUnicodeString& text) const { return VUnicodeString(u"s") + text; }
    VUnicodeString operator()(const StoreBlock& block) const { return HexText(u"b", block); }
    VUnicodeString operator()(const VStringArray& list) const
    {
        VUnicodeString out = u"m";
        for (const VUnicodeString& text : list)
            ((out += DecimalText(text.GetLength())) += u":") += text;
        return out;
    }
    VUnicodeString operator()(const ForeignValue&) const { return {}; } // recorders meet none
};

bool ReadList(std::u16string_view text, std::optional<StoreValue>& value)
{
    VStringArray list;
    unsigned length = 0;
    while (!text.empty()) {
        if (!TakeNumber(text, length) || text.size() <= length || text.front() != u':')
            return false;
        list.Append(text.substr(1, length));
        text.remove_prefix(1 + size_t{length});
    }
    value = std::move(list);
    return true;
}

bool ReadBlock(std::u16string_view digits, std::optional<StoreValue>& value)
{
    VSecretBytes bytes;
    if (digits.size() % 2 != 0 || !ReadHex(digits, bytes))
        return false;
    value = StoreBlock(bytes.begin(), bytes.end());
    return true;
}

} // namespace

VUnicodeString StoredText(const std::optional<StoreValue>& value)
{
    return value ? std::visit(Writer(), *value) : u"-";
}

bool ReadStoredText(std::u16string_view text, std::optional<StoreValue>& value)
{
    if (text.empty())
        return false;
    const char16_t kind = text.front();
    text.remove_prefix(1);
    unsigned number = 0;
    switch (kind) {
    case u'-':
        value.reset();
        return text.empty();
    case u'd':
        if (!TakeNumber(text, number) || !text.empty())
            return false;
        value = number;
        return true;
    case u's':
        value = VUnicodeString(text);
        return true;
    case u'b':
        return ReadBlock(text, value);
    case u'm':
        return ReadList(text, value);
    default:
        return false;
    }
}

} // namespace ostrand
