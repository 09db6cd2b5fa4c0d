#include "config/session/module_guard.h"

#include "core/messages.h"
#include "core/trace.h"

#include <mutex>
#include <set>
#include <string>

namespace ostrand {

namespace {

/// Whether this is the first failure of its kind in the process.
bool IsFirst(const ConnectProtocolTableElement& row, std::u16string_view operation)
{
    static auto& mutex = *new std::mutex;
    static auto& seen = *new std::set<std::u16string>;
    const std::scoped_lock lock(mutex);
    return seen.insert((row.modulePath + u"\n" + row.name + u"\n" + operation).c_str()).second;
}

} // namespace

void ReportModuleFault(const ConnectProtocolTableElement& row, const char16_t* operation, const char* what)
{
    VReportMessageParams report;
    Fail(report, kModuleThrew, row.name, row.modulePath, operation);
    report.AddArgumentA(what);
    if (IsFirst(row, operation))
        VReportMessage(0, report);
    VTrace(u"%1\n", report.GetTextOneLine());
}

} // namespace ostrand
