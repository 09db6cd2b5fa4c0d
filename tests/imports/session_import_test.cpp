// Sessions of other programs: what becomes of real configurations, and of their names.
#include "tests/imports/import_scene.h"

#include "config/session/session_name.h"
#include "config/session/terminal_config.h"
#include "imports/putty_sessions.h"
#include "imports/ssh_config.h"
#include "profile/log_font.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Sessions : SessionImport {
    std::string error;

    /// "name|protocol|user|host|port|description", where there is such.
    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        for (const ImportedSession& s : sessions)
            lines.push_back(ToUtf8(
                Format(u"%1|%2|%3|%4|%5!u!|%6", s.name, s.protocol, s.username, s.hostname, s.port, s.description)));
        return lines;
    }
    std::vector<std::string> Notes() const
    {
        std::vector<std::string> texts;
        for (const ImportFault& note : notes)
            texts.push_back(TextOf(note));
        return texts;
    }
    std::vector<std::string> Unmapped() const
    {
        std::vector<std::string> texts;
        for (const UnmappedName& each : unmapped)
            texts.push_back(ToUtf8(Format(u"%1!u!: %2 x %3!u!", each.line, each.name, each.count)));
        return texts;
    }
};

template <class Read>
Sessions ImportSessions(Read read, std::string_view bytes)
{
    Sessions sessions;
    ImportFault error;
    if (!read(bytes, sessions, error))
        sessions.error = TextOf(error);
    return sessions;
}

Sessions Ssh(std::string_view bytes) { return ImportSessions(ReadSshConfig, bytes); }

