#include "tests/config/expected_values.h"

#include "profile/block.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace ostrand::test {

namespace {

std::string Trimmed(const std::string& text)
{
    const size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

std::vector<std::string> Split(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, separator);)
        parts.push_back(Trimmed(part));
    return parts;
}

std::u16string Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

int64_t Number(const std::string& text)
{
    size_t used = 0;
    const long long number = std::stoll(text, &used, 0);
    if (used != text.size())
        throw std::runtime_error("no number: " + text);
    return number;
}

/// What stands behind a word, if the text begins with it.
bool Begins(const std::string& text, const std::string& word, std::string& rest)
{
    if (text.compare(0, word.size(), word) != 0)
        return false;
    rest = Trimmed(text.substr(word.size()));
    return true;
}

template <class N>
void Put(StoreBlock& block, N value)
{
    std::array<uint8_t, sizeof(N)> bytes;
    PackFields(std::span<uint8_t, sizeof(N)>(bytes), std::tie(std::as_const(value)));
    block.insert(block.end(), bytes.begin(), bytes.end());
}

void PutFace(StoreBlock& block, const std::string& name)
{
    for (size_t i = 0; i < 32; ++i)
        Put(block, static_cast<char16_t>(i < name.size() ? name[i] : 0));
}

void PutNumber(StoreBlock& block, const std::string& type, const std::string& text)
{
    if (type == "i32")
        Put(block, static_cast<int32_t>(Number(text)));
    else if (type == "u32")
        Put(block, static_cast<uint32_t>(Number(text)));
    else if (type == "u8")
        Put(block, static_cast<uint8_t>(Number(text)));
    else if (type == "f64")
        Put(block, std::stod(text));
    else
        throw std::runtime_error("no type in front of " + text);
}

StoreBlock ParseBlock(const std::string& text)
{
    StoreBlock block;
    std::istringstream in(text);
    std::string type;
    for (std::string word; in >> word;) {
        if (word == "i32" || word == "u32" || word == "u8" || word == "f64") {
            type = word;
        } else if (word == "face") {
            std::string name;
            std::getline(in, name, '"');
            std::getline(in, name, '"');
            PutFace(block, name);
        } else {
            const size_t star = word.find('*');
            const int64_t times = star == std::string::npos ? 1 : Number(word.substr(0, star));
            for (int64_t i = 0; i < times; ++i)
                PutNumber(block, type, star == std::string::npos ? word : word.substr(star + 1));
        }
    }
    return block;
}

/// "\\r" at the end is a carriage return.
std::string WithReturn(const std::string& text)
{
    return text.ends_with("\\r") ? text.substr(0, text.size() - 2) + '\r' : text;
}

void ParseDefault(const std::string& text, ExpectedValue& value)
{
    std::string rest;
    if (text == "none")
        value.hasDefault = false;
    else if (text == "clock")
        value.computed = Computed::Clock;
    else if (text == "font smoothing")
        value.computed = Computed::FontSmoothing;
    else if (text == "store exists")
        value.computed = Computed::StoreExists;
    else if (text == "true" || text == "false")
        value.defaultValue = text == "true" ? 1u : 0u;
    else if (text == "[]")
        value.defaultValue = VStringArray();
    else if (text.front() == '"')
        value.defaultValue = VUnicodeString(Wide(WithReturn(text.substr(1, text.size() - 2))));
    else if (Begins(text, "block ", rest))
        value.defaultValue = ParseBlock(rest);
    else
        value.defaultValue = static_cast<unsigned>(Number(text));
}

VBound ParseBound(VBound::Kind kind, const std::string& text)
{
    const std::vector<std::string> numbers = Split(text, ' ');
    const auto at = [&numbers](size_t i) { return static_cast<int>(Number(numbers.at(i))); };
    return {kind, at(0), kind == VBound::Kind::AtLeast ? 0 : at(1)};
}

void ParseOption(const std::string& text, ExpectedValue& value)
{
    std::string rest;
    if (Begins(text, "orvane ", rest))
        value.nameInOrvane = Wide(rest);
    else if (Begins(text, "formerly ", rest))
        value.formerly = Wide(rest);
    else if (Begins(text, "default from ", rest)) {
        value.formerly = Wide(rest);
        value.formerlyIsDefault = true;
    } else if (Begins(text, "within ", rest))
        value.bound = ParseBound(VBound::Kind::Within, rest);
    else if (Begins(text, "at least ", rest))
        value.bound = ParseBound(VBound::Kind::AtLeast, rest);
    else if (Begins(text, "among ", rest))
        value.bound = ParseBound(VBound::Kind::Among, rest);
    else if (text == "computed")
        value.computed = Computed::FromOtherValues;
    else if (text == "not pending")
        value.isPending = false;
    else if (text == "not merged")
        value.isMerged = false;
    else if (text == "not in the table")
        value.isInTable = false;
    else
        throw std::runtime_error("unknown option: " + text);
}

ExpectedValue ParseLine(const std::string& line)
{
    const std::vector<std::string> columns = Split(line, '|');
    if (columns.size() < 3)
        throw std::runtime_error("fewer than three columns");
    ExpectedValue value;
    value.name = value.nameInOrvane = Wide(columns[0]);
    value.type = columns[1];
    ParseDefault(columns[2], value);
    if (columns.size() > 3)
        for (const std::string& option : Split(columns[3], ';'))
            ParseOption(option, value);
    return value;
}

} // namespace

std::vector<ExpectedValue> ReadExpectedValues(const char* list)
{
    std::vector<ExpectedValue> values;
    std::ifstream in(std::string(OSTRAND_TEST_DATA "/") + list);
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        try {
            values.push_back(ParseLine(line));
        } catch (const std::exception& fault) {
            throw std::runtime_error(line + ": " + fault.what());
        }
    }
    return values;
}

} // namespace ostrand::test
