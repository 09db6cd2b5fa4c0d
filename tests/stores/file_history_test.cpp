#include "stores/file_history.h"

#include "stores/file_document.h"
#include "stores/iso_time.h"
#include "stores/store_options.h"
#include "tests/support/fake_platform.h"
#include "tests/support/faulty_files.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace ostrand {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Sixteen digits in a row become "HASH".
std::string WithoutHashes(std::string text)
{
    for (size_t at = 0; at + 16 <= text.size(); ++at)
        if (text.find_first_not_of("0123456789abcdef", at) >= at + 16)
            text.replace(at, 16, "HASH");
    return text;
}

constexpr uint64_t kNoon = 134'253'936'000'000'000; // 8 June 2026

/// One key's file, its log and what the store remembers of it.
class FileHistory : public testing::Test {
protected:
    FileHistory() { m_platform.clock.fileTime = kNoon; }

    unsigned Save(const std::string& after, const HistoryNote& note = {.by = "tessaly"})
    {
        m_platform.clock.fileTime += 10'000'000;
        const unsigned code = Log().Append(m_key, m_text, after, note, m_memo);
        m_text = after;
        return code;
    }
    /// The log as some other process sees it.
    ostrand::FileHistory Log() const { return {m_folder.Path(), m_limits}; }
    std::string LogFile() const { return std::filesystem::relative(Log().LogOf(m_key), m_folder.Path()).string(); }

    std::vector<StoreVersion> Versions(const std::string* current)
    {
        std::vector<StoreVersion> versions;
        EXPECT_EQ(Log().List(m_key, {current, 0}, versions), kErrorSuccess);
        return versions;
    }
    std::vector<unsigned> Numbers(const std::string* current)
    {
        std::vector<unsigned> numbers;
        for (const StoreVersion& version : Versions(current))
            numbers.push_back(version.number);
        return numbers;
    }
    std::string Read(unsigned number, const std::string* current = nullptr)
    {
        std::string text;
        const unsigned code = Log().Read(m_key, {current, 0}, number, text);
        return code == kErrorSuccess ? text : "code " + std::to_string(code);
    }
    std::string Last()
    {
        std::string text;
        const unsigned code = Log().ReadLast(m_key, text);
        return code == kErrorSuccess ? text : "code " + std::to_string(code);
    }

    test::TempFolder m_folder;
    test::FakePlatform m_platform;
    HistoryLimits m_limits;
    HistoryMemo m_memo;
    std::string m_key = "Sessions/Router 1";
    std::string m_text; // of the key's file
};

TEST_F(FileHistory, ALogCanBeReadByPeople)
{
    m_text = "A = 1\nB = 1\n";
    Save("A = 2\nB = 1\n", {.by = "tessaly", .conflicts = {u"A"}, .editTime = kNoon});
    m_text += "C = \"no end\"";
    Save("", {.by = "ostrandcfg", .isDeletion = true});
    EXPECT_EQ(WithoutHashes(m_folder.Read("%history/Sessions/Router 1.log")),
              "version 1 2026-06-08T12:00:00.0000000Z full HASH\n"
              "@0\n"
              "+A = 1\n"
              "+B = 1\n"
              "end 000001 000000116 HASH\n"
              "version 2 2026-06-08T12:00:01.0000000Z step HASH by \"tessaly\" conflict \"A\"\n"
              "@0\n"
              "-A = 1\n"
              "+A = 2\n"
              "end 000002 000000142 HASH\n"
              "version 3 - step HASH\n"
              "@12\n"
              "+C = \"no end\"\n"
              "\\\n"
              "end 000003 000000092 HASH\n"
              "version 4 2026-06-08T12:00:02.0000000Z step HASH deleted by \"ostrandcfg\"\n"
              "@0\n"
              "-A = 2\n"
              "-B = 1\n"
              "-C = \"no end\"\n"
              "\\\n"
              "end 000004 000000156 HASH\n");
    EXPECT_EQ(HashText("A = 1\nB = 1\n"), 0x69d7527715c4aa4eu) << "written in files: never another";
    EXPECT_EQ(std::filesystem::status(m_folder.Path("%history/Sessions")).permissions(), std::filesystem::perms(0700));
    EXPECT_EQ(std::filesystem::status(m_folder.Path(LogFile())).permissions(), std::filesystem::perms(0600));
}

