// The versions of each key's file, kept below the store's root in "%history" as one log for each key: that of
// "Sessions/Router 1.ini" is "%history/Sessions/Router 1.log", that of the root "%history/%root.log". A ".log" at the
// end of a key's name is written "%2Elog" in the folder of its subkeys, which else could be another key's log. The form
// of a log stands in history_record.h.
//
// A log is written without a sync of its own. After a power failure its end may be torn, or full of zeros; the next
// append cuts that off. What a log lacks is never missed: a text before that isn't the last recorded one counts as an
// edit by other means, and becomes a version like any other.
#pragma once

#include "platform/files.h"
#include "profile/store_extras.h"
#include "stores/history_log.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

inline constexpr std::string_view kHistoryFolder = "%history";

/// What is kept of one key.
struct HistoryLimits {
    unsigned versions = 50; ///< at least two; 0: none, and nothing is recorded
    /// Bytes of the log. Where twice the key's text is more, that counts: else each save would write a log anew.
    uint64_t bytes = 64 * 1024;
};

/// What is told with a new version.
struct HistoryNote {
    std::string by; ///< program that saves, UTF-8
    std::vector<std::u16string> conflicts{};
    bool isDeletion = false; ///< the key goes, with its file; there is no text after
    uint64_t editTime = 0;   ///< when the text before was written, if others did; units of StoreVersion, 0: unknown
};

/// How a log ended after the last append. The caller keeps it for each key: then the next append needs neither to read
/// the log's end nor to trust it. Empty, or of a log that others wrote to meanwhile, it costs one read.
struct HistoryMemo {
    uint64_t device = 0;
    uint64_t file = 0;
    uint64_t size = 0;
    uint64_t hash = 0;   ///< of the last text
    unsigned number = 0; ///< of the last version
    unsigned count = 0;  ///< of records; 0: the next one is full
};

/// A key's file as it is, for the versions that aren't recorded.
struct HistoryCurrent {
    const std::string* text = nullptr; ///< null: there is no file
    uint64_t time = 0;                 ///< when it was written; units of StoreVersion, 0: unknown
};

/// Keys are the paths of their files relative to the store's root, without ".ini": "Sessions/Router 1", empty for the
/// root. Results are platform codes. A log larger than HistoryLog::kLimit is neither written nor read.
class FileHistory {
public:
    FileHistory(const std::string& root, HistoryLimits limits) : m_folder(root + '/'), m_limits(limits)
    {
        m_folder += kHistoryFolder;
    }

    /// Under the store's lock. Records that `before`, which others may have written, became `after`; nothing where they
    /// are the same. On failure the log is as before, or shorter by what is told as an edit later on.
    unsigned Append(std::string_view key, std::string_view before, std::string_view after, const HistoryNote& note,
                    HistoryMemo& memo);
    /// The versions whose text can be read, oldest first. A `current` text that isn't recorded is the last one.
    unsigned List(std::string_view key, const HistoryCurrent& current, std::vector<StoreVersion>& versions);
    /// Empty for a deleted version. kErrorFileNotFound for a number that isn't in the list, kErrorInvalidData where the
    /// log contradicts itself.
    unsigned Read(std::string_view key, const HistoryCurrent& current, unsigned number, std::string& text);
    /// The last recorded text, for a file that was destroyed; kErrorFileNotFound without one, or for a deleted key.
    unsigned ReadLast(std::string_view key, std::string& text);

    std::string LogOf(std::string_view key) const;

private:
    std::string m_folder;
    HistoryLimits m_limits;
};

} // namespace ostrand
