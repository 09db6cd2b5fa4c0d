#include "platform/qt/icons.h"

#include <QApplication>
#include <QStyle>

#include <algorithm>
#include <array>

namespace ostrand::qt {

namespace {

struct Picture {
    VIcon icon;
    QStyle::StandardPixmap pixmap;
};
constexpr std::array kPictures = {
    Picture{VIcon::Error, QStyle::SP_MessageBoxCritical},
    Picture{VIcon::Question, QStyle::SP_MessageBoxQuestion},
    Picture{VIcon::Warning, QStyle::SP_MessageBoxWarning},
    Picture{VIcon::Information, QStyle::SP_MessageBoxInformation},
    Picture{VIcon::Up, QStyle::SP_ArrowUp},
    Picture{VIcon::Down, QStyle::SP_ArrowDown},
    Picture{VIcon::Play, QStyle::SP_MediaPlay},
};

} // namespace

QIcon StandardIcon(VIcon icon, const QWidget* widget)
{
    const auto* const found = std::ranges::find(kPictures, icon, &Picture::icon);
    return found == kPictures.end() ? QIcon() : QApplication::style()->standardIcon(found->pixmap, nullptr, widget);
}

} // namespace ostrand::qt
