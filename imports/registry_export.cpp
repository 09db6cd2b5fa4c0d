#include "imports/registry_export.h"

#include "imports/import_text.h"
#include "imports/registry_data.h"

#include <optional>
#include <utility>

namespace ostrand {

namespace {

constexpr std::u16string_view kHeader = u"Windows Registry Editor Version 5.00";
constexpr std::u16string_view kOldHeader = u"REGEDIT4";

std::optional<unsigned> HexDigit(char16_t c)
{
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    c |= 0x20; // lower case
    if (c >= u'a' && c <= u'f')
        return c - u'a' + 10;
    return std::nullopt;
}

/// A cursor over the text that counts lines.
class Reader {
public:
    Reader(std::u16string_view text, std::vector<RegistryKey>& keys, ImportFault& error)
        : m_rest(text),
          m_keys(keys),
          m_error(error)
    {
    }

    bool Read();

private:
    bool Fail(std::u16string_view what) { return FailImport(m_error, m_line, what); }
    bool IsAtEnd() const { return m_rest.empty(); }
    char16_t Peek() const { return m_rest.empty() ? u'\0' : m_rest[0]; }
    bool IsAtLineEnd() const { return IsAtEnd() || Peek() == u'\r' || Peek() == u'\n'; }
    bool Take(std::u16string_view text);
    char16_t TakeCharacter();
    void SkipBlanks();
    void SkipLine();
    /// Blanks, a comment and the line end.
    bool TakeLineEnd();
    std::u16string_view RestOfLine() const { return m_rest.substr(0, m_rest.find_first_of(u"\r\n")); }

    bool Header();
    bool Key();
    bool Value();
    bool Name(VUnicodeString& name);
    bool Data(RegistryValue& value);
    bool Text(VUnicodeString& text);
    bool Number(uint32_t& number, size_t digits, std::u16string_view wrong);
    bool Bytes(RegistryValue& value);
    bool CountItem();

