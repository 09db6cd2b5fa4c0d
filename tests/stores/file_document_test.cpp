#include "stores/file_check.h"
#include "stores/file_document.h"
#include "stores/file_format.h"
#include "stores/file_render.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

namespace ostrand {
namespace {

std::string Edit(const std::string& text, const char16_t* name, const char* value)
{
    const std::string rendered = value ? value : "";
    const ValueEdit edit{name, value ? &rendered : nullptr};
    return FileDocument(text).WithEdits({&edit, 1});
}

std::string ValueOf(const FileDocument& document, const char16_t* name)
{
    const FileDocument::Found found = document.FindWhole(name);
    return found ? std::string(ValueText(found.value)) : "missing";
}

TEST(FileDocument, AnEditMovesOnlyItsOwnBytes)
{
    struct Case {
        const char* what;
        std::string text;
        const char16_t* name;
        const char* value; // null deletes
        std::string expected;
    };
    const Case cases[] = {
        {"a line that comes first is no mark of the file",
         "B = 1\n\xEF\xBB\xBF"
         "A = 2\n",
         u"B", nullptr,
         "\n\xEF\xBB\xBF"
         "A = 2\n"},
        {"spacing and spelling of the line stay", "  a  name =\t0x10 \t\nB = 1\n", u"A  NAME", "17",
         "  a  name =\t17 \t\nB = 1\n"},
        {"comments and blank lines stay", "; head\n\nA = 1\n# tail\n", u"A", "2", "; head\n\nA = 2\n# tail\n"},
        {"CR LF stays", "A = 1\r\nB = 2\r\n", u"A", "\"x\"", "A = \"x\"\r\nB = 2\r\n"},
        {"new lines end as the others", "A = 1\r\n", u"B", "2", "A = 1\r\nB = 2\r\n"},
        {"a byte-order mark stays first",
         "\xEF\xBB\xBF"
         "A = 1\n",
         u"A", nullptr, "\xEF\xBB\xBF"},
        {"behind a mark alone", "\xEF\xBB\xBF", u"A", "1",
         "\xEF\xBB\xBF"
         "A = 1\n"},
        {"a last line without an end gets one", "A = 1", u"B", "2", "A = 1\nB = 2\n"},
        {"or the rest of one", "A = 1\r\nB = 1\r", u"C", "2", "A = 1\r\nB = 1\r\nC = 2\r\n"},
        {"and is edited without one", "A = 1", u"A", "2", "A = 2"},
        {"into an empty file", "", u"a = b", "2", "\"a = b\" = 2\n"},
        {"of duplicates the last changes", "A = 1\na = 2\nB = 3\n", u"A", "9", "A = 1\na = 9\nB = 3\n"},
        {"a deletion takes all of them", "A = 1\na = 2\nB = 3\nA = 4", u"A", nullptr, "B = 3\n"},
        {"a broken line stays beside its new value", "A = oops\nB = 1\n", u"A", "2", "A = oops\nB = 1\nA = 2\n"},
        {"a broken duplicate doesn't count", "A = 1\nA = oops\n", u"A", "2", "A = 2\nA = oops\n"},
        {"nor goes with a deletion", "A = 1\nA = oops\n", u"A", nullptr, "A = oops\n"},
        {"nothing to delete", "A = 1\n", u"B", nullptr, "A = 1\n"},
        {"a later kind is replaced", "A = qword:1 \n", u"A", "2", "A = 2 \n"},
        {"quoted names keep their spelling", "\"\\u0041\" = 1\n", u"a", "2", "\"\\u0041\" = 2\n"},
        {"an equals sign in a name is none of the line's", "\"A=\" = 1\nA = 2\n", u"A=", "3", "\"A=\" = 3\nA = 2\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(Edit(c.text, c.name, c.value), c.expected);
    }
}

TEST(FileDocument, SeveralEditsAreAppendedInTheirOrder)
{
    const std::string one = "1";
    const ValueEdit edits[] = {{u"New z", &one}, {u"C", &one}, {u"New a", &one}, {u"A", nullptr}};
    EXPECT_EQ(FileDocument("A = 0\nB = 0\nC = 0\n").WithEdits(edits), "B = 0\nC = 1\nNew z = 1\nNew a = 1\n");
}

TEST(FileDocument, ANameIsFoundFromAnyGuess)
{
    std::string text;
    constexpr size_t kCount = 600; // past the small form of the index
    const auto nameOf = [](size_t i) { return "Value " + std::to_string(i) + (i % 7 == 0 ? " \xC3\x84" : ""); };
    const auto wide = [](const std::string& s) {
        VUnicodeString w;
        FromUtf8(s, w);
        return w;
    };
    for (size_t i = 0; i < kCount; ++i)
        text += nameOf(i) + " = " + std::to_string(i) + "\n";
    const FileDocument document(text);
    for (const size_t step : {size_t{1}, size_t{7}, kCount - 1}) {
        size_t next = 0;
        for (size_t i = 0; i < kCount; ++i) {
            const size_t wanted = i * step % kCount;
            const FileDocument::Found found = document.Find(wide(nameOf(wanted)).c_str(), next);
            ASSERT_TRUE(found) << wanted;
            EXPECT_EQ(ValueText(found.value), std::to_string(wanted));
            EXPECT_EQ(document.LineOf(found.entry), wanted + 1);
        }
    }
    size_t next = 5; // what the guess meets there is longer, shorter, or differs at the end
    for (const char16_t* const near : {u"Value", u"Value 55", u"Value 5 ", u"Value 5 =", u"", u"Value 5 = 5"})
        EXPECT_FALSE(document.Find(near, next) && document.NameAt(next - 1) != near) << ToUtf8(near);
    EXPECT_TRUE(document.Find(u"vALUE 5", next));
}

/// A file of every kind of line, and what it holds.
struct Generated {
    std::vector<std::string> lines;
    std::map<std::u16string, size_t> values; // number of the line that counts
    std::string Text() const
    {
        std::string text;
        for (const std::string& line : lines)
            text += line;
        return text;
    }
};

std::string RandomValue(std::mt19937& random)
{
    switch (random() % 8) {
    case 0:
        return "0x" + std::string(1 + random() % 8, 'f');
    case 1:
        return "\"text \\\" \\\\ \xC3\xA9 " + std::to_string(random()) + "\"";
    case 2:
        return "[\"a\" ,\"" + std::to_string(random() % 100) + "\"]";
    case 3:
        return "hex:" + std::string(2 * (random() % 20), 'A');
    case 4:
        return "later:kind " + std::to_string(random());
    default:
        return std::to_string(random());
    }
}

Generated Generate(std::mt19937& random)
{
    static const char* const silent[] = {"; comment = 1",
                                         "",
                                         "   ",
                                         "# x",
                                         "no value here",
                                         "[section]",
                                         "\xFF\xFE = 1",
                                         "Broken = \"open",
                                         "= 5",
                                         "<<<<<<< ours",
                                         "\"bad \\q\" = 1"};
    const std::string end = random() % 4 == 0 ? "\r\n" : "\n";
    Generated file;
    const size_t count = random() % 40;
    for (size_t i = 0; i < count; ++i) {
        if (random() % 3 == 0) {
            file.lines.push_back(silent[random() % std::size(silent)] + end);
            continue;
        }
        const std::string number = std::to_string(random() % 30);
        const std::u16string name = u"Name " + std::u16string(number.begin(), number.end());
        const std::string spelled = (random() % 2 ? "NAME " : "\"Name ") + number;
        const std::string blanks(random() % 3, ' ');
        file.values[name] = file.lines.size();
        file.lines.push_back(blanks + spelled + (spelled[0] == '"' ? "\"" : "") + blanks + "=" + blanks +
                             RandomValue(random) + blanks + end);
    }
    return file;
}

TEST(FileDocument, KChangedValuesTouchKLines)
{
    std::mt19937 random(20240607);
    size_t changes = 0;
    for (int round = 0; round < 5000; ++round) {
        Generated file = Generate(random);
        const std::string before = file.Text();
        std::vector<std::u16string> names;
        std::vector<std::string> values;
        for (const auto& [name, line] : file.values)
            if (random() % 4 == 0)
                names.push_back(name);
        std::shuffle(names.begin(), names.end(), random);
        for (size_t i = 0; i < names.size(); ++i)
            values.push_back(RenderDword(static_cast<unsigned>(random())));
        std::vector<ValueEdit> edits;
        for (size_t i = 0; i < names.size(); ++i) {
            edits.push_back({names[i].c_str(), &values[i]});
            std::string& line = file.lines[file.values[names[i]]];
            const size_t value = line.find_first_not_of(' ', line.find('=') + 1);
            line.replace(value, line.find_last_not_of(" \r\n") + 1 - value, values[i]);
        }
        const FileDocument document(before);
        const std::string after = document.WithEdits(edits);
        ASSERT_EQ(after, file.Text()) << "round " << round << "\n" << before;
        const FileDocument changed(after);
        for (size_t i = 0; i < names.size(); ++i)
            ASSERT_EQ(ValueOf(changed, names[i].c_str()), values[i]);
        changes += names.size();
    }
    EXPECT_GT(changes, 10000u);
}

TEST(FileCheck, EachFaultHasItsLine)
{
    using Kind = FileFaultKind;
    struct Case {
        std::string text;
        std::vector<FileFault> faults;
    };
    const Case cases[] = {
        {"", {}},
        {"; all good\r\nA = 1\r\n\r\n\"B\" = [\"x\"]\r\nC = later:1\r\n", {}},
        {"\xEF\xBB\xBF"
         "A = 1\n",
         {}},
        {"A = 1\nB = \"open\nnonsense\n= 1\n[x]\n",
         {{Kind::Unparseable, 2, u"B"},
          {Kind::Unparseable, 3, u""},
          {Kind::Unparseable, 4, u""},
          {Kind::Unparseable, 5, u""}}},
        {"\xC3\x84 = 1\nB = 1\n\xC3\xA4 = 2\n\xC3\x84 = 3\n",
         {{Kind::DuplicateName, 1, u"\u00C4"}, {Kind::DuplicateName, 3, u"\u00C4"}}},
        {"A = oops\nA = 1\n", {{Kind::Unparseable, 1, u"A"}}},
        {std::string("A = 1\n\0\0\0", 9), {{Kind::ZeroByte, 2, u""}, {Kind::NoLastLineEnd, 2, u""}}},
        {"; caf\xE9\nA = \"\xE9\"\n", {{Kind::InvalidUtf8, 1, u""}, {Kind::InvalidUtf8, 2, u""}}},
        {"<<<<<<< ours\nA = 1\n=======\nA = 2\n>>>>>>> theirs\n",
         {{Kind::ConflictMark, 1, u""},
          {Kind::DuplicateName, 2, u"A"},
          {Kind::ConflictMark, 3, u""},
          {Kind::ConflictMark, 5, u""}}},
        {"A = 1\nB = 2", {{Kind::NoLastLineEnd, 2, u""}}},
        {"A = 1\nB = \"cut", {{Kind::CutLine, 2, u"B"}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const std::vector<FileFault> faults = CheckText(c.text);
        ASSERT_EQ(faults.size(), c.faults.size());
        for (size_t i = 0; i < faults.size(); ++i) {
            EXPECT_EQ(faults[i].kind, c.faults[i].kind) << i;
            EXPECT_EQ(faults[i].line, c.faults[i].line) << i;
            EXPECT_TRUE(faults[i].name == c.faults[i].name || faults[i].kind == Kind::DuplicateName) << i;
            EXPECT_GT(std::u16string_view(DescribeFault(faults[i].kind)).size(), 10u);
        }
    }
}

} // namespace
} // namespace ostrand
