// GlobalConfig: the one record of application-wide options, shared by both applications. Its rows stand in
// global_schema.cpp; how it is fetched, saved and merged, in core/entry.h.
#pragma once

#include "config/global/color_scheme_list.h"
#include "config/session/serial_device.h"
#include "config/session/synchronize.h"
#include "core/sync.h"
#include "platform/export.h"
#include "profile/schema.h"

namespace ostrand {

/// A plain public record of value objects that applications and dialogs read and write directly. Reference counted;
/// guarded as a whole by the process-wide configuration lock, which outlives every instance.
class OSTRAND_API GlobalConfig : public VUnknown<ISynchObject>, public VProfileRecord {
public:
    struct ReadContext : VReadContext {
        bool hasExistingStore = false; ///< the store had the value Version before this reading
    };

    /// Reads every value from the key, and colour schemes and the quick synchronize task from the default store. The
    /// key may be null: then all take their defaults and no store is opened.
    GlobalConfig(const VProfileKey* key, bool isOrvane);

    /// Lock and Unlock forward to the process-wide lock, where there is one.
    void Lock() override;
    void Unlock() override;

    /// Lays the values found under the key over the record: current value and saved copy take them, so an unforced
    /// save doesn't write them. What the key lacks stays as it is. Bounds and rules run again. With a key that isn't
    /// null the quick synchronize task is read once more where the store has it in the unusual place that a merge looks
    /// at.
    void Merge(const VProfileKey* key);
    VProfileData* GetMember(int index) override;
    /// The member of the table with this value name, in any case; null if there is none.
    VProfileData* FindMember(std::u16string_view valueName);
    /// Current values that overrides of one run changed go back to their saved copies. The flags stay.
    void UndoOverrides();

    bool IsOrvane() const { return m_isOrvane; }
    static const VSchema<GlobalConfig>& Schema();

    // Set by the application when a command line gave these values for this run only.
    bool transferTypeOverridden = false;
    bool overwriteActionOverridden = false;
    bool logFileOverridden = false;
    bool retryOverridden = false;
    // Set by the application or a dialog, never stored.
    bool makeDefaultTelnet = false;
    bool makeDefaultSsh1 = false;
    bool makeDefaultSsh2 = false;
    bool scriptingDisabled = false;

    // Window furniture and start-up: each application keeps its own.
    VProfile<bool> showToolbar, showMenuBar, showStatusBar, useAutoSession;
    VProfileString autoSessionName;
    VProfile<bool> useRememberedSessions;
    VProfileString rememberedSessionsList;
    VProfile<int> neverCheckForUpdates;
    VProfile<unsigned long> updatePromptDate;

    // Switches that begin as on.
    VProfile<bool> showConnectDialog, showDetailsOnConnectDialog, showTransferOnlySessions, showTerminalOnlySessions,
        autoSaveOptions, isExpanded, sortAlphabetical, hideDotSessionFiles, reuseDisconnectedTabs,
        showCursorPositionIndicator, showWindowSizeIndicator, showStatusIndicators, showSessionTabs, verticalScrollbar,
        verifyRetrieveFileStatus, showTransferQueueWindow, showWindowToolbar;

    // Switches that begin as off.
    VProfile<bool> showQuickConnectDialog, disableResize, focusDoesNotAffectBlink, executeEscapeSequence,
        enableTermcapEditing, showElapsedTime, neverShowSeconds, alphaTransparency, confirmCloseMultipleTabs,
        showMultipleTabsOnly, enableTabSwitchingHistory, launchNewWindowsInASeparateProcess, autoReconnect,
        showChatWindow, userButtonBar, horizontalScrollbar, openSessionsInTab, minimizeToTray, saveKeymapsAsUnicode,
        disableServerToServerTransfers, disableDirectoryTreeDetection, resolveSymbolicLinks, retainFileVersionNumber,
        alwaysPromptForAuthInfo, refreshAfterAllTransfersComplete, suspendQueuedTransfers, ftpEnablePortRange,
        tslyFirewallMigrated, installedFtpSites, serializeConnections, neverUseCachedFileForRemoteEditing,
        quilloXmlFileFixed, tessalyXmlFileFixed, orvaneXmlFileFixed, usePreviousQuickSyncSettings;

    // Switches whose default depends on the machine or the store.
    VProfile<bool> enableFontSmoothing, rightClickPopupShown;

