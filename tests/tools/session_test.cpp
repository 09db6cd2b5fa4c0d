// session, protocol and the schemas of sessions: a folder that a person wrote by hand, and one that the tool filled.
#include "tests/support/temp_folder.h"
#include "tests/tools/tool_runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace ostrand::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ToolSession : public testing::Test {
protected:
    ToolRun Run(std::vector<std::string> words, const std::string& input = {}) const
    {
        words.insert(words.begin(), {"--config", m_folder.Path(), "--modules", m_modules});
        return RunTool(words, {}, input);
    }
    std::string Out(const std::vector<std::string>& words) const
    {
        const ToolRun run = Run(words);
        EXPECT_EQ(run.code, 0);
        EXPECT_EQ(run.err, "");
        return run.out;
    }
    json OutJson(std::vector<std::string> words) const
    {
        words.emplace_back("--json");
        return json::parse(Out(words));
    }
    void Write(const std::string& path, const std::string& text) const { m_folder.Write("Sessions/" + path, text); }
    std::string Read(const std::string& path) const { return m_folder.Read("Sessions/" + path); }
    std::vector<std::string> Files() const
    {
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(m_folder.Path()))
            files.push_back(entry.path().string());
        return files;
    }

    /// Commands of session that fail, and what they say.
    struct Refusal {
        std::vector<std::string> words;
        std::string says;
    };
    void ExpectRefused(const std::vector<Refusal>& refused) const
    {
        for (const Refusal& refusal : refused) {
            SCOPED_TRACE(refusal.says);
            std::vector<std::string> words = refusal.words;
            words.insert(words.begin(), "session");
            const ToolRun run = Run(words);
            EXPECT_EQ(run.code, 1);
            EXPECT_EQ(run.out, "");
            EXPECT_THAT(run.err, HasSubstr(refusal.says));
        }
    }

    TempFolder m_folder;
    std::string m_modules = OSTRAND_TEST_PROTOCOLS;
};

const json* Named(const json& list, const std::string& name)
{
    const auto found = std::find_if(list.begin(), list.end(), [&](const json& row) { return row["name"] == name; });
    return found == list.end() ? nullptr : &*found;
}

TEST_F(ToolSession, ListsFollowTheFoldersAndMakeNothing)
{
    Write("Lab/b.ini",
          "Is Session = 1\nProtocol Name = \"SSH2\"\nSSH2 Host = \"b.example\"\nDescription = [\"Rack\", \"7\"]\n");
    Write("Lab/a.ini", "Is Session = 1\nProtocol Name = \"Telnet\"\nTelnet Host = \"a.example\"\n");
    Write("Lab/c.ini", "Is Session = 1\n");
    Write("Lab/%2Ehidden.ini", "Is Session = 1\n");
    Write("Lab/Deep/d.ini", "Is Session = 1\n");
    Write("Lab/__FolderData__.ini", "Session List = \"c:b:gone:\"\n");
    m_folder.Write("Global.ini", "Hide Dot Session Files = 1\nSort Alphabetical = 0\n");
    const std::vector<std::string> before = Files();
    EXPECT_EQ(Out({"session", "list", "--tree"}), "SESSION  PROTOCOL      SUMMARY\n"
                                                  "Lab\\\n"
                                                  "  Deep\\\n"
                                                  "    d    SSH2, SFTP    Hostname:\n"
                                                  "  c      SSH2, SFTP    Hostname:\n"
                                                  "  b      SSH2, SFTP    Hostname: b.example Rack 7\n"
                                                  "  a      Telnet, SFTP  Hostname: a.example\n");
    const json flat = OutJson({"session", "list", "lab"});
    ASSERT_EQ(flat.size(), 4u);
    EXPECT_EQ(flat[2]["path"], "Lab\\b");
    EXPECT_EQ(flat[2]["summary"], "Hostname: b.example\nRack\n7");
    EXPECT_EQ(OutJson({"session", "list", "--tree"})["folders"][0]["sessions"][2]["path"], "Lab\\a");
    EXPECT_EQ(Out({"session", "summary", "Lab\\b"}), "Hostname: b.example\nRack\n7\n");
    EXPECT_EQ(Out({"complete", "sessions"}), "Lab\\.hidden\nLab\\a\nLab\\b\nLab\\c\nLab\\Deep\\d\n");
    EXPECT_EQ(Out({"complete", "folders"}), "Lab\nLab\\Deep\n");
    EXPECT_THAT(Out({"complete", "session-values"}), AllOf(HasSubstr("Telnet Port\n"), HasSubstr("Scrollback\n")));
    EXPECT_THAT(Out({"session", "show", "Default"}), StartsWith("0 of "));
    EXPECT_EQ(Files(), before);
    m_modules = m_folder.Path(); // where there are none
    EXPECT_EQ(Out({"session", "set", "Default", "Cols", "90"}), "Cols: 80 -> 90\n");
    EXPECT_THAT(Read("Default.ini"),
                AllOf(StartsWith("Is Session = 1\n"), HasSubstr("Rows = 24\n"), Not(HasSubstr("Protocol Name"))));
}

