// DialogWindow: a dialog's window, and the loop that runs it.
#pragma once

#include "dialogs/kit/property_tree.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/qt_view.h"

#include <QDialog>
#include <QEventLoop>

namespace ostrand::qt {

class DialogWindow final : public QDialog, public IViewHost {
public:
    /// Shows a dialog that has been opened. `sizes` is borrowed.
    DialogWindow(VDialog& dialog, IWindowSizes& sizes, QWidget* parent);
    ~DialogWindow() override;

    /// Comes back when the dialog no longer runs.
    void Run();
    /// The halves of Run around its loop.
    void Appear();
    void Disappear();
    FormWidget& Contents() { return *m_form; }

    // IViewHost
    bool Do(const std::function<bool()>& act) override;
    QWidget* HostWindow() override { return this; }
    void FollowFocusLater() override;
    void ShowTitle() override;
    void Finish() override;

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Guard(const std::function<bool()>& act);
    bool HandleKey(QKeyEvent& event);
    void AfterEvent();
    void FollowFocus();
    void RestoreSize();
    /// Texts that break their lines need a height that depends on the width.
    void FitHeight();
    void KeepOnScreen();
    std::string SizeName() const;

    VDialog& m_dialog;
    VPropertyTreeDialog* const m_tree; // the same, where it has a tree of pages
    IWindowSizes& m_sizes;
    FormWidget* m_form;
    QEventLoop m_loop;
    QSize m_least; // of what it shows
};

} // namespace ostrand::qt
