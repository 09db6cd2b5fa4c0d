// A dialog on the screen, without a loop of its own: a test plays the user by Qt's events.
//
// With OSTRAND_PICTURES=FOLDER in the environment, Save leaves pictures for the eye.
#pragma once

#include "platform/qt/dialog_window.h"
#include "platform/qt/qt_services.h"
#include "platform/qt/text.h"

#include <QApplication>
#include <QDir>

namespace ostrand::test {

class ShownDialog {
public:
    explicit ShownDialog(VDialog& dialog, IWindowSizes* sizes = nullptr)
        : m_dialog(Opened(dialog)),
          window(m_dialog, sizes ? *sizes : m_sizes, nullptr)
    {
        window.Appear();
        Settle();
    }
    ~ShownDialog()
    {
        window.Disappear();
        m_dialog.Close();
    }

    static void Settle()
    {
        for (int i = 0; i < 5; ++i)
            QApplication::processEvents();
    }
    /// What shows the control of a form.
    template <class W = QWidget>
    W& Of(VForm& form, VControlId id)
    {
        return dynamic_cast<W&>(*dynamic_cast<qt::FormWidget&>(*form.GetView()).OfId(id)->FocusWidget());
    }
    void Save(const QString& name) { Save(window, name); }
    static void Save(QWidget& widget, const QString& name)
    {
        Settle();
        if (const QString folder = qEnvironmentVariable("OSTRAND_PICTURES"); !folder.isEmpty())
            widget.grab().save(QDir(folder).filePath(name + QStringLiteral(".png")));
    }

private:
    static VDialog& Opened(VDialog& dialog)
    {
        dialog.Open();
        return dialog;
    }

    VDialog& m_dialog;
    qt::RememberedSizes m_sizes;

public:
    qt::DialogWindow window;
};

} // namespace ostrand::test
