// The lines of an X resource file that count, as the server's loader sees them behind the C preprocessor.
//
//   file      = { line }                                   a backslash at the end of a line joins the next one to it
//   line      = "!" comment | directive | key ":" value | blank
//   directive = "#" ( "define" name [ value ] | "undef" name | "if" condition | "ifdef" name | "ifndef" name |
//                     "elif" condition | "else" | "endif" )
//
// Comments "/* */" are cut off where they begin a line or end in the line that they begin in. Other directives are
// passed over; "#include" reads no other file.
#pragma once

#include "imports/imported_scheme.h"
#include "imports/x_defines.h"

namespace ostrand {

struct XResource {
    size_t line;
    std::string_view key;
    std::string_view value; ///< as it is written; names in it are resolved by whom it matters to
};

class XLineReader {
public:
    /// What is passed over is noted in `notes`. All must outlive the reader.
    XLineReader(std::string_view text, SchemeCollector& notes, ImportFault& error)
        : m_rest(text),
          m_notes(notes),
          m_error(error)
    {
    }

    /// False at the end and for a fault; HasFailed tells which. `resource` is good until the next call.
    bool Next(XResource& resource);
    bool HasFailed() const { return m_hasFailed; }
    /// As of the line that was read last.
    const XDefines& Defines() const { return m_defines; }

private:
    struct Group {
        size_t line;    // of its "#if"
        bool isOuter;   // what is around it counts
        bool isActive;  // so do the lines at hand
        bool hadActive; // one of its branches counted
        bool hadElse;
    };

    bool Fail(std::u16string_view format, std::string_view cited = {});
    bool IsActive() const { return m_groups.empty() || m_groups.back().isActive; }
    bool TakeLine(std::string_view& line);
    /// False for a comment that isn't closed.
    bool CutComments(std::string_view& line);
    bool TakeComment(std::string_view& line);
    bool Directive(std::string_view line);
    bool DefineName(std::string_view rest);
    bool Open(std::string_view directive, std::string_view rest);
    bool Branch(std::string_view directive, std::string_view rest);
    bool Condition(std::string_view directive, std::string_view rest, bool& result);

    std::string_view m_rest;
    SchemeCollector& m_notes;
    ImportFault& m_error;
    bool m_hasFailed = false;
    size_t m_line = 0;     // where the line at hand begins
    size_t m_nextLine = 1; // where the next one does
    std::string m_joined;  // of a line that goes on behind a backslash
    std::string m_cut;     // of a line without its comments
    XDefines m_defines;
    std::vector<Group> m_groups;
};

} // namespace ostrand
