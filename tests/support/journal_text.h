// The bytes of a transaction's journal, put together by hand.
#pragma once

#include "stores/name_index.h"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace ostrand::test {

/// The entries, as they stand there, between a right first and last line.
inline std::string SignedJournal(const std::string& entries, size_t count)
{
    const std::string journal = "OstrandUI journal 1\n" + entries;
    char hash[17];
    std::snprintf(hash, sizeof hash, "%016llx", static_cast<unsigned long long>(HashBytes(journal)));
    return journal + "end " + std::to_string(count) + ' ' + hash + '\n';
}

/// Of paths and texts.
inline std::string JournalText(const std::vector<std::pair<std::string, std::string>>& items)
{
    std::string entries;
    for (const auto& [path, text] : items)
        entries +=
            "key " + std::to_string(path.size()) + ' ' + std::to_string(text.size()) + '\n' + path + '\n' + text + '\n';
    return SignedJournal(entries, items.size());
}

} // namespace ostrand::test
