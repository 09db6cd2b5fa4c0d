// The commands on single values, written once for all records: tools/value_record.h.
#pragma once

#include "tools/session_folder.h"
#include "tools/value_record.h"

namespace ostrand::tool {

/// A record that a command works on, with the folder that it stands in.
struct OpenedRecord {
    SessionFolder sessions;
    std::unique_ptr<ValueRecord> record; ///< gone before the folder
};

/// Opens the record that a request is about; what fails says so in one line on stderr.
using RecordOpener = Exit (*)(const Request&, Access, OpenedRecord&);
Exit OpenGlobalRecord(const Request& request, Access access, OpenedRecord& opened);
/// The session at the request's path.
Exit OpenSessionRecord(const Request& request, Access access, OpenedRecord& opened);

Exit ListValues(const Request& request, RecordOpener open);
Exit GetValue(const Request& request, RecordOpener open);
Exit SetValue(const Request& request, RecordOpener open);
Exit ResetValue(const Request& request, RecordOpener open);
/// Values that differ from their defaults; with `showAll` the others behind them.
Exit DiffValues(const Request& request, RecordOpener open);
Exit ExplainValue(const Request& request, RecordOpener open);

/// As a command of its own: `Of<GetValue, OpenGlobalRecord>`.
template <Exit (*Command)(const Request&, RecordOpener), RecordOpener open>
Exit Of(const Request& request)
{
    return Command(request, open);
}

} // namespace ostrand::tool
