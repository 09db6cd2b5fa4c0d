// The maps in keymaps/: that they load, that they send what the terminals send, and what a user relies on in each.
#include "keymap/default_bindings.h"
#include "keymap/function_names.h"
#include "keymap/keymap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>

#include <sys/wait.h>

namespace ostrand::test {
namespace {

const std::filesystem::path kFolder = std::filesystem::path(OSTRAND_TEST_DATA "/../../keymaps").lexically_normal();

std::string Trimmed(const std::string& text)
{
    const size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

/// Bytes of a text in which `\` and three octal digits stand for one; nothing where it holds anything else than those
/// and printable ASCII, which is all that the sender of a string understands alike everywhere.
std::optional<std::string> Bytes(std::string_view text)
{
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] < ' ' || text[i] > '~')
            return std::nullopt;
        if (text[i] != '\\') {
            bytes += text[i];
            continue;
        }
        int value = 0;
        for (int digit = 0; digit < 3; ++digit) {
            if (++i == text.size() || text[i] < '0' || text[i] > '7')
                return std::nullopt;
            value = value * 8 + (text[i] - '0');
        }
        if (value > 255)
            return std::nullopt;
        bytes += static_cast<char>(value);
    }
    return bytes;
}

struct Sample {
    int line;
    std::string map;
    unsigned index;
    std::string terminal;
    std::string capability;
    std::string sequence;
    std::string function; // empty: the map has the sequence
};

std::vector<Sample> ReadSamples()
{
    std::vector<Sample> samples;
    std::ifstream in(OSTRAND_TEST_DATA "/keymap_samples.txt");
    int number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        if (line.empty() || line[0] == '#')
            continue;
        std::vector<std::string> columns;
        std::istringstream parts(line + '|'); // so that an empty last column counts
        for (std::string part; std::getline(parts, part, '|');)
            columns.push_back(Trimmed(part));
        if (columns.size() != 6)
            throw std::runtime_error("bad sample: " + line);
        samples.push_back({number, columns[0], static_cast<unsigned>(std::stoul(columns[1], nullptr, 16)), columns[2],
                           columns[3], Bytes(columns[4]).value(), columns[5]});
    }
    return samples;
}

/// What the terminfo of this machine says; nothing where it doesn't know the terminal.
std::optional<std::string> AskTerminfo(const std::string& terminal, const std::string& capability)
{
    FILE* const out = popen(("tput -T " + terminal + " " + capability + " 2>&1").c_str(), "r");
    if (!out)
        return std::nullopt;
    std::string text;
    for (int c = fgetc(out); c != EOF; c = fgetc(out))
        text += static_cast<char>(c);
    const int ended = pclose(out);
    constexpr int kUnknownTerminal = 3;
    constexpr int kNoProgram = 127;
    if (WEXITSTATUS(ended) == kUnknownTerminal || WEXITSTATUS(ended) == kNoProgram)
        return std::nullopt;
    return text;
}

/// All maps of the folder by name. A map that doesn't load without a complaint fails the test.
class ShippedKeymaps : public testing::Test {
protected:
    ShippedKeymaps()
    {
        for (const auto& file : std::filesystem::directory_iterator(kFolder)) {
            VReportMessageParams status;
            Keymap& map = m_maps[file.path().stem().string()];
            EXPECT_EQ(file.path().extension(), ".key");
            EXPECT_TRUE(map.LoadFromFile(file.path().u16string(), status)) << file.path();
            EXPECT_EQ(status.GetCode(), 0u)
                << file.path() << ": " << (status.GetArgumentCount() > 1 ? ToUtf8(status.GetArguments()[1]) : "");
        }
    }

    std::map<std::string, Keymap> m_maps;
};

TEST_F(ShippedKeymaps, AreThoseThatASessionCanName)
{
    std::vector<std::string> names;
    for (const auto& [name, map] : m_maps)
        names.push_back(name);
    EXPECT_THAT(names, testing::ElementsAre("Default", "Linux", "Nerith", "SCOANSI", "VT100", "VT220", "Wyse50",
                                            "Wyse60", "Xterm"));
}

