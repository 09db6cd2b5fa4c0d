// What the tool prints: results on stdout, one line on stderr for a failure, tables of texts.
#pragma once

#include "core/report.h"
#include "tools/request.h"
#include "tools/text.h"

#include <string>
#include <vector>

namespace ostrand::tool {

/// "ostrandcfg: TEXT" on stderr, on one line whatever the text holds; the answer is `code`.
Exit Fail(Exit code, const std::string& text);
/// The same for what isn't a failure: the command goes on.
void Warn(const std::string& text);

/// All of the text to stdout. Failed where it can't be written, say on a full disk.
Exit Print(const std::string& text);

/// The message of a report, on one line.
std::string ReportText(IReportMessageParams& report);

/// Rows of cells in aligned columns, two blanks between; the last column isn't padded. Widths count characters.
std::string Table(const std::vector<std::vector<std::string>>& rows);

/// At most `limit` characters; "..." stands for what was cut.
std::string Shortened(const std::string& text, size_t limit);

} // namespace ostrand::tool
