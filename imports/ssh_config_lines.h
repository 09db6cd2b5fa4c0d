// The lines of an OpenSSH client configuration, as ssh_config(5) describes them.
//
//   file    = { line end }                                      lines end in LF or CR LF
//   line    = [ blanks ] [ keyword ( blanks | [ blanks ] "=" [ blanks ] ) values ] [ comment ]
//   values  = value { blanks value }
//   value   = one or more of: plain characters, '"' text '"', "'" text "'", "\" and one of: \ " ' blank
//   comment = "#" anything                                      at the beginning of a line or of a value
#pragma once

#include "imports/imported_session.h"

#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

struct SshConfigLine {
    size_t number = 0; ///< from 1
    std::string_view keyword;
    std::vector<std::string> values; ///< never none; UTF-8, quotes taken away
};

class SshConfigReader {
public:
    /// Bytes. No host or user has a longer name, and a value may hold for all hosts of the file.
    static constexpr size_t kLongestValue = 255;

    /// Lines that don't follow the grammar are noted in `notes` and passed over. Both must outlive the reader.
    SshConfigReader(std::string_view text, SessionCollector& notes) : m_rest(text), m_notes(notes) {}

    /// False at the end. `line` is good until the next call.
    bool Next(SshConfigLine& line);

private:
    std::string_view TakeLine();
    bool Parse(std::string_view text, SshConfigLine& line);
    bool Fail(const char16_t* why);

    std::string_view m_rest;
    SessionCollector& m_notes;
    size_t m_line = 0;
};

} // namespace ostrand