TEST_F(ShippedKeymaps, SendWhatTheTerminalsSend)
{
    std::map<std::string, int> seen;
    for (const Sample& sample : ReadSamples()) {
        SCOPED_TRACE(sample.line);
        const Keymap& map = m_maps.at(sample.map);
        ++seen[sample.map];
        if (!sample.function.empty()) {
            EXPECT_EQ(static_cast<int>(map.GetFunction(sample.index)), FunctionCodeOf(sample.function));
            continue;
        }
        EXPECT_EQ(map.GetFunction(sample.index), kFunctionSend);
        EXPECT_EQ(Bytes(ToUtf8(map.GetString(sample.index))), sample.sequence);
    }
    for (const auto& [name, map] : m_maps)
        EXPECT_GE(seen[name], 12) << name;
}

TEST_F(ShippedKeymaps, SamplesAgreeWithTheTerminfoOfThisMachine)
{
    int compared = 0;
    for (const Sample& sample : ReadSamples()) {
        SCOPED_TRACE(sample.line);
        if (const auto sequence = AskTerminfo(sample.terminal, sample.capability)) {
            EXPECT_EQ(*sequence, sample.sequence) << sample.terminal << " " << sample.capability;
            ++compared;
        }
    }
    if (compared == 0)
        GTEST_SKIP() << "no terminfo here";
}

TEST_F(ShippedKeymaps, AreWhatTheScriptMakes)
{
    const int ended = std::system("'" OSTRAND_TEST_DATA "/../../scripts/make-keymaps.py' --check");
    constexpr int kStale = 1;
    EXPECT_NE(WEXITSTATUS(ended), kStale) << "run scripts/make-keymaps.py";
    if (WEXITSTATUS(ended) > kStale)
        GTEST_SKIP() << "needs python3 and ncurses-term";
}

TEST_F(ShippedKeymaps, HoldNoEscapeThatOneSenderReadsOtherwise)
{
    for (const auto& [name, map] : m_maps)
        for (unsigned index = 0; index < kKeyCount; ++index)
            if (map.OwnBindings().Function(index) == kFunctionSend) {
                EXPECT_NE(Bytes(ToUtf8(map.GetString(index))).value_or(""), "")
                    << name << ", key " << std::hex << index;
            }
}

TEST_F(ShippedKeymaps, GiveTheKeypadAndTheBlockBesideItTheSameKeys)
{
    constexpr unsigned kPageUpToDown = 0x21;
    constexpr unsigned kDelete = 0x2E;
    for (const auto& [name, map] : m_maps)
        for (unsigned modifiers = 0; modifiers < kKeyCount; modifiers += kControlHeld)
            for (unsigned key = kPageUpToDown; key <= kDelete; ++key) {
                const unsigned plain = key | modifiers;
                const unsigned beside = plain | kExtendedKey;
                SCOPED_TRACE(testing::Message() << name << ", key " << std::hex << plain);
                EXPECT_EQ(map.GetFunction(plain), map.GetFunction(beside));
                EXPECT_EQ(map.GetString(plain), map.GetString(beside));
            }
}

TEST_F(ShippedKeymaps, LeaveAKeyForTheScrollback)
{
    struct {
        unsigned key;
        const char* function;
    } const cases[] = {{0x21, "SB_PAGE_UP"}, {0x22, "SB_PAGE_DOWN"}};
    for (const auto& [name, map] : m_maps)
        for (const auto& c : cases) {
            const auto wanted = static_cast<unsigned>(FunctionCodeOf(c.function));
            EXPECT_TRUE(map.GetFunction(c.key) == wanted || map.GetFunction(c.key | kShiftHeld) == wanted)
                << name << " " << c.function;
        }
}

TEST_F(ShippedKeymaps, DefaultHidesNoBuiltInBinding)
{
    Keymap builtIn;
    InstallDefaultKeymap(builtIn);
    for (unsigned index = 0; index < kKeyCount; ++index)
        if (builtIn.GetFunction(index) != kFunctionNone) {
            EXPECT_EQ(m_maps.at("Default").OwnBindings().Function(index), kFunctionNone) << std::hex << index;
        }
}

} // namespace
} // namespace ostrand::test
