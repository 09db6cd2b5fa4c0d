// The journal of a transaction: the new texts of all its files, on the disk before the first of them is replaced.
// Whoever opens a store and finds a whole journal puts its texts in place again; a journal that isn't whole is of a
// transaction that never was.
//
//   journal = "OstrandUI journal 1" LF { entry } "end " count " " hash LF
//   entry   = "key " bytes " " bytes LF path LF text LF     the sizes of path and text
//
// Numbers are decimal, the hash has 16 hexadecimal digits and is over all bytes before the last line. A path is that of
// the key's folder relative to the store's, "Sessions/Router 1", and empty for the root.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

struct JournalEntry {
    std::string path;
    std::string text;
    bool operator==(const JournalEntry&) const = default;
};

/// A view of an entry to be written.
struct JournalItem {
    std::string_view path;
    std::string_view text;
};

std::string RenderJournal(const std::vector<JournalItem>& items);
/// False for a journal that isn't whole, or names what can't be a key.
bool ParseJournal(std::string_view journal, std::vector<JournalEntry>& entries);

std::string JournalPath(const std::string& root);
/// All of it is on the disk afterwards, with its name. After a failure there is none, unless the medium refuses that,
/// too.
unsigned WriteJournal(const std::string& root, const std::vector<JournalItem>& items);
/// Of a journal that was found: the one who wrote it may have died before.
unsigned SyncJournal(const std::string& root);
/// It will not come back after a power failure. While a file of its name is there, something is left to do.
unsigned RemoveJournal(const std::string& root);
/// kErrorFileNotFound without one; no entries for one that isn't whole. kErrorInvalidData for one of a later version:
/// only that can finish it, and nothing may be saved before.
unsigned ReadJournal(const std::string& root, std::vector<JournalEntry>& entries);

} // namespace ostrand
