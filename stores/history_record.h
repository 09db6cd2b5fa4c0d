// One record of a key's history (history_log.h): a version of the key's text as what changed from the version before.
//
//   record  = "version " number " " time " " ( "full" | "step" ) " " hash { " " mark } LF { hunk } end
//   mark    = "deleted" | "by " text | "conflict " text     texts as in a key's file; no "by": an edit by other means
//   hunk    = "@" place LF { "-" line } { "+" line }        place: byte in the version before, decimal
//   line    = bytes LF [ "\" LF ]                           the "\" takes the line feed before it away again
//   end     = "end " position " " size " " checksum LF      38 bytes
//
// The position is the record's in the log, from 1, in 6 digits; the size is the record's, in 9; the checksum is the
// HashText of all its bytes before.
//
// A step carries what it took from the version before and what it put there, so the way leads in both directions; a
// full record starts from nothing. Hashes are of the version's whole text, in 16 hexadecimal digits. The time is UTC in
// ISO 8601, or "-" where it isn't known. Bytes of a text only ever stand behind a "-" or "+", so "version " at the
// start of a line begins a record, whatever damage lies before it.
#pragma once

#include "profile/store_extras.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ostrand {

/// The same on every machine.
uint64_t HashText(std::string_view text);

struct HistoryRecord {
    StoreVersion version;
    bool isFull = false;
    uint64_t hash = 0;      ///< of the text
    unsigned position = 0;  ///< in the log, from 1, when it was written
    std::string_view bytes; ///< the whole record
    std::string_view hunks; ///< the part of it between its first and its last line
};

/// Above this no version has a number.
inline constexpr unsigned kHighestVersion = 999'999'999;
/// Starts of the first and of the last line of a record.
inline constexpr std::string_view kRecordStart = "version ";
inline constexpr std::string_view kRecordEnd = "end ";
/// Bytes of the last line.
inline constexpr size_t kRecordEndSize = 38;

/// Appends a record; a full one takes no text before. Of `head` all but the views counts.
void PutRecord(const HistoryRecord& head, std::string_view before, std::string_view after, std::string& log);
/// Appends a record that was parsed, at another position.
void PutRecordAgain(const HistoryRecord& record, unsigned position, std::string& log);
/// Bytes of the last record of a log that ends like this, as far as its last line tells; 0 where that isn't whole.
size_t SizeOfLastRecord(std::string_view end);
/// The views of `record` are into `bytes`. False for a damaged one.
bool ParseRecord(std::string_view bytes, HistoryRecord& record);
/// The number in a record's first line, whatever follows; 0 for none.
unsigned ParseNumber(std::string_view bytes);

/// Makes the text of the record's version from that before it; of a full record from an empty one. False, with the text
/// in pieces, where it isn't what the record starts from.
bool ApplyForward(const HistoryRecord& record, std::string& text);
/// The way back. No use for a full record.
bool ApplyBackward(const HistoryRecord& record, std::string& text);

} // namespace ostrand
