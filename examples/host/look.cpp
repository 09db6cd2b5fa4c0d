#include "examples/host/look.h"

#include <QApplication>
#include <QStyleFactory>
#include <QTemporaryFile>

namespace host {

namespace {

bool HasDisplay()
{
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    return false;
}

/// A screen in memory, the same everywhere, that has room for a dialog at this scale.
void UseScreenInMemory(double scale)
{
    static QTemporaryFile file; // until the end, when it is removed
    if (!file.open())
        return; // Qt's own screen then
    file.write(QStringLiteral(R"({"screens":[{"name":"memory","x":0,"y":0,"width":%1,"height":%2,)"
                              R"("logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})")
                   .arg(qRound(1600 * scale))
                   .arg(qRound(1000 * scale))
                   .toUtf8());
    file.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
    qputenv("QT_LOGGING_RULES", "default.warning=false"); // what such a screen lacks
}

} // namespace

bool ChooseScreen(const Arguments& arguments)
{
    if (!arguments.screenshot.empty() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        UseScreenInMemory(arguments.scale);
    qputenv("QT_SCALE_FACTOR", QByteArray::number(arguments.scale));
    return HasDisplay();
}

void ChooseColors(const Arguments& arguments)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (arguments.isDark)
        QApplication::setPalette(DarkPalette());
}

QPalette DarkPalette()
{
    QPalette palette(QColor(53, 54, 58), QColor(43, 44, 48));
    palette.setColor(QPalette::Base, QColor(32, 33, 36));
    palette.setColor(QPalette::Highlight, QColor(66, 133, 244));
    return palette;
}

} // namespace host
