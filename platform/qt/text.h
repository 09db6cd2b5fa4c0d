// Texts between the library and Qt, without loss: both count 16-bit units.
#pragma once

#include "core/strings.h"

#include <QString>

namespace ostrand::qt {

inline QString ToQt(std::u16string_view text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

/// Looks into the text, which must stay.
inline std::u16string_view FromQt(const QString& text)
{
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<size_t>(text.size())};
}

} // namespace ostrand::qt