std::string ReadSessions(const std::string& name)
{
    std::ifstream in(std::filesystem::path(OSTRAND_TEST_DATA) / "sessions" / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(SshConfig, EachNameGetsTheValuesThatSshWouldUse)
{
    const std::string config = ReadSessions("ssh_config");
    for (const std::string& bytes : {config, Replaced(config, "\n", "\r\n"), "\xEF\xBB\xBF" + config}) {
        const Sessions sessions = Ssh(bytes);
        EXPECT_EQ(sessions.error, "");
        EXPECT_THAT(sessions.Lines(),
                    ElementsAre("bastion|SSH2|ann|bastion.example.com|2222|",
                                "jump.example.com|SSH2|ann|bastion.example.com|2222|",
                                "web1|SSH2|ann|web1.prod.example.com|22022|ProxyJump bastion",
                                "web2|SSH2|ann|web2.prod.example.com|22022|ProxyJump bastion",
                                "two words|SSH2|ann|10.0.0.9|22|", "secret.internal|SSH2|ann|10.0.0.9|22|",
                                "db.internal|SSH2|ann|ignored-for-those-with-one.example.com|22|ProxyJump bastion",
                                "its|SSH2|ann|ignored-for-those-with-one.example.com|22|",
                                "WEB1 (2)|SSH2|ann|ignored-for-those-with-one.example.com|22|",
                                "con_|SSH2|ann|ignored-for-those-with-one.example.com|22|",
                                "Default (2)|SSH2|ann|ignored-for-those-with-one.example.com|22|",
                                "router_1|SSH2|ann|ignored-for-those-with-one.example.com|22|"));
        EXPECT_THAT(sessions.Notes(),
                    ElementsAre("line 10: has the pattern 'web?'; its values hold for all names that fit it",
                                "line 10: has the pattern '*.internal'; its values hold for all names that fit it",
                                "line 21: includes '~/.ssh/config.d/*', which isn't read",
                                "line 25: has the port '70000', which is none",
                                "line 28: begins a block for 'host 10.* exec test -f /tmp/x', which isn't followed",
                                "line 34: has more than one value; 'admin' counts",
                                "line 36: has the pattern '*'; its values hold for all names that fit it",
                                "line 40: has a quote without its end", "line 41: has a quote without its end",
                                "line 32: 'WEB1' becomes the session 'WEB1 (2)'",
                                "line 32: 'con' becomes the session 'con_'",
                                "line 32: 'Default' becomes the session 'Default (2)'",
                                "line 32: 'router/1' becomes the session 'router_1'"));
        EXPECT_THAT(sessions.Unmapped(),
                    ElementsAre("2: ServerAliveInterval x 1", "8: IdentityFile x 2", "13: ForwardAgent x 1",
                                "19: LocalForward x 1", "42: Compression x 1"));
    }
}

TEST(SshConfig, OddLinesCostThemselvesAlone)
{
    const struct {
        const char* config;
        const char* session; // the first one
    } kCases[] = {
        {"Host a\nUser\nUser b", "a|SSH2|b|a|0|"},
        {"Host=a\nPort = 7\nPORT 8", "a|SSH2||a|7|"},
        {"host a # b\nuser c#d", "a|SSH2|c#d|a|0|"},
        {"Host a\\ b \"c\\\"d\"\nHostName x%%y%h%z", "a b|SSH2||x%ya b%z|0|"},
        {"Host * !a\nUser all\nHost a b\nPort 0x16", "a|SSH2||a|0|"},
        {"User first\nHost *?*a*\nPort 5\nHost bca\n", "bca|SSH2|first|bca|5|"},
        {"Host !a b\nMatch all\nUser root\nHost b\nUser c", "b|SSH2|c|b|0|"},
        {"Host m\xFCller\nUser b", "m\xC3\xBCller|SSH2|b|m\xC3\xBCller|0|"},
        {"Host a\n=\n\"\n==\nUser = = b", "a|SSH2|=|a|0|"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.config);
        const Sessions sessions = Ssh(c.config);
        ASSERT_FALSE(sessions.sessions.empty()) << sessions.error;
        EXPECT_EQ(sessions.Lines()[0], c.session);
    }
    using namespace std::string_view_literals;
    EXPECT_THAT(Ssh("Host a\nUs\0er x\nUser y"sv).Lines(), ElementsAre("a|SSH2|y|a|0|"));
    EXPECT_THAT(Ssh("Host a\nUs\0er x\nUser y"sv).Notes(), ElementsAre("line 2: holds a zero byte"));
    for (const char* const none : {"", "Host *\nUser x", "Host !a", "Match host a\nUser b", "# Host a", "\xFF\xFE"})
        EXPECT_EQ(Ssh(none).error, "has no host whose name isn't a pattern") << none;

    const std::string longest(255, 'n');
    const std::string nested = "Host " + longest + "\nHost " + longest + "n\nUser x\nHost *\nHostName %h%h%h%h\n";
    ASSERT_EQ(Ssh(nested).sessions.size(), 1u);
    EXPECT_EQ(Ssh(nested).sessions[0].hostname.GetLength(), 2 * 255u);
    std::string many;
    for (int i = 0; i < 30'000; ++i)
        many += "Host *a*a*a*a*a*b h" + std::to_string(i) + "\n";
    EXPECT_EQ(Ssh(many).error.substr(0, 5), "line ") << "refused before it takes minutes";
}

TEST(ImportedNames, AreOnesThatSessionsMayHave)
{
    ImportedNames names;
    const std::u16string longName(300, u'\u00FC');
    const std::pair<std::u16string, std::u16string> kCases[] = {{u"Router 1", u"Router 1"},
                                                                {u"ROUTER 1", u"ROUTER 1 (2)"},
                                                                {u"router 1", u"router 1 (3)"},
                                                                {u"Router 1 (2)", u"Router 1 (2) (2)"},
                                                                {u" \t a\tb\u0001 ", u"a_b"},
                                                                {u"a\\b/c:d*e?f\"g<h>i|j", u"a_b_c_d_e_f_g_h_i_j"},
                                                                {u".hidden", u"_hidden"},
                                                                {u" ", u"Session"},
                                                                {u"", u"Session (2)"},
                                                                {u"com1", u"com1_"},
                                                                {u"default", u"default (2)"},
                                                                {u"__FOLDERDATA__", u"__FOLDERDATA__ (2)"},
                                                                {longName, longName.substr(0, 90)},
                                                                {longName, longName.substr(0, 90) + u" (2)"}};
    VUnicodeString reason;
    for (const auto& [from, to] : kCases) {
        const VUnicodeString name = names.Take(from);
        EXPECT_EQ(ToUtf8(name), ToUtf8(to));
        EXPECT_TRUE(CheckSessionName(name, reason)) << ToUtf8(reason);
    }
}

class PuttySessions : public testing::Test {
protected:
    static const ImportedValue* Find(const ImportedSession& session, std::u16string_view name)
    {
        for (const ImportedValue& value : session.values)
            if (value.name == name)
                return &value;
        return nullptr;
    }
    static uint32_t NumberOf(const ImportedSession& session, std::u16string_view name)
    {
        const ImportedValue* const value = Find(session, name);
        const auto* const number = value ? std::get_if<uint32_t>(&value->data) : nullptr;
        EXPECT_TRUE(number) << ToUtf8(name);
        return number ? *number : 0xBAD;
    }

    const Sessions import = ImportSessions(ReadPuttySessions, ReadSessions("putty.reg"));
};

TEST_F(PuttySessions, ConnectionsComeOver)
{
    EXPECT_EQ(import.error, "");
    EXPECT_THAT(import.Lines(),
                ElementsAre("K\xC3\xB6ln _ Router|SSH2|ann|router.example.com|2222|", "old|SSH1|root|10.0.0.4|22|",
                            "switch|Telnet||switch.example.com|23|", "console|Serial|||0|",
                            "legacy|RLogin|ann|10.0.0.2|513|", "damaged|SSH2||10.0.0.5|0|"));
    EXPECT_THAT(import.Notes(),
                ElementsAre("line 7: the session 'Default Settings' is passed over",
                            "line 42: 'K\xC3\xB6ln / Router' becomes the session 'K\xC3\xB6ln _ Router'",
                            "line 217: the session 'probe' is passed over: there is no protocol like 'raw'",
                            "line 261: SshProt of the session 'damaged' is no number that fits",
                            "line 257: PortNumber of the session 'damaged' is no number that fits",
                            "line 258: TermWidth of the session 'damaged' is no number that fits",
                            "line 259: Colour0 of the session 'damaged' is no colour",
                            "line 260: Font of the session 'damaged' is no text"));
    EXPECT_THAT(import.Unmapped(),
                ElementsAre("45: LogFileName x 5", "46: LogType x 5", "49: CloseOnExit x 5", "68: Colour3 x 5"));
    ImportedSerial serial;
    serial.port = u"COM3";
    serial.baudRate = 115200;
    serial.dataBits = 7;
    serial.stopBits = serial.parity = 2;
    serial.ctsFlow = true;
    EXPECT_EQ(import.sessions[3].serial, serial);
    EXPECT_FALSE(import.sessions[0].serial);
    EXPECT_THAT(import.sessions[5].values, IsEmpty());
}

TEST_F(PuttySessions, ValuesAreOnesOfTheTerminal)
{
    const ImportedSession& session = import.sessions[0];
    TerminalConfig terminal(nullptr, false, nullptr);
    for (const ImportedValue& value : session.values)
        EXPECT_TRUE(terminal.FindMember(value.name) || value.name.View().starts_with(u"Idle NO-OP "))
            << ToUtf8(value.name);
    for (const auto& [name, number] :
         std::initializer_list<std::pair<const char16_t*, uint32_t>>{{u"Cols", 132},
                                                                     {u"Rows", 50},
                                                                     {u"Scrollback", 20000},
                                                                     {u"Map Backspace", 1},
                                                                     {u"Scroll To Bottom On Output", 0},
                                                                     {u"Foreground", 0xBBBBBB},
                                                                     {u"Bold", 0xFFFFFF},
                                                                     {u"Background", 0},
                                                                     {u"Cursor Color", 0x00FF00},
                                                                     {u"Use Terminal Type", 1},
                                                                     {u"Idle NO-OP Check", 1},
                                                                     {u"Idle NO-OP Timeout", 90}})
        EXPECT_EQ(NumberOf(session, name), number) << ToUtf8(name);
    EXPECT_EQ(std::get<VUnicodeString>(Find(session, u"Terminal Type")->data), u"xterm-256color");

    const auto& block = std::get<std::vector<uint8_t>>(Find(session, u"Normal Font v2")->data);
    ASSERT_EQ(block.size(), VLogFont::kStoredSize);
    VLogFont font;
    font.Unpack(std::span<const uint8_t, VLogFont::kStoredSize>(block));
    EXPECT_EQ(font.GetFace(), u"Consolas");
    EXPECT_EQ(font.height, -16);
    EXPECT_EQ(font.pointSize, 120);
    EXPECT_EQ(font.weight, 700);
}

TEST_F(PuttySessions, WhatHasNoSessionSaysSo)
{
    const auto errorOf = [](std::string_view bytes) { return ImportSessions(ReadPuttySessions, bytes).error; };
    const std::string key =
        "REGEDIT4\n[HKEY_CURRENT_USER\\Software\\SimonTatham\\PuTTY\\Sessions\\a]\n\"HostName\"=\"h\"\n";
    EXPECT_EQ(errorOf(key), "");
    EXPECT_EQ(errorOf(key + "[-HKEY_CURRENT_USER\\Software\\SimonTatham\\PuTTY\\Sessions\\A]\n"),
              "has no session that can be taken over");
    EXPECT_EQ(errorOf(key + "oops"), "line 4: is neither a key nor a value");
    EXPECT_EQ(errorOf("Host a"), "line 1: doesn't begin as a registry export");
}

} // namespace
} // namespace ostrand::test
