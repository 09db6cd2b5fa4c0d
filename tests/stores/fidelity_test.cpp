// Files that people and other programs wrote in all the ways that the format allows, and in some that it doesn't: a
// change moves no byte but those of its own line.
#include "profile/key.h"
#include "stores/file_document.h"
#include "stores/file_store.h"
#include "tests/crash/sim_disk.h"
#include "tests/support/memory_files.h"
#include "tests/support/recording_router.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace ostrand {
namespace {

using test::Dice;

/// A file as its writer means it: what a line says isn't taken from the code under test.
struct Line {
    std::string before; // up to the value's first byte; all of the line where it has no value
    std::string value;
    std::string after; // up to the next line's first byte
    int name = -1;     // of the value, -1: none that reads
    std::string All() const { return before + value + after; }
};

struct File {
    std::string mark;
    std::vector<Line> lines;

    std::string Text() const
    {
        std::string text = mark;
        for (const Line& line : lines)
            text += line.All();
        return text;
    }
    /// Place of the value that counts, or the number of lines.
    size_t Find(int name) const
    {
        for (size_t i = lines.size(); i-- > 0;)
            if (lines[i].name == name)
                return i;
        return lines.size();
    }
};

struct Name {
    const char16_t* asked;
    std::vector<const char*> spellings;
    const char* rendered; // as a new value has it
};

const std::array<Name, 8> kNames = {{
    {u"Scrollback", {"Scrollback", "scrollBACK", "\"Scrollback\"", "\"Scroll\\u0062ack\""}, "Scrollback"},
    {u"Max Columns", {"Max Columns", "MAX COLUMNS", "\"Max Columns\""}, "Max Columns"},
    {u"a=b", {"\"a=b\"", "\"A\\u003Db\""}, "\"a=b\""},
    {u"\u00DCber",
     {"\xC3\x9C"
      "ber",
      "\xC3\xBC"
      "BER",
      "\"\\u00dcber\""},
     "\xC3\x9C"
     "ber"},
    {u"N", {"N", "n", "\"\\u004e\""}, "N"},
    {u" blanks ", {"\" blanks \""}, "\" blanks \""},
    {u"[section]", {"\"[section]\""}, "\"[section]\""},
    {u"tab\tinside", {"tab\tinside", "\"tab\\tinside\""}, "\"tab\\tinside\""},
}};

/// Of all kinds, spelled in all ways. None stands for what the test writes.
constexpr std::array<const char*, 19> kValues = {
    "0",
    "42",
    "007",
    "4294967295",
    "0x1f",
    "0X001F",
    "0xFFFFFFFF",
    "\"\"",
    "\"text; # no comment\"",
    "\"\\\"quoted\\\" \\\\ \\n\\r\\t\\u00e4\\uD83D\\uDE00\"",
    "\"caf\xC3\xA9 \xF0\x9F\x98\x80\"",
    "\"tab\tinside\"",
    "[]",
    "[\"one\"]",
    "[ \"one\" ,\t\"two\\n\",\"\" ]",
    "hex:",
    "hex:00ffAB",
    "hex:000102030405060708090a0b0c0d0e0f",
    "later7: any = thing; \"here\"",
};

constexpr std::array<const char*, 8> kBroken = {"4294967296", "0x", "\"open", "[\"a\",]", "hex:0", "yes", "1 2", ""};

constexpr std::array<const char*, 12> kOthers = {
    "",         " ",   "\t",        "; comment",  "# comment = 1", "  ; N = 1",
    "nonsense", "= 1", "[section]", "\"open = 1", "\"N\" 1",       "=",
};

constexpr std::array<const char*, 4> kBlanks = {"", " ", "\t", "  "};

template <class List>
auto Any(Dice& dice, const List& list)
{
    return list[dice.Below(std::size(list))];
}

File MakeFile(Dice& dice)
{
    File file;
    if (dice.Below(4) == 0)
        file.mark = "\xEF\xBB\xBF";
    const bool isMixed = dice.Below(4) == 0;
    const bool isCrLf = dice.Coin();
    for (size_t left = 1 + dice.Below(14); left > 0; --left) {
        Line& line = file.lines.emplace_back();
        const std::string lineEnd = (isMixed ? dice.Coin() : isCrLf) ? "\r\n" : "\n";
        const size_t kind = dice.Below(10);
        if (kind < 2) {
            line.before = Any(dice, kOthers) + lineEnd;
            continue;
        }
        const size_t name = dice.Below(kNames.size());
        line.before = std::string(Any(dice, kBlanks)) + Any(dice, kNames[name].spellings) + Any(dice, kBlanks) + '=' +
                      Any(dice, kBlanks);
        if (kind == 2) {
            line.before += Any(dice, kBroken) + std::string(Any(dice, kBlanks)) + lineEnd;
            continue;
        }
        line.name = static_cast<int>(name);
        line.value = Any(dice, kValues);
        line.after = Any(dice, kBlanks) + lineEnd;
    }
    if (dice.Below(3) == 0 && !file.lines.back().value.empty())
        file.lines.back().after.clear();
    return file;
}

/// A value to be written, with its one spelling.
struct NewValue {
    const char* text;
    bool (*write)(VProfileKey& key, const char16_t* name);
};

const std::array<NewValue, 4> kNewValues = {{
    {"123456", [](VProfileKey& key, const char16_t* name) { return key.WriteDword(name, 123456); }},
    {"\"new \\\" text\"", [](VProfileKey& key, const char16_t* name) { return key.WriteString(name, u"new \" text"); }},
    {"[\"a\", \"b\"]",
     [](VProfileKey& key, const char16_t* name) {
         VStringArray list;
         list.Append(u"a");
         list.Append(u"b");
         return key.WriteMultiSz(name, list);
     }},
    {"hex:0102", [](VProfileKey& key, const char16_t* name) { return key.WriteBinary(name, "\x01\x02", 2); }},
}};

/// What is done to one value; none: it goes.
using Changes = std::map<size_t, const NewValue*>;

std::string Expected(File file, const Changes& changes, const std::vector<size_t>& order)
{
    const std::string text = file.Text();
    const size_t feed = text.find('\n');
    const std::string lineEnd = feed != std::string::npos && feed > 0 && text[feed - 1] == '\r' ? "\r\n" : "\n";
    for (const size_t name : order) {
        const NewValue* const value = changes.at(name);
        const size_t place = file.Find(static_cast<int>(name));
        if (!value) {
            std::erase_if(file.lines, [&](const Line& line) { return line.name == static_cast<int>(name); });
        } else if (place < file.lines.size()) {
            file.lines[place].value = value->text;
        } else {
            if (!file.lines.empty() && !file.lines.back().All().ends_with('\n'))
                file.lines.back().after += lineEnd;
            file.lines.push_back(
                {std::string(kNames[name].rendered) + " = ", value->text, lineEnd, static_cast<int>(name)});
        }
    }
    return file.Text();
}

/// Some of the values, in the order in which they are changed.
Changes MakeChanges(Dice& dice, const File& file, std::vector<size_t>& order)
{
    Changes changes;
    for (size_t left = 1 + dice.Below(3); left > 0; --left) {
        const size_t name = dice.Below(kNames.size());
        const bool isThere = file.Find(static_cast<int>(name)) < file.lines.size();
        if (changes.contains(name))
            continue;
        changes[name] = isThere && dice.Below(3) == 0 ? nullptr : &kNewValues[dice.Below(kNewValues.size())];
        order.push_back(name);
    }
    return changes;
}

TEST(Fidelity, AnEditMovesNoByteOfAnotherLine)
{
    Dice dice(7);
    for (int round = 0; round < 10'000; ++round) {
        const File file = MakeFile(dice);
        std::vector<size_t> order;
        const Changes changes = MakeChanges(dice, file, order);
        std::vector<std::string> texts(order.size());
        std::vector<ValueEdit> edits;
        for (size_t i = 0; i < order.size(); ++i) {
            const NewValue* const value = changes.at(order[i]);
            texts[i] = value ? value->text : "";
            edits.push_back({kNames[order[i]].asked, value ? &texts[i] : nullptr});
        }
        SCOPED_TRACE(testing::PrintToString(file.Text()));
        const FileDocument document(file.Text());
        const FileDocument edited(document.WithEdits(edits));
        ASSERT_EQ(edited.Text(), Expected(file, changes, order));
        ASSERT_EQ(edited.WithEdits(edits), edited.Text());
        ASSERT_EQ(document.WithEdits({}), document.Text());
    }
}

class FidelityOfStore : public testing::Test {
protected:
    FidelityOfStore() { Platform().files = &m_files; }
    const std::string& Text() { return m_files.contents["/store/Key.ini"]; }

