#include "dialogs/session/log_file_page.h"

#include "core/messages.h"

namespace ostrand {

namespace {

using enum SessionLogFilePage::Id;
using namespace layout;

// clang-format off
constexpr auto kPage = Page(u"Log File",
    Group(u"&Log file name",
        Row(Edit(FileName, Grow, Also{u"path record capture logging"}),
            Button(Browse, u"...", Named{u"Browse for the log file"}))),
    Group(u"Options",
        Check(Prompt, u"&Prompt for filename", Also{u"ask"}),
        Check(StartOnConnect, u"&Start log upon connect", Also{u"automatically record"}),
        Check(Raw, u"&Raw log", Also{u"escape binary"}),
        Check(NewAtMidnight, u"Start &new log at midnight (must use %D in log file name)", Also{u"daily rotate"}),
        Radio(Mode, Option(u"&Overwrite file"), Option(u"&Append to file"))),
    Group(u"Custom log data",
        Field(u"&Upon connect:", Edit(OnConnect, MaxChars{256}, Grow, Also{u"message"})),
        Field(u"Upon &disconnect:", Edit(OnDisconnect, MaxChars{256}, Grow, Also{u"message"})),
        Field(u"On &each line:", Edit(OnEachLine, MaxChars{256}, Grow, Also{u"timestamp prefix"})),
        Check(OnlyCustom, u"Lo&g only custom data")),
    Group(u"Log file name and custom log data substitutions",
        Row(Column(Label(u"%H - hostname"), Label(u"%S - session name"), Label(u"%M - 2-digit month")),
            Column(Label(u"%D - 2-digit day"), Label(u"%h - 2-digit hour"), Label(u"See Help for more")))));
// clang-format on

bool IsBlank(const VUnicodeString& text) { return text.Trimmed().IsEmpty(); }

} // namespace

SessionLogFilePage::SessionLogFilePage(SessionValues& session)
    : VPropertyTreePage(kPage),
      m_fileName(*this, FileName, session.logFilename),
      m_prompt(*this, Prompt, session.logPrompt),
      m_startOnConnect(*this, StartOnConnect, session.startLogUponConnect),
      m_raw(*this, Raw, session.rawLog),
      m_newAtMidnight(*this, NewAtMidnight, session.newLogFileAtMidnight),
      m_appends(*this, Mode, session.logMode),
      m_onConnect(*this, OnConnect, session.customLogMessageConnect),
      m_onDisconnect(*this, OnDisconnect, session.customLogMessageDisconnect),
      m_onEachLine(*this, OnEachLine, session.customLogMessageEachLine),
      m_onlyCustom(*this, OnlyCustom, session.logOnlyCustom)
{
    On({Browse}, VEventKind::Clicked, &SessionLogFilePage::OnBrowse);
    On({OnConnect, OnDisconnect, OnEachLine}, VEventKind::TextChanged, &SessionLogFilePage::EnableOnlyCustom);
}

bool SessionLogFilePage::OnInitDialog()
{
    const bool wantsFocus = VPropertyTreePage::OnInitDialog();
    EnableOnlyCustom();
    return wantsFocus;
}

void SessionLogFilePage::DoDataExchange(VDataExchange& dx)
{
    VPropertyTreePage::DoDataExchange(dx);
    // The template itself must name the day: tokens are resolved when the log is opened.
    if (m_newAtMidnight && m_fileName.Get().Find(u"%D") == VUnicodeString::npos)
        dx.Fail(FileName, kMidnightLogNeedsDay);
    for (VEdited<VUnicodeString>* const text : {&m_onConnect, &m_onDisconnect, &m_onEachLine})
        if (IsBlank(*text))
            *text = VUnicodeString();
}

void SessionLogFilePage::EnableOnlyCustom()
{
    UpdateData(VDataExchange::Peek);
    const bool hasCustom =
        !m_onConnect.Get().IsEmpty() || !m_onDisconnect.Get().IsEmpty() || !m_onEachLine.Get().IsEmpty();
    At<VCheckControl>(OnlyCustom).Enable(hasCustom);
    if (!hasCustom)
        At<VCheckControl>(OnlyCustom).SetChecked(false);
}

void SessionLogFilePage::OnBrowse()
{
    OnBrowseHelper(*this, FileName,
                   {.title = Translate(u"Select Log File"),
                    .path = u"session.log",
                    .extension = u"*.log",
                    .filter = Translate(u"Log Files (*.log)|*.log|All Files (*.*)|*.*||"),
                    .isSave = true});
}

} // namespace ostrand
