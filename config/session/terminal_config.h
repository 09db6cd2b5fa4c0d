// TerminalConfig: the part of a session that describes its terminal. A record of its own within the session, read from
// and saved to the session's key. Its rows stand in terminal_schema.cpp.
#pragma once

#include "config/session/map_file.h"
#include "keymap/profile_keymap.h"
#include "platform/export.h"
#include "profile/schema.h"

#include <cstdint>
#include <vector>

namespace ostrand {

class GlobalConfig;

/// A plain public record of value objects. One thread at a time uses a record.
class OSTRAND_API TerminalConfig : public VProfileRecord {
public:
    struct ReadContext : VReadContext {
        bool hasNerithEmulation = false;
        const GlobalConfig* global = nullptr; ///< null: no termcap entries, no bounds
    };

    /// Reads every value from the session's key, which may be null: then all take their defaults. The configuration,
    /// which may be null and is lent for the call, gives the termcap entries and bounds `cols` and `scrollback`. Map
    /// files that the values name are read as well; one that can't be is told to the router.
    TerminalConfig(const VProfileKey* key, bool hasNerithEmulation, const GlobalConfig* global);
    /// A full copy: values with their saved copies and flags, tables, current modes.
    TerminalConfig(const TerminalConfig&) = default;
    /// Values go from record to record by CopyValue, which takes the changed ones alone.
    TerminalConfig& operator=(const TerminalConfig&) = delete;

    VProfileData* GetMember(int index) override;
    /// The member of the table with this value name, in any case; null if there is none.
    VProfileData* FindMember(std::u16string_view valueName);
    static const VSchema<TerminalConfig>& Schema();

    // Switches that begin as on.
    VProfile<bool> syncViewRows, syncViewCols, blinkingCursor, jumpScroll, lineWrap, enableCursorKeyModeSwitching,
        enableKeypadModeSwitching, enableLineWrapModeSwitching, sgrZeroResetsAnsiColor, audioBell, scrollToClear,
        scrollToBottomOnOutput, scrollToBottomOnKeypress, xPositionRelativeLeft, yPositionRelativeTop,
        shiftForcesLocalMouseOperations;

    // Switches that begin as off.
    VProfile<bool> colorSchemeOverridesAnsiColor, isFullScreen, useNarrowFont, useCursorColor, mapDelete, mapBackspace,
        emacsMode, emacsMode8Bit, preserveAltGr, cursorKeyMode, newlineMode, waitForStringsIgnoresColor, scoLineWrap,
        displayTab, visualBell, closeOnDisconnect, clearOnDisconnect, cuaCopyPaste, useTerminalType, useAnswerback,
        usePosition, localEcho, strip8thBit, ignoreWindowTitleChangeRequests, copyTranslatesAnsiLineDrawingCharacters,
        translateIncomingCrToCrlf;

    // Undetermined leaves the decision to the global value of the same name.
    VProfile<VTriState> horizontalScrollbar, verticalScrollbar, userButtonBar, showChatWindow;

    // Texts that begin empty.
    VProfileString displayTabString, keymapFilename, terminalType, answerback, userFontMap, userLineDrawingMap;

    // Values with a rule of their own.
    VProfileString emulation;
    VProfile<bool> ansiColor;
    VProfileString defaultScs;
    VProfileWindowPlacement windowPlacement;
    VProfile<int> rows, cols, scrollback, resizeMode, foreground, background, bold;
    VProfileString colorScheme;
    VProfileLogFont normalFont, narrowFont;
    VProfileString outputTransformerName;
    VProfile<bool> useUnicodeLineDrawing;
    VProfile<int> cursorStyle, cursorColor;
    VProfileString keymapName;
    VProfile<bool> useAlternateKeyboard;
    ProfileKeymap keymap;
    VProfile<int> keypadMode;
    VProfile<bool> enable80132ColumnSwitching;
    VProfile<int> xPosition, yPosition;
    VProfileString userButtonBarName;

    // Of an older form, read and never written: they feed the defaults of the fonts.
    VProfileString fontFamily;
    VProfile<int> fontSize;

    // Which character stands at each place; kFontMapSize and kLineDrawingMapSize entries, or none where no file is
    // named or it can't be read.
    std::vector<uint16_t> fontMap, lineDrawingMap;

    /// As they were read, whatever the bounds made of them.
    int rowsAsRead = 0;
    int colsAsRead = 0;

    // Modes of a running terminal, which fills them in and reads them back. They begin as the stored ones.
    bool currentCursorKeyMode = false;
    bool currentLineWrap = false;
    bool currentNewlineMode = false;
    int currentKeypadMode = 0;
};

} // namespace ostrand
