// What short cuts in reading could get wrong: layouts that files share, and names that are found without cutting a
// file into lines. The judge is a document that takes no short cut.
#include "stores/file_document.h"
#include "stores/file_format.h"
#include "stores/value_bases.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace ostrand {
namespace {

constexpr size_t kNames = 40;

std::string NameOf(size_t i)
{
    static const char* const kinds[] = {"Value ", "Max Columns ", "M\xC3\xBCnze ", "x", "Quoted = "};
    return kinds[i % 5] + std::to_string(i);
}

std::string SpelledNameOf(size_t i) { return i % 5 == 4 ? '"' + NameOf(i) + '"' : NameOf(i); }

std::string Record(unsigned seed, const std::string& lineEnd = "\n")
{
    std::mt19937 random(seed);
    std::string text;
    for (size_t i = 0; i < kNames; ++i)
        text += SpelledNameOf(i) + " = " +
                (random() % 2 ? std::to_string(random()) : '"' + std::string(random() % 30, 'v') + '"') + lineEnd;
    return text;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    return text.replace(text.find(from), from.size(), to);
}

void ExpectSameDocument(const FileDocument& document, const FileDocument& judge)
{
    ASSERT_EQ(document.Count(), judge.Count());
    for (size_t i = 0; i < judge.Count(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(document.NameAt(i), judge.NameAt(i));
        EXPECT_EQ(ValueText(document.ValueAt(i)), ValueText(judge.ValueAt(i)));
        EXPECT_EQ(document.LineOf(i), judge.LineOf(i));
        EXPECT_EQ(document.IsLast(i), judge.IsLast(i));
        EXPECT_EQ(document.HashOf(i), HashName(judge.NameAt(i)));
        for (const size_t guess : {i, i + 1, size_t{0}}) {
            size_t next = guess;
            size_t judgesNext = guess;
            const std::u16string name = judge.NameAt(i);
            EXPECT_EQ(document.Find(name.c_str(), next).entry, judge.Find(name.c_str(), judgesNext).entry);
            EXPECT_EQ(next, judgesNext);
        }
    }
}

TEST(NameLayout, FilesWithTheSameNamesShareOneAndOthersAreReadAsThemselves)
{
    const std::string record = Record(1);
    const std::string name = NameOf(5) + " = ";
    struct Case {
        const char* what;
        std::string text;
        bool isShared;
    };
    const Case cases[] = {
        {"other values", Record(2), true},
        {"CR LF", Record(3, "\r\n"), true},
        {"a byte-order mark", "\xEF\xBB\xBF" + Record(4), true},
        {"comments, blank and broken lines between", "; head = 1\n\n" + Replaced(record, name, "no value\n" + name),
         true},
        {"something behind", record + "; tail = 1\n\nbroken", true},
        {"no last line end", record.substr(0, record.size() - 1), true},
        {"other blanks", Replaced(record, name, "  " + NameOf(5) + "=\t"), true},
        {"a broken value", Replaced(record, name, name + "\\"), true},
        {"another case", Replaced(record, name, "vALUE 5 = "), true}, // the same names, so its own at once
        {"a name in quotes", Replaced(record, name, "\"Value 5\" = "), true},
        {"a longer name", Replaced(record, name, "Value 5 more = "), false},
        {"a shorter name", Replaced(record, name, "Value = "), false},
        {"one more at the front", "New = 1\n" + record, false},
        {"one more behind", record + "New = 1\n", false},
        {"one twice", record + "VALUE 5 = 77\n", false},
        {"one twice, cut", record + "VALUE 5 = \"c", false},
        {"one missing", Replaced(record, name, "; " + name), false},
        {"the last one missing", record.substr(0, record.rfind('\n', record.size() - 2) + 1), false},
        {"another order", Record(5).substr(100) + Record(5).substr(0, 100), false},
        {"the beginning of a name", record.substr(0, record.find(name) + 4), false},
        {"nothing", "", false},
    };
    LayoutPool pool;
    for (const std::string& text : {record, Record(9)})
        FileDocument(text, &pool).Cut();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const FileDocument document(c.text, &pool);
        ExpectSameDocument(document, FileDocument(c.text));
        EXPECT_EQ(document.Layout()->IsShared(), c.isShared);
    }
    // Each of them was seen now, and becomes a layout of its own, as far as the pool goes.
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ExpectSameDocument(FileDocument(c.text, &pool), FileDocument(c.text));
    }
}

