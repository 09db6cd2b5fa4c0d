// vector_tests [--vectors DIR]: runs every file of known answers in DIR. One line for each failing case, then a
// summary. Exit code 0 when all hold, 1 when one doesn't, 2 for wrong usage.

#include "tests/vectors/json_text.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

namespace ostrand::vectors {

namespace {

struct Tally {
    unsigned cases = 0;
    unsigned failed = 0;

    void Fail(const std::string& topic, const std::string& name, const std::string& what)
    {
        ++failed;
        std::printf("FAILED %s: %s: %s\n", topic.c_str(), name.c_str(), what.c_str());
    }
};

template <class Named>
const Named* FindNamed(std::span<const Named> table, const std::string& name)
{
    const auto found = std::find_if(table.begin(), table.end(), [&name](const Named& n) { return name == n.name; });
    return found == table.end() ? nullptr : &*found;
}

void RunCase(const Topic& topic, const Json& theCase, Tally& tally)
{
    ++tally.cases;
    const std::string name = theCase.value("name", "(unnamed)");
    try {
        const std::string kind = theCase.at("kind");
        const Kind* const runner = FindNamed(topic.kinds, kind);
        if (!runner)
            Unknown("kind", kind);
        const Json got = runner->run(theCase);
        if (!Meets(theCase.at("expect"), got))
            tally.Fail(topic.name, name, "expected " + theCase.at("expect").dump() + ", got " + got.dump());
    } catch (const std::exception& fault) {
        tally.Fail(topic.name, name, fault.what());
    }
}

void RunFile(const std::string& path, Tally& tally)
{
    try {
        const Json document = ReadDocument(path);
        const std::string name = document.at("topic");
        const Topic* const topic = FindNamed(Topics(), name);
        if (!topic)
            Unknown("topic", name);
        for (const Json& theCase : document.at("cases"))
            RunCase(*topic, theCase, tally);
    } catch (const std::exception& fault) {
        ++tally.cases;
        tally.Fail(path, "the file", fault.what());
    }
}

std::vector<std::string> JsonFiles(const std::string& folder)
{
    std::vector<std::string> files;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored))
        if (entry.path().extension() == ".json")
            files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

int RunFolder(const std::string& folder)
{
    const std::vector<std::string> files = JsonFiles(folder);
    if (files.empty()) {
        std::fprintf(stderr, "vector_tests: no *.json in %s\n", folder.c_str());
        return 1;
    }
    Tally tally;
    for (const std::string& file : files)
        RunFile(file, tally);
    std::printf("%u cases, %u failed\n", tally.cases, tally.failed);
    return tally.failed == 0 ? 0 : 1;
}

} // namespace ostrand::vectors

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty())
        return ostrand::vectors::RunFolder(OSTRAND_TEST_DATA "/vectors");
    if (arguments.size() != 2 || arguments[0] != "--vectors") {
        std::fputs("usage: vector_tests [--vectors DIR]\n", stderr);
        return 2;
    }
    return ostrand::vectors::RunFolder(arguments[1]);
}