    VPlatformScope m_scope;
    test::MemoryFiles m_files;
    test::RecordingRouter m_router;
    VReportMessageParams m_report;
};

/// Writes what is there, of whatever kind.
void WriteAsRead(VProfileKey& key, const char16_t* name)
{
    unsigned number = 0;
    VUnicodeString text;
    VStringArray list;
    std::string block(64, '\0');
    auto size = static_cast<unsigned>(block.size());
    bool isDone = true;
    if (key.ReadDword(name, &number))
        isDone = key.WriteDword(name, number);
    else if (key.ReadString(name, text))
        isDone = key.WriteString(name, text.c_str());
    else if (key.ReadMultiSz(name, list))
        isDone = key.WriteMultiSz(name, list);
    else if (key.ReadBinary(name, block.data(), &size))
        isDone = key.WriteBinary(name, block.data(), size);
    EXPECT_TRUE(isDone);
}

TEST_F(FidelityOfStore, ASaveMovesNoByteOfAnotherLine)
{
    Dice dice(8);
    for (int round = 0; round < 1500; ++round) {
        const File file = MakeFile(dice);
        std::vector<size_t> order;
        const Changes changes = MakeChanges(dice, file, order);
        SCOPED_TRACE(testing::PrintToString(file.Text()));
        m_files.contents = {{"/store/Key.ini", file.Text()}, {"/store/%store.ini", "History Versions = 0\n"}};
        FileStoreFactory factory("/store");
        const VProfileStore store(false, &factory);
        VProfileKey key(store.GetRootKey(), u"Key");
        for (const Name& name : kNames)
            WriteAsRead(key, name.asked);
        ASSERT_TRUE(key.Flush(m_report));
        ASSERT_EQ(Text(), file.Text()) << "unchanged";
        for (const size_t name : order) {
            const NewValue* const value = changes.at(name);
            ASSERT_TRUE(value ? value->write(key, kNames[name].asked) : key.DeleteValue(kNames[name].asked));
        }
        ASSERT_TRUE(key.Flush(m_report));
        ASSERT_EQ(Text(), Expected(file, changes, order));
    }
    EXPECT_TRUE(m_router.messages.empty());
}

TEST_F(FidelityOfStore, NamesThatDifferInOneSignAreTwo)
{
    const std::array<const char16_t*, 2> pairs[] = {
        {u"[1]", u"{1}"}, {u"@", u"`"}, {u"a_", u"a\u007F"}, {u"x^", u"x~"}, {u"a\\b", u"a|b"}};
    for (const auto& [first, second] : pairs) {
        m_files.contents = {{"/store", ""}, {"/store/Key.ini", "; Mine\n"}};
        FileStoreFactory factory("/store");
        const VProfileStore store(false, &factory);
        VProfileKey key(store.GetRootKey(), u"Key");
        for (const char16_t* const name : {first, second}) {
            ASSERT_TRUE(key.WriteDword(name, 1));
            ASSERT_TRUE(key.Flush(m_report));
        }
        unsigned value = 0;
        EXPECT_TRUE(VProfileKey(store.GetRootKey(), u"Key").ReadDword(first, &value)) << Text();
        EXPECT_TRUE(VProfileKey(store.GetRootKey(), u"Key").ReadDword(second, &value)) << Text();
    }
}

} // namespace
} // namespace ostrand
