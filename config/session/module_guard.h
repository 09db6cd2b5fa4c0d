// Calls into protocol modules. What a module throws ends here: the application goes on without what it asked for, and
// the failure is reported with the module and the operation.
#pragma once

#include "config/session/protocol_table.h"

#include <exception>

namespace ostrand {

/// Whether the call went well; else `tell` gets the exception's text. The exception is gone before this returns, so its
/// module may be unloaded.
template <class Call, class Tell>
bool CatchAll(Call call, Tell tell)
{
    try {
        call();
        return true;
    } catch (const std::exception& e) {
        tell(e.what());
    } catch (...) {
        tell("an exception of unknown class");
    }
    return false;
}

/// To the router the first time that this operation of this protocol fails, afterwards to the trace log, so that a
/// thousand sessions don't bring a thousand messages. Any thread.
OSTRAND_API void ReportModuleFault(const ConnectProtocolTableElement& row, const char16_t* operation, const char* what);

/// Whether the call went well; else it was reported.
template <class Call>
bool GuardModule(const ConnectProtocolTableElement& row, const char16_t* operation, Call call)
{
    return CatchAll(call, [&](const char* what) { ReportModuleFault(row, operation, what); });
}

} // namespace ostrand
