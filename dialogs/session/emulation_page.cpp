#include "dialogs/session/emulation_page.h"

#include "config/session/emulations.h"
#include "core/messages.h"
#include "core/native_path.h"
#include "core/paths/folders.h"
#include "dialogs/kit/number_text.h"

namespace ostrand {

namespace {

using P = SessionEmulationPage;
using enum P::Id;
using namespace layout;

// clang-format off
constexpr auto kPage = Page(u"Emulation\nEmulation",
    Group(u"&Emulation",
        Field(u"&Terminal:", DropList(Terminal, Also{u"emulate vt100 xterm linux type"})),
        Check(AnsiColor, u"&ANSI Color", Also{u"colour"}),
        Check(UseScheme, u"&Use color scheme", Also{u"colour"}),
        Check(OtherKeyboard, u"Select an alternate &keyboard emulation", Also{u"keys map"}),
        Row(DropList(Keyboard, Named{u"Keyboard"}, Also{u"keymap keys"}),
            layout::Edit(KeymapFile, Grow, Named{u"Keymap file"}),
            Button(Browse, u"...", Named{u"Browse for a keymap"}))),
    Group(u"&Size",
        Field(u"Logical &rows:", layout::Edit(Rows, DigitsOnly, Width{6}, Also{u"lines height"})),
        Field(u"Logical c&olumns:", layout::Edit(Columns, DigitsOnly, Width{6}, Also{u"width"}))),
    Group(u"O&n resize",
        Radio(Resize, Option(u"S&ynchronize view to size"), Option(u"Scale the &font"), Option(u"Retain si&ze and font"))),
    Group(u"Scrollback",
        Field(u"Scrollback &buffer:", layout::Edit(Scrollback, DigitsOnly, Width{8}, Also{u"history lines"}))));
// clang-format on

constexpr int kFewestRows = 5;
constexpr int kMostRows = 200;
constexpr int kFewestColumns = 20;
constexpr int kCustomKeymap = 0; ///< its place in KeymapNames

bool BringsAnsiColor(const VUnicodeString& emulation)
{
    return emulation.Find(u"ANSI") != VUnicodeString::npos || emulation == u"Linux";
}

} // namespace

SessionEmulationPage::SessionEmulationPage(SessionConfig& session, int maxColumns, int maxScrollback)
    : VPropertyTreePage(kPage),
      m_session(VUnknownPointer<SessionConfig>::Share(&session)),
      m_maxColumns(maxColumns),
      m_maxScrollback(maxScrollback),
      m_pickedKeyboard(session.terminal.keymapName),
      m_emulation(*this, Terminal, session.terminal.emulation),
      m_ansiColor(*this, AnsiColor, session.terminal.ansiColor),
      m_useScheme(*this, UseScheme, session.terminal.colorSchemeOverridesAnsiColor),
      m_otherKeyboard(*this, OtherKeyboard, session.terminal.useAlternateKeyboard),
      m_keyboard(*this, Keyboard, session.terminal.keymapName),
      m_keymapFile(*this, KeymapFile, session.terminal.keymapFilename),
      m_rows(*this, Rows, session.terminal.rows),
      m_columns(*this, Columns, session.terminal.cols),
      m_resize(*this, Resize, session.terminal.resizeMode),
      m_scrollback(*this, Scrollback, session.terminal.scrollback)
{
    On({Terminal}, VEventKind::SelectionChanged, &P::OnTerminal);
    On({Keyboard}, VEventKind::SelectionChanged, &P::OnKeyboard);
    On({AnsiColor}, VEventKind::Clicked, &P::EnableScheme);
    On({OtherKeyboard}, VEventKind::Clicked, &P::ShowKeyboard);
    On({Browse}, VEventKind::Clicked, &P::OnBrowse);
}

bool SessionEmulationPage::OnInitDialog()
{
    auto& terminals = At<VListControl>(Terminal);
    terminals.Clear();
    for (size_t i = 0; i < Emulations().GetCount(); ++i)
        terminals.Add(Emulations()[i].name, static_cast<int>(i));
    auto& keyboards = At<VListControl>(Keyboard);
    keyboards.Clear();
    for (size_t i = 0; i < KeymapNames().GetCount(); ++i)
        keyboards.Add(KeymapNames()[i], static_cast<int>(i));
    const bool wantsFocus = VPropertyTreePage::OnInitDialog();
    ShowKeyboard();
    EnableScheme();
    return wantsFocus;
}

void SessionEmulationPage::DoDataExchange(VDataExchange& dx)
{
    dx.ThenWrite([this] { WriteSizeAsRead(); }); // ahead of the size
    m_scrollback.Exchange(dx);
    DDV_Range(dx, Scrollback, m_scrollback, 0, m_maxScrollback);
    m_rows.Exchange(dx);
    DDV_Range(dx, Rows, m_rows, kFewestRows, kMostRows);
    m_columns.Exchange(dx);
    if (m_columns < kFewestColumns || m_columns > m_maxColumns)
        dx.Fail(Columns, kColumnsOutOfRange, NumberText(kFewestColumns), NumberText(m_maxColumns));
    CheckKeymapFile(dx);
    for (VBinding* const each : std::initializer_list<VBinding*>{&m_emulation, &m_ansiColor, &m_useScheme, &m_resize,
                                                                 &m_keyboard, &m_keymapFile, &m_otherKeyboard})
        each->Exchange(dx);
}

void SessionEmulationPage::WriteSizeAsRead()
{
    TerminalConfig& terminal = m_session->terminal;
    if (terminal.rowsAsRead != terminal.rows.value || terminal.colsAsRead != terminal.cols.value)
        return;
    terminal.rowsAsRead = m_rows;
    terminal.colsAsRead = m_columns;
}

/// A template is what is stored, and its expansion what must exist.
void SessionEmulationPage::CheckKeymapFile(VDataExchange& dx)
{
    if (!dx.Validating() || At<VListControl>(Keyboard).GetSelection() != kCustomKeymap)
        return;
    VUnicodeString file;
    VReportMessageParams report;
    if (!m_session->ExpandLogFileName(file, Control(KeymapFile).GetText(), report))
        dx.Fail(KeymapFile, report);
    else if (file.IsEmpty())
        dx.Fail(KeymapFile, kKeymapFileNameEmpty);
    else if (!IsFile(file))
        dx.Fail(KeymapFile, kKeymapFileNotFound);
}

void SessionEmulationPage::ShowKeyboard()
{
    auto& terminals = At<VListControl>(Terminal);
    auto& keyboards = At<VListControl>(Keyboard);
    if (terminals.GetSelection() < 0)
        terminals.Select(0);
    const bool isOther = At<VCheckControl>(OtherKeyboard).IsChecked();
    const int picked = isOther ? keyboards.Find(m_pickedKeyboard) : -1;
    keyboards.Select(picked >= 0 ? picked : Emulations()[static_cast<size_t>(terminals.GetSelection())].keymap);
    keyboards.Enable(isOther);
    for (const VControlId id : {KeymapFile, Browse})
        Control(id).Enable(isOther && keyboards.GetSelection() == kCustomKeymap);
}

void SessionEmulationPage::EnableScheme() { Control(UseScheme).Enable(At<VCheckControl>(AnsiColor).IsChecked()); }

void SessionEmulationPage::OnTerminal()
{
    At<VCheckControl>(AnsiColor).SetChecked(BringsAnsiColor(At<VListControl>(Terminal).GetSelectedText()));
    EnableScheme();
    ShowKeyboard();
}

void SessionEmulationPage::OnKeyboard()
{
    m_pickedKeyboard = At<VListControl>(Keyboard).GetSelectedText();
    ShowKeyboard();
}

void SessionEmulationPage::OnBrowse()
{
    OnBrowseHelper(*this, KeymapFile,
                   {.title = Translate(u"Select Keymap File"),
                    .path = Control(KeymapFile).GetText(),
                    .extension = u"*.key",
                    .filter = Translate(u"Keymap Files (*.key)|*.key|All Files (*.*)|*.*||")});
}

} // namespace ostrand
