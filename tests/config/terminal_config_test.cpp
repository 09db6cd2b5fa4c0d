// What the terminal's record makes of a session's values, and of those of the global record.
#include "config/session/terminal_config.h"

#include "keymap/key_index.h"
#include "tests/config/global_scene.h"
#include "tests/support/memory_files.h"
#include "tests/support/recording_router.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A session's key, whatever its name; with "Nerith" and without a global record where nothing else is said.
class SessionKey : public GlobalStore {
public:
    using GlobalStore::GlobalStore;
    TerminalConfig Read(const GlobalConfig* global = nullptr, bool hasNerith = true)
    {
        return TerminalConfig(Key(), hasNerith, global);
    }
};

VUnicodeString Text(const char16_t* text) { return text; }

TEST(TerminalConfig, AnEmulationThatIsNotOfferedBecomesVt100)
{
    const ConfigPointer global = Read(nullptr);
    for (const char16_t* entry : {u"my-term", u"Nerith", u"SCO-ANSI"})
        global->selectedTermcapEntries.Append(entry);
    const struct {
        const char16_t* stored;
        bool hasNerith;
        bool hasTermcap;
        const char16_t* read;
        bool ansiColor;
    } cases[] = {
        {u"ANSI", true, false, u"ANSI", true},       {u"Linux", true, false, u"Linux", true},
        {u"SCOANSI", true, false, u"SCOANSI", true}, {u"SCO-ANSI", true, true, u"SCOANSI", true},
        {u"Nerith", true, false, u"Nerith", true},   {u"Nerith", false, false, u"VT100", false},
        {u"Nerith", false, true, u"Nerith", false},  {u"WYSE50", true, false, u"WYSE50", false},
        {u"Wyse50", true, false, u"VT100", false},   {u"ansi", true, true, u"VT100", false},
        {u"my-term", true, true, u"my-term", false}, {u"my-term", true, false, u"VT100", false},
        {u"My-Term", true, true, u"VT100", false},   {u"", true, true, u"VT100", false},
        {u"VT102", false, false, u"VT102", false},   {u"VT100", true, true, u"VT100", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(ToUtf8(c.stored));
        SessionKey session({{u"Emulation", Text(c.stored)}});
        const TerminalConfig terminal = session.Read(c.hasTermcap ? global.Get() : nullptr, c.hasNerith);
        EXPECT_EQ(terminal.emulation, c.read);
        EXPECT_EQ(terminal.emulation.saved, c.stored) << "the next save corrects the store";
        EXPECT_FALSE(terminal.emulation.dirty);
        EXPECT_EQ(terminal.ansiColor, c.ansiColor);
        EXPECT_TRUE(terminal.ansiColor.dirty);
        const bool isAnsi = terminal.emulation == u"ANSI"; // alone, though others begin with ANSI colours
        EXPECT_EQ(terminal.foreground, isAnsi ? 0xFFFFFF : 0);
        EXPECT_EQ(terminal.background, isAnsi ? 0 : 0xFFFFFF);
        EXPECT_EQ(terminal.bold, terminal.foreground);
        EXPECT_EQ(terminal.normalFont.Value(), isAnsi ? VLogFont(12, u"Terminal") : VLogFont(13, u"Lucida Console"));
    }
}

TEST(TerminalConfig, GlobalLimitsCutAndLendTheirFlag)
{
    for (const bool isPending : {false, true}) {
        const ConfigPointer global = Read(nullptr);
        global->maxColumns.dirty = isPending;
        global->maxScrollbackBufferSize.dirty = !isPending;
        SessionKey session({{u"Rows", 1000u}, {u"Cols", 257u}, {u"Scrollback", 128001u}});
        TerminalConfig terminal = session.Read(global.Get());
        EXPECT_EQ(terminal.cols, 256);
        EXPECT_EQ(terminal.cols.dirty, isPending);
        EXPECT_EQ(terminal.cols.saved, 257);
        EXPECT_EQ(terminal.scrollback, 128000);
        EXPECT_EQ(terminal.scrollback.dirty, !isPending);
        EXPECT_EQ(terminal.rowsAsRead, 1000);
        EXPECT_EQ(terminal.colsAsRead, 257);
        terminal.Save(session.Key(), false);
        EXPECT_EQ(session.Get(u"Cols"), StoreValue(256u)) << "under its own name, with either flag";
        EXPECT_EQ(session.Get(u"Scrollback"), StoreValue(128000u));
        EXPECT_EQ(session.Get(u"Max Columns"), std::nullopt);

        EXPECT_FALSE(session.Read(global.Get()).cols.IsModified()) << "at the limit";
    }
    SessionKey session({{u"Cols", 5000u}});
    EXPECT_EQ(session.Read().cols, 5000) << "nothing to compare with";
}

TEST(TerminalConfig, ResizeModeAndTheViewThatFollows)
{
    const struct {
        std::optional<unsigned> stored;
        unsigned rows, cols;
        int mode;
        bool rowsFollow, colsFollow;
    } cases[] = {
        {{}, 0, 0, 2, false, false}, {{}, 0, 1, 0, false, true},  {{}, 1, 0, 0, true, false},
        {0u, 0, 0, 0, false, false}, {1u, 1, 1, 1, false, false}, {2u, 1, 1, 2, true, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        SessionKey session({{u"Sync View Rows", c.rows}, {u"Sync View Cols", c.cols}});
        if (c.stored)
            session.Put(u"Resize Mode", *c.stored);
        const TerminalConfig terminal = session.Read();
        EXPECT_EQ(terminal.resizeMode, c.mode);
        EXPECT_EQ(terminal.resizeMode.dirty, !c.stored);
        EXPECT_FALSE(terminal.resizeMode.IsModified());
        EXPECT_EQ(terminal.syncViewRows, c.rowsFollow);
        EXPECT_EQ(terminal.syncViewCols, c.colsFollow);
        EXPECT_EQ(terminal.syncViewRows.saved, c.rows != 0) << "the rule changes the current value alone";
    }
}

TEST(TerminalConfig, AnotherKeymapThanTheDefaultIsAnAlternateKeyboard)
{
    const struct {
        const char16_t* emulation;
        const char16_t* keymap; // null: not stored
        std::optional<unsigned> stored;
        const char16_t* keymapRead;
        bool isAlternate;
    } cases[] = {
        {u"VT100", nullptr, {}, u"Default", false},     {u"VT220", nullptr, {}, u"VT220", true},
        {u"VT220", nullptr, 0u, u"VT220", false},       {u"VT220", u"Default", {}, u"Default", false},
        {u"ANSI", nullptr, {}, u"Default", false},      {u"VT100", u"Linux", {}, u"Linux", true},
        {u"VT100", u"Linux", 0u, u"Linux", false},      {u"VT100", u"Linux", 1u, u"Linux", true},
        {u"VT100", u"default", {}, u"default", false},  {u"VT100", u"CUSTOM", 0u, u"CUSTOM", true},
        {u"VT100", u"SCO-ANSI", 0u, u"SCOANSI", false}, {u"VT100", u"Default", 1u, u"Default", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        SessionKey session({{u"Emulation", Text(c.emulation)}});
        if (c.keymap)
            session.Put(u"Keymap Name", Text(c.keymap));
        if (c.stored)
            session.Put(u"Use Alternate Keyboard", *c.stored);
        const TerminalConfig terminal = session.Read();
        EXPECT_EQ(terminal.keymapName, c.keymapRead);
        EXPECT_EQ(terminal.useAlternateKeyboard, c.isAlternate);
        EXPECT_EQ(terminal.useAlternateKeyboard.saved, c.stored.value_or(0) != 0);
        EXPECT_EQ(terminal.useAlternateKeyboard.dirty, !c.stored);
    }
}

TEST(TerminalConfig, TheOlderNameOfColumnSwitchingIsTheDefault)
{
    SessionKey session({{u"Enable 80/132 Column Switching", 0u}});
    TerminalConfig terminal = session.Read();
    EXPECT_FALSE(terminal.enable80132ColumnSwitching);
    EXPECT_FALSE(terminal.enable80132ColumnSwitching.IsModified());
    terminal.Save(session.Key(), false);
    EXPECT_EQ(session.Get(u"Enable 80-132 Column Switching"), StoreValue(0u));
    session.Put(u"Enable 80/132 Column Switching", 1u);
    EXPECT_FALSE(session.Read().enable80132ColumnSwitching);
}

TEST(TerminalConfig, FontsBeginAsTheOlderFamilyAndSize)
{
    const std::u16string longName(40, u'x');
    SessionKey session({{u"Font Family", VUnicodeString(longName)}, {u"Font Size", 0x80000000u}});
    TerminalConfig terminal = session.Read();
    EXPECT_EQ(terminal.normalFont.GetFace(), longName.substr(0, 32));
    EXPECT_EQ(terminal.normalFont.weight, 400);
    EXPECT_EQ(terminal.narrowFont.Value(), terminal.normalFont.Value());
    terminal.Save(session.Key(), true);
    EXPECT_EQ(session.Get(u"Font Size"), StoreValue(0x80000000u)) << "left as it is";
    EXPECT_EQ(terminal.FindMember(u"Font Size"), nullptr);

    // The narrow font begins as the normal one's default, not as the normal font itself.
    SessionKey stored({{u"Emulation", Text(u"ANSI")}, {u"Normal Font", StoreBlock(64, 'A')}});
    const TerminalConfig later = stored.Read();
    EXPECT_EQ(later.normalFont.GetFace(), std::u16string(32, u'A'));
    EXPECT_FALSE(later.normalFont.dirty) << "the older form is honoured";
    EXPECT_EQ(later.narrowFont.Value(), VLogFont(12, u"Terminal"));
}

TEST(TerminalConfig, UnicodeLineDrawingNeedsAFontWithoutGlyphsOfItsOwn)
{
    const struct {
        const char16_t* normal;
        const char16_t* narrow;
        unsigned usesNarrow;
        bool drawsLines;
    } cases[] = {
        {u"Terminal", u"Courier", 0, false},  {u"Terminal", u"Courier", 1, true}, {u"Courier", u"Terminal", 1, true},
        {u"vt100 small", u"vt100", 1, false}, {u"VT100", u"vt100", 0, true},      {u"Terminal 2", u"vt100", 0, true},
        {u"a vt100", u"vt100", 0, true},      {u"terminal", u"vt100", 0, true},   {u"vt10", u"vt100", 0, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        const auto block = [](const char16_t* face) {
            StoreBlock bytes(VLogFont::kStoredSize);
            VLogFont(10, face).Pack(std::span<uint8_t, VLogFont::kStoredSize>(bytes));
            return bytes;
        };
        SessionKey session({{u"Normal Font v2", block(c.normal)},
                            {u"Narrow Font v2", block(c.narrow)},
                            {u"Use Narrow Font", c.usesNarrow}});
        EXPECT_EQ(session.Read().useUnicodeLineDrawing, c.drawsLines);
    }
}

TEST(TerminalConfig, MapsAreReadAlongAndAFailureStopsNothing)
{
    FakePlatform platform;
    MemoryFiles files;
    Platform().files = &files;
    platform.environment.variables["MAPS"] = "/maps";
    files.contents["/maps/font"] = "41\n42";
    RecordingRouter router;
    SessionKey session({{u"User Font Map", Text(u"%MAPS%\\font")}, {u"User Line Drawing Map", Text(u"/maps/gone")}});
    const TerminalConfig terminal = session.Read();
    ASSERT_EQ(terminal.fontMap.size(), kFontMapSize);
    EXPECT_EQ(terminal.fontMap[1], 0x42);
    EXPECT_THAT(terminal.lineDrawingMap, IsEmpty());
    ASSERT_EQ(router.messages.size(), 1u);
    EXPECT_THAT(router.messages[0].arguments, ElementsAre(u"/maps/gone"));
    EXPECT_EQ(terminal.userFontMap, u"%MAPS%\\font") << "the template stays";
    EXPECT_EQ(terminal.userButtonBarName, u"Default") << "the rest is read as usual";

    files.contents["/maps/gone"] = "2500\n";
    const TerminalConfig again = session.Read();
    ASSERT_EQ(again.lineDrawingMap.size(), kLineDrawingMapSize);
    EXPECT_EQ(again.lineDrawingMap[0], 0x2500);
}

TEST(TerminalConfig, ACopyIsWholeAndCopyValueCarriesChangesAlone)
{
    SessionKey session({{u"Cursor Key Mode", 1u}, {u"Line Wrap", 0u}, {u"Newline Mode", 1u}, {u"Keypad Mode", 1u}});
    TerminalConfig terminal = session.Read();
    EXPECT_TRUE(terminal.currentCursorKeyMode && !terminal.currentLineWrap && terminal.currentNewlineMode);
    EXPECT_EQ(terminal.currentKeypadMode, 1);
    terminal.currentKeypadMode = 0;
    terminal.rows = 50;
    terminal.fontMap.assign(kFontMapSize, 7);
    terminal.keymap.SetFunction(kControlHeld | 'K', 3);

    TerminalConfig copy = terminal;
    EXPECT_EQ(copy.currentKeypadMode, 0);
    EXPECT_EQ(copy.rows.saved, 24);
    EXPECT_TRUE(copy.rows.dirty && !copy.lineWrap.dirty);
    EXPECT_EQ(copy.rowsAsRead, 24);
    EXPECT_EQ(copy.fontMap, terminal.fontMap);
    EXPECT_EQ(copy.keymap.GetFunction(kControlHeld | 'K'), 3u);
    EXPECT_TRUE(copy.keymap.IsModified());

    TerminalConfig other(nullptr, true, nullptr);
    other.cols = 100;
    other.CopyValue(copy);
    EXPECT_EQ(other.rows, 50);
    EXPECT_EQ(other.cols, 100);
    EXPECT_TRUE(other.lineWrap) << "not changed in the source";
    EXPECT_EQ(other.keymap.GetFunction(kControlHeld | 'K'), 3u);
}

} // namespace
} // namespace ostrand::test