TEST_F(ToolSession, OneValueIsShownSetAndResetAndNothingElseIsWritten)
{
    Write("R.ini", "# kept\nIs Session = 1\nCols = 900\nIdle NO-OP Timeout = 5\nKeymap v2 = "
                   "hex:000000010000004153454e4400686900\nSSH2 Host = \"h\"\n");
    EXPECT_THAT(Out({"session", "show", "r"}),
                AllOf(HasSubstr("R.ini:4, corrected from 5: its bound is 10 to 9999999"), HasSubstr("\nSSH2 Host"),
                      HasSubstr("R.ini:6"), Not(HasSubstr("Rows"))));
    const json all = OutJson({"session", "show", "R"});
    ASSERT_NE(Named(all, "Rows"), nullptr);
    EXPECT_EQ((*Named(all, "Rows"))["part"], "terminal");
    EXPECT_EQ((*Named(all, "Rows"))["isDefault"], true);
    EXPECT_EQ((*Named(all, "SSH2 Host"))["line"], 6);
    EXPECT_EQ(all[0]["isDefault"], false) << "what differs comes first";

    EXPECT_EQ(Out({"session", "get", "R", "Keymap v2"}), "VK_A -> \"hi\"\n");

    const std::string before = Read("R.ini");
    EXPECT_EQ(Out({"session", "set", "R", "description", "Rack 7", "ask Ann"}),
              "Description: \"\" -> \"Rack 7\\nask Ann\"\n");
    EXPECT_EQ(Out({"session", "get", "R", "Description"}), "Rack 7\nask Ann\n");
    EXPECT_EQ(Out({"session", "set", "R", "SSH2 Port", "2222"}), "SSH2 Port: 22 -> 2222\n");
    EXPECT_EQ(Read("R.ini"), before + "Description = [\"Rack 7\", \"ask Ann\"]\nSSH2 Port = 2222\n");
    EXPECT_EQ(Out({"session", "reset", "R", "SSH2 Port"}), "SSH2 Port: 2222 -> 22\n");
    EXPECT_EQ(Out({"session", "set", "R", "Use Raw Mode", "true"}), "Use Raw Mode: false -> true\n");
    EXPECT_THAT(Out({"session", "explain", "R", "SSH2 Host"}),
                AllOf(HasSubstr("R.ini:6"), HasSubstr("which is another")));

    const std::vector<Refusal> refused = {
        {{"set", "R", "Use Printer Port", "true"}, "can't take this value now. Raw mode"},
        {{"set", "R", "Is Session", "false"}, "Is Session is always true"},
        {{"set", "R", "Max Transfer Buffers", "9"}, "takes an int from 1 to 8, not 9"},
        {{"set", "R", "Keymap v2", "x"}, "see keymap list"},
        {{"set", "R", "Scrolback", "9"}, "did you mean 'Scrollback'?"},
        {{"set", "R", "Protocol Name", "SSH3"}, "did you mean 'SSH2'?"},
        {{"set", "R", "Transfer Protocol Name", "Telnet/TLS"}, "there are 'SFTP', 'FTP'"},
        {{"get", "Q", "Cols"}, "there is no session 'Q'"},
    };
    const std::string after = Read("R.ini");
    ExpectRefused(refused);
    EXPECT_EQ(Read("R.ini"), after);
}

