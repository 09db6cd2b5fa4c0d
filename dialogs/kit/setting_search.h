// Finds settings by what users call them: labels, groups, names of values, what the schema says of them, synonyms.
// Forgives one slip of the keys in words of four letters, two in words of eight.
#pragma once

#include "dialogs/kit/control.h"

#include <vector>

namespace ostrand {

class VPropertyTreePage;

struct VSearchHit {
    VPropertyTreePage* page = nullptr;
    VControlId control = 0;
    int score = 0;
    size_t order = 0;    ///< among all hits of a search, as the tree and the pages have them
    VUnicodeString text; ///< "Terminal > Emulation: Rows"
};

/// Adds the page's controls that every word fits, in the order of the page. `words` are parted by blanks.
OSTRAND_API void SearchPage(VPropertyTreePage& page, std::u16string_view words, std::vector<VSearchHit>& hits);

} // namespace ostrand
