// Rows of the global record as the commands show them.
#pragma once

#include "config/global/global_edit.h"
#include "tools/json_writer.h"
#include "tools/request.h"

#include <string>
#include <vector>

namespace ostrand::tool {

/// The row of the request's name. Null after one line on stderr, with a near name where there is one.
const GlobalRow* FindRow(const Request& request);

/// Names of all values of the application, in listing order.
std::vector<std::string> RowNames(bool isOrvane);
std::string NameOf(const GlobalRow& row, bool isOrvane);

/// The value of this row in the record.
Json JsonOf(const GlobalRow& row, GlobalConfig& config);
std::string TextOf(const GlobalRow& row, GlobalConfig& config);

/// Whether the store lacks the value, or one of a list's parts.
bool IsPending(const VProfileData& value);
/// clean, changed or pending.
const char* StateOf(const VProfileData& value);

/// {"name", "type", "value", "state", "saved"}
Json RowToJson(const GlobalRow& row, GlobalConfig& config);

/// The default as text: a constant one, or how it is computed, in parentheses.
std::string DefaultText(const GlobalRow& row, GlobalConfig& defaults);
/// "0 to 9", "at least 20", empty without a bound.
std::string BoundText(const VBound& bound);

} // namespace ostrand::tool