TEST_F(ToolSession, AProtocolIsSelectedWithItsValues)
{
    Write("R.ini", "Is Session = 1\nProtocol Name = \"SSH2\"\nTelnet Host = \"t\"\n");
    EXPECT_EQ(Out({"session", "set", "R", "Protocol Name", "telnet"}),
              "Protocol Name: \"SSH2\" -> \"Telnet\"\nTelnet Host: \"t\"\nTelnet Port: 22\n");
    EXPECT_EQ(Read("R.ini"), "Is Session = 1\nProtocol Name = \"Telnet\"\nTelnet Host = \"t\"\nTelnet Port = 22\n");
    EXPECT_EQ(Out({"session", "reset", "R", "Protocol Name"}).substr(0, 35),
              "Protocol Name: \"Telnet\" -> \"SSH2\"\nS");
    EXPECT_EQ(Run({"session", "set", "R", "Protocol Name", "None"}).code, 0);
    const ToolRun none = Run({"session", "set", "R", "Transfer Protocol Name", "None"});
    EXPECT_EQ(none.code, 1);
    EXPECT_THAT(none.err, HasSubstr("Both selected protocols cannot be 'None'."));

    const json protocols = OutJson({"protocol", "list"});
    EXPECT_EQ((*Named(protocols, "Telnet"))["state"], "loaded");
    EXPECT_EQ((*Named(protocols, "RLogin"))["state"], "file missing");
    const TempFolder broken;
    broken.Write("ProtoDelta.so", "no module");
    m_modules = broken.Path();
    const json failed = *Named(json::parse(Run({"protocol", "list", "--json"}).out), "Telnet");
    EXPECT_EQ(failed["state"], "not loadable");
    EXPECT_FALSE(failed["reason"].is_null());
    const ToolRun absent = Run({"session", "set", "R", "Protocol Name", "SSH2"});
    EXPECT_EQ(absent.code, 0) << "the name is kept for those who have the module";
    EXPECT_THAT(absent.err, HasSubstr("the module of 'SSH2' isn't loaded"));
    EXPECT_THAT(Run({"session", "get", "R", "SSH2 Host"}).err, HasSubstr("the module of 'SSH2' isn't loaded"));
    m_modules = broken.Path("gone");
    EXPECT_EQ(Run({"session", "list"}).code, 1);
}

TEST_F(ToolSession, SecretsComeFromStandardInputAndStayMasked)
{
    Write("R.ini", "Is Session = 1\n");
    EXPECT_EQ(Run({"session", "set", "R", "Monitor Password", "hunter2"}).code, 2);
    const ToolRun set = Run({"session", "set", "R", "Monitor Password", "-"}, "hunter2\n");
    EXPECT_EQ(set.out, "Monitor Password: \"<empty>\" -> \"<set>\"\n");
    ASSERT_EQ(Run({"session", "set", "R", "Login Script V2", "-"}, "0\x1Flogin:\x1F"
                                                                   "ann\x1F"
                                                                   "1\x1Fword:\x1F"
                                                                   "hunter2\x1F")
                  .code,
              0);
    EXPECT_EQ(Out({"session", "actions", "R"}), "EXPECT    SEND\n\"login:\"  \"ann\"\n\"word:\"   ********\n");
    EXPECT_EQ(OutJson({"session", "actions", "R", "--reveal"})[1]["send"], "hunter2");
    ASSERT_EQ(Out({"session", "clone", "R", "S"}), "Copied session 'R' to 'S'.\n");
    ASSERT_EQ(Run({"session", "set", "S", "Monitor Password", "-"}, "other\n").code, 0);
    EXPECT_THAT(Out({"session", "diff", "R", "S"}), HasSubstr("Monitor Password  \"<set>\"  <another>\n"));
    EXPECT_THAT(Out({"session", "show", "R"}) + Out({"session", "show", "R", "--json"}) + Read("R.ini"),
                Not(HasSubstr("hunter2")));
    EXPECT_EQ(Out({"session", "diff", "S", "s"}), "Both sessions are the same.\n");
}

