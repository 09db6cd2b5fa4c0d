// What tests of the dialog of a session's options stand on: both applications, protocols whose pages write down what is
// done with them, and services that follow a script.
#pragma once

#include "config/global/global_config.h"
#include "config/session/session_edit.h"
#include "dialogs/session/connect_page_multiple.h"
#include "dialogs/session/connect_page_single.h"
#include "dialogs/session/emacs_page.h"
#include "dialogs/session/emulation_modes_page.h"
#include "dialogs/session/emulation_page.h"
#include "dialogs/session/log_file_page.h"
#include "dialogs/session/logon_scripts_page.h"
#include "dialogs/session/session_options_dialog.h"
#include "dialogs/session/terminal_page.h"
#include "tests/config/session_scene.h"
#include "tests/support/page_driver.h"
#include "tests/support/recording_router.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace ostrand::test {

inline constexpr auto kProtocolPage = layout::Page(u"Protocol", layout::Check(1, u"&Box"));

class SessionDialogScene : public testing::Test {
protected:
    static constexpr const char* kNames[] = {"SSH2", "Telnet", "TAPI", "Serial", "SFTP", "None", "None", "FTP"};
    enum Row { Ssh2, Telnet, Tapi, Serial, Sftp, TerminalNone, TransferNone, Ftp };

    SessionDialogScene()
    {
        s_scene = this;
        ConnectProtocolTable& table = GetConnectProtocolTable();
        ConnectProtocolTableElement ftp = table[Sftp];
        ftp.name = u"FTP";
        table.Append(ftp);
        AddPages<Ssh2>();
        AddPages<Telnet>();
        AddPages<Serial>();
        AddPages<Sftp>();
        AddPages<Ftp>();
        Install(true, true);
    }
    ~SessionDialogScene() override
    {
        SessionOptionsDialogBase::PageStates().RemoveAll();
        Install(false, false);
        s_scene = nullptr;
    }

    static void Install(bool terminal, bool transfer)
    {
        SetTessalyInstalled(terminal);
        SetOrvaneInstalled(transfer);
    }
    static GlobalConfig& Global()
    {
        GlobalConfig* global = nullptr;
        GetGlobalConfig(global, -1);
        return *global;
    }
    VUnknownPointer<SessionConfig> Session(const char16_t* terminal = u"SSH2", const char16_t* transfer = u"SFTP")
    {
        scene.PutSession(u"Lab\\Router");
        auto session = scene.Open(u"Lab\\Router");
        session->SetTerminalProtocol(terminal);
        session->SetTransferProtocol(transfer);
        session->AcceptChanges();
        return session;
    }
    std::unique_ptr<SessionOptionsDialog> Dialog(SessionConfig& session,
                                                 const SessionOptionsSetup& setup = {.maxColumns = 1024})
    {
        return std::make_unique<SessionOptionsDialog>(Global(), session, setup, services);
    }
    /// "Connection | Connection > Logon Actions"
    static std::string TreeOf(const SessionOptionsDialog& dialog)
    {
        std::string tree;
        for (const VPropertyTreePage* const page : dialog.GetVisiblePages())
            tree += (tree.empty() ? "" : " | ") + ToUtf8(page->GetPath());
        return tree;
    }
    template <class P>
    static P& PageOf(const SessionOptionsDialog& dialog)
    {
        for (VPropertyTreePage* const page : dialog.GetVisiblePages())
            if (P* const wanted = dynamic_cast<P*>(page))
                return *wanted;
        throw std::logic_error("no such page in sight");
    }
    /// Chooses a protocol by its name, as a user does.
    static void ChooseProtocol(VForm& page, VControlId list, std::u16string_view name)
    {
        FormDriver(page).Choose(list, page.At<VListControl>(list).Find(name));
    }
    /// Names of the values that differ from their saved copies.
    static std::vector<std::u16string> Modified(SessionConfig& session)
    {
        std::vector<std::u16string> names;
        for (const SessionLeaf& leaf : SessionLeaves(session))
            if (leaf.value->IsModified())
                names.emplace_back(leaf.entry.name);
        return names;
    }
    std::string Take() { return std::exchange(log, {}); }

    SessionScene scene;
    ScriptedServices services;
    RecordingRouter router;
    std::string log;      // what was done with protocols' pages, in order
    std::string throwing; // what a module throws at, such as "show SSH2"

private:
    class ProtocolPages : public IProtocolPages {
    public:
        virtual ~ProtocolPages() = default;
        virtual void Destroy() { delete this; }
    };
    class FakePages final : public VUnknown<ProtocolPages> {
    public:
        FakePages(const char* name, VPropertyTreePage* parent) : m_name(name)
        {
            Note("make");
            parent->AddPage(&m_page);
        }
        ~FakePages() override { s_scene->log += "release " + m_name + ", "; }

        void ShowPages(IPropertyTreeDialog* dialog, ISessionConfig*) override
        {
            Note("show");
            dialog->ShowPage(&m_page);
        }
        void HidePages(IPropertyTreeDialog* dialog) override
        {
            Note("hide");
            dialog->HidePage(&m_page);
        }
        void RemovePages(IPropertyTreeDialog* dialog) override
        {
            Note("remove");
            dialog->RemovePage(&m_page);
        }

    private:
        void Note(const std::string& act)
        {
            if (s_scene->throwing == act + " " + m_name)
                throw std::runtime_error("module trouble");
            s_scene->log += act + " " + m_name + ", ";
        }

        const std::string m_name;
        VPropertyTreePage m_page{kProtocolPage};
    };

    template <Row row>
    static void AddPages()
    {
        GetConnectProtocolTable()[row].pagesFactory = [](IPropertyTreeDialog*, int, ISessionConfig*, IUnknown*,
                                                         VPropertyTreePage* connectPage) -> IProtocolPages* {
            return new FakePages(kNames[row], connectPage);
        };
    }

    static inline SessionDialogScene* s_scene = nullptr;
};

} // namespace ostrand::test
