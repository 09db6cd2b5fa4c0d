#include "dialogs/session/session_name_field.h"

#include "config/session/session_name.h"
#include "dialogs/kit/service_prompts.h"
#include "dialogs/kit/translate.h"

namespace ostrand {

void DDX_SessionName(VDataExchange& dx, VControlId edit, const ISessionConfig& session, VUnicodeString& name,
                     bool isNew)
{
    DDX_Text(dx, edit, name);
    name = name.Trimmed();
    if (!dx.Validating())
        return;
    if (const auto fault = FindSessionNameFault(session.GetPathName(), session.GetSessionName(), name, isNew))
        dx.Fail(
            edit,
            {.text = TranslateFormat(fault->format, fault->insert), .icon = IconOf(fault->icon), .code = fault->code});
}

} // namespace ostrand