TEST_F(ToolSession, SessionsAreMadeMovedAndDeletedInTheirPlace)
{
    m_folder.Write("Global.ini", "Sort Alphabetical = 0\n");
    Write("Default.ini", "Is Session = 1\nScrollback = 700\n");
    Write("Lab/a.ini", "; mine\nIs Session = 1\nTeam = \"noc\"\n");
    Write("Lab/b.ini", "Is Session = 1\n");
    Write("Lab/__FolderData__.ini", "Session List = \"b:a:\"\n");
    EXPECT_EQ(Out({"session", "new", "Lab\\c"}), "Made session 'Lab\\c' like 'Default'.\n");
    EXPECT_EQ(Out({"session", "get", "Lab\\c", "Scrollback"}), "700\n");
    EXPECT_EQ(Out({"session", "new", "New\\Folder\\d", "--like", "lab\\B"}),
              "Made session 'New\\Folder\\d' like 'Lab\\b'.\n");
    EXPECT_EQ(Out({"session", "clone", "lab\\b", "Lab\\x"}), "Copied session 'Lab\\b' to 'Lab\\x'.\n");
    EXPECT_EQ(Out({"session", "rename", "Lab\\b", "Lab\\B"}), "Renamed session 'Lab\\b' to 'Lab\\B'.\n");
    EXPECT_EQ(Out({"session", "rename", "Lab\\a", "New\\a"}), "Renamed session 'Lab\\a' to 'New\\a'.\n");
    EXPECT_THAT(Read("New/a.ini"), HasSubstr("Team = \"noc\"\n"));
    EXPECT_THAT(Read("Lab/__FolderData__.ini"), HasSubstr("Session List = \"B:x:c:\"\n"));
    EXPECT_EQ(Out({"session", "rename", "Lab", "Office"}), "Renamed folder 'Lab' to 'Office'.\n");
    EXPECT_EQ(OutJson({"session", "list", "Office"})[1]["path"], "Office\\x");

    const std::vector<Refusal> refused = {
        {{"new", "Office\\c"}, "'Office\\c' is already in use."},
        {{"new", "Office\\con"}, "con is a reserved device name"},
        {{"new", "Off*ice\\c"}, "illegal character: ' * '"},
        {{"new", "Office\\ "}, "The name must be specified"},
        {{"new", ""}, "The name must be specified"},
        {{"new", "Office\\__folderdata__"}, "a name that the applications keep"},
        {{"new", "Default"}, "a name that the applications keep"},
        {{"new", "Office\\c\\e"}, "'Office\\c' is a session, not a folder"},
        {{"new", "e", "--like", "Office"}, "'Office' is a folder, not a session"},
        {{"clone", "Office", "e"}, "'Office' is a folder, not a session"},
        {{"rename", "Office\\c", "Office\\X"}, "'Office\\X' is already in use."},
        {{"rename", "Office", "office\\in"}, "folder 'Office' can't move into itself"},
        {{"rename", "Default", "e"}, "the default session keeps its name"},
        {{"rename", "Offise\\c", "e"}, "did you mean 'Office\\c'?"},
        {{"delete", "New"}, "'New' is a folder with 2 sessions and 1 subfolder; --force"},
        {{"list", "Office\\c"}, "'Office\\c' is a session, not a folder"},
    };
    const std::vector<std::string> before = Files();
    ExpectRefused(refused);
    EXPECT_EQ(Files(), before);
    EXPECT_EQ(Out({"session", "delete", "office\\X"}), "Deleted session 'Office\\x'.\n");
    EXPECT_EQ(Out({"session", "delete", "New", "--force"}), "Deleted folder 'New' with 2 sessions and 1 subfolder.\n");
    EXPECT_EQ(OutJson({"session", "list"}).size(), 3u);
    EXPECT_FALSE(m_folder.Exists("Sessions/New"));
}

