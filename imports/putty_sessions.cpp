#include "imports/putty_sessions.h"

#include "core/fold.h"
#include "imports/import_text.h"
#include "imports/putty_values.h"
#include "profile/log_font.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace ostrand {

namespace {

constexpr std::u16string_view kDefaults = u"Default Settings";
constexpr uint32_t kMostSeconds = 9'999'999;

constexpr struct {
    std::u16string_view theirs;
    const char16_t* ours;
} kProtocols[] = {{u"ssh", u"SSH2"}, {u"telnet", u"Telnet"}, {u"rlogin", u"RLogin"}, {u"serial", u"Serial"}};

/// A number that goes over as it is; outside its range it is none.
constexpr struct {
    std::u16string_view theirs;
    uint32_t low, high;
    const char16_t* ours;
} kNumbers[] = {{u"TermWidth", 1, 9999, u"Cols"},
                {u"TermHeight", 1, 9999, u"Rows"},
                {u"ScrollbackLines", 0, INT32_MAX, u"Scrollback"}};

constexpr struct {
    std::u16string_view theirs;
    const char16_t* ours;
} kSwitches[] = {{u"ANSIColour", u"ANSI Color"},
                 {u"AutoWrapMode", u"Line Wrap"},
                 {u"BackspaceIsDelete", u"Map Backspace"},
                 {u"BlinkCur", u"Blinking Cursor"},
                 {u"CRImpliesLF", u"Translate Incoming CR To CRLF"},
                 {u"NoRemoteWinTitle", u"Ignore Window Title Change Requests"},
                 {u"ScrollBar", u"Vertical Scrollbar"},
                 {u"ScrollOnDisp", u"Scroll To Bottom On Output"},
                 {u"ScrollOnKey", u"Scroll To Bottom On Keypress"}};

constexpr struct {
    std::u16string_view theirs;
    const char16_t* ours;
} kColors[] = {
    {u"Colour0", u"Foreground"}, {u"Colour1", u"Bold"}, {u"Colour2", u"Background"}, {u"Colour5", u"Cursor Color"}};

/// One session on its way.
class Conversion {
public:
    Conversion(const PuttySession& from, SessionCollector& notes) : m_from(from), m_notes(notes), m_values(from, notes)
    {
        m_to.name = from.name;
        m_to.line = from.line;
    }

    /// False for a session that can't be taken over; a note tells why.
    bool Run();
    const ImportedSession& Result() const { return m_to; }

private:
    bool TakeProtocol();
    void TakeHost();
    void TakeSerial();
    void TakeTerminal();
    void TakeFont();
    void TakeKeepAlive();
    template <class Data>
    void Put(const char16_t* name, Data data)
    {
        m_to.values.push_back({name, std::move(data)});
    }