TEST_F(FileHistory, VersionsSayWhoWhenAndWhatElse)
{
    m_text = "A = 1\n";
    Save("A = 2\n", {.by = "tessaly", .conflicts = {u"A", u"\xD800"}, .editTime = kNoon});
    m_text = "A = 3\n"; // by other means
    Save("A = 4\n", {.by = "orv\"ane", .editTime = kNoon + 1});
    Save("", {.by = "ostrandcfg", .isDeletion = true});
    Save("", {.by = "ostrandcfg", .isDeletion = true});
    const std::string current = "A = 5\n";
    const std::vector<StoreVersion> versions = Versions(&current);
    struct {
        std::string by, text;
        uint64_t time;
        bool isDeleted;
    } const expected[] = {
        {"", "A = 1\n", kNoon, false},
        {"tessaly", "A = 2\n", kNoon + 10'000'000, false},
        {"", "A = 3\n", kNoon + 1, false},
        {"orv\"ane", "A = 4\n", kNoon + 20'000'000, false},
        {"ostrandcfg", "", kNoon + 30'000'000, true},
        {"ostrandcfg", "", kNoon + 40'000'000, true},
        {"", "A = 5\n", 0, false},
    };
    ASSERT_EQ(versions.size(), std::size(expected));
    for (unsigned i = 0; i < versions.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(versions[i].number, i + 1);
        EXPECT_EQ(versions[i].by, expected[i].by);
        EXPECT_EQ(versions[i].time, expected[i].time);
        EXPECT_EQ(versions[i].isDeleted, expected[i].isDeleted);
        EXPECT_EQ(Read(i + 1, &current), expected[i].text);
    }
    EXPECT_THAT(versions[1].conflicts, ElementsAre(VUnicodeString(u"A"), VUnicodeString(u"\xD800")));
    EXPECT_EQ(Read(8, &current), "code 2");
    EXPECT_EQ(Last(), "code 2") << "a deleted key has no good text";
    EXPECT_EQ(Versions(nullptr).size(), 6u);
}

TEST_F(FileHistory, NothingIsRecordedWhereNothingHappens)
{
    Save("");
    Save("", {.by = "tessaly", .isDeletion = true});
    EXPECT_THAT(Numbers(&m_text), IsEmpty());
    EXPECT_EQ(Last(), "code 2");
    m_text = "A = 1\n";
    EXPECT_THAT(Numbers(&m_text), ElementsAre(1)) << "the first save will record it under this number";
    EXPECT_EQ(Read(1, &m_text), "A = 1\n");
    Save(m_text);
    m_limits.versions = 0;
    Save("A = 2\n");
    EXPECT_EQ(m_folder.Read(LogFile()), "");
}

TEST_F(FileHistory, EveryVersionComesBackWhoeverAppends)
{
    std::mt19937 random(3);
    m_limits = {.versions = 1000, .bytes = 1u << 24};
    std::vector<std::string> texts;
    std::vector<std::string> lines(40, "Value = 1\n");
    for (int i = 0; i < 200; ++i) {
        for (size_t changes = 1 + random() % 4; changes > 0; --changes)
            lines[random() % lines.size()] = std::to_string(random()) + std::string(random() % 300, 'x') + "\n";
        std::string text;
        for (const std::string& line : lines)
            text += line;
        if (random() % 8 == 0)
            text.pop_back();
        if (random() % 4 == 0)
            m_memo = {}; // another process
        EXPECT_EQ(Save(text), kErrorSuccess);
        texts.push_back(text);
    }
    ASSERT_EQ(Numbers(&m_text).size(), texts.size());
    for (unsigned i = 0; i < texts.size(); ++i)
        EXPECT_EQ(Read(i + 1), texts[i]);
    EXPECT_EQ(Last(), texts.back());
}

