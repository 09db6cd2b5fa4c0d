#include "core/messages.h"

#include <array>

namespace ostrand {

namespace {

constexpr std::array kTable = {
    VMessageText{kApplyToAllSessions,
                 u"Do you want to apply the changes that you made to the default session to ALL of "
                 u"your sessions?\r\n\r\nWARNING: There is no UNDO for this change."},
    VMessageText{kSessionsReadOnly,
                 u"Of your %1 sessions, %2 could not be updated because they are currently read-only."},
    VMessageText{kScriptingDisabled, u"Scripting has been administratively disabled.\r\n"
                                     u"The Run Script function is no longer available."},
    VMessageText{kLaunchFailed, u"%1 could not be launched from the following location:\r\n%2"},
    VMessageText{kColumnsOutOfRange,
                 u"Please enter an integer between %1 and %2.\r\n\r\nThe maximum number of columns can be set up to "
                 u"1024 on the Appearance page in the Global Options dialog."},
    VMessageText{kAutoSessionMissing, u"Please specify an auto session or uncheck the \"Use auto session\" checkbox."},
    VMessageText{kNameInUse, u"'%1' is already in use."},
    VMessageText{kSessionLocked, u"The Sessions Options that you are opening are being used by a locked session.  You "
                                 u"will not be able to save changes to the session."},
    VMessageText{kDoNotDisplayAgain, u"&Do not display this message again"},
    VMessageText{kCommandLineFolderInvalid,
                 u"The folder specified using /F on the command line is not valid:\r\n\r\n'%1'"},
    VMessageText{kNameMissing, u"The %1 name must be specified."},
    VMessageText{kNameIllegalCharacter, u"The %1 name contains an illegal character: ' %2 '."},
    VMessageText{kNameReserved, u"'%1' is a reserved device name and cannot be used as a %2 name."},
    VMessageText{kNameExists, u"The %1 name '%2' already exists."},
    VMessageText{kComponentNotInstalled,
                 u"The %1 Sentrel is not currently installed.\r\n\r\nThis component will need to be installed in order "
                 u"for this option to be selected."},
    VMessageText{kAntiIdleStringEmpty, u"The anti-idle string must contain at least one character."},
    VMessageText{kKeymapFileNameEmpty, u"Custom keymap filename cannot be empty."},
    VMessageText{kKeymapFileNotFound, u"Keymap filename not found."},
    VMessageText{kMidnightLogNeedsDay,
                 u"Log file name must contain '%%D' when 'Start new log at midnight' is checked."},
};

/// Those beyond the table that applications know.
constexpr std::array kFurtherOwn = {
    VMessageText{kValueNotCopied, u"The value '%1' is of a kind that can't be copied."},
    VMessageText{kNameUnknown, u"There is no %1 named '%2'."},
    VMessageText{kModuleThrew, u"The protocol %1 failed in %3: %4\r\n%2"},
    VMessageText{kNothingToUndo, u"There is no change of several sessions to undo."},
    VMessageText{
        kLogonActionsUnread,
        u"The stored logon actions can't all be read here.  They stay as they are unless you change the list."},
};

std::span<const VMessageText> g_further;

} // namespace

std::span<const VMessageText> MessageTable() { return kTable; }

void SetFurtherMessages(std::span<const VMessageText> rows) { g_further = rows; }

const char16_t* FindMessageText(unsigned code)
{
    for (const std::span<const VMessageText> table :
         {std::span<const VMessageText>(kTable), std::span<const VMessageText>(kFurtherOwn), g_further})
        for (const VMessageText& row : table)
            if (row.code == code)
                return row.text;
    return nullptr;
}

} // namespace ostrand