    const PuttySession& m_from;
    SessionCollector& m_notes;
    PuttyValues m_values;
    ImportedSession m_to;
};

bool Conversion::Run()
{
    if (!TakeProtocol())
        return false;
    TakeHost();
    TakeSerial();
    TakeTerminal();
    TakeFont();
    TakeKeepAlive();
    bool isPresent = false;
    m_values.Flag(u"Present", isPresent); // a mark without a meaning of its own
    m_values.NoteOthers();
    return true;
}

bool Conversion::TakeProtocol()
{
    VUnicodeString name(kProtocols[0].theirs);
    m_values.Text(u"Protocol", name);
    const auto* const known =
        std::ranges::find_if(kProtocols, [&name](const auto& row) { return EqualNoCase(row.theirs, name); });
    if (known == std::end(kProtocols)) {
        m_notes.Note(m_from.line, Format(u"the session '%1' is passed over: there is no protocol like '%2'",
                                         Cited(m_from.name), Cited(name)));
        return false;
    }
    m_to.protocol = known->ours;
    uint32_t version = 3;
    m_values.Number(u"SshProt", 0, 3, version);
    if (version == 0 && m_to.protocol == u"SSH2")
        m_to.protocol = u"SSH1";
    return true;
}

/// A host may have the user in front and a port behind it; the user there wins, and the port doesn't count.
void Conversion::TakeHost()
{
    VUnicodeString written;
    m_values.Number(u"PortNumber", 0, 65535, m_to.port);
    m_values.Text(u"UserName", m_to.username);
    m_values.Text(u"HostName", written);
    std::u16string_view host = written;
    if (const size_t at = host.rfind(u'@'); at != std::u16string_view::npos) {
        m_to.username = host.substr(0, at);
        host.remove_prefix(at + 1);
    }
    if (host.find(u':') == host.rfind(u':'))
        host = host.substr(0, host.find(u':'));
    const bool hasHost = m_to.protocol != u"Serial";
    if (hasHost)
        m_to.hostname = host;
    else
        m_to.port = 0;
    if (hasHost && host.empty())
        m_notes.Note(m_from.line, Format(u"the session '%1' names no host", Cited(m_from.name)));
}

void Conversion::TakeSerial()
{
    constexpr uint32_t kXon = 1, kRtsCts = 2, kDsrDtr = 3;
    ImportedSerial serial;
    uint32_t halfBits = 2;
    uint32_t flow = kXon;
    m_values.Text(u"SerialLine", serial.port);
    m_values.Number(u"SerialSpeed", 1, INT32_MAX, serial.baudRate);
    m_values.Number(u"SerialDataBits", 5, 9, serial.dataBits);
    m_values.Number(u"SerialStopHalfbits", 2, 4, halfBits);
    m_values.Number(u"SerialParity", 0, 4, serial.parity);
    m_values.Number(u"SerialFlowControl", 0, kDsrDtr, flow);
    serial.stopBits = halfBits - 2;
    serial.xonFlow = flow == kXon;
    serial.ctsFlow = flow == kRtsCts;
    serial.dsrFlow = flow == kDsrDtr;
    if (m_to.protocol == u"Serial")
        m_to.serial = serial;
}

void Conversion::TakeTerminal()
{
    uint32_t number = 0;
    bool flag = false;
    VUnicodeString type;
    for (const auto& row : kNumbers)
        if (m_values.Number(row.theirs, row.low, row.high, number))
            Put(row.ours, number);
    for (const auto& row : kSwitches)
        if (m_values.Flag(row.theirs, flag))
            Put(row.ours, uint32_t{flag});
    for (const auto& row : kColors)
        if (m_values.Color(row.theirs, number))
            Put(row.ours, number);
    if (m_values.Text(u"TerminalType", type)) {
        if (EqualNoCase(type.Left(5), u"xterm"))
            Put(u"Emulation", VUnicodeString(u"Xterm"));
        Put(u"Use Terminal Type", uint32_t{1});
        Put(u"Terminal Type", type);
    }
}

void Conversion::TakeFont()
{
    constexpr int32_t kBold = 700, kNormal = 400;
    VUnicodeString face;
    uint32_t points = 10;
    uint32_t charSet = 0;
    bool isBold = false;
    m_values.Number(u"FontHeight", 1, 1000, points);
    m_values.Number(u"FontCharSet", 0, UINT8_MAX, charSet);
    m_values.Flag(u"FontIsBold", isBold);
    if (!m_values.Text(u"Font", face))
        return;
    VLogFont font(static_cast<int32_t>((points * 96 + 36) / 72), face); // at 96 pixels an inch
    font.pointSize = static_cast<int32_t>(points * 10);
    font.weight = isBold ? kBold : kNormal;
    font.charSet = static_cast<uint8_t>(charSet);
    std::vector<uint8_t> block(VLogFont::kStoredSize);
    font.Pack(std::span<uint8_t, VLogFont::kStoredSize>(block));
    Put(u"Normal Font v2", std::move(block));
}

void Conversion::TakeKeepAlive()
{
    uint32_t minutes = 0;
    uint32_t seconds = 0;
    m_values.Number(u"PingInterval", 0, kMostSeconds / 60, minutes);
    m_values.Number(u"PingIntervalSecs", 0, kMostSeconds, seconds);
    seconds = std::min(minutes * 60 + seconds, kMostSeconds);
    if (seconds == 0)
        return;
    Put(u"Idle NO-OP Check", uint32_t{1});
    Put(u"Idle NO-OP Timeout", seconds);
}

} // namespace

bool ReadPuttySessions(std::string_view bytes, SessionImport& out, ImportFault& error)
{
    std::vector<RegistryKey> keys;
    if (!ReadRegistryExport(bytes, keys, error))
        return false;
    SessionCollector collector;
    for (const PuttySession& session : FindPuttySessions(keys)) {
        if (session.isDeleted)
            continue;
        if (EqualNoCase(session.name, kDefaults)) {
            collector.Note(session.line, u"the session 'Default Settings' is passed over");
            continue;
        }
        Conversion conversion(session, collector);
        if (conversion.Run() && !collector.Add(conversion.Result()))
            return FailImport(error, session.line, u"has more than %1!u! sessions", SessionCollector::kMaxSessions);
    }
    return collector.Finish(out, error, u"has no session that can be taken over");
}

} // namespace ostrand
