// The trace log: one text file for each program, in the folder for temporary files, for those who look for a fault.
#pragma once

#include "core/format.h"
#include "core/text_file.h"

#include <mutex>

namespace ostrand {

/// A log that is opened by its first line, as "PROGRAM.trace.log" in the folder of TEMP or TMPDIR, anew for each run.
/// One that can't be opened or written swallows its lines. Safe to share between threads.
class OSTRAND_API VTraceLog {
public:
    /// The text goes in as it is: a line brings its own "\n".
    void Write(std::u16string_view text);
    /// The next line opens the file again, at the place that the environment then names.
    void Close();
    /// Where the log lies or would lie.
    static VUnicodeString FilePath();

private:
    void Open();

    std::mutex m_mutex;
    VTextFile m_file{VTextEncoding::Utf16};
    bool m_wasOpened = false; // or the attempt made
};

/// The log of the process.
OSTRAND_API VTraceLog& TraceLog();

/// `VTrace(u"%1\n", text)`
template <class... Arguments>
void VTrace(std::u16string_view format, const Arguments&... arguments)
{
    TraceLog().Write(Format(format, arguments...));
}

} // namespace ostrand