    // Numbers that begin as 1.
    VProfile<int> saveConnectDialogFolderState, copyOnSelect, pasteOnRightButton, hideMousePointerOnKeypress,
        showConfirmDisconnectDialog, altSelectsMenu, checkShellTelnetCommand, pageOrientation, paperSize,
        saveNewConnectEntries, httpUseRegistryEntry, newSessionUsesWizard, moveFilesToRecycleBin, openWithTransferType,
        hideDotFiles, displayFolderTree, displayLog, promptToResumeOnConnect;

    // Numbers that begin as 0.
    VProfile<int> pasteOnMiddleButton, showConnectionClosedDialog, useSystemCaret,
        suppressExecuteEscapeSequenceExitCodes, useOldIcons, ejectPageInterval, forceBlackOnWhite, doubleClickAction,
        xPosition, yPosition, saveSessionWindowState, disableClose, singleInstance, disablePassThroughPrinting,
        bufferPassThroughPrinting, useRawMode, usePrinterPort, httpUseDde, zModemUploadAscii,
        suppressDifferentGeometryDialog, suppressMultipleSessionsWarning, suppressDisconnectAllPrompt,
        suppressEditMultipleSessionsDialog, overwriteAction, enableLogFile, remoteEditUploadAction,
        remoteEditUploadOnModify, keepAlive, closeOnDisconnect, restoreSessionDirectory, displayLocalTimeForRemoteFiles,
        hideHiddenFiles, displayPathInTitleBar, displayExplorerFilenames, displayAttributesColumn, listViewNumberStyle,
        saveSessionWindowAttributes, suppressReadOnlySessionOptionsWarning;

    // Numbers with a default of their own; a bound corrects the current value after reading.
    VProfile<int> activeWindowAlphaTransparency, inactiveWindowAlphaTransparency, paperSource, connectedColor,
        disconnectedColor, newInputColor, statusIndicatorWidth, minTabWidth, autoReconnectInterval,
        maxChatWindowHistory, maxScrollbackBufferSize, viewLeftMargin, mruCount, maxColumns, orvaneToolbarTheme,
        tessalyToolbarTheme, transferType, dataConnectionType, timeout, logBufferSize, receiveBufferSize,
        sendBufferSize, retryAttempts, retryDelay, transferViewNumberStyle, transferQueueHeight, ftpPortRangeMinimum,
        ftpPortRangeMaximum;

    // Colours of the log; all bits set means that none was chosen.
    VProfile<unsigned int> logCommandTextColor, logResponseTextColor, logStatusTextColor, logWarningTextColor,
        logErrorTextColor;

    // Texts that begin empty.
    VProfileString connectExpandPath, terminalLogFile, printerName, connectDialogFont, clipboardDataFormat,
        lastScriptRun, httpBrowserApplication, menuToolbarFile, anonymousPassword, logFile, filePermissions,
        directoryPermissions, initialLocalFolder, lastLocalDirectory, cacheDirectory, defaultDownloadDirectory,
        downloadDirectory, connectSoundFile, disconnectSoundFile, transferCompleteSoundFile, errorSoundFile,
        certificatePath;

    // Texts with a default.
    VProfileString sessionOptionsTreeSelected, sessionOptionsTreeState, globalOptionsTreeSelected,
        globalOptionsTreeState, openWithProgramTitle, version;

    // Records: places of windows, print settings, colours, layouts.
    VProfileWindowPlacement windowPlacement, connectDialogSize, mainFrameWindowSize, localFrameWindowSize,
        remoteFrameWindowSize, transferWindowPlacement, synchronizeWindowPlacement;
    VProfileMargins pageMargins;
    VProfileLogFont printerFont;
    VProfileColors customColors, ansiColorRgb;
    VProfileListViewState localListViewState, remoteListViewState, syncDBDialogListViewState, synchronizeListViewState,
        transferQueueState;
    VProfileExplorerFrameState localExplorerFrameState, remoteExplorerFrameState, synchronizeExplorerFrameState;

    // Parts with a form of their own. The schemes stand in their own key, whichever the record is read from.
    VSerialDeviceConfig printerSerial;
    ProfileColorSchemeList colorSchemes;
    VProfileBlob ovnCustomToolbarData;
    VProfileStringList selectedTermcapEntries;

    // Read, never written: an administrator or the user sets them in the store by hand.
    VProfile<int> lineSendDelay, characterSendDelay;

    // The file-transfer client's tasks, in their own key and outside the table.
    SynchronizeProfile quickSynchronizeTask;

private:
    bool m_isOrvane;
};

} // namespace ostrand
