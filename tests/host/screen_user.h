// A user in front of a real display: moves the mouse, types, and sees what a screen reader is told. Nothing here knows
// how the dialogs are built. Lives on a thread of its own, since dialogs keep the application's.
#pragma once

#include <QAccessible>
#include <QString>

#include <atomic>
#include <functional>

namespace ostrand::test {

/// What is expected and doesn't come within half a minute fails the test, and is told with its name.
class ScreenUser {
public:
    /// Something of the active window that a screen reader knows under this name.
    struct Thing {
        QAccessible::Role role;
        QString name;
    };

    /// The condition is asked on the application's thread.
    void Await(const QString& what, const std::function<bool()>& condition);
    void AwaitWindow(const QString& title);
    void Click(const Thing& thing);
    void Press(const QString& keys);
    void Type(const QString& text);

    void AwaitFocus(const Thing& thing);
    void AwaitText(const Thing& thing, const QString& text);
    void AwaitCheck(const Thing& thing, bool isChecked);

    std::atomic<bool> hasFailed = false;

private:
    void Fail(const QString& what);
    void Run(const QStringList& xdotool);
};

} // namespace ostrand::test
