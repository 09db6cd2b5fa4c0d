// How the desktop looks to a test: font, colours, direction, language. Put back at the end.
#pragma once

#include "dialogs/kit/translate.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

#include <string>

namespace ostrand::test {

inline QPalette DarkPalette()
{
    QPalette palette(QColor(53, 54, 58), QColor(43, 44, 48));
    palette.setColor(QPalette::Base, QColor(32, 33, 36));
    palette.setColor(QPalette::Highlight, QColor(66, 133, 244));
    return palette;
}

/// Each letter of a text stays, and words of a usual length follow.
inline VUnicodeString PseudoText(std::u16string_view text)
{
    std::u16string longer(text);
    for (size_t more = (text.size() * 4 + 9) / 10; more > 0; --more)
        longer += more % 9 == 8 ? u' ' : u'\u00FC';
    return VUnicodeString(longer);
}

class Look {
public:
    struct Of {
        const char* name = "plain";
        double scale = 1;
        bool isDark = false;
        bool isPseudo = false;
        Qt::LayoutDirection direction = Qt::LeftToRight;
    };

    explicit Look(const Of& of)
    {
        QFont font = m_font;
        font.setPointSizeF(m_font.pointSizeF() * of.scale);
        QApplication::setFont(font);
        if (of.isDark)
            QApplication::setPalette(DarkPalette());
        QApplication::setLayoutDirection(of.direction);
        SetTextHook(of.isPseudo ? PseudoText : nullptr);
    }
    ~Look()
    {
        QApplication::setFont(m_font);
        QApplication::setPalette(m_palette);
        QApplication::setLayoutDirection(Qt::LeftToRight);
        SetTextHook(nullptr);
    }
    Look(const Look&) = delete;
    Look& operator=(const Look&) = delete;

private:
    const QFont m_font = QApplication::font();
    const QPalette m_palette = QApplication::palette();
};

inline constexpr Look::Of kLooks[] = {
    {"light"},
    {.name = "dark", .isDark = true},
    {.name = "double", .scale = 2},
    {.name = "pseudo", .isPseudo = true},
    {.name = "pseudo-triple-dark", .scale = 3, .isDark = true, .isPseudo = true},
    {.name = "right-to-left", .direction = Qt::RightToLeft},
};

} // namespace ostrand::test