/// Lines of few names, spelled in all ways, some of them broken.
std::string RandomText(std::mt19937& random)
{
    static const char* const names[] = {"Alpha Beta",           "ALPHA BETA",   "alpha beta",  "\"Alpha Beta\"",
                                        "\"\\u0041lpha Beta\"", "Alpha Betb",   "Alpha  Beta", "Blpha Beta",
                                        " Alpha Beta",          "\tAlpha Beta", "Alpha",       "Alpha Beta a"};
    static const char* const values[] = {" = 1", "=\"text\"", " = oops", " = hex:0a", " "};
    std::string text = random() % 8 == 0 ? "\xEF\xBB\xBF" : "";
    const size_t lines = 20 + random() % 30;
    for (size_t i = 0; i < lines; ++i) {
        const bool isRare = random() % 12 == 0;
        text += isRare ? std::string(names[random() % std::size(names)]) + values[random() % std::size(values)]
                       : "Other name " + std::to_string(random() % 1000) + " = " + std::to_string(random());
        text += random() % 20 == 0 ? "\n\n" : random() % 20 == 0 ? "\r\n" : "\n";
    }
    return random() % 4 == 0 ? text.substr(0, text.size() - 1 - random() % 12) : text;
}

TEST(FileDocument, ANameIsFoundAlikeBeforeAndAfterTheCut)
{
    std::mt19937 random(20261124);
    size_t found = 0;
    size_t uncut = 0;
    for (int round = 0; round < 4000; ++round) {
        const std::string text = RandomText(random);
        SCOPED_TRACE(text);
        const FileDocument judge(text);
        judge.Cut();
        for (const char16_t* const name : {u"Alpha Beta", u"ALPHA BETA", u"Alpha", u"a", u"Other name 7", u""}) {
            const FileDocument document(text);
            const FileDocument::Found expected = judge.FindWhole(name);
            const FileDocument::Found is = document.FindWhole(name);
            ASSERT_EQ(static_cast<bool>(is), static_cast<bool>(expected));
            if (!is)
                continue;
            ASSERT_EQ(is.value, expected.value);
            ++found;
            uncut += !document.IsCut();
            document.MarkRead(is.entry);
            if (round % 2 == 0)
                document.Cut();
            std::vector<uint64_t> read;
            document.TakeRead([&](size_t entry) { read.push_back(document.HashOf(entry)); });
            ASSERT_EQ(read, std::vector<uint64_t>{HashName(name)});
        }
    }
    EXPECT_GT(uncut, 500u);
    EXPECT_GT(found, uncut);
}

TEST(ValueBases, ValuesOfALayoutAndOthersAreOneSet)
{
    LayoutPool pool;
    const auto layoutOf = [&](const std::string& text) {
        FileDocument(text, &pool).Cut();
        const FileDocument document(text, &pool);
        document.Cut();
        return document.Layout();
    };
    const auto first = layoutOf("A = 1\nB = 1\nC = 1\n");
    const auto second = layoutOf("C = 1\nA = 1\nD = 1\n");
    const auto a = HashName(u"A");
    const auto b = HashName(u"B");
    const auto d = HashName(u"D");
    ValueBases bases;
    const auto expect = [&](uint64_t name, uint64_t value) {
        EXPECT_EQ(bases.Compare(name, value), BaseRelation::Same);
        EXPECT_EQ(bases.Compare(name, value + 8), BaseRelation::Different);
    };
    bases.Set(a, 10);
    bases.Set(d, 20);
    bases.Use(first);
    expect(a, 10);
    EXPECT_EQ(bases.Compare(b, 10), BaseRelation::NoBase);
    bases.SetAt(1, 30);
    bases.SetIfNew(b, 31);
    bases.SetIfNew(a, 11);
    expect(a, 10);
    expect(b, 30);
    bases.SetAt(0, 40);
    bases.Use(second);
    expect(a, 40);
    expect(b, 30);
    expect(d, 20);
    bases.Set(a, ValueBases::kNoValue);
    expect(a, ValueBases::kNoValue);
    EXPECT_FALSE(bases.IsEmpty());
}

} // namespace
} // namespace ostrand
