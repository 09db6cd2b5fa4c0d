// The journal of a transaction: the new texts of all its files, on the disk before the first of them is replaced.
// Whoever opens a store and finds a whole journal puts its texts in place again; a journal that isn't whole is of a
// transaction that never was.
//
//   journal = "OstrandUI journal 1" LF { entry } "end " count " " hash LF
//   entry   = "key " bytes " " bytes LF path LF text LF     the sizes of path and text
//
// Numbers are decimal, the hash has 16 hexadecimal digits and is over all bytes before the last line. A path is that of
// the key's folder relative to the store's, "Sessions/Router 1", and empty for the root.
//
// A journal may be larger than memory: both classes hold a part of it, and one text.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace ostrand {

class RunningHash;

struct JournalEntry {
    std::string path;
    std::string text;
    bool operator==(const JournalEntry&) const = default;
};

std::string JournalPath(const std::string& root);
/// Of a journal that was found: the one who wrote it may have died before.
unsigned SyncJournal(const std::string& root);
/// It will not come back after a power failure. While a file of its name is there, something is left to do.
unsigned RemoveJournal(const std::string& root);

/// Under the store's lock. A journal that is begun and not finished goes with the writer, unless the medium refuses
/// that, too.
class JournalWriter {
public:
    explicit JournalWriter(const std::string& root) : m_root(root) {}
    ~JournalWriter();
    JournalWriter(const JournalWriter&) = delete;
    JournalWriter& operator=(const JournalWriter&) = delete;

    bool IsBegun() const { return m_file != nullptr; }
    /// The first one begins the journal.
    unsigned Append(std::string_view path, std::string_view text);
    /// All of it is on the disk afterwards, with its name: the transaction is committed.
    unsigned Finish();

private:
    unsigned Begin();
    unsigned WriteOut();
    unsigned Hash(uint64_t& hash);

    std::string m_root;
    std::unique_ptr<IFile> m_file;
    std::string m_buffer; // not yet in the file
    uint64_t m_size = 0;  // of the file
    size_t m_count = 0;
    bool m_isFinished = false;
};

/// Reads what JournalWriter wrote. After a failure of the medium nothing is known of the journal.
class JournalReader {
public:
    /// Checks all of it. kErrorFileNotFound without one. kErrorInvalidData for one of a later version: only that can
    /// finish it, and nothing may be saved before.
    unsigned Open(const std::string& root);
    /// Also that it names nothing but keys.
    bool IsWhole() const { return m_isWhole; }
    /// Of a whole one, from the first one on. Success without `isThere` is the end.
    unsigned Next(JournalEntry& entry, bool& isThere);

private:
    unsigned CheckVersion();
    unsigned FindEnd();
    /// Whether the entries are as the end tells.
    bool CheckEntries();
    // What these don't find as it should be isn't whole, or the medium failed.
    bool GoTo(uint64_t position);
    bool Fill();
    bool TakeLine(std::string& line);
    /// With the line feed behind them; null to go past them.
    bool TakeBytes(size_t size, std::string* out);
    bool TakeEntry(std::string& path, std::string* text);

    std::unique_ptr<IFile> m_file;
    std::string m_endLine;
    uint64_t m_end = 0; // where that begins
    std::string m_buffer;
    size_t m_next = 0;       // in the buffer
    uint64_t m_position = 0; // of the next byte, in the file
    unsigned m_failure = 0;  // of the medium
    bool m_isWhole = false;
    RunningHash* m_hash = nullptr; // takes what is read, while the journal is checked
};

} // namespace ostrand
