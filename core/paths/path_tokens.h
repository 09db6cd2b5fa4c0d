// Templates of paths: "%HOME%/logs/%Y-%M-%D %H.log". First the environment is expanded, on a portable run then the two
// names of its device, then the tokens:
//
//   %Y %M %D   year (4 digits), month, day       %h %m %s %t   hour, minute, second, millisecond (3 digits)
//   %S         the session                       %H            the host, each ":" as "_"
//   %%         a percent sign
//
// Times are UTC, as of the call.
#pragma once

#include "core/report.h"

namespace ostrand {

/// The report is success, or the result empty and the report one of: kPathTokenIncomplete for a "%" at the end;
/// kPathTokenUnknown for any other token, also for a session or host that is null, with the token as argument, up to
/// the next "%" if there is one.
/// On purpose: the environment goes first, so "%Y%" asks for a variable of that name. Held by
/// PathTokens.TheEnvironmentGoesFirst.
OSTRAND_API VUnicodeString ExpandPathTokens(std::u16string_view path, IReportMessageParams& report,
                                            const char16_t* host = nullptr, const char16_t* session = nullptr);
/// Whether the template `a` expands to `b`, ignoring case, and the kind of separator on systems that have "/". A
/// template that doesn't expand counts as empty.
OSTRAND_API bool PathsEqual(std::u16string_view a, std::u16string_view b, const char16_t* host = nullptr,
                            const char16_t* session = nullptr);

/// Replaces "%u3data%" and "%u3doc%" by the folders of the portable device, as U3_APP_DATA_PATH and
/// U3_DEVICE_DOCUMENT_PATH name them; without a name they stay.
OSTRAND_API void ExpandU3Tokens(VUnicodeString& text);
/// Whether the program runs from a portable device: U3_APP_DATA_PATH exists. Looked up once for the process.
OSTRAND_API bool IsU3Environment();
/// For tests: the next question looks again.
void ForgetU3Environment();

} // namespace ostrand
