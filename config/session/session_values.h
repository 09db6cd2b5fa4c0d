// SessionValues: the values of a session that belong neither to a protocol nor to another record, with the terminal and
// the printer's line beside them. Their rows stand in session_schema.cpp.
#pragma once

#include "config/session/serial_device.h"
#include "config/session/terminal_config.h"
#include "platform/export.h"
#include "profile/schema.h"

namespace ostrand {

/// Plain public value objects, all of one key. One thread at a time.
struct OSTRAND_API SessionValues {
    struct ReadContext : VReadContext {
        const GlobalConfig* global = nullptr; ///< never null
        bool isFresh = false;                 ///< a session without a key, or one that is called "Default"
    };

    /// The terminal first, then the rows. `global` is lent for the call.
    SessionValues(const VProfileKey* key, const GlobalConfig& global, bool isFresh);
    SessionValues(const SessionValues&) = default;
    SessionValues& operator=(const SessionValues&) = delete;

    static const VSchema<SessionValues>& Schema();

    TerminalConfig terminal;

    /// That the key has this value, whatever it is, makes it a session's and not a folder's.
    VProfile<bool> isSession;

    // Switches that begin as off.
    VProfile<bool> useTitleBar, useLoginScript, useScriptFile, disableZModem, zModemUses32BitCrc, force1024ForZModem,
        logOnlyCustom, logPrompt, logMode, startLogUponConnect, rawLog, logMultipleSessions, newLogFileAtMidnight,
        useWordDelimiterChars, idleNoOpCheck, alwaysOnTop, disablePassThroughPrinting, bufferPassThroughPrinting,
        useRawMode, usePrinterPort, forceBlackOnWhite, monitorAllowRemoteInput, filenamesAlwaysUseUtf8,
        useMultipleSftpChannels;

    // Switches that begin as on.
    VProfile<bool> sendInitialCarriageReturn, zModemEncodesDel, zModemForceLowerCaseOnUpload,
        useGlobalAdvancedPrintSettings, useGlobalPrintSettings;

    // Undetermined leaves the decision to the global value of the same name.
    VProfile<VTriState> disableResize, autoReconnect, minimizeToTray, disableDirectoryTreeDetection,
        verifyRetrieveFileStatus, resolveSymbolicLinks;

    VProfile<unsigned int> traceLevel, keyboardCharSendDelay;

    // Texts that begin empty.
    VProfileString titleBar, scriptFilename, logFilename, customLogMessageConnect, customLogMessageDisconnect,
        customLogMessageEachLine, wordDelimiterChars, idleString, monitorUsername, printerName, timeZone, lastDirectory,
        initialLocalDirectory, fileCreationMask, restartDatafilePath;

    // Values with a rule of their own.
    VProfileEncodedString loginScript;
    VProfileString uploadDirectory, downloadDirectory, defaultDownloadDirectory;
    VProfile<int> xModemSendPacketSize;
    VProfileString zModemReceiveCommand;
    VProfile<bool> idleCheck;
    VProfile<int> idleTimeout, idleNoOpTimeout, lineSendDelay, characterSendDelay, ejectPageInterval;
    VProfileString monitorListenAddress;
    VProfileBlowfishString monitorPassword;
    VProfileMargins pageMargins;
    VProfileLogFont printerFont;
    VProfile<int> pageOrientation, paperSize, paperSource, operatingSystem;
    VProfileMultiLineString description;
    VProfile<int> fileSystemCase;
    VProfileWindowPlacement remoteFrameWindowPlacement;
    VProfileExplorerFrameState remoteExplorerFrameState;
    VProfileListViewState remoteListViewState;
    VProfile<int> restartDataSize, maxTransferBuffers;

    /// The printer's serial line; its port is `Printer Port`.
    VSerialDeviceConfig printerSerial;
};

} // namespace ostrand
