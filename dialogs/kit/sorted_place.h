// Where a text goes in a list that is kept in order.
#pragma once

#include "core/fold.h"
#include "core/strings.h"

namespace ostrand {

/// By folded case, then exact.
inline bool ComesAfter(const VUnicodeString& a, const VUnicodeString& b)
{
    const int order = CompareNoCase(a, b);
    return order != 0 ? order > 0 : a.View() > b.View();
}

/// From the end upward past greater texts, so that entries that stand out of order stay where they are, above. `textAt`
/// gives the text of an index below `count`.
template <class TextAt>
size_t SortedPlace(const VUnicodeString& text, size_t count, const TextAt& textAt)
{
    while (count > 0 && ComesAfter(textAt(count - 1), text))
        --count;
    return count;
}

} // namespace ostrand
