#include "platform/qt/desktop.h"

#include "platform/qt/text.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QIcon>
#include <QImageReader>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <memory>

namespace ostrand::qt {

void PlaySoundOf(const VUnicodeString& path)
{
    const QString file = ToQt(path);
    if (QFileInfo(file).isFile())
        for (const char* const player : {"pw-play", "paplay", "aplay"})
            if (const QString program = QStandardPaths::findExecutable(QLatin1String(player));
                !program.isEmpty() && QProcess::startDetached(program, {file}))
                return;
    QApplication::beep();
}

bool OpenAddressOf(const VUnicodeString& address)
{
    const QUrl url(ToQt(address), QUrl::StrictMode);
    return url.isValid() && !url.scheme().isEmpty() && QDesktopServices::openUrl(url);
}

bool StartProgramOf(const VUnicodeString& path, const VUnicodeString& arguments)
{
    return QProcess::startDetached(ToQt(path), QProcess::splitCommand(ToQt(arguments)));
}

unsigned CountIconsOf(const VUnicodeString& path)
{
    const QString name = ToQt(path);
    const QImageReader reader(name);
    if (reader.canRead())
        return static_cast<unsigned>(std::max(reader.imageCount(), 1));
    return QIcon::hasThemeIcon(name) || QFileInfo(name).isFile() ? 1 : 0;
}

VIconHandle LoadIconOf(const VUnicodeString& path, unsigned index)
{
    const QString name = ToQt(path);
    auto icon = std::make_unique<QIcon>();
    if (QIcon::hasThemeIcon(name)) {
        *icon = QIcon::fromTheme(name);
    } else if (QImageReader reader(name); reader.canRead()) {
        if (index > 0 && !reader.jumpToImage(static_cast<int>(index)))
            return 0;
        *icon = QIcon(QPixmap::fromImageReader(&reader));
    } else if (QFileInfo(name).isFile() && index == 0) {
        *icon = QFileIconProvider().icon(QFileInfo(name));
    }
    return icon->isNull() ? 0 : reinterpret_cast<VIconHandle>(icon.release());
}

void ReleaseIconOf(VIconHandle icon) { delete reinterpret_cast<QIcon*>(icon); }

} // namespace ostrand::qt
