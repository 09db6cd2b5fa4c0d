#include "core/fold.h"
#include "core/paths/folders.h"
#include "core/paths/path_text.h"
#include "keymap/function_names.h"
#include "keymap/keymap_file.h"
#include "keymap/virtual_keys.h"
#include "platform/error_codes.h"

#include <algorithm>
#include <string>

namespace ostrand {

namespace {

constexpr std::u16string_view kKeymapsFolder = u"keymaps";
/// Characters. A profile keeps 32000 bytes of a whole map, and 4096 lines of a screen's width are a third of a million,
/// so that what is longer than these is no key map: it is refused before it fills the memory.
constexpr size_t kLongestLine = 0x10000;
constexpr size_t kLongestFile = 0x1000000;

/// A modifier's letter, in the order in which letters are looked for.
struct Modifier {
    char16_t letter;
    unsigned mask;
};
constexpr Modifier kModifiers[] = {
    {u'N', 0}, {u'E', kExtendedKey}, {u'C', kControlHeld}, {u'S', kShiftHeld}, {u'A', kAltHeld},
};

struct Command {
    std::u16string_view name;
    unsigned code;
};
constexpr Command kCommands[] = {{u"RUN", kFunctionRun}, {u"LAUNCH", kFunctionLaunch}};

bool IsBlank(char16_t c) { return c == u' ' || c == u'\t'; }

void SkipBlanks(std::u16string_view& text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
}

/// The characters up to the first blank; takes the blank, too.
std::u16string_view TakeField(std::u16string_view& text)
{
    const auto size = static_cast<size_t>(std::find_if(text.begin(), text.end(), IsBlank) - text.begin());
    const std::u16string_view field = text.substr(0, size);
    text.remove_prefix(std::min(size + 1, text.size()));
    return field;
}

} // namespace

unsigned KeymapFileReader::Open(std::u16string_view path)
{
    const unsigned code = m_file.Open(path, VFileAccess::Read, VFileDisposition::OpenExisting);
    if (code == kErrorSuccess)
        return code;
    const VUnicodeString shipped = JoinPath(JoinPath(GetExeFolder(), kKeymapsFolder), path);
    return m_file.Open(shipped, VFileAccess::Read, VFileDisposition::OpenExisting);
}

bool KeymapFileReader::Read()
{
    VUnicodeString line;
    for (size_t left = kLongestFile; m_errors.size() < m_errorLimit; left -= std::min(left, line.GetLength() + 1)) {
        const bool isLine = m_file.ReadLine(line, std::min(left, kLongestLine));
        if (!isLine && m_file.GetError() == kErrorSuccess)
            return true;
        ++m_line;
        if (isLine) {
            ReadLine(line);
            continue;
        }
        if (m_file.GetError() != kErrorMoreData)
            Report(u"%1 (line %2!d!)", VReportMessageParams(m_file.GetError(), LibraryModule()).GetText(), m_line);
        else if (left < kLongestLine)
            Report(u"file too long, left at line %1!d!", m_line);
        else
            Report(u"line %1!d! too long", m_line);
        return false;
    }
    return false;
}

VUnicodeString KeymapFileReader::AllErrors() const
{
    std::u16string texts;
    for (const KeymapFileError& error : m_errors) {
        if (!texts.empty())
            texts += u'\n';
        texts += error.text.View();
    }
    return std::u16string_view(texts);
}

template <class... Values>
void KeymapFileReader::Report(std::u16string_view format, const Values&... values)
{
    std::u16string text(Format(format, values...).View());
    // A zero from the file would end the text for whoever shows it.
    std::replace(text.begin(), text.end(), u'\0', char16_t{0xFFFD});
    m_errors.push_back({m_line, std::u16string_view(text)});
}

std::u16string& KeymapFileReader::InCapitals(std::u16string_view field)
{
    m_capitals = field;
    for (char16_t& c : m_capitals)
        c = UpperCase(c);
    return m_capitals;
}

void KeymapFileReader::Bind(unsigned keyIndex, unsigned code, std::u16string_view text)
{
    m_keymap.SetFunction(keyIndex, code);
    m_keymap.SetString(keyIndex, text);
}

void KeymapFileReader::ReadLine(std::u16string_view line)
{
    if (line.empty())
        return;
    if (line.front() == u';') {
        m_commentSeen = true;
        return;
    }
    SkipBlanks(line);
    const std::u16string_view modifiers = TakeField(line);
    SkipBlanks(line);
    const std::u16string_view keyField = TakeField(line);
    if (modifiers.empty() || keyField.empty() || line.empty())
        return Report(u"syntax error on line %1!d!", m_line);
    const int key = ParseVirtualKey(InCapitals(keyField));
    if (key < 0)
        return Report(u"unknown virtual key '%1' on line %2!d!", m_capitals, m_line);
    ReadAction(line, static_cast<unsigned>(key) + ReadModifiers(modifiers));
}

unsigned KeymapFileReader::ReadModifiers(std::u16string_view field)
{
    std::u16string& letters = InCapitals(field);
    unsigned mask = 0;
    for (const Modifier& modifier : kModifiers) {
        const size_t found = letters.find(modifier.letter);
        if (found == std::u16string::npos)
            continue;
        letters[found] = u' ';
        mask |= modifier.mask;
    }
    for (const char16_t c : letters)
        if (c != u' ')
            Report(u"unknown modifier '%1!c!' on line %2!d!", c, m_line);
    return mask;
}

void KeymapFileReader::ReadAction(std::u16string_view action, unsigned keyIndex)
{
    SkipBlanks(action);
    if (action.starts_with(u'"')) {
        const size_t last = action.rfind(u'"');
        if (last == 0)
            Report(u"expected closing quote on line %1!d!", m_line);
        // On purpose: without its closing quote the string is empty, and bound nevertheless. Held by
        // KeymapFile.EachKindOfLineHasItsMessage.
        Bind(keyIndex, kFunctionSend, action.substr(1, last == 0 ? 0 : last - 1));
        return;
    }
    for (const Command& command : kCommands)
        if (action.starts_with(command.name))
            return ReadCommand(action, keyIndex, command.code);
    const std::u16string_view name = TakeField(action);
    const int code = FunctionCodeOf(name);
    if (code <= static_cast<int>(kFunctionSend))
        return Report(u"illegal string or unknown function, '%1', on line %2!d!", name, m_line);
    // On purpose: a string of the same key stays. Held by the known answers of key files.
    m_keymap.SetFunction(keyIndex, static_cast<unsigned>(code));
}

void KeymapFileReader::ReadCommand(std::u16string_view action, unsigned keyIndex, unsigned code)
{
    const size_t open = action.find(u"(\"");
    const size_t close = action.find(u"\")");
    if (open == std::u16string_view::npos || close == std::u16string_view::npos)
        return Report(u"syntax error on line %1!d!", m_line);
    // The two may overlap or stand the other way round, with nothing between them.
    const size_t first = open + 2;
    Bind(keyIndex, code, action.substr(first, close > first ? close - first : 0));
}

} // namespace ostrand