TEST_F(FileHistory, LimitsKeepTheNewestHalf)
{
    struct Case {
        const char* what;
        HistoryLimits limits;
        size_t textSize;
        size_t fewest, most; // versions
        uint64_t bytes;
        int rewrites; // at most, in 200 appends
    };
    const Case cases[] = {
        {"versions", {.versions = 10, .bytes = 1u << 20}, 1000, 5, 10, 4000, 34},
        {"bytes", {.versions = 1000, .bytes = 10'000}, 1000, 20, 80, 10'000, 8},
        {"a text that is larger than the log may be", {.versions = 50, .bytes = 2000}, 6000, 10, 50, 12'100, 8},
        {"the least", {.versions = 1, .bytes = 0}, 1000, 2, 2, 2400, 200},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        m_key = c.what;
        m_limits = c.limits;
        m_memo = {};
        m_text.clear();
        test::FaultyFiles files;
        const std::string rest(c.textSize, 'x');
        for (unsigned i = 1; i <= 200; ++i) {
            ASSERT_EQ(Save("A = " + std::to_string(i) + "\n; " + rest + "\n"), kErrorSuccess);
            EXPECT_LE(m_folder.Read(LogFile()).size(), c.bytes);
            const std::vector<unsigned> numbers = Numbers(&m_text);
            ASSERT_EQ(numbers.back(), i);
            ASSERT_EQ(numbers.front(), i + 1 - numbers.size());
            EXPECT_LE(numbers.size(), c.most);
            EXPECT_GE(numbers.size(), std::min<size_t>(i, c.fewest));
            ASSERT_EQ(Read(numbers.front()).substr(0, 10),
                      ("A = " + std::to_string(numbers.front()) + "\n; xxxxxx").substr(0, 10));
            ASSERT_EQ(Read(i), m_text);
        }
        EXPECT_LE(std::count(files.calls.begin(), files.calls.end(), "Rename"), c.rewrites);
    }
    for (const auto& entry : std::filesystem::directory_iterator(m_folder.Path("%history")))
        EXPECT_EQ(entry.path().extension(), ".log");
}

TEST_F(FileHistory, AnEndThatWasTornIsRepaired)
{
    const std::vector<std::string> texts = {"A = 1\n", "A = 1\nB = 1\n", "A = 2\nB = 1\n"};
    size_t recordEnds[3] = {};
    for (size_t i = 0; i < texts.size(); ++i) {
        Save(texts[i]);
        recordEnds[i] = m_folder.Read(LogFile()).size();
    }
    const std::string log = m_folder.Read(LogFile());
    for (size_t size = 0; size <= log.size(); ++size)
        for (const char fill : size % 7 == 0 ? std::string("-v\0", 3) : std::string("-")) {
            SCOPED_TRACE(std::to_string(size) + fill);
            std::string torn = log.substr(0, size);
            if (fill != '-')
                torn.append(log.size() - size + 5000, fill);
            m_folder.Write(LogFile(), torn);
            m_memo = {};
            m_text = texts[2];
            ASSERT_EQ(Save("A = 3\n"), kErrorSuccess);
            const size_t whole = static_cast<size_t>(
                std::count_if(recordEnds, recordEnds + 3, [size](size_t end) { return end <= size; }));
            for (unsigned i = 0; i < whole; ++i)
                EXPECT_EQ(Read(i + 1), texts[i]);
            const std::vector<unsigned> numbers = Numbers(&m_text);
            EXPECT_EQ(numbers.size(), std::max<size_t>(whole + (whole < 3), 1) + 1);
            EXPECT_EQ(Read(numbers.back()), "A = 3\n");
            EXPECT_EQ(Read(numbers.back() - 1), texts[2]);
            EXPECT_EQ(Last(), "A = 3\n");
        }
}

TEST_F(FileHistory, DamageInsideCutsOffTheLeast)
{
    std::vector<std::string> texts;
    std::vector<size_t> ends;
    for (unsigned i = 1; i <= 6; ++i) {
        Save("A = " + std::to_string(i) + "\nB = 1\n");
        texts.push_back(m_text);
        ends.push_back(m_folder.Read(LogFile()).size());
    }
    const std::string log = m_folder.Read(LogFile());
    for (size_t at = 0; at < log.size(); ++at) {
        SCOPED_TRACE(at);
        std::string damaged = log;
        damaged[at] ^= 1;
        m_folder.Write(LogFile(), damaged);
        const auto broken = static_cast<unsigned>(std::upper_bound(ends.begin(), ends.end(), at) - ends.begin()) + 1;
        // From the last version's text a way leads back to the record behind the damage.
        for (const std::string& current : {m_text, std::string("; something else\n")})
            for (unsigned number = 1; number <= 6; ++number) {
                const bool isReadable = number < broken || (current == m_text && number > broken);
                const std::string& expected = isReadable ? texts[number - 1] : "code 2";
                EXPECT_EQ(Read(number, &current), number == 6 && broken == 6 ? current : expected) << number;
            }
        EXPECT_EQ(Last(), broken == 1 ? "code 2" : texts[broken - 2]);
    }
    // Such a log goes on, and what can't be read goes with the next rewrite.
    std::string damaged = log;
    damaged[ends[2] - 50] ^= 1;
    m_folder.Write(LogFile(), damaged);
    m_memo = {};
    m_limits.versions = 6;
    Save("A = 7\n");
    EXPECT_THAT(Numbers(&m_text), ElementsAre(5, 6, 7));
    EXPECT_EQ(Read(5), texts[4]);
}

TEST_F(FileHistory, AFailureIsToldAndLosesNoRecord)
{
    for (const bool isRewrite : {false, true})
        for (size_t failAt = 0;; ++failAt) {
            SCOPED_TRACE(std::to_string(failAt) + (isRewrite ? " in a rewrite" : ""));
            m_key = "Key " + std::to_string(failAt) + (isRewrite ? "r" : "");
            m_limits.versions = isRewrite ? 4 : 50;
            m_memo = {};
            m_text.clear();
            for (unsigned i = 1; i <= 4; ++i)
                Save("A = " + std::to_string(i) + "\n");
            m_memo = {};
            test::FaultyFiles files;
            files.failAt = failAt;
            if (Save("A = 5\n") == kErrorSuccess) {
                EXPECT_GT(failAt, 4u);
                break;
            }
            files.Reset();
            EXPECT_EQ(Save("A = 6\n"), kErrorSuccess);
            const std::vector<unsigned> numbers = Numbers(&m_text);
            EXPECT_EQ(numbers.back(), 6u);
            for (const unsigned number : numbers)
                EXPECT_EQ(Read(number), "A = " + std::to_string(number) + "\n");
        }
}

TEST_F(FileHistory, EachKeyHasALogOfItsOwn)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", "%history/%root.log"},
        {"Global", "%history/Global.log"},
        {"Sessions/Router 1", "%history/Sessions/Router 1.log"},
        {"Sessions/Router 1.log/Below.log", "%history/Sessions/Router 1%2Elog/Below.log.log"},
    };
    for (const auto& [key, file] : cases) {
        SCOPED_TRACE(key);
        m_key = key;
        m_memo = {};
        m_text.clear();
        EXPECT_EQ(Save(std::string("A = \"") + key + "\"\n"), kErrorSuccess);
        EXPECT_TRUE(m_folder.Exists(file));
        EXPECT_EQ(Last(), m_text);
    }
}

