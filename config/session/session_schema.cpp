// The table of a session's values: order of the rows is the order of saving and of reading. Rules stand where the
// values that they look at have been read.
#include "config/global/global_config.h"
#include "config/global/global_defaults.h"
#include "config/session/default_directories.h"
#include "config/session/emulations.h"
#include "config/session/logon_actions.h"
#include "config/session/session_values.h"
#include "core/paths/path_tokens.h"

#include <algorithm>

namespace ostrand {

namespace {

using C = SessionValues;
using In = SessionValues::ReadContext;

/// The saved copy keeps what was read, so a key that lacked the value gets it at the next save.
void ItIsASession(C& c) { c.isSession = true; }

VUnicodeString UploadFolder(const C&, const In&) { return DefaultTransferFolder(VTransferWay::Upload); }

VUnicodeString DownloadFolder(const C&, const In&) { return DefaultTransferFolder(VTransferWay::Download); }

VUnicodeString PortableDownloadFolder(const C&, const In&) { return IsU3Environment() ? u"%u3doc%" : u""; }

void SmallPacketsAreTheDefault(C& c)
{
    if (c.xModemSendPacketSize == 128)
        c.xModemSendPacketSize = 0;
}

/// Sessions from before the switch existed had it on with a time, and off with none.
bool HasIdleTimeout(const C&, const In& in)
{
    unsigned seconds = 0;
    return in.key && in.key->ReadDword(u"Idle Timeout", &seconds) && static_cast<int>(seconds) > 0;
}

constexpr VBound kIdleSeconds = {VBound::Kind::Within, 10, 9999999};

void IdleTimeoutIsUsable(C& c)
{
    if (c.idleTimeout == 0)
        c.idleTimeout = 300;
    c.idleTimeout = kIdleSeconds.Corrected(c.idleTimeout, 0);
}

/// Delays used to be global; a stored session without its own goes on with these.
int LineDelayBefore(const C&, const In& in) { return in.key ? in.global->lineSendDelay.value : 5; }

int CharacterDelayBefore(const C&, const In& in) { return in.key ? in.global->characterSendDelay.value : 0; }

void RawModeExcludesPort(C& c)
{
    if (c.useRawMode)
        c.usePrinterPort = false;
}

VWindowPlacement FramePlacement(const C&, const In& in)
{
    return in.isFresh ? DefaultFramePlacement() : in.global->remoteFrameWindowSize.Value();
}

void ExplorerFrameBeginsAsGlobal(C& c, const In& in)
{
    VProfileExplorerFrameState& state = c.remoteExplorerFrameState;
    if (!state.IsEmpty())
        return;
    state.CopyValue(in.global->remoteExplorerFrameState);
    if (!in.isFresh)
        return;
    state.first = true;
    state.second = -1;
    state.third = -1;
}

/// A fresh session shows the first three columns of the usual five, as far as there are any.
void ListViewBeginsAsGlobal(C& c, const In& in)
{
    constexpr size_t kShown = 3;
    constexpr size_t kSet = 5;
    VProfileListViewState& state = c.remoteListViewState;
    if (!state.IsEmpty())
        return;
    state.CopyValue(in.global->remoteListViewState);
    if (!in.isFresh)
        return;
    for (size_t i = 0; i < std::min(kSet, state.columns.GetCount()); ++i)
        state.columns[i].visible = i < kShown;
}

/// The row of the logon actions, which looks for their older form.
template <auto M>
consteval auto LogonScript(const char16_t* name, const char16_t* meaning)
{
    auto row = Encoded<M>(name, meaning);
    row.load = [](C& record, const VSchemaRow<C>&, const VUnicodeString&, const In& in) {
        LoadLogonActions(in.key, record.loginScript, record.sendInitialCarriageReturn);
    };
    return row;
}

constexpr VTriState kByGlobal = VTriState::Undetermined;

// clang-format off
constexpr std::array kRows = {
    Bool<&C::isSession>(u"Is Session", false, u"Marks the key as a session; a key without it is a folder."),
    Rule<ItIsASession>(u"Is Session is always true."),

    // Switches that begin as off.
    Bool<&C::useTitleBar>(u"Use Title Bar", false, u"The window's title is Title Bar, not the session's name."),
    Bool<&C::useLoginScript>(u"Use Login Script", false, u"Carry out the logon actions after connecting."),
    Bool<&C::useScriptFile>(u"Use Script File", false, u"Run Script Filename after connecting."),
    Bool<&C::disableZModem>(u"Disable ZModem", false, u"Don't begin a ZModem transfer when the host does."),
    Bool<&C::zModemUses32BitCrc>(u"ZModem Uses 32 Bit CRC", false, u"Check ZModem blocks with 32 bits, not 16."),
    Bool<&C::force1024ForZModem>(u"Force 1024 for ZModem", false, u"Send ZModem blocks of 1024 bytes, whatever the host asks for."),
    Bool<&C::logOnlyCustom>(u"Log Only Custom", false, u"Write only the custom log messages into the log."),
    Bool<&C::logPrompt>(u"Log Prompt", false, u"Ask for the log's file name when a log is started."),
    Bool<&C::logMode>(u"Log Mode", false, u"Append to a log file that is there, instead of overwriting it."),
    Bool<&C::startLogUponConnect>(u"Start Log Upon Connect", false, u"Start the log when the connection is up."),
    Bool<&C::rawLog>(u"Raw Log", false, u"Log what comes in as it is, control sequences too."),
    Bool<&C::logMultipleSessions>(u"Log Multiple Sessions", false, u"Connections to this session at the same time have a log each."),
    Bool<&C::newLogFileAtMidnight>(u"New Log File At Midnight", false, u"Start a new log file with each day."),
    Bool<&C::useWordDelimiterChars>(u"Use Word Delimiter Chars", false, u"Words end at Word Delimiter Chars when text is selected by double clicks."),
    Bool<&C::idleNoOpCheck>(u"Idle NO-OP Check", false, u"Send a protocol message without effect after Idle NO-OP Timeout, to keep the connection."),
    Bool<&C::alwaysOnTop>(u"AlwaysOnTop", false, u"The window stays above others."),
    Bool<&C::disablePassThroughPrinting>(u"Disable Pass Through Printing", false, u"Ignore the host's requests to print."),
    Bool<&C::bufferPassThroughPrinting>(u"Buffer Pass Through Printing", false, u"Collect the host's print data before printing it."),
    Bool<&C::useRawMode>(u"Use Raw Mode", false, u"Send the host's print data to the printer as it is; excludes a direct port."),
    Bool<&C::usePrinterPort>(u"Use Printer Port", false, u"Print straight to a port; off in raw mode."),
    Rule<RawModeExcludesPort>(u"Raw mode excludes a direct port: with Use Raw Mode on, Use Printer Port becomes false."),
    Bool<&C::forceBlackOnWhite>(u"Force Black On White", false, u"Print in black on white, whatever the screen's colours."),
    Bool<&C::monitorAllowRemoteInput>(u"Monitor Allow Remote Input", false, u"Whoever monitors the session may type in it, too."),
    Bool<&C::filenamesAlwaysUseUtf8>(u"Filenames Always Use UTF8", false, u"Remote file names are UTF-8, whatever the server says."),
    Bool<&C::useMultipleSftpChannels>(u"Use Multiple SFTP Channels", false, u"Transfer several files at once over one connection."),

    // Switches that begin as on.
    Bool<&C::sendInitialCarriageReturn>(u"Send Initial Carriage Return", true, u"Begin the logon actions with a carriage return."),
    Bool<&C::zModemEncodesDel>(u"ZModem Encodes DEL", true, u"ZModem escapes the delete character."),
    Bool<&C::zModemForceLowerCaseOnUpload>(u"ZModem Force All Caps Filenames to Lower Case on Upload", true, u"File names of capitals alone are uploaded in lower case."),
    Bool<&C::useGlobalAdvancedPrintSettings>(u"Use Global Advanced Print Settings", true, u"Pass-through printing and the printer's port are as the global values say."),
    Bool<&C::useGlobalPrintSettings>(u"Use Global Print Settings", true, u"Page, font and printer are as the global values say."),

    // Three states: undetermined leaves the decision to the global value of the same name.
    TriState<&C::disableResize>(u"Disable Resize", kByGlobal, u"Keep the terminal's size fixed."),
    TriState<&C::autoReconnect>(u"Auto Reconnect", kByGlobal, u"Connect again when the connection is lost."),
    TriState<&C::minimizeToTray>(u"Minimize To Tray", kByGlobal, u"The minimised window leaves the task bar and stays as an icon in the tray."),
    TriState<&C::disableDirectoryTreeDetection>(u"Disable Directory Tree Detection", kByGlobal, u"Don't ask the server in advance which folders have subfolders."),
    TriState<&C::verifyRetrieveFileStatus>(u"Verify Retrieve File Status", kByGlobal, u"Ask for a file's size and time before it is retrieved."),
    TriState<&C::resolveSymbolicLinks>(u"Resolve Symbolic Links", kByGlobal, u"Show where a remote symbolic link leads."),

    UInt<&C::traceLevel>(u"Trace Level", 0, u"How much the protocols write into the log, by the application's code."),
    UInt<&C::keyboardCharSendDelay>(u"Keyboard Char Send Delay", 0, u"Milliseconds between typed characters that are sent."),

    // Texts that begin empty.
    String<&C::titleBar>(u"Title Bar", u"", u"Title of the window, with Use Title Bar."),
    String<&C::scriptFilename>(u"Script Filename", u"", u"The script that is run after connecting, with Use Script File."),
    String<&C::logFilename>(u"Log Filename", u"", u"File of the log; its tokens stand for the time, the session and the host."),
    String<&C::customLogMessageConnect>(u"Custom Log Message Connect", u"", u"What the log gets when the connection is up; tokens as in Log Filename."),
    String<&C::customLogMessageDisconnect>(u"Custom Log Message Disconnect", u"", u"What the log gets when the connection ends; tokens as in Log Filename."),
    String<&C::customLogMessageEachLine>(u"Custom Log Message Each Line", u"", u"What the log gets ahead of each line; tokens as in Log Filename."),
    String<&C::wordDelimiterChars>(u"Word Delimiter Chars", u"", u"Characters that end a word, with Use Word Delimiter Chars."),
    String<&C::idleString>(u"Idle String", u"", u"What is sent after Idle Timeout, with Idle Check."),
    String<&C::monitorUsername>(u"Monitor Username", u"", u"User name for monitoring the session."),
    String<&C::printerName>(u"Printer Name", u"", u"Printer for the session's output; empty for the system's default."),
    String<&C::timeZone>(u"Time Zone", u"", u"Time zone of the server; empty for the automatic one."),
    String<&C::lastDirectory>(u"Last Directory", u"", u"Remote folder that was shown last."),
    String<&C::initialLocalDirectory>(u"Initial Local Directory", u"", u"Local folder that is shown first."),
    String<&C::fileCreationMask>(u"File Creation Mask", u"", u"Permissions that new remote files don't get, in octal."),
    String<&C::restartDatafilePath>(u"Restart Datafile Path", u"", u"File with what is needed to resume a transfer."),

    // Values with a rule of their own.
    LogonScript<&C::loginScript>(u"Login Script V2", u"The logon actions: what is waited for and sent after connecting."),
    String<&C::uploadDirectory>(u"Upload Directory", By<UploadFolder>(u"the user's home folder"), u"Local folder that uploads come from."),
    String<&C::downloadDirectory>(u"Download Directory", By<DownloadFolder>(u"the user's folder for downloads"), u"Local folder that downloads go to."),
    String<&C::defaultDownloadDirectory>(u"Default Download Directory", By<PortableDownloadFolder>(u"%u3doc% on a portable run, else empty"), u"Local folder that downloads go to without asking."),
    Int<&C::xModemSendPacketSize>(u"XModem Send Packet Size", 0, u"Bytes of a sent XModem packet; 0 is 128."),
    Rule<SmallPacketsAreTheDefault>(u"An XModem Send Packet Size of 128 is the default and becomes 0."),
    String<&C::zModemReceiveCommand>(u"ZModem Receive Command", u"rz\r", u"What is sent to make the host receive by ZModem."),
    Bool<&C::idleCheck>(u"Idle Check", By<HasIdleTimeout>(u"true in a stored session with an Idle Timeout, else false"), u"Send Idle String when nothing was sent for Idle Timeout."),
    Int<&C::idleTimeout>(u"Idle Timeout", 0, u"Seconds without sending after which Idle String is sent."),
    Rule<IdleTimeoutIsUsable>(u"An Idle Timeout of 0 becomes 300; then it is bound to 10 to 9999999."),
    Int<&C::idleNoOpTimeout>(u"Idle NO-OP Timeout", 60, u"Seconds without sending after which a message without effect is sent.", Within{kIdleSeconds.low, kIdleSeconds.high}),
    Int<&C::lineSendDelay>(u"Line Send Delay", By<LineDelayBefore>(u"the global Line Send Delay in a stored session, else 5"), u"Milliseconds between lines of sent text."),
    Int<&C::characterSendDelay>(u"Character Send Delay", By<CharacterDelayBefore>(u"the global Character Send Delay in a stored session, else 0"), u"Milliseconds between characters of sent text."),
    Int<&C::ejectPageInterval>(u"Eject Page Interval", 0, u"Seconds of silence after which a printed page is ejected; 0 never."),
    String<&C::monitorListenAddress>(u"Monitor Listen Address", u"0.0.0.0:22", u"Address and port at which the session can be monitored."),
    Encrypted<&C::monitorPassword>(u"Monitor Password", u"", u"Password for monitoring the session."),
    Margins<&C::pageMargins, DefaultPageMargins>(u"Page Margins", u"Margins of printed pages, in inches."),
    Font<&C::printerFont, DefaultPrinterFont>(u"Printer Font v2", u"Font of printed text.", Formerly{u"Printer Font"}),
    Int<&C::pageOrientation>(u"Page Orientation", 1, u"Orientation of printed pages, as the print layer counts."),
    Int<&C::paperSize>(u"Paper Size", 1, u"Paper size of printed pages, as the print layer counts."),
    Int<&C::paperSource>(u"Paper Source", 7, u"Paper source of printed pages, as the print layer counts."),
    Int<&C::operatingSystem>(u"Operating System", 0, u"The server's operating system, by the application's code; 0 finds it out."),
    MultiLine<&C::description>(u"Description", u"The user's notes on the session."),
    Int<&C::fileSystemCase>(u"File System Case", 0, u"Whether case counts in remote file names, by the application's code; 0 finds it out."),
    Placement<&C::remoteFrameWindowPlacement>(u"RemoteFrame Window Placement", By<FramePlacement>(u"the global RemoteFrame Window Size; in a new session and Default, placed by the system"), u"Place of the remote file window."),
    ExplorerFrame<&C::remoteExplorerFrameState>(u"Remote ExplorerFrame State", u"", u"Layout of the remote file window."),
    LoadRule<ExplorerFrameBeginsAsGlobal>(u"An empty Remote ExplorerFrame State takes the global one; in a new session and Default it becomes 1,-1,-1."),
    ListView<&C::remoteListViewState>(u"Remote ListView State", u"Columns of the remote file list."),
    LoadRule<ListViewBeginsAsGlobal>(u"An empty Remote ListView State takes the global one; a new session and Default show its first three columns and not the next two."),
    Int<&C::restartDataSize>(u"Restart Data Size", 0, u"Bytes that are kept to resume a transfer."),
    Int<&C::maxTransferBuffers>(u"Max Transfer Buffers", 4, u"Buffers of one transfer.", Among{1, 8}),

    Part<&C::printerSerial>(VValueClass::Serial, u"Printer Serial", u"Line settings of the printer's port."),
};
// clang-format on

static_assert(NamesAreUnique(kRows));
static_assert(CountInTable(kRows) == 81);

} // namespace

SessionValues::SessionValues(const VProfileKey* key, const GlobalConfig& global, bool isFresh)
    : terminal(key, OffersNerith(), &global)
{
    Schema().Load(*this, ReadContext{{key, false}, &global, isFresh});
}

const VSchema<SessionValues>& SessionValues::Schema()
{
    // Never destroyed: records may outlive the other statics, and their names are this object's.
    static const auto& schema = *new VSchema<SessionValues>(kRows);
    return schema;
}

} // namespace ostrand
