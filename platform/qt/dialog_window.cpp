#include "platform/qt/dialog_window.h"

#include "core/trace.h"
#include "platform/qt/keys.h"
#include "platform/qt/metrics.h"
#include "platform/qt/text.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <typeinfo>
#include <utility>

namespace ostrand::qt {

DialogWindow::DialogWindow(VDialog& dialog, IWindowSizes& sizes, QWidget* parent)
    : QDialog(parent),
      m_dialog(dialog),
      m_tree(dynamic_cast<VPropertyTreeDialog*>(&dialog)),
      m_sizes(sizes),
      m_form(new FormWidget(dialog, *this, FormWidget::Margins::Window, this))
{
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setModal(true);
    setSizeGripEnabled(false);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addWidget(m_form);
    ShowTitle();
    RestoreSize();
}

DialogWindow::~DialogWindow()
{
    const QSize content = size();
    m_sizes.Save(SizeName(), {content.width(), content.height()});
}

void DialogWindow::Run()
{
    Appear();
    if (m_dialog.IsRunning())
        m_loop.exec();
    Disappear();
}

void DialogWindow::Appear()
{
    qApp->installEventFilter(this); // keys come to the dialog before they come to any widget
    FollowFocus();                  // else Qt gives the focus to whatever comes first
    show();
    FollowFocus();
    QTimer::singleShot(0, this, &DialogWindow::AfterEvent);
}

void DialogWindow::Disappear()
{
    qApp->removeEventFilter(this);
    m_form->Detach();
    hide();
    if (m_dialog.IsRunning()) // the application quits
        m_dialog.EndDialog(kResultCancel);
}

// Sizes

std::string DialogWindow::SizeName() const { return typeid(m_dialog).name(); }

void DialogWindow::RestoreSize()
{
    VWindowSize size;
    QSize wanted = sizeHint();
    if (m_sizes.Load(SizeName(), size))
        wanted = QSize(size.width, size.height);
    else if (layout()->hasHeightForWidth())
        wanted.setHeight(layout()->totalHeightForWidth(wanted.width()));
    resize(wanted.expandedTo(minimumSizeHint()).boundedTo(screen()->availableSize()));
    FitHeight();
}

void DialogWindow::FitHeight()
{
    const QLayout& whole = *layout();
    const int fitting = whole.hasHeightForWidth() ? whole.totalMinimumHeightForWidth(width()) : 0;
    setMinimumHeight(std::max(whole.totalMinimumSize().height(), fitting));
}

/// For a window that has grown with what it shows.
void DialogWindow::KeepOnScreen()
{
    const QRect screenArea = screen()->availableGeometry();
    const QRect frame = frameGeometry();
    const QPoint beyond(std::max(0, frame.right() - screenArea.right()),
                        std::max(0, frame.bottom() - screenArea.bottom()));
    const QPoint corner(std::max(frame.left() - beyond.x(), screenArea.left()),
                        std::max(frame.top() - beyond.y(), screenArea.top()));
    if (!beyond.isNull())
        move(corner);
}

// Host

bool DialogWindow::Do(const std::function<bool()>& act)
{
    const bool isDone = Guard(act);
    QTimer::singleShot(0, this, &DialogWindow::AfterEvent);
    return isDone;
}

bool DialogWindow::Guard(const std::function<bool()>& act)
{
    try {
        return act();
    } catch (const std::exception& fault) {
        VUnicodeString what;
        FromUtf8(fault.what(), what);
        VTrace(u"A handler of the dialog '%1' failed: %2\n", m_dialog.GetTitle(), what);
    } catch (...) { // ranges of containers, which are no std::exception
        VTrace(u"A handler of the dialog '%1' failed.\n", m_dialog.GetTitle());
    }
    return false;
}

void DialogWindow::AfterEvent()
{
    if (!m_dialog.IsRunning())
        return;
    if (m_dialog.HasPosted())
        Do([this] { return m_dialog.RunPosted(), true; });
}

void DialogWindow::FollowFocusLater() { QTimer::singleShot(0, this, &DialogWindow::FollowFocus); }

void DialogWindow::FollowFocus()
{
    const VFocusTarget focus = m_dialog.GetFocusTarget();
    auto* const form = focus.form ? dynamic_cast<FormWidget*>(focus.form->GetView()) : nullptr;
    if (ControlWidget* const control = form ? form->OfId(focus.control) : nullptr)
        control->TakeFocus();
}

void DialogWindow::ShowTitle() { setWindowTitle(ToQt(m_dialog.GetTitle())); }

void DialogWindow::Finish() { m_loop.quit(); }

// Events

bool DialogWindow::event(QEvent* event)
{
    const bool isHandled = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize)
        FitHeight();
    if (event->type() == QEvent::LayoutRequest && std::exchange(m_least, minimumSize()) != minimumSize())
        KeepOnScreen();
    return isHandled;
}

void DialogWindow::closeEvent(QCloseEvent* event)
{
    event->ignore(); // the dialog decides
    reject();
}

void DialogWindow::reject()
{
    Do([this] { return m_dialog.End(kResultCancel), true; });
}

bool DialogWindow::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease ||
                       event->type() == QEvent::ShortcutOverride;
    if (!isKey || !watched->isWidgetType() || static_cast<QWidget*>(watched)->window() != this)
        return QDialog::eventFilter(watched, event);
    QKeyEvent& key = *static_cast<QKeyEvent*>(event);
    const QWidget* const focused = focusWidget();
    if (focused && watched != focused) // on its way up, after the focused widget has left it
        return false;
    if (event->type() != QEvent::ShortcutOverride)
        return HandleKey(key);
    if (HoldsAlt(key))
        key.accept(); // marked letters are the dialog's, so that they mean the same under every toolkit
    return false;
}

bool DialogWindow::HandleKey(QKeyEvent& event)
{
    if (m_tree && event.type() == QEvent::KeyPress && event.matches(QKeySequence::Find))
        return Do([this] { return m_tree->StartSearch(), true; });
    const VKeyEvent key = ToKeyEvent(event);
    bool isTaken = false;
    Do([this, &key, &isTaken] { return isTaken = m_dialog.HandleKey(key); });
    return isTaken;
}

} // namespace ostrand::qt
