// A record with the values of the Log File page.
#pragma once

#include "dialogs/session/log_file_page.h"

namespace ostrand::test {

class LogRecord {
public:
    VProfileString logFilename;
    VProfile<bool> logPrompt, startLogUponConnect, rawLog, newLogFileAtMidnight;
    VProfile<int> logMode;
    VProfileString connect, disconnect, eachLine;
    VProfile<bool> logOnlyCustom;

    LogFileValues Values()
    {
        return {logFilename, logPrompt, startLogUponConnect, rawLog,   newLogFileAtMidnight,
                logMode,     connect,   disconnect,          eachLine, logOnlyCustom};
    }
};

} // namespace ostrand::test
