#include "tools/option_words.h"

#include <algorithm>

namespace ostrand::tool {

namespace {

// The parser takes some words for more than text: what begins with "-", also behind "--"; "[a,b]" and "{}" for lists of
// its own; the empty word. They pass it with this mark in front.
constexpr char kMark = '\x01';

bool NeedsMark(const std::string& word)
{
    return word.empty() || word.front() == '[' || word.front() == '{' || word.front() == kMark;
}

} // namespace

std::vector<std::string> MarkedWords(int argc, const char* const* argv)
{
    std::vector<std::string> words;
    bool isLiteral = false;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (!isLiteral && word == "--")
            isLiteral = true;
        else
            words.push_back(isLiteral || NeedsMark(word) ? kMark + word : word);
    }
    return words;
}

std::string Unmarked(const std::string& word) { return word.starts_with(kMark) ? word.substr(1) : word; }

std::string WithoutMarks(std::string text)
{
    std::erase(text, kMark);
    return text;
}

CLI::Option* AddWord(CLI::App& app, const char* name, std::string& target, const char* what, bool isRequired)
{
    const CLI::callback_t take = [&target](const CLI::results_t& words) {
        target = Unmarked(words.back());
        return true;
    };
    return app.add_option(name, take, what)->required(isRequired);
}

void AddText(CLI::App& app, const char* name, std::optional<std::string>& target, const char* what,
             const char* optionText)
{
    const CLI::callback_t take = [&target](const CLI::results_t& words) {
        target = Unmarked(words.back());
        return true;
    };
    app.add_option(name, take, what)->option_text(optionText);
}

CLI::Option* AddWords(CLI::App& app, const char* name, Request& request, const char* what)
{
    const CLI::callback_t take = [&request](const CLI::results_t& words) {
        request.values.clear();
        std::transform(words.begin(), words.end(), std::back_inserter(request.values), Unmarked);
        return true;
    };
    return app.add_option(name, take, what)->expected(0, -1)->allow_extra_args();
}

void AddName(CLI::App& app, Request& request)
{
    AddWord(app, "NAME", request.name, "Name of the value, in any case", true);
}

void AddNameAndValues(CLI::App& app, Request& request)
{
    AddName(app, request);
    AddWords(app, "VALUE", request, "The value; words behind -- are taken as they are");
}

} // namespace ostrand::tool
