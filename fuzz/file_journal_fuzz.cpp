// Any bytes as the journal of a transaction. One that is whole is rendered and read again; whatever a journal says, its
// texts go to files of keys below the store's folder.
#include "platform/error_codes.h"
#include "platform/platform.h"
#include "stores/file_journal.h"
#include "stores/file_names.h"
#include "stores/file_save.h"
#include "stores/file_transaction.h"
#include "stores/name_index.h"
#include "tests/support/memory_files.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
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

std::string Rendered(const std::vector<JournalEntry>& entries)
{
    std::vector<JournalItem> items;
    for (const JournalEntry& entry : entries)
        items.push_back({entry.path, entry.text});
    return RenderJournal(items);
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

/// The bytes as the entries of a journal with its right first and last line.
std::string Signed(const std::string& entries, size_t count)
{
    std::string journal = "OstrandUI journal 1\n" + entries;
    char hash[17];
    std::snprintf(hash, sizeof hash, "%016llx", static_cast<unsigned long long>(HashBytes(journal)));
    return journal += "end " + std::to_string(count) + ' ' + hash + '\n';
}

void CheckJournal(const std::string& journal)
{
    std::vector<JournalEntry> entries;
    const bool isWhole = ParseJournal(journal, entries);
    CheckFinish(journal);
    if (!isWhole)
        return;
    const std::string rendered = Rendered(entries);
    std::vector<JournalEntry> again;
    Require(ParseJournal(rendered, again));
    Require(again == entries);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    CheckJournal(bytes);
    // Changing bytes finds no hash that is right.
    for (size_t count = 0; count < 4; ++count)
        CheckJournal(Signed(bytes, count));
    return 0;
}
