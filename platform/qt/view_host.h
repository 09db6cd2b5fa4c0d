// What the widgets of a form want of the window that they stand in.
#pragma once

#include <QWidget>

#include <functional>

namespace ostrand::qt {

class IViewHost {
public:
    /// Runs what a user does. An exception of a handler is traced and counts as refused. Tasks that were posted follow
    /// after the present event.
    virtual bool Do(const std::function<bool()>& act) = 0;
    virtual QWidget* HostWindow() = 0;
    /// Qt's focus follows the form's, after the present event.
    virtual void FollowFocusLater() = 0;
    virtual void ShowTitle() = 0;
    virtual void Finish() = 0;

    /// While the model is being drawn, Qt may move its focus away from widgets that are hidden or disabled. That is no
    /// user's doing.
    bool IsDrawing() const { return m_drawing > 0; }

protected:
    ~IViewHost() = default;

private:
    friend class DrawingScope;
    int m_drawing = 0;
};

class DrawingScope {
public:
    explicit DrawingScope(IViewHost& host) : m_host(host) { ++m_host.m_drawing; }
    ~DrawingScope() { --m_host.m_drawing; }
    DrawingScope(const DrawingScope&) = delete;
    DrawingScope& operator=(const DrawingScope&) = delete;

private:
    IViewHost& m_host;
};

} // namespace ostrand::qt
