// What users look for in the options of a session, and the setting that they must be led to.
#include "tests/dialogs/session_dialog_scene.h"

#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using C = SessionConnectPage;
using A = SessionLogonScriptsPage;
using L = SessionLogFilePage;
using T = SessionTerminalPage;
using E = SessionEmulationPage;

enum Where { Connection, LogonActions, LogFile, Terminal, Emulation };

struct Setting {
    Where page;
    VControlId control;
    std::vector<const char16_t*> queries; ///< each finds the setting first
    std::vector<const char16_t*> second;  ///< and these among the first two
};

/// Labels, words that users have for them, names of values; with slips, in other order, half typed.
const Setting kSettings[] = {
    {Connection, C::Name, {u"name", u"rename"}, {}},
    {Connection, C::Protocol, {u"terminal", u"ssh", u"telnet", u"protcol type"}, {u"protocol"}},
    {Connection, C::FileTransfer, {u"file transfer", u"sftp"}, {}},
    {Connection, C::Description, {u"description", u"comment", u"notes", u"desciption"}, {}},
    {LogonActions,
     A::Automate,
     {u"automate logon", u"login automatically", u"Use Login Script", u"logon automate"},
     {}},
    {LogonActions, A::SendReturn, {u"carriage return", u"Send Initial Carriage Return"}, {}},
    {LogonActions, A::Actions, {u"expect", u"password"}, {}},
    {LogonActions, A::UseScript, {u"logon script", u"login macro", u"Use Script File"}, {}},
    {LogonActions, A::ScriptFile, {u"script file", u"vbs", u"Script Filename"}, {}},
    {LogFile, L::FileName, {u"log file name", u"Log Filename", u"logging"}, {}},
    {LogFile, L::Prompt, {u"prompt", u"Log Prompt"}, {}},
    {LogFile, L::StartOnConnect, {u"start log"}, {}},
    {LogFile, L::Raw, {u"raw", u"escape sequences log"}, {}},
    {LogFile, L::NewAtMidnight, {u"midnight", u"daily log", u"midnigth"}, {}},
    {LogFile, L::Mode, {u"overwrite", u"append", u"Log Mode", u"apend", u"overwr"}, {}},
    {LogFile, L::OnConnect, {}, {u"upon connect"}},
    {LogFile, L::OnDisconnect, {u"upon disconnect", u"disconect log"}, {}},
    {LogFile, L::OnEachLine, {u"each line", u"timestamp", u"Custom Log Message Each Line"}, {}},
    {LogFile, L::OnlyCustom, {u"only custom"}, {}},
    {Terminal, T::AudioBell, {u"beep", u"audio bell"}, {}},
    {Terminal, T::AutoReconnect, {u"reconnect", u"connect again"}, {}},
    {Terminal, T::SendString, {u"keep alive"}, {}},
    {Terminal, T::SendNoOp, {u"no-op"}, {}},
    {Terminal, T::MinimizeToTray, {u"system tray", u"minimise"}, {}},
    {Terminal, T::SetDelimiters, {u"word delimiters"}, {}},
    {Emulation, E::Terminal, {u"vt100", u"xterm"}, {}},
    {Emulation, E::Columns, {u"columns", u"width"}, {}},
    {Emulation, E::Scrollback, {u"scrollback", u"history lines"}, {}},
};

class SessionSearch : public SessionDialogScene {};

TEST_F(SessionSearch, FindsWhatIsLookedFor)
{
    const auto session = Session();
    const auto dialog = Dialog(*session);
    dialog->Open();
    VPropertyTreePage* const pages[] = {&PageOf<C>(*dialog), &PageOf<A>(*dialog), &PageOf<L>(*dialog),
                                        &PageOf<T>(*dialog), &PageOf<E>(*dialog)};
    const auto expect = [&](const Setting& setting, const char16_t* words, size_t places) {
        const std::vector<VSearchHit> hits = dialog->Search(words);
        const auto end = hits.begin() + static_cast<std::ptrdiff_t>(std::min(places, hits.size()));
        EXPECT_TRUE(std::any_of(
            hits.begin(), end,
            [&](const VSearchHit& hit) { return hit.page == pages[setting.page] && hit.control == setting.control; }))
            << ToUtf8(words) << ": first is " << (hits.empty() ? "nothing" : ToUtf8(hits.front().name));
    };
    size_t queries = 0;
    for (const Setting& setting : kSettings) {
        queries += setting.queries.size() + setting.second.size();
        for (const char16_t* const words : setting.queries)
            expect(setting, words, 1);
        for (const char16_t* const words : setting.second)
            expect(setting, words, 2);
    }
    EXPECT_GE(queries, 40u);
    dialog->Close();
}

} // namespace
} // namespace ostrand::test
