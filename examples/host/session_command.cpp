#include "examples/host/session_command.h"

#include "config/session/session_access.h"
#include "config/session/session_moves.h"
#include "config/session/session_paths.h"
#include "core/entry.h"
#include "core/prompts.h"
#include "dialogs/kit/dialog_mode.h"
#include "examples/host/photographs.h"
#include "examples/host/text.h"

namespace host {

using namespace ostrand;

namespace {

/// What the applications' caret blinks with, in milliseconds.
constexpr unsigned kBlinkPeriod = 530;

GlobalConfig& Global()
{
    GlobalConfig* global = nullptr;
    GetGlobalConfig(global, -1);
    return *global;
}

/// The tree as it was left by the last program.
void LoadTree(const std::string& page)
{
    VPropertyPageStateMap& states = SessionOptionsDialogBase::PageStates();
    states.SetBranches(Global().sessionOptionsTreeState);
    const VUnicodeString& last = Global().sessionOptionsTreeSelected;
    states.Select(page.empty() ? last : Text(page));
}

void StoreTree()
{
    const VPropertyPageStateMap& states = SessionOptionsDialogBase::PageStates();
    Global().sessionOptionsTreeState = states.GetBranches();
    Global().sessionOptionsTreeSelected = states.GetSelected();
    VReportMessageParams report;
    if (!SaveGlobalConfig(false, &report))
        Fail("the tree isn't remembered: " + ToUtf8(report.GetText()));
}

VUnicodeString PathUnder(const VUnicodeString& path, const VUnicodeString& name)
{
    const std::u16string_view folder = SplitSessionPath(path).folder;
    return folder.empty() ? name : VUnicodeString(folder) + u"\\" + name;
}

/// A session that got another name moves before it is saved.
bool Save(SessionConfig& session, VReportMessageParams& report)
{
    const VUnicodeString former = session.GetPathName();
    const VUnicodeString path = PathUnder(former, session.GetSessionName());
    const bool isThere = SessionExists(former);
    if (!isThere &&
        !Prompts().AskYesNo(u"The session was deleted meanwhile. Do you want to save it again?", VPromptIcon::Question))
        return true;
    if (isThere && path != former && !RenameSession(former, path, Global().sortAlphabetical, report))
        return false;
    session.SetPathName(path);
    return SessionFolderAccess().SaveSession(session, false, report);
}

int RunDialog(SessionConfig& session, const SessionOptionsSetup& setup)
{
    const VUnicodeString name = session.GetSessionName();
    const int result = ShowSessionOptionsDialog(&Global(), &session, setup.owner, setup.mode, setup.isNewSession,
                                                setup.lockName, setup.maxColumns, setup.editCurrentModes,
                                                setup.blinkPeriod, setup.printingEnabled, nullptr);
    StoreTree();
    if (result != kResultOk || (!session.IsModified() && session.GetSessionName() == name))
        return 0;
    VReportMessageParams report;
    if (Save(session, report))
        return 0;
    Prompts().Show(report.GetText(), VPromptIcon::Error);
    return 1;
}

} // namespace

int ShowSession(const Arguments& arguments)
{
    const VUnknownPointer<SessionConfig> session = SessionFolderAccess().OpenSession(Text(arguments.session));
    if (!session)
        return Fail("there is no session '" + arguments.session + "'");
    session->AcceptChanges();
    const SessionOptionsSetup setup{.mode = arguments.isReadOnly ? kModeReadOnly : 0,
                                    .lockName = session->IsDefaultSession(),
                                    .maxColumns = Global().maxColumns,
                                    .blinkPeriod = kBlinkPeriod,
                                    .printingEnabled = true};
    LoadTree(arguments.page);
    if (arguments.screenshot.empty())
        return RunDialog(*session, setup);
    return Photograph(Global(), *session, setup, arguments);
}

} // namespace host