    std::u16string_view m_rest;
    std::vector<RegistryKey>& m_keys;
    ImportFault& m_error;
    size_t m_line = 1;
    size_t m_items = 0;
    RegistryTexts m_texts = RegistryTexts::Utf16;
};

bool Reader::Take(std::u16string_view text)
{
    if (!m_rest.starts_with(text))
        return false;
    m_rest.remove_prefix(text.size());
    return true;
}

char16_t Reader::TakeCharacter()
{
    const char16_t c = m_rest[0];
    m_rest.remove_prefix(1);
    if (c == u'\n' || (c == u'\r' && Peek() != u'\n'))
        ++m_line;
    return c;
}

void Reader::SkipBlanks()
{
    while (Peek() == u' ' || Peek() == u'\t')
        m_rest.remove_prefix(1);
}

void Reader::SkipLine()
{
    m_rest.remove_prefix(RestOfLine().size());
    if (!IsAtEnd() && TakeCharacter() == u'\r' && Peek() == u'\n')
        TakeCharacter();
}

bool Reader::TakeLineEnd()
{
    SkipBlanks();
    if (!IsAtLineEnd() && Peek() != u';')
        return Fail(u"goes on behind its value");
    SkipLine();
    return true;
}

bool Reader::Read()
{
    if (!Header())
        return false;
    while (!IsAtEnd()) {
        SkipBlanks();
        if (IsAtLineEnd() || Peek() == u';')
            SkipLine();
        else if (!(Peek() == u'[' ? Key() : Value()))
            return false;
    }
    return true;
}

bool Reader::Header()
{
    if (Take(kOldHeader))
        m_texts = RegistryTexts::Narrow;
    else if (!Take(kHeader))
        return Fail(u"doesn't begin as a registry export");
    SkipBlanks();
    if (!IsAtLineEnd())
        return Fail(u"is an export of a version that is unknown here");
    SkipLine();
    return true;
}

bool Reader::CountItem()
{
    return ++m_items <= kMaxRegistryItems ||
           FailImport(m_error, m_line, u"is above %1!u! keys and values", kMaxRegistryItems);
}

bool Reader::Key()
{
    // A path may hold brackets, so the last one closes it.
    const std::u16string_view line = RestOfLine();
    const size_t end = line.rfind(u']');
    if (end == std::u16string_view::npos)
        return Fail(u"has a key without ']'");
    const bool isDeleted = line.size() > 1 && line[1] == u'-';
    const size_t start = isDeleted ? 2 : 1;
    if (end <= start)
        return Fail(u"has a key without a name");
    m_keys.push_back({line.substr(start, end - start), isDeleted, m_line, {}});
    m_rest.remove_prefix(end + 1);
    return CountItem() && TakeLineEnd();
}

bool Reader::Value()
{
    if (m_keys.empty())
        return Fail(u"stands in front of the first key");
    RegistryValue value;
    value.line = m_line;
    if (!Name(value.name))
        return false;
    SkipBlanks();
    if (!Take(u"="))
        return Fail(u"has no '=' behind its name");
    SkipBlanks();
    if (!Data(value))
        return false;
    m_keys.back().values.push_back(std::move(value));
    return CountItem() && TakeLineEnd();
}

bool Reader::Name(VUnicodeString& name)
{
    if (Take(u"@"))
        return true;
    if (Peek() != u'"')
        return Fail(u"is neither a key nor a value");
    return Text(name);
}

bool Reader::Text(VUnicodeString& text)
{
    const size_t line = m_line;
    std::u16string read;
    for (TakeCharacter(); !IsAtEnd() && Peek() != u'"';) {
        // A lone backslash stands for itself: some programs write none but quotes with one in front.
        if (Peek() == u'\\' && m_rest.size() > 1 && (m_rest[1] == u'\\' || m_rest[1] == u'"'))
            TakeCharacter();
        read += TakeCharacter();
    }
    if (!Take(u"\"")) {
        m_line = line;
        return Fail(u"has a text without its closing quote");
    }
    text = std::u16string_view(read);
    return true;
}

bool Reader::Data(RegistryValue& value)
{
    if (Peek() == u'"') {
        value.kind = kRegistryText;
        return Text(value.data.emplace<VUnicodeString>());
    }
    if (Take(u"dword:")) {
        value.kind = kRegistryNumber;
        return Number(value.data.emplace<uint32_t>(), 8, u"has no hexadecimal number behind 'dword:'");
    }
    if (Take(u"hex"))
        return Bytes(value);
    return Take(u"-") || Fail(u"has data of an unknown form");
}

bool Reader::Number(uint32_t& number, size_t digits, std::u16string_view wrong)
{
    number = 0;
    size_t taken = 0;
    for (; taken < digits; ++taken) {
        const auto digit = HexDigit(Peek());
        if (!digit)
            break;
        number = number << 4 | *digit;
        m_rest.remove_prefix(1);
    }
    return (taken > 0 && !HexDigit(Peek())) || Fail(wrong);
}

bool Reader::Bytes(RegistryValue& value)
{
    value.kind = kRegistryBytes;
    if (Take(u"(") && (!Number(value.kind, 8, u"has no kind in 'hex()'") || !Take(u")")))
        return Fail(u"has no kind in 'hex()'");
    if (!Take(u":"))
        return Fail(u"has no ':' behind 'hex'");
    RegistryBytes bytes;
    for (;;) {
        SkipBlanks();
        if (Take(u"\\")) {
            SkipBlanks();
            if (!IsAtLineEnd() || IsAtEnd())
                return Fail(u"has a backslash in the middle of a line");
            SkipLine();
            continue;
        }
        if (bytes.empty() && (IsAtLineEnd() || Peek() == u';'))
            break;
        uint32_t byte = 0;
        if (!Number(byte, 2, u"has something other than bytes behind 'hex:'"))
            return false;
        bytes.push_back(static_cast<uint8_t>(byte));
        SkipBlanks();
        if (!Take(u","))
            break;
    }
    value.data = TypedRegistryData(value.kind, std::move(bytes), m_texts);
    return true;
}

} // namespace

bool IsRegistryExport(std::string_view bytes)
{
    constexpr size_t kEnough = 256;
    VUnicodeString start;
    DecodeFile(bytes.substr(0, kEnough), start);
    return start.View().starts_with(kHeader) || start.View().starts_with(kOldHeader);
}

bool ReadRegistryExport(std::string_view bytes, std::vector<RegistryKey>& keys, ImportFault& error)
{
    keys.clear();
    if (!FitsImport(bytes, error))
        return false;
    VUnicodeString text;
    const bool isWhole = DecodeFile(bytes, text);
    if (!Reader(text, keys, error).Read())
        return false;
    return isWhole || FailImport(error, 0, u"ends in the middle of a character");
}

} // namespace ostrand