TEST_F(ToolSession, ApplyIsPreviewedDoneAndUndone)
{
    for (const char* const name : {"a", "b", "Lab/c"})
        ASSERT_EQ(Run({"session", "new", name[0] == 'L' ? "Lab\\c" : name}).code, 0);
    ASSERT_EQ(Run({"session", "set", "b", "Use Printer Port", "true"}).code, 0);
    Write("old.ini", "Is Session = 1\nXModem Send Packet Size = 128\n");
    const std::vector<std::string> apply = {"session", "apply", "Use Raw Mode=true", "Scrollback=500", "Cols=132"};
    std::vector<std::string> previewed = apply;
    previewed.emplace_back("--preview");
    const std::string before = Read("a.ini") + Read("old.ini");
    EXPECT_THAT(Out(previewed),
                AllOf(StartsWith("4 of 4 sessions would change.\n"), HasSubstr("Use Raw Mode  true   4         1\n"),
                      HasSubstr("Scrollback    500    1         1\n"), HasSubstr("Written along"),
                      testing::ContainsRegex("Use Printer Port +false +2 +1\n"),
                      testing::ContainsRegex("XModem Send Packet Size +0 +1 +0\n")));
    const json page = OutJson(previewed);
    EXPECT_EQ((*Named(page["lines"], "Use Raw Mode"))["asked"], true);
    EXPECT_EQ((*Named(page["lines"], "Rows"))["asked"], false);
    EXPECT_EQ(Read("a.ini") + Read("old.ini"), before);

    EXPECT_EQ(Out(apply), "Changed 4 of 4 sessions; session undo takes it back.\n");
    EXPECT_EQ(Out({"session", "get", "Lab\\c", "Cols"}), "132\n");
    EXPECT_EQ(Out({"session", "get", "b", "Use Printer Port"}), "false\n");
    EXPECT_EQ(Out(apply), "Nothing to change in 4 sessions.\n");
    const ToolRun ruled = Run({"session", "apply", "Use Printer Port=true"});
    EXPECT_THAT(ruled.err, HasSubstr("'Use Printer Port' is not taken by 4 sessions: Raw mode excludes"));
    ASSERT_EQ(Run({"session", "set", "a", "Cols", "99"}).code, 0);
    EXPECT_EQ(Out({"session", "undo"}),
              "4 sessions are as before the change.\nchanged since, stays as it is: a: Cols\n");
    EXPECT_EQ(Read("old.ini"), "Is Session = 1\nXModem Send Packet Size = 128\n");
    EXPECT_THAT(Run({"session", "undo"}).err, HasSubstr("no change of several sessions to undo"));

    EXPECT_EQ(Out({"session", "apply", "SSH2 Port=2222", "Protocol Name=SSH2", "--folder", "Lab"}),
              "Changed 1 of 1 sessions; session undo takes it back.\n");
    EXPECT_EQ(Out({"session", "get", "Lab\\c", "SSH2 Port"}), "2222\n");
    ExpectRefused({{{"apply", "Scrolback=1"}, "did you mean 'Scrollback'?"},
                   {{"apply", "Cols=132", "Max Transfer Buffers=9"}, "takes an int from 1 to 8"},
                   {{"apply", "Protocol Name=SSH9"}, "did you mean 'SSH2'?"},
                   {{"apply", "Cols=132", "--folder", "Lub"}, "there is no folder 'Lub'; did you mean 'Lab'?"}});
    EXPECT_EQ(Run({"session", "apply", "Scrollback"}).code, 2);
}

TEST_F(ToolSession, AnImportMakesWhatItShowsBefore)
{
    Write("Default.ini", "Is Session = 1\nScrollback = 5000\n");
    Write("Lab/gate.ini", "Is Session = 1\n");
    m_folder.Write("config", "Host gate\n  HostName gate.example.net\n  Port 2222\n  User ann\n  Compression yes\n"
                             "Host *.lab\n  User root\nHost a.lab\n");
    const std::string file = m_folder.Path() + "/config";
    const std::vector<std::string> words = {"session", "import", "--from", "ssh-config", file, "--folder", "lab"};
    std::vector<std::string> dry = words;
    dry.emplace_back("--dry-run");
    const std::vector<std::string> files = Files();
    EXPECT_THAT(Run(dry).out,
                AllOf(testing::ContainsRegex("Lab.gate \\(2\\) +SSH2 +ann@gate.example.net:2222\n"),
                      testing::ContainsRegex("Lab.a.lab +SSH2 +root@a.lab\n"), HasSubstr("Would import 2 sessions."),
                      HasSubstr("not taken over: Compression, 1 times, first in line 5\n")));
    EXPECT_EQ(Files(), files);
    EXPECT_THAT(Run(words).out, HasSubstr("Imported 2 sessions."));
    EXPECT_EQ(Out({"session", "get", "Lab\\gate (2)", "SSH2 Port"}), "2222\n");
    EXPECT_EQ(Out({"session", "get", "Lab\\a.lab", "Scrollback"}), "5000\n");
    EXPECT_EQ(OutJson({"session", "list", "Lab"}).size(), 3u);
    ExpectRefused({{{"import", "--from", "putty", file}, "config"},
                   {{"import", "--from", "ssh-config", file + "x"}, "configx: "},
                   {{"import", "--from", "ssh-config", file, "--folder", "a:b"}, "illegal character"}});
}

} // namespace
} // namespace ostrand::test
