// The table of the terminal record: order of the rows is the order of the member table and of reading. Rules stand
// where the values that they look at have been read.
#include "config/global/global_config.h"
#include "config/session/emulations.h"
#include "config/session/terminal_config.h"
#include "core/fold.h"

namespace ostrand {

namespace {

using C = TerminalConfig;
using In = TerminalConfig::ReadContext;

constexpr const char16_t* kUsualEmulation = u"VT100";

/// How older releases spelled the name of the emulation and of its key map.
void ModernizeScoAnsi(VProfileString& value)
{
    if (value == u"SCO-ANSI")
        value = u"SCOANSI";
}

void LoadFontMap(C& c) { c.fontMap = LoadMapFile(c.userFontMap, kFontMapSize); }

void LoadLineDrawingMap(C& c) { c.lineDrawingMap = LoadMapFile(c.userLineDrawingMap, kLineDrawingMapSize); }

void EmulationIsKnown(C& c, const In& in)
{
    ModernizeScoAnsi(c.emulation);
    if (!IsBuiltInEmulation(c.emulation, in.hasNerithEmulation) && !IsTermcapEmulation(c.emulation, in.global))
        c.emulation = kUsualEmulation;
}

bool BeginsWithAnsiColors(const C& c, const In& in) { return HasAnsiColors(c.emulation, in.hasNerithEmulation); }

/// ANSI is shown as consoles are, light on dark and in their font; all others dark on light.
bool IsAnsi(const C& c) { return c.emulation == u"ANSI"; }

int TextColor(const C& c, const In&) { return IsAnsi(c) ? 0xFFFFFF : 0; }

int GroundColor(const C& c, const In&) { return IsAnsi(c) ? 0 : 0xFFFFFF; }

VUnicodeString UsualFamily(const C& c, const In&) { return IsAnsi(c) ? u"Terminal" : u"Lucida Console"; }

int UsualSize(const C& c, const In&) { return IsAnsi(c) ? 12 : 13; }

VLogFont UsualFont(const C& c, const In&) { return {c.fontSize, c.fontFamily}; }

/// These fonts carry line drawing glyphs of their own, at places of their own.
bool DrawsLinesItself(const VLogFont& font)
{
    return font.GetFace().starts_with(u"vt100") || font.GetFace() == u"Terminal";
}

bool NeedsUnicodeLines(const C& c, const In&)
{
    return !DrawsLinesItself(c.normalFont) || (c.useNarrowFont && !DrawsLinesItself(c.narrowFont));
}

void KeepSizeAsRead(C& c, const In&)
{
    c.rowsAsRead = c.rows;
    c.colsAsRead = c.cols;
}

/// On purpose: the limit's flag comes along with its value. The name and the saved copy stay, so the next save writes
/// the cut value with either flag. Held by TerminalConfig.GlobalLimitsCutAndLendTheirFlag.
void Limit(VProfile<int>& value, const VProfile<int>& limit)
{
    if (value <= limit)
        return;
    value = limit.value;
    value.dirty = limit.dirty;
}

void GlobalLimitsHold(C& c, const In& in)
{
    if (!in.global)
        return;
    Limit(c.cols, in.global->maxColumns);
    Limit(c.scrollback, in.global->maxScrollbackBufferSize);
}

/// A session that was stored before Resize Mode, with a view that follows in neither direction, keeps size and font. A
/// new session's view follows.
int ResizeModeBefore(const C& c, const In&) { return !c.syncViewRows && !c.syncViewCols ? 2 : 0; }

void ScaledFontMeansNoSync(C& c)
{
    if (c.resizeMode != 1)
        return;
    c.syncViewRows = false;
    c.syncViewCols = false;
}

VUnicodeString UsualKeymap(const C& c, const In&) { return c.emulation == u"VT220" ? u"VT220" : u"Default"; }

void KeymapNameIsCurrent(C& c) { ModernizeScoAnsi(c.keymapName); }

/// That the store had no value is told by its flag: right after a reading only a default is pending.
void OtherKeymapIsAlternate(C& c, const In&)
{
    const bool wasMissing = c.useAlternateKeyboard.dirty;
    if (EqualNoCase(c.keymapName, u"Custom") || (wasMissing && !EqualNoCase(c.keymapName, u"Default")))
        c.useAlternateKeyboard = true;
}

/// Normal size, placed by the system: both positions (-4,-4), empty rectangle.
VWindowPlacement DefaultPlacement()
{
    VWindowPlacement p;
    p.showCommand = 1;
    p.minPositionX = p.minPositionY = -4;
    p.maxPositionX = p.maxPositionY = -4;
    return p;
}

/// The row of a key map, which has no default and can't be merged.
template <auto M, class... Options>
consteval auto KeyBindings(const char16_t* name, const char16_t* meaning, Options... options)
{
    static_assert(std::is_same_v<schema_detail::FieldOf<M>, ProfileKeymap>, "the row's class isn't the field's");
    auto row = schema_detail::Row<M>(VValueClass::Keymap, name, meaning, NotMerged, options...);
    row.load = [](C& record, const VSchemaRow<C>&, const VUnicodeString& n, const In& in) {
        (record.*M).Load(in.key, n);
    };
    row.merge = [](C&, const VSchemaRow<C>&, const VProfileKey*) {};
    return row;
}

constexpr VTriState kByGlobal = VTriState::Undetermined;

// clang-format off
constexpr std::array kRows = {
    // Switches that begin as on.
    Bool<&C::syncViewRows>(u"Sync View Rows", true, u"The number of rows follows the height of the window."),
    Bool<&C::syncViewCols>(u"Sync View Cols", true, u"The number of columns follows the width of the window."),
    Bool<&C::blinkingCursor>(u"Blinking Cursor", true, u"The cursor blinks."),
    Bool<&C::jumpScroll>(u"Jump Scroll", true, u"Scroll several lines at once when output comes fast."),
    Bool<&C::lineWrap>(u"Line Wrap", true, u"Text that reaches the right edge goes on in the next line."),
    Bool<&C::enableCursorKeyModeSwitching>(u"Enable Cursor Key Mode Switching", true, u"The host may switch the mode of the cursor keys."),
    Bool<&C::enableKeypadModeSwitching>(u"Enable Keypad Mode Switching", true, u"The host may switch the mode of the keypad."),
    Bool<&C::enableLineWrapModeSwitching>(u"Enable Line Wrap Mode Switching", true, u"The host may switch line wrap."),
    Bool<&C::sgrZeroResetsAnsiColor>(u"SGR Zero Resets ANSI Color", true, u"The sequence that ends all attributes ends colours, too."),
    Bool<&C::audioBell>(u"Audio Bell", true, u"The bell sounds."),
    Bool<&C::scrollToClear>(u"Scroll To Clear", true, u"A screen that is cleared is kept in the scrollback."),
    Bool<&C::scrollToBottomOnOutput>(u"Scroll To Bottom On Output", true, u"Output brings the view back to the last line."),
    Bool<&C::scrollToBottomOnKeypress>(u"Scroll To Bottom On Keypress", true, u"A key brings the view back to the last line."),
    Bool<&C::xPositionRelativeLeft>(u"X Position Relative Left", true, u"X Position counts from the left edge of the desktop, else from the right."),
    Bool<&C::yPositionRelativeTop>(u"Y Position Relative Top", true, u"Y Position counts from the top of the desktop, else from the bottom."),
    Bool<&C::shiftForcesLocalMouseOperations>(u"Shift Forces Local Mouse Operations", true, u"With Shift, the mouse selects text even while the host listens to it."),

    // Switches that begin as off.
    Bool<&C::colorSchemeOverridesAnsiColor>(u"Color Scheme Overrides Ansi Color", false, u"The colours of the scheme stand in for those that the host asks for."),
    Bool<&C::isFullScreen>(u"Is Full Screen", false, u"The window fills the screen."),
    Bool<&C::useNarrowFont>(u"Use Narrow Font", false, u"Lines of 132 columns are shown in the narrow font."),
    Bool<&C::useCursorColor>(u"Use Cursor Color", false, u"The cursor is drawn in Cursor Color."),
    Bool<&C::mapDelete>(u"Map Delete", false, u"The delete key sends backspace."),
    Bool<&C::mapBackspace>(u"Map Backspace", false, u"The backspace key sends delete."),
    Bool<&C::emacsMode>(u"Emacs Mode", false, u"Alt is the meta key."),
    Bool<&C::emacsMode8Bit>(u"Emacs Mode 8 Bit", false, u"The meta key sets the 8th bit, instead of sending escape."),
    Bool<&C::preserveAltGr>(u"Preserve Alt-Gr", false, u"The right Alt key keeps typing the characters of the keyboard's third level."),
    Bool<&C::cursorKeyMode>(u"Cursor Key Mode", false, u"Cursor keys begin in application mode."),
    Bool<&C::newlineMode>(u"Newline Mode", false, u"Return sends a line feed, too, and a line feed returns."),
    Bool<&C::waitForStringsIgnoresColor>(u"WaitForStrings Ignores Color", false, u"A script that waits for text doesn't see the sequences of colours."),
    Bool<&C::scoLineWrap>(u"SCO Line Wrap", false, u"Wrap at the right edge at once, not before the next character."),
    Bool<&C::displayTab>(u"Display Tab", false, u"Tabs are displayed as Display Tab String."),
    Bool<&C::visualBell>(u"Visual Bell", false, u"The bell flashes the window."),
    Bool<&C::closeOnDisconnect>(u"Close On Disconnect", false, u"Close the session when its connection ends."),
    Bool<&C::clearOnDisconnect>(u"Clear On Disconnect", false, u"Clear the screen when the connection ends."),
    Bool<&C::cuaCopyPaste>(u"CUA Copy Paste", false, u"Ctrl+C and Ctrl+V copy and paste."),
    Bool<&C::useTerminalType>(u"Use Terminal Type", false, u"Tell the host Terminal Type instead of the emulation's own name."),
    Bool<&C::useAnswerback>(u"Use Answerback", false, u"Answer an enquiry with Answerback."),
    Bool<&C::usePosition>(u"Use Position", false, u"The window opens at X Position and Y Position."),
    Bool<&C::localEcho>(u"Local Echo", false, u"Show what is typed without waiting for the host."),
    Bool<&C::strip8thBit>(u"Strip 8th Bit", false, u"Take off the highest bit of what comes in."),
    Bool<&C::ignoreWindowTitleChangeRequests>(u"Ignore Window Title Change Requests", false, u"The host can't change the window's title."),
    Bool<&C::copyTranslatesAnsiLineDrawingCharacters>(u"Copy Translates ANSI Line Drawing Characters", false, u"Copied line drawing becomes plain characters."),
    Bool<&C::translateIncomingCrToCrlf>(u"Translate Incoming CR To CRLF", false, u"A return that comes in goes on to the next line."),

    // Three states: undetermined leaves the decision to the global value of the same name.
    TriState<&C::horizontalScrollbar>(u"Horizontal Scrollbar", kByGlobal, u"Show the horizontal scroll bar."),
    TriState<&C::verticalScrollbar>(u"Vertical Scrollbar", kByGlobal, u"Show the vertical scroll bar."),
    TriState<&C::userButtonBar>(u"User Button Bar", kByGlobal, u"Show the bar of user buttons."),
    TriState<&C::showChatWindow>(u"Show Chat Window", kByGlobal, u"Show the window that sends typed text to one or all sessions."),

    // Texts that begin empty.
    String<&C::displayTabString>(u"Display Tab String", u"", u"What tabs are displayed as."),
    String<&C::keymapFilename>(u"Keymap Filename", u"", u"The user's key map file, for the key map Custom."),
    String<&C::terminalType>(u"Terminal Type", u"", u"Name of the terminal that the host is told."),
    String<&C::answerback>(u"Answerback", u"", u"Answer to the host's enquiry."),
    String<&C::userFontMap>(u"User Font Map", u"", u"File with the characters at the 256 places of the font, one hexadecimal number a line."),
    Rule<LoadFontMap>(u"The file of User Font Map is read."),
    String<&C::userLineDrawingMap>(u"User Line Drawing Map", u"", u"File with the characters at the 128 places of line drawing, in the same form."),
    Rule<LoadLineDrawingMap>(u"The file of User Line Drawing Map is read."),

    // Emulation, size and colours.
    String<&C::emulation>(u"Emulation", kUsualEmulation, u"The terminal that is emulated: a built-in one or a selected termcap entry."),
    LoadRule<EmulationIsKnown>(u"The emulation SCO-ANSI is now called SCOANSI; one that isn't offered becomes VT100."),
    Bool<&C::ansiColor>(u"ANSI Color", By<BeginsWithAnsiColors>(u"true for ANSI, Linux, SCOANSI and Nerith"), u"The host may set the colours of text."),
    String<&C::defaultScs>(u"Default SCS", u"B", u"Character set that the terminal begins with, by the letter that designates it."),
    Placement<&C::windowPlacement, DefaultPlacement>(u"Window Placement", u"Place and state of the session's window."),
    Int<&C::rows>(u"Rows", 24, u"Rows of the screen."),
    Int<&C::cols>(u"Cols", 80, u"Columns of the screen, at most the global Max Columns."),
    Int<&C::scrollback>(u"Scrollback", 500, u"Lines kept for scrolling back, at most the global Max Scrollback Buffer Size."),
    LoadRule<KeepSizeAsRead>(u"Rows and columns are remembered as they were read."),
    LoadRule<GlobalLimitsHold>(u"Cols and Scrollback are cut to the global Max Columns and Max Scrollback Buffer Size."),
    Int<&C::resizeMode>(u"Resize Mode", By<ResizeModeBefore>(u"2 in a store where both Sync View values are off, else 0"), u"What a new window size changes: 0 the screen's size, 1 the font, 2 neither."),
    Rule<ScaledFontMeansNoSync>(u"A font that scales excludes a view that follows: with Resize Mode 1 both Sync View values become false."),
    Int<&C::foreground>(u"Foreground", By<TextColor>(u"white for ANSI, else black"), u"Colour of text, 0x00BBGGRR."),
    Int<&C::background>(u"Background", By<GroundColor>(u"black for ANSI, else white"), u"Colour behind text, 0x00BBGGRR."),
    Int<&C::bold>(u"Bold", By<TextColor>(u"white for ANSI, else black"), u"Colour of bold text, 0x00BBGGRR."),
    String<&C::colorScheme>(u"Color Scheme", u"Monochrome", u"Name of the colour scheme."),

    // Fonts.
    String<&C::fontFamily>(u"Font Family", By<UsualFamily>(u"Terminal for ANSI, else Lucida Console"), u"Face of the font in older releases; the default of the fonts.", NeverSaved),
    Int<&C::fontSize>(u"Font Size", By<UsualSize>(u"12 for ANSI, else 13"), u"Height of the font in older releases, in pixels; the default of the fonts.", NeverSaved),
    Font<&C::normalFont>(u"Normal Font v2", By<UsualFont>(u"by Font Family and Font Size"), u"Font of the terminal.", Formerly{u"Normal Font"}),
    Font<&C::narrowFont>(u"Narrow Font v2", By<UsualFont>(u"by Font Family and Font Size"), u"Font of lines of 132 columns.", Formerly{u"Narrow Font"}),
    String<&C::outputTransformerName>(u"Output Transformer Name", u"Default", u"Conversion of what comes in to characters."),
    Bool<&C::useUnicodeLineDrawing>(u"Use Unicode Line Drawing", By<NeedsUnicodeLines>(u"true unless the fonts in use have line drawing glyphs of their own"), u"Draw lines with the characters that Unicode has for them."),

    // Cursor, keyboard and window.
    Int<&C::cursorStyle>(u"Cursor Style", 0, u"Shape of the cursor."),
    Int<&C::cursorColor>(u"Cursor Color", 0, u"Colour of the cursor, 0x00BBGGRR."),
    String<&C::keymapName>(u"Keymap Name", By<UsualKeymap>(u"VT220 for VT220, else Default"), u"The key map, one of the built-in ones or Custom."),
    Rule<KeymapNameIsCurrent>(u"The key map SCO-ANSI is now called SCOANSI."),
    Bool<&C::useAlternateKeyboard>(u"Use Alternate Keyboard", false, u"Keys are those of Keymap Name, instead of the emulation's own."),
    LoadRule<OtherKeymapIsAlternate>(u"Use Alternate Keyboard becomes true with the key map Custom, and where it was missing, with any but Default."),
    KeyBindings<&C::keymap>(u"Keymap v2", u"The user's own key bindings.", Formerly{u"Keymap"}),
    Int<&C::keypadMode>(u"Keypad Mode", 0, u"Mode in which the keypad begins: 0 numeric, 1 application."),
    Bool<&C::enable80132ColumnSwitching>(u"Enable 80-132 Column Switching", true, u"The host may switch between 80 and 132 columns.", DefaultFrom{u"Enable 80/132 Column Switching"}),
    Int<&C::xPosition>(u"X Position", 0, u"Place of the window in pixels, from the side that X Position Relative Left tells."),
    Int<&C::yPosition>(u"Y Position", 0, u"Place of the window in pixels, from the side that Y Position Relative Top tells."),
    String<&C::userButtonBarName>(u"User Button Bar Name", u"Default", u"Name of the bar of user buttons."),
};
// clang-format on

static_assert(NamesAreUnique(kRows));
static_assert(CountInTable(kRows) == 78);

} // namespace

const VSchema<TerminalConfig>& TerminalConfig::Schema()
{
    // Never destroyed: records may outlive the other statics, and their names are this object's.
    static const auto& schema = *new VSchema<TerminalConfig>(kRows);
    return schema;
}

} // namespace ostrand
