// The table of the global record: order of the rows is the order of the member table, of reading and of merging.
#include "config/global/global_config.h"
#include "config/global/global_defaults.h"
#include "platform/platform.h"

namespace ostrand {

namespace {

using C = GlobalConfig;

unsigned long CurrentTime(const C&, const C::ReadContext&) { return Platform().clock->Seconds(); }

bool FontSmoothing(const C&, const C::ReadContext&) { return Platform().display->SmoothsFonts(); }

/// A user who upgrades an existing store is not shown the first-use hint again.
bool StoreExisted(const C&, const C::ReadContext& in) { return in.hasExistingStore; }

void RawModeExcludesPort(C& c)
{
    if (c.useRawMode != 0)
        c.usePrinterPort = 0;
}

CustomColors DefaultCustomColors()
{
    CustomColors colors;
    colors.fill(0x00FFFFFF);
    return colors;
}

CustomColors DefaultAnsiColors()
{
    return {0x000000, 0x0000A0, 0x00A000, 0x00A0A0, 0xA00000, 0xA000A0, 0xA0A000, 0xC0C0C0,
            0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};
}

// clang-format off
constexpr std::array kRows = {
    // Window furniture and start-up: each application keeps its own.
    Bool<&C::showToolbar>(u"Show Toolbar", true, u"Whether the application's toolbar is shown.", InOrvane{u"Show Toolbar OVN"}),
    Bool<&C::showMenuBar>(u"Show Menu Bar", true, u"Whether the application's menu bar is shown.", InOrvane{u"Show Menu Bar OVN"}),
    Bool<&C::showStatusBar>(u"Show Status Bar", true, u"Whether the status bar is shown.", InOrvane{u"Show Status Bar OVN"}),
    Bool<&C::useAutoSession>(u"Use Auto Session", false, u"Open the session of Auto Session Name at start.", InOrvane{u"Use Auto Session OVN"}),
    String<&C::autoSessionName>(u"Auto Session Name", u"", u"The session that is opened at start.", InOrvane{u"Auto Session Name OVN"}),
    Bool<&C::useRememberedSessions>(u"Use Remembered Sessions", false, u"Open the sessions at start that were open when the application closed.", InOrvane{u"Use Remembered Sessions OVN"}),
    String<&C::rememberedSessionsList>(u"Remembered Sessions List", u"", u"The sessions that were open when the application last closed.", InOrvane{u"Remembered Sessions List OVN"}),
    Int<&C::neverCheckForUpdates>(u"Quillo Never Check For Updates", 0, u"Non-zero: never look for a newer version.", InOrvane{u"OVN Never Check For Updates"}),
    ULong<&C::updatePromptDate>(u"Quillo Update Prompt Date", By<CurrentTime>(u"the time of construction"), u"When the user was last asked about a newer version, in seconds since 1970.", InOrvane{u"OVN Update Prompt Date"}),

    // Switches that begin as on.
    Bool<&C::showConnectDialog>(u"Show Connect Dialog", true, u"Show the list of sessions at start."),
    Bool<&C::showDetailsOnConnectDialog>(u"Show Details on Connect Dialog", true, u"Show details of each session in the connect dialog."),
    Bool<&C::showTransferOnlySessions>(u"Show Transfer Only Sessions", true, u"List sessions that only transfer files."),
    Bool<&C::showTerminalOnlySessions>(u"Show Terminal Only Sessions", true, u"List sessions that only have a terminal."),
    Bool<&C::autoSaveOptions>(u"Auto Save Options", true, u"Save the options when they change, not only when the application closes."),
    Bool<&C::isExpanded>(u"Is Expanded", true, u"Whether the root of the session tree is open."),
    Bool<&C::sortAlphabetical>(u"Sort Alphabetical", true, u"Sort the sessions of a folder by name, instead of in their stored order."),
    Bool<&C::hideDotSessionFiles>(u"Hide Dot Session Files", true, u"Leave out sessions whose name begins with a dot."),
    Bool<&C::reuseDisconnectedTabs>(u"Reuse Disconnected Tabs", true, u"A new connection takes the tab of a disconnected session."),
    Bool<&C::showCursorPositionIndicator>(u"Show Cursor Position Indicator", true, u"Show the cursor's row and column in the status bar."),
    Bool<&C::showWindowSizeIndicator>(u"Show Window Size Indicator", true, u"Show the terminal's rows and columns in the status bar."),
    Bool<&C::showStatusIndicators>(u"Show Status Indicators", true, u"Show the state of the keyboard's locks in the status bar."),
    Bool<&C::showSessionTabs>(u"Show Session Tabs", true, u"Show a tab for each open session."),
    Bool<&C::verticalScrollbar>(u"Vertical Scrollbar", true, u"Show the terminal's vertical scroll bar."),
    Bool<&C::verifyRetrieveFileStatus>(u"Verify Retrieve File Status", true, u"Ask for a file's size and time before it is retrieved."),
    Bool<&C::showTransferQueueWindow>(u"Show Transfer Queue Window", true, u"Show the window of queued transfers."),
    Bool<&C::showWindowToolbar>(u"Show Window Toolbar", true, u"Show the toolbar inside each session's window."),

    // Switches that begin as off.
    Bool<&C::showQuickConnectDialog>(u"Show Quick Connect Dialog", false, u"Show the quick connect dialog at start."),
    Bool<&C::disableResize>(u"Disable Resize", false, u"Keep the terminal's size fixed."),
    Bool<&C::focusDoesNotAffectBlink>(u"Focus Does Not Affect Blink", false, u"The cursor blinks in windows without focus too."),
    Bool<&C::executeEscapeSequence>(u"Execute Escape Sequence", false, u"Allow the escape sequence that starts a program on this machine."),
    Bool<&C::enableTermcapEditing>(u"Enable Termcap Editing", false, u"Offer the editing of termcap entries."),
    Bool<&C::showElapsedTime>(u"Show Elapsed Time", false, u"Show how long a session has been connected."),
    Bool<&C::neverShowSeconds>(u"Never Show Seconds", false, u"Leave the seconds out of the elapsed time."),
    Bool<&C::alphaTransparency>(u"Alpha Transparency", false, u"Draw windows partly transparent; how much, the two transparency values tell.", NotMerged),
    Bool<&C::confirmCloseMultipleTabs>(u"Confirm Close Multiple Tabs", false, u"Ask before a window with several tabs is closed."),
    Bool<&C::showMultipleTabsOnly>(u"Show Multiple Tabs Only", false, u"Show the row of tabs only with more than one session."),
    Bool<&C::enableTabSwitchingHistory>(u"Enable Tab Switching History", false, u"Switch tabs in the order of their last use."),
    Bool<&C::launchNewWindowsInASeparateProcess>(u"Launch New Windows in a Separate Process", false, u"Open each new window in a process of its own."),
    Bool<&C::autoReconnect>(u"Auto Reconnect", false, u"Connect again when a connection is lost."),
    Bool<&C::showChatWindow>(u"Show Chat Window", false, u"Show the window that sends typed text to one or all sessions.", Formerly{u"Chat Window"}),
    Bool<&C::userButtonBar>(u"User Button Bar", false, u"Show the button bar."),
    Bool<&C::horizontalScrollbar>(u"Horizontal Scrollbar", false, u"Show the terminal's horizontal scroll bar."),
    Bool<&C::openSessionsInTab>(u"Open Sessions In Tab", false, u"Open a session as a tab instead of a window."),
    Bool<&C::minimizeToTray>(u"Minimize To Tray", false, u"A minimised window leaves the task bar and stays as an icon in the tray."),
    Bool<&C::saveKeymapsAsUnicode>(u"Save Keymaps As Unicode", false, u"Write key map files in a Unicode encoding."),
    Bool<&C::disableServerToServerTransfers>(u"Disable Server To Server Transfers", false, u"Never transfer files directly between two servers."),
    Bool<&C::disableDirectoryTreeDetection>(u"Disable Directory Tree Detection", false, u"Don't ask a server in advance which folders have subfolders."),
    Bool<&C::resolveSymbolicLinks>(u"Resolve Symbolic Links", false, u"Show where a remote symbolic link leads."),
    Bool<&C::retainFileVersionNumber>(u"Retain File Version Number", false, u"Keep the version number in the names of files from servers that have one."),
    Bool<&C::alwaysPromptForAuthInfo>(u"Always Prompt For Auth Info", false, u"Ask for user name and password at each connection."),
    Bool<&C::refreshAfterAllTransfersComplete>(u"Refresh After All Transfers Complete", false, u"Read the folder again only when the last queued transfer is done."),
    Bool<&C::suspendQueuedTransfers>(u"Suspend Queued Transfers", false, u"Keep transfers in the queue without starting them."),
    Bool<&C::ftpEnablePortRange>(u"FTP Enable Port Range", false, u"Take local FTP data ports from the given range only."),
    Bool<&C::tslyFirewallMigrated>(u"TSLY Firewall Migrated", false, u"Mark of a one-time repair: the firewall settings were taken over."),
    Bool<&C::installedFtpSites>(u"Installed FTP Sites", false, u"Mark of a one-time step: the sample FTP sites were installed."),
    Bool<&C::serializeConnections>(u"Serialize Connections", false, u"Open connections one after the other."),
    Bool<&C::neverUseCachedFileForRemoteEditing>(u"Never Use Cached File for Remote Editing", false, u"Fetch a remote file anew each time it is edited."),
    Bool<&C::quilloXmlFileFixed>(u"Quillo XML File Fixed", false, u"Mark of a one-time repair of Quillo's files.", NotMerged),
    Bool<&C::tessalyXmlFileFixed>(u"Tessaly XML File Fixed", false, u"Mark of a one-time repair of Tessaly's files.", NotMerged),
    Bool<&C::orvaneXmlFileFixed>(u"Orvane XML File Fixed", false, u"Mark of a one-time repair of Orvane's files.", NotMerged),
    Bool<&C::usePreviousQuickSyncSettings>(u"Use Previous QuickSync Settings", false, u"Begin a quick synchronization with the settings of the last one."),

    // Switches whose default depends on the machine or the store.
    Bool<&C::enableFontSmoothing>(u"Enable Font Smoothing", By<FontSmoothing>(u"whether the platform smooths fonts"), u"Smooth the terminal's font."),
    Bool<&C::rightClickPopupShown>(u"Right Click Popup Shown", By<StoreExisted>(u"whether the store existed before"), u"Mark that the first-use hint about the right mouse button was shown.", NotMerged),

    // Numbers that begin as 1.
    Int<&C::saveConnectDialogFolderState>(u"Save Connect Dialog Folder State", 1, u"Remember which folders of the connect dialog are open."),
    Int<&C::copyOnSelect>(u"Copy On Select", 1, u"Copy selected text to the clipboard at once."),
    Int<&C::pasteOnRightButton>(u"Paste On Right Button", 1, u"The right mouse button pastes."),
    Int<&C::hideMousePointerOnKeypress>(u"Hide Mouse Pointer On Keypress", 1, u"Hide the mouse pointer while typing."),
    Int<&C::showConfirmDisconnectDialog>(u"Show Confirm Disconnect Dialog", 1, u"Ask before a connected session is closed."),
    Int<&C::altSelectsMenu>(u"Alt Selects Menu", 1, u"The Alt key opens the menu."),
    Int<&C::checkShellTelnetCommand>(u"Check Shell Telnet Command", 1, u"Check at start whether the application opens telnet addresses."),
    Int<&C::pageOrientation>(u"Page Orientation", 1, u"Orientation of printed pages, as the print layer counts."),
    Int<&C::paperSize>(u"Paper Size", 1, u"Paper size of printed pages, as the print layer counts."),
    Int<&C::saveNewConnectEntries>(u"Save New Connect Entries", 1, u"Save sessions that were made by the quick connect dialog."),
    Int<&C::httpUseRegistryEntry>(u"HTTP Use Registry Entry", 1, u"Open addresses with the browser that the system names."),
    Int<&C::newSessionUsesWizard>(u"New Session Uses Wizard", 1, u"Make new sessions with the wizard."),
    Int<&C::moveFilesToRecycleBin>(u"Move Files To Recycle Bin", 1, u"Deleted local files go to the recycle bin."),
    Int<&C::openWithTransferType>(u"Open With Transfer Type", 1, u"Transfer type of files that are opened from the server."),
    Int<&C::hideDotFiles>(u"Hide Dot Files", 1, u"Leave out files whose name begins with a dot."),
    Int<&C::displayFolderTree>(u"Display Folder Tree", 1, u"Show the folder tree beside the file list."),
    Int<&C::displayLog>(u"Display Log", 1, u"Show the log window."),
    Int<&C::promptToResumeOnConnect>(u"Prompt to Resume on Connect", 1, u"Offer to resume unfinished transfers after connecting."),

    // Numbers that begin as 0.
    Int<&C::pasteOnMiddleButton>(u"Paste On Middle Button", 0, u"The middle mouse button pastes."),
    Int<&C::showConnectionClosedDialog>(u"Show Connection Closed Dialog", 0, u"Tell by a dialog when a connection is closed."),
    Int<&C::useSystemCaret>(u"Use System Caret", 0, u"Draw the cursor as the system's caret, for screen readers."),
    Int<&C::suppressExecuteEscapeSequenceExitCodes>(u"Suppress Execute Escape Sequence Exit Codes", 0, u"Don't report exit codes of programs that an escape sequence started."),
    Int<&C::useOldIcons>(u"Use Old Icons", 0, u"Show the icons of older versions."),
    Int<&C::ejectPageInterval>(u"Eject Page Interval", 0, u"Seconds of silence after which a printed page is ejected; 0 never."),
    Int<&C::forceBlackOnWhite>(u"Force Black On White", 0, u"Print in black on white, whatever the screen's colours."),
    Int<&C::doubleClickAction>(u"Double Click Action", 0, u"What a double click on a file does."),
    Int<&C::xPosition>(u"X Position", 0, u"Left edge of the window when positions are not remembered."),
    Int<&C::yPosition>(u"Y Position", 0, u"Top edge of the window when positions are not remembered."),
    Int<&C::saveSessionWindowState>(u"Save Session Window State", 0, u"Remember each session window's place."),
    Int<&C::disableClose>(u"Disable Close", 0, u"Take the close button from the window."),
    Int<&C::singleInstance>(u"Single Instance", 0, u"Allow one running copy of the application."),
    Int<&C::disablePassThroughPrinting>(u"Disable Pass Through Printing", 0, u"Ignore the host's requests to print."),
    Int<&C::bufferPassThroughPrinting>(u"Buffer Pass Through Printing", 0, u"Collect the host's print data before printing it."),
    Int<&C::useRawMode>(u"Use Raw Mode", 0, u"Send the host's print data to the printer as it is; excludes a direct port."),
    Int<&C::usePrinterPort>(u"Use Printer Port", 0, u"Print straight to a port; forced to 0 in raw mode."),
    Int<&C::httpUseDde>(u"HTTP Use DDE", 0, u"Hand addresses to a running browser."),
    Int<&C::zModemUploadAscii>(u"ZModem Upload ASCII", 0, u"Upload by ZModem in text mode."),
    Int<&C::suppressDifferentGeometryDialog>(u"Suppress Different Geometry Dialog", 0, u"Don't ask when a remembered window has another size."),
    Int<&C::suppressMultipleSessionsWarning>(u"Suppress Multiple Sessions Warning", 0, u"Don't warn when many sessions are opened at once."),
    Int<&C::suppressDisconnectAllPrompt>(u"Suppress Disconnect All Prompt", 0, u"Don't ask before all sessions are disconnected."),
    Int<&C::suppressEditMultipleSessionsDialog>(u"Suppress Edit Multiple Sessions Dialog", 0, u"Don't explain the editing of several sessions at once."),
    Int<&C::overwriteAction>(u"Overwrite Action", 0, u"What to do when a transfer's target exists."),
    Int<&C::enableLogFile>(u"Enable Log File", 0, u"Write the transfer log to Log File."),
    Int<&C::remoteEditUploadAction>(u"Remote Edit Upload Action", 0, u"What to do with a remotely edited file when the editor closes."),
    Int<&C::remoteEditUploadOnModify>(u"Remote Edit Upload On Modify", 0, u"Upload a remotely edited file each time it is saved."),
    Int<&C::keepAlive>(u"Keep Alive", 0, u"Send commands to keep an idle transfer connection open."),
    Int<&C::closeOnDisconnect>(u"Close on Disconnect", 0, u"Close a session's window when it disconnects."),
    Int<&C::restoreSessionDirectory>(u"Restore Session Directory", 0, u"Return to a session's last folder."),
    Int<&C::displayLocalTimeForRemoteFiles>(u"Display Local Time for Remote Files", 0, u"Show remote file times in local time."),
    Int<&C::hideHiddenFiles>(u"Hide Hidden Files", 0, u"Leave out files with the hidden attribute."),
    Int<&C::displayPathInTitleBar>(u"Display Path in Title Bar", 0, u"Show the folder's path in the title bar."),
    Int<&C::displayExplorerFilenames>(u"Display Explorer Filenames", 0, u"Show file names the way the system's file manager does."),
    Int<&C::displayAttributesColumn>(u"Display Attributes Column", 0, u"Show the column of file attributes."),
    Int<&C::listViewNumberStyle>(u"List View Number Style", 0, u"How file sizes are written in lists."),
    Int<&C::saveSessionWindowAttributes>(u"Save Session Window Attributes", 0, u"Remember each session window's attributes."),
    Int<&C::suppressReadOnlySessionOptionsWarning>(u"Suppress Read Only Session Options Warning", 0, u"Don't warn when a locked session's options are opened."),
    Rule<RawModeExcludesPort>(u"Raw mode excludes a direct port: Use Printer Port becomes 0."),

    // Numbers with a default of their own; a bound corrects the current value after reading.
    Int<&C::activeWindowAlphaTransparency>(u"Active Window Alpha Transparency", 255, u"Opacity of the active window, 255 being solid.", NotMerged),
    Int<&C::inactiveWindowAlphaTransparency>(u"Inactive Window Alpha Transparency", 255, u"Opacity of windows without focus, 255 being solid.", NotMerged),
    Int<&C::paperSource>(u"Paper Source", 7, u"Paper source of printed pages, as the print layer counts."),
    Int<&C::connectedColor>(u"Connected Color", 0x28C828, u"Tab colour of a connected session, 0x00BBGGRR."),
    Int<&C::disconnectedColor>(u"Disconnected Color", 0x0000FF, u"Tab colour of a disconnected session, 0x00BBGGRR."),
    Int<&C::newInputColor>(u"New Input Color", 0xFF0000, u"Tab colour of a session with unseen output, 0x00BBGGRR."),
    Int<&C::statusIndicatorWidth>(u"Status Indicator Width", 2, u"Width of a tab's state mark in pixels.", Within{1, 10}),
    Int<&C::minTabWidth>(u"Min Tab Width", 40, u"Least width of a tab in pixels.", AtLeast{20}),
    Int<&C::autoReconnectInterval>(u"Auto Reconnect Interval", 5, u"Seconds between attempts to connect again."),
    Int<&C::maxChatWindowHistory>(u"Max Chat Window History", 200, u"Lines that the chat window remembers."),
    Int<&C::maxScrollbackBufferSize>(u"Max Scrollback Buffer Size", 128000, u"Most lines that a session may keep for scrolling back."),
    Int<&C::viewLeftMargin>(u"View Left Margin", 3, u"Pixels left free beside the terminal's text.", Within{0, 1024}),
    Int<&C::mruCount>(u"MRU Count", 4, u"Entries in the list of recent sessions.", Within{0, 9}),
    Int<&C::maxColumns>(u"Max Columns", 256, u"Most columns that a terminal may have.", Within{132, 1024}),
    Int<&C::orvaneToolbarTheme>(u"Orvane Toolbar Theme", 4, u"Look of Orvane's toolbar."),
    Int<&C::tessalyToolbarTheme>(u"Tessaly Toolbar Theme", 4, u"Look of Tessaly's toolbar."),
    Int<&C::transferType>(u"Transfer Type", 3, u"How file contents are converted in a transfer.", Among{1, 3}),
    Int<&C::dataConnectionType>(u"Data Connection Type", 2, u"Which side opens FTP data connections."),
    Int<&C::timeout>(u"Timeout", 180, u"Seconds without an answer after which a transfer connection is given up."),
    Int<&C::logBufferSize>(u"Log Buffer Size", 500, u"Lines that the log window keeps."),
    Int<&C::receiveBufferSize>(u"Receive Buffer Size", -1, u"Bytes of the socket's receive buffer; -1 leaves it to the system."),
    Int<&C::sendBufferSize>(u"Send Buffer Size", -1, u"Bytes of the socket's send buffer; -1 leaves it to the system."),
    Int<&C::retryAttempts>(u"Retry Attempts", 20, u"How often a failed connection is tried again."),
    Int<&C::retryDelay>(u"Retry Delay", 10, u"Seconds between two such attempts."),
    Int<&C::transferViewNumberStyle>(u"Transfer View Number Style", 2, u"How sizes are written in the transfer window."),
    Int<&C::transferQueueHeight>(u"Transfer Queue Height", 150, u"Height of the transfer queue in pixels."),
    Int<&C::ftpPortRangeMinimum>(u"FTP Port Range Minimum", 1025, u"First local FTP data port."),
    Int<&C::ftpPortRangeMaximum>(u"FTP Port Range Maximum", 65535, u"Last local FTP data port."),

    // Colours of the log; all bits set means that none was chosen.
    UInt<&C::logCommandTextColor>(u"Log Command Text Color", 0xFFFFFFFF, u"Colour of commands in the log, 0x00BBGGRR."),
    UInt<&C::logResponseTextColor>(u"Log Response Text Color", 0xFFFFFFFF, u"Colour of the server's answers in the log, 0x00BBGGRR."),
    UInt<&C::logStatusTextColor>(u"Log Status Text Color", 0xFFFFFFFF, u"Colour of status lines in the log, 0x00BBGGRR."),
    UInt<&C::logWarningTextColor>(u"Log Warning Text Color", 0xFFFFFFFF, u"Colour of warnings in the log, 0x00BBGGRR."),
    UInt<&C::logErrorTextColor>(u"Log Error Text Color", 0xFFFFFFFF, u"Colour of errors in the log, 0x00BBGGRR."),

    // Texts that begin empty.
    String<&C::connectExpandPath>(u"Connect Expand Path", u"", u"The folder of the session tree that is open at start."),
    String<&C::terminalLogFile>(u"Terminal Log File", u"", u"File of the terminal's log."),
    String<&C::printerName>(u"Printer Name", u"", u"Printer for the terminal's output; empty for the system's default."),
    String<&C::connectDialogFont>(u"Connect Dialog Font", u"", u"Font of the connect dialog, as a text."),
    String<&C::clipboardDataFormat>(u"Clipboard Data Format", u"", u"Format that copied text takes on the clipboard."),
    String<&C::lastScriptRun>(u"Last Script Run", u"", u"The script that was run last."),
    String<&C::httpBrowserApplication>(u"HTTP Browser Application", u"", u"Program that opens addresses when the system's choice is not used."),
    String<&C::menuToolbarFile>(u"Menu Toolbar File", u"", u"File that describes menus and toolbars."),
    String<&C::anonymousPassword>(u"Anonymous Password", u"", u"Password for anonymous FTP, usually a mail address."),
    String<&C::logFile>(u"Log File", u"", u"File of the transfer log."),
    String<&C::filePermissions>(u"File Permissions", u"", u"Permissions of uploaded files, in octal."),
    String<&C::directoryPermissions>(u"Directory Permissions", u"", u"Permissions of folders made on the server, in octal."),
    String<&C::initialLocalFolder>(u"Initial Local Folder", u"", u"Local folder that is shown first."),
    String<&C::lastLocalDirectory>(u"Last Local Directory", u"", u"Local folder that was shown last."),
    String<&C::cacheDirectory>(u"Cache Directory", u"", u"Folder for files that are opened from the server."),
    String<&C::defaultDownloadDirectory>(u"Default Download Directory", u"", u"Folder that new sessions download to."),
    String<&C::downloadDirectory>(u"Download Directory", u"", u"Folder that downloads go to."),
    String<&C::connectSoundFile>(u"Connect Sound File", u"", u"Sound that is played after connecting."),
    String<&C::disconnectSoundFile>(u"Disconnect Sound File", u"", u"Sound that is played after disconnecting."),
    String<&C::transferCompleteSoundFile>(u"Transfer Complete Sound File", u"", u"Sound that is played after a transfer."),
    String<&C::errorSoundFile>(u"Error Sound File", u"", u"Sound that is played at an error."),
    String<&C::certificatePath>(u"Certificate Path", u"", u"The user's certificate file."),

    // Texts with a default.
    String<&C::sessionOptionsTreeSelected>(u"Session Options Tree Selected", u"Session+", u"Page of the session options that was shown last."),
    String<&C::sessionOptionsTreeState>(u"Session Options Tree State", u"1010000101010010", u"Which branches of the session options are open, one digit each."),
    String<&C::globalOptionsTreeSelected>(u"Global Options Tree Selected", u"Global+", u"Page of the global options that was shown last."),
    String<&C::globalOptionsTreeState>(u"Global Options Tree State", u"1001000100", u"Which branches of the global options are open, one digit each."),
    String<&C::openWithProgramTitle>(u"Open With Program Title", u"Notepad", u"Title of the program that opens files of unknown types."),
    String<&C::version>(u"Version", u"7B2F2717-85C8-4729-8394-3B7697039CEB", u"Mark of the store's version; that it is there tells that the store existed."),

    // Records: places of windows, print settings, colours, layouts.
    Placement<&C::windowPlacement, DefaultFramePlacement>(u"Window Placement", u"Place and state of the main window."),
    Placement<&C::connectDialogSize, DefaultFramePlacement>(u"Connect Dialog Size", u"Place of the connect dialog."),
    Placement<&C::mainFrameWindowSize, DefaultFramePlacement>(u"MainFrame Window Size", u"Place of the file transfer window."),
    Placement<&C::localFrameWindowSize, DefaultFramePlacement>(u"LocalFrame Window Size", u"Place of the local file window."),
    Placement<&C::remoteFrameWindowSize, DefaultFramePlacement>(u"RemoteFrame Window Size", u"Place of the remote file window."),
    Placement<&C::transferWindowPlacement, DefaultFramePlacement>(u"Transfer Window Placement", u"Place of the transfer window."),
    Placement<&C::synchronizeWindowPlacement, DefaultFramePlacement>(u"Synchronize Window Placement", u"Place of the synchronization window."),
    Margins<&C::pageMargins, DefaultPageMargins>(u"Page Margins", u"Margins of printed pages, in inches."),
    Font<&C::printerFont, DefaultPrinterFont>(u"Printer Font v2", u"Font of printed text.", Formerly{u"Printer Font"}),
    Colors<&C::customColors, DefaultCustomColors>(u"Custom Colors", u"The user's own sixteen colours of the colour chooser."),
    Colors<&C::ansiColorRgb, DefaultAnsiColors>(u"ANSI Color RGB", u"The sixteen ANSI colours of terminals."),
    ListView<&C::localListViewState>(u"Local ListView State", u"Columns of the local file list."),
    ListView<&C::remoteListViewState>(u"Remote ListView State", u"Columns of the remote file list."),
    ListView<&C::syncDBDialogListViewState>(u"SyncDBDialog ListView State", u"Columns of the list of synchronization data."),
    ListView<&C::synchronizeListViewState>(u"Synchronize ListView State", u"Columns of the synchronization list."),
    ListView<&C::transferQueueState>(u"Transfer Queue State", u"Columns of the transfer queue."),
    ExplorerFrame<&C::localExplorerFrameState>(u"Local ExplorerFrame State", u"1,-1,200", u"Layout of the local file window."),
    ExplorerFrame<&C::remoteExplorerFrameState>(u"Remote ExplorerFrame State", u"1,1000,200", u"Layout of the remote file window."),
    ExplorerFrame<&C::synchronizeExplorerFrameState>(u"Synchronize ExplorerFrame State", u"1,0,-1", u"Layout of the synchronization window."),

    // Parts with a form of their own.
    Part<&C::printerSerial>(VValueClass::Serial, u"Printer Serial", u"Line settings of the printer's port."),
    Part<&C::colorSchemes>(VValueClass::ColorSchemes, u"Color Schemes", u"The colour schemes that sessions name."),
    Blob<&C::ovnCustomToolbarData>(u"OVN Custom Toolbar Data", u"Orvane's customised toolbar, in the toolbar's own form."),
    Strings<&C::selectedTermcapEntries>(u"Selected Termcap Entries", u"Termcap entries that are offered as emulations."),

    // Read, never written: an administrator or the user sets them in the store by hand.
    Int<&C::lineSendDelay>(u"Line Send Delay", 5, u"Milliseconds between lines of sent text.", NeverSaved),
    Int<&C::characterSendDelay>(u"Character Send Delay", 0, u"Milliseconds between characters of sent text.", NeverSaved),
};
// clang-format on

static_assert(NamesAreUnique(kRows));
static_assert(CountInTable(kRows) == 203);

} // namespace

const VSchema<GlobalConfig>& GlobalConfig::Schema()
{
    // Never destroyed: records may outlive the other statics, and their names are this object's.
    static const auto& schema = *new VSchema<GlobalConfig>(kRows);
    return schema;
}

} // namespace ostrand
