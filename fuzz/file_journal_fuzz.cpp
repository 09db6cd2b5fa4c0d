// Any bytes as the journal of a transaction. One that is whole is rendered and read again; whatever a journal says, its
// texts go to files of keys below the store's folder.
#include "platform/error_codes.h"
#include "platform/platform.h"
#include "stores/file_commit.h"
#include "stores/file_journal.h"
#include "stores/file_names.h"
#include "tests/support/journal_text.h"
#include "tests/support/memory_files.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <vector>

using namespace ostrand;

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

bool IsBelowStore(std::string_view path)
{
    constexpr std::string_view kRoot = "/store/";
    if (!path.starts_with(kRoot) || !path.ends_with(kValuesSuffix))
        return false;
    path.remove_prefix(kRoot.size());
    if (path == kRootValuesFile)
        return true;
    for (size_t bar = 0; bar != path.npos; path.remove_prefix(bar + 1)) {
        bar = path.find('/');
        const std::string_view level = path.substr(0, bar);
        if (level.empty() || level.starts_with('.') || level.find('\0') != level.npos || level.starts_with("%tmp-") ||
            level == kLockFile || level == kJournalFile || level == kRootValuesFile)
            return false;
        if (bar == path.npos)
            break;
    }
    return true;
}

/// Which this version leaves to that one.
bool IsOfLaterVersion(std::string_view journal)
{
    constexpr std::string_view kHead = "OstrandUI journal ";
    const std::string_view first = journal.substr(0, journal.find('\n'));
    return first.starts_with(kHead) && first.size() > kHead.size() &&
           first.find_first_not_of("0123456789", kHead.size()) == first.npos;
}

std::vector<JournalEntry> Entries(bool& isWhole)
{
    JournalReader journal;
    std::vector<JournalEntry> entries;
    isWhole = journal.Open("/store") == kErrorSuccess && journal.IsWhole();
    JournalEntry entry;
    for (bool isThere = true; isWhole && isThere;) {
        Require(journal.Next(entry, isThere) == kErrorSuccess);
        if (isThere)
            entries.push_back(entry);
    }
    return entries;
}

void CheckFinish(const std::string& journal)
{
    const VPlatformScope scope;
    test::MemoryFiles files;
    Platform().files = &files;
    files.contents["/store/%journal"] = journal;
    SaveTools tools("/store");
    const unsigned code = FinishJournal(tools);
    if (code == kErrorInvalidData && IsOfLaterVersion(journal)) {
        Require(files.contents == std::map<std::string, std::string>{{"/store/%journal", journal}});
        return;
    }
    Require(code == kErrorSuccess);
    for (const auto& [path, text] : files.contents)
        Require(IsBelowStore(path));
}

void CheckRoundTrip(const std::string& journal)
{
    const VPlatformScope scope;
    test::MemoryFiles files;
    Platform().files = &files;
    files.contents["/store/%journal"] = journal;
    bool isWhole = false;
    const std::vector<JournalEntry> entries = Entries(isWhole);
    if (!isWhole || entries.empty())
        return;
    JournalWriter writer("/store");
    for (const JournalEntry& entry : entries)
        Require(writer.Append(entry.path, entry.text) == kErrorSuccess);
    Require(writer.Finish() == kErrorSuccess);
    Require(Entries(isWhole) == entries && isWhole);
}

void CheckJournal(const std::string& journal)
{
    CheckFinish(journal);
    CheckRoundTrip(journal);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    CheckJournal(bytes);
    // Changing bytes finds no hash that is right.
    for (size_t count = 0; count < 4; ++count)
        CheckJournal(test::SignedJournal(bytes, count));
    return 0;
}
