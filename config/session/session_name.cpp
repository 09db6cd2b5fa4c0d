#include "config/session/session_name.h"

#include "config/session/session_paths.h"
#include "core/fold.h"
#include "core/format.h"
#include "core/messages.h"
#include "core/paths/path_text.h"
#include "core/report.h"

namespace ostrand {

namespace {

bool IsTaken(std::u16string_view path, std::u16string_view oldName, std::u16string_view newName, bool isNew)
{
    if (isNew)
        return SessionExistsIn(path, newName);
    return !EqualNoCase(oldName, newName) && SessionExistsIn(SplitSessionPath(path).folder, newName);
}

} // namespace

bool CheckSessionName(std::u16string_view name, VUnicodeString& reason)
{
    char16_t illegal = 0;
    if (name.empty())
        reason = u"The name must be specified";
    else if (HasIllegalNameCharacter(name, &illegal))
        reason = Format(u"The name contains an illegal character: ' %1 '", std::u16string_view(&illegal, 1));
    else if (IsReservedDeviceName(name))
        reason = Format(u"%1 is a reserved device name on Windows and cannot be used as a name.", name);
    else
        return true;
    return false;
}

std::optional<SessionNameFault> FindSessionNameFault(std::u16string_view path, std::u16string_view oldName,
                                                     std::u16string_view newName, bool isNew)
{
    SessionNameFault fault;
    if (!CheckSessionName(newName, fault.text))
        return fault;
    if (!IsTaken(path, oldName, newName, isNew))
        return std::nullopt;
    VReportMessageParams report;
    Fail(report, kNameInUse, newName);
    return SessionNameFault{report.GetText(), VPromptIcon::Warning, kNameInUse};
}

bool ValidateSessionName(std::u16string_view path, std::u16string_view oldName, std::u16string_view newName, bool isNew)
{
    const std::optional<SessionNameFault> fault = FindSessionNameFault(path, oldName, newName, isNew);
    if (fault)
        Prompts().Show(fault->text, fault->icon);
    return !fault;
}

} // namespace ostrand
