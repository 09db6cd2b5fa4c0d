#include "keymap/key_block.h"

#include "core/code_page.h"
#include "core/utf8.h"
#include "keymap/function_names.h"
#include "keymap/keymap.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace ostrand {

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr size_t kNumberSize = 4;
constexpr char16_t kReplacement = 0xFFFD;

template <class Text>
bool IsAscii(Text text)
{
    return std::all_of(text.begin(), text.end(), [](auto c) { return (c & ~0x7F) == 0; });
}

VUnicodeString DecodeUtf8(std::string_view bytes)
{
    if (IsAscii(bytes))
        return FromCodePage(bytes); // the same characters, in one go
    VUnicodeString text;
    if (FromUtf8(bytes, text))
        return text;
    std::u16string repaired;
    while (!bytes.empty()) {
        char32_t c = 0;
        const unsigned taken = TakeUtf8(bytes, c);
        PutUtf16(taken == 0 ? kReplacement : c, repaired);
        bytes.remove_prefix(std::max(taken, 1u));
    }
    return std::u16string_view(repaired);
}

/// A stored text, as it stands.
struct StoredText {
    bool isUtf8;
    std::string_view bytes;

    VUnicodeString Decode() const { return isUtf8 ? DecodeUtf8(bytes) : FromCodePage(bytes); }
};

class Reader {
public:
    explicit Reader(std::span<const uint8_t> block) : m_rest(reinterpret_cast<const char*>(block.data()), block.size())
    {
    }

    bool AtEnd() const { return m_rest.empty(); }

    bool TakeNumber(uint32_t& number)
    {
        if (m_rest.size() < kNumberSize)
            return false;
        number = 0;
        for (const char b : m_rest.substr(0, kNumberSize))
            number = number << 8 | static_cast<unsigned char>(b);
        m_rest.remove_prefix(kNumberSize);
        return true;
    }

    StoredText TakeText()
    {
        // Three bytes alone are a text, not a mark.
        const bool isUtf8 = m_rest.size() > kMark.size() && m_rest.starts_with(kMark);
        if (isUtf8)
            m_rest.remove_prefix(kMark.size());
        const StoredText text{isUtf8, m_rest.substr(0, m_rest.find('\0'))};
        m_rest.remove_prefix(std::min(text.bytes.size() + 1, m_rest.size()));
        return text;
    }

private:
    std::string_view m_rest;
};

class Writer {
public:
    void PutNumber(size_t at, uint32_t number)
    {
        for (size_t i = 0; i < kNumberSize; ++i)
            bytes[at + i] = static_cast<uint8_t>(number >> (8 * (kNumberSize - 1 - i)));
    }
    void AppendNumber(uint32_t number)
    {
        bytes.resize(bytes.size() + kNumberSize);
        PutNumber(bytes.size() - kNumberSize, number);
    }
    void AppendText(std::u16string_view text)
    {
        bytes.insert(bytes.end(), kMark.begin(), kMark.end());
        text = text.substr(0, text.find(u'\0'));
        if (IsAscii(text)) {
            bytes.insert(bytes.end(), text.begin(), text.end());
        } else {
            ToUtf8(text, m_utf8);
            bytes.insert(bytes.end(), m_utf8.begin(), m_utf8.end());
        }
        bytes.push_back(0);
    }

    std::vector<uint8_t> bytes;

private:
    std::string m_utf8; // one buffer for all texts
};

} // namespace

KeyBlockEnd ReadKeyBlock(std::span<const uint8_t> block, IKeymap& keymap)
{
    Reader reader(block);
    uint32_t count = 0;
    if (!reader.TakeNumber(count))
        return KeyBlockEnd::NoCount;
    for (; count > 0 && !reader.AtEnd(); --count) {
        uint32_t index = 0;
        if (!reader.TakeNumber(index))
            return KeyBlockEnd::InAnIndex;
        const StoredText name = reader.TakeText();
        const StoredText argument = reader.TakeText();
        // Names are ASCII, in which both encodings agree.
        const int code = FunctionCodeOf(name.bytes);
        if (code <= static_cast<int>(kFunctionNone))
            continue;
        keymap.SetFunction(index, static_cast<unsigned>(code));
        keymap.SetString(index, argument.Decode());
    }
    return KeyBlockEnd::Whole;
}

std::vector<uint8_t> WriteKeyBlock(const KeyBindings& bindings)
{
    Writer writer;
    writer.bytes.reserve(kLargestKeyBlock);
    writer.AppendNumber(0);
    uint32_t count = 0;
    for (unsigned index = 0; index < kKeyCount; ++index) {
        const uint32_t code = bindings.Function(index);
        if (code == kFunctionNone)
            continue;
        writer.AppendNumber(index);
        writer.AppendText(FunctionNameOf(code));
        writer.AppendText(bindings.String(index));
        ++count;
    }
    writer.PutNumber(0, count);
    return std::move(writer.bytes);
}

} // namespace ostrand