TEST_F(FileHistory, OneChangedValueTakesLittleMoreThanItsLine)
{
    std::string text;
    for (int i = 0; i < 200; ++i)
        text += "Some Value With A Long Name " + std::to_string(i) + " = " + std::to_string(i) + "\n";
    Save(text);
    const size_t before = m_folder.Read(LogFile()).size();
    std::string changed = text;
    changed.replace(changed.find("= 77\n"), 4, "= 78");
    test::FaultyFiles files;
    Save(changed);
    EXPECT_THAT(files.calls, ElementsAre("Open", "GetInfo", "Seek", "Write"));
    EXPECT_LT(m_folder.Read(LogFile()).size() - before, 250u);
}

TEST_F(FileHistory, TheStoresOptionsAreReadFromItsRoot)
{
    struct Case {
        const char* text;
        unsigned versions;
        uint64_t bytes;
    };
    const Case cases[] = {
        {"", 50, 65536},
        {"history versions = 0\n", 0, 65536},
        {"; mine\nHistory Versions = 0x10\nHistory Bytes = 1000\n", 16, 1000},
        {"History Versions = \"7\"\nHistory Bytes = many\n", 50, 65536},
    };
    EXPECT_EQ(ReadStoreOptions(m_folder.Path()).history.versions, 50u);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        m_folder.Write("%store.ini", c.text);
        const HistoryLimits limits = ReadStoreOptions(m_folder.Path()).history;
        EXPECT_EQ(limits.versions, c.versions);
        EXPECT_EQ(limits.bytes, c.bytes);
    }
}

TEST(IsoTime, IsExactBothWays)
{
    VFileTime time{kNoon + 1'234'567};
    EXPECT_EQ(IsoTime(time), "2026-06-08T12:00:00.1234567Z");
    EXPECT_EQ(IsoTime(TimeOfFile(0)), "1970-01-01T00:00:00.0000000Z");
    EXPECT_EQ(IsoTime({~uint64_t{0} / 2}), "");
    EXPECT_TRUE(ParseIsoTime("9999-12-31T23:59:59.9999999Z", time));
    EXPECT_EQ(IsoTime(time), "9999-12-31T23:59:59.9999999Z");
    for (const char* const bad : {"", "2026-06-08T12:00:00.1234567", "2026-06-08 12:00:00.1234567Z",
                                  "2026-02-30T12:00:00.0000000Z", "2026-06-08T12:00:0x.0000000Z"})
        EXPECT_FALSE(ParseIsoTime(bad, time)) << bad;
}

} // namespace
} // namespace ostrand
