#include "tests/host/screen_user.h"

#include <QApplication>
#include <QProcess>
#include <QWidget>

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace ostrand::test {

namespace {

QString TextOf(QAccessibleInterface& thing)
{
    return thing.textInterface() ? thing.textInterface()->text(0, thing.textInterface()->characterCount())
                                 : thing.text(QAccessible::Value);
}

/// Lists of choices have their choice for a name under X, and are known by the label that goes with them.
QString NameOf(const QAccessibleInterface& thing)
{
    for (const auto& [label, relation] : thing.relations(QAccessible::Label))
        if (thing.role() == QAccessible::ComboBox && label)
            return label->text(QAccessible::Name).remove(QLatin1Char(':'));
    return thing.text(QAccessible::Name);
}

QAccessibleInterface* FindBelow(QAccessibleInterface* root, const ScreenUser::Thing& thing)
{
    if (!root || root->state().invisible)
        return nullptr;
    if (root->role() == thing.role && NameOf(*root) == thing.name)
        return root;
    for (int i = 0; i < root->childCount(); ++i)
        if (QAccessibleInterface* const found = FindBelow(root->child(i), thing))
            return found;
    return nullptr;
}

void Describe(QAccessibleInterface* thing, QString& out)
{
    if (!thing || thing->state().invisible)
        return;
    if (const QString name = NameOf(*thing); !name.isEmpty())
        out += QStringLiteral("\n  role %1 '%2' = '%3'%4")
                   .arg(int(thing->role()))
                   .arg(name, TextOf(*thing), QLatin1String(thing->state().focused ? ", focused" : ""));
    for (int i = 0; i < thing->childCount(); ++i)
        Describe(thing->child(i), out);
}

/// A list that a box has opened comes before the window below it.
QWidgetList ActiveWindows()
{
    QWidgetList windows{QApplication::activePopupWidget(), QApplication::activeWindow()};
    windows.removeAll(nullptr);
    return windows;
}

QAccessibleInterface* Find(const ScreenUser::Thing& thing)
{
    for (QWidget* const window : ActiveWindows())
        if (QAccessibleInterface* const found = FindBelow(QAccessible::queryAccessibleInterface(window), thing))
            return found;
    return nullptr;
}

/// What a function finds on the application's thread.
template <class F>
auto OfApplication(const F& look)
{
    decltype(look()) found{};
    QMetaObject::invokeMethod(qApp, [&] { found = look(); }, Qt::BlockingQueuedConnection);
    return found;
}

} // namespace

void ScreenUser::Fail(const QString& what)
{
    if (hasFailed.exchange(true))
        return;
    const QString seen = OfApplication([] {
        QString all;
        for (QWidget* const window : ActiveWindows())
            Describe(QAccessible::queryAccessibleInterface(window), all);
        return all;
    });
    ADD_FAILURE() << what.toStdString() << "; on the screen:" << seen.toStdString();
}

void ScreenUser::Await(const QString& what, const std::function<bool()>& condition)
{
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 30s;
    while (!hasFailed && !OfApplication(condition)) {
        if (std::chrono::steady_clock::now() > end)
            return Fail("waited in vain for " + what);
        std::this_thread::sleep_for(5ms);
    }
}

void ScreenUser::AwaitWindow(const QString& title)
{
    Await(title, [&] {
        const QWidget* const window = QApplication::activeWindow();
        return window && window->windowTitle() == title;
    });
}

void ScreenUser::Click(const Thing& thing)
{
    QRect place;
    constexpr int kLooks = 10; // a window that the window manager still moves is no aim
    int same = 0;
    Await(thing.name + " in its place", [&] {
        QAccessibleInterface* const found = Find(thing);
        same = found && found->rect() == place ? same + 1 : 0;
        place = found ? found->rect() : QRect();
        return same == kLooks;
    });
    const bool isBox = thing.role == QAccessible::CheckBox; // which doesn't go beyond its text
    const int x = isBox ? place.left() + place.height() / 2 : place.center().x();
    Run({"mousemove", "--sync", QString::number(x), QString::number(place.center().y()), "click", "1"});
}

void ScreenUser::Press(const QString& keys) { Run({"key", "--clearmodifiers", keys}); }

void ScreenUser::Type(const QString& text) { Run({"type", "--clearmodifiers", text}); }

void ScreenUser::AwaitFocus(const Thing& thing)
{
    Await("the focus in " + thing.name, [&] {
        QAccessibleInterface* const found = Find(thing);
        return found && found->state().focused;
    });
}

void ScreenUser::AwaitText(const Thing& thing, const QString& text)
{
    Await("'" + text + "' in " + thing.name, [&] {
        QAccessibleInterface* const found = Find(thing);
        return found && TextOf(*found) == text;
    });
}

void ScreenUser::AwaitCheck(const Thing& thing, bool isChecked)
{
    Await(thing.name + (isChecked ? " set" : " clear"), [&] {
        QAccessibleInterface* const found = Find(thing);
        return found && found->state().checked == isChecked;
    });
}

void ScreenUser::Run(const QStringList& xdotool)
{
    if (hasFailed)
        return;
    QProcess process;
    process.start("xdotool", xdotool);
    if (!process.waitForFinished() || process.exitCode() != 0)
        Fail("xdotool: " + process.errorString() + " " + process.readAllStandardError());
}

} // namespace ostrand::test
