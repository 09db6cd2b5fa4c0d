#include "config/session/session_name.h"

#include "config/session/session_paths.h"
#include "core/fold.h"
#include "core/messages.h"
#include "core/paths/path_text.h"

namespace ostrand {

namespace {

bool IsTaken(std::u16string_view path, std::u16string_view oldName, std::u16string_view newName, bool isNew)
{
    if (isNew)
        return SessionExistsIn(path, newName);
    return !EqualNoCase(oldName, newName) && SessionExistsIn(SplitSessionPath(path).folder, newName);
}

std::optional<SessionNameFault> FaultOfNameAlone(std::u16string_view name)
{
    char16_t illegal = 0;
    if (name.empty())
        return SessionNameFault{u"The name must be specified", {}};
    if (HasIllegalNameCharacter(name, &illegal))
        return SessionNameFault{u"The name contains an illegal character: ' %1 '", std::u16string_view(&illegal, 1)};
    if (IsReservedDeviceName(name))
        return SessionNameFault{u"%1 is a reserved device name on Windows and cannot be used as a name.", name};
    return std::nullopt;
}

} // namespace

bool CheckSessionName(std::u16string_view name, VUnicodeString& reason)
{
    const std::optional<SessionNameFault> fault = FaultOfNameAlone(name);
    if (fault)
        reason = fault->GetText();
    return !fault;
}

std::optional<SessionNameFault> FindSessionNameFault(std::u16string_view path, std::u16string_view oldName,
                                                     std::u16string_view newName, bool isNew)
{
    if (const std::optional<SessionNameFault> fault = FaultOfNameAlone(newName))
        return fault;
    if (!IsTaken(path, oldName, newName, isNew))
        return std::nullopt;
    return SessionNameFault{FindMessageText(kNameInUse), newName, VPromptIcon::Warning, kNameInUse};
}

bool ValidateSessionName(std::u16string_view path, std::u16string_view oldName, std::u16string_view newName, bool isNew)
{
    const std::optional<SessionNameFault> fault = FindSessionNameFault(path, oldName, newName, isNew);
    if (fault)
        Prompts().Show(fault->GetText(), fault->icon);
    return !fault;
}

} // namespace ostrand
