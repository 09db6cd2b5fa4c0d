// The rows that a page tree shows: all pages, or during a search what it has found.
#pragma once

#include "dialogs/kit/setting_search.h"

namespace ostrand {

struct VTreeRow {
    enum class Kind : uint8_t {
        Page,
        Branch, ///< a page that nothing was found on, with something below it
        Setting ///< a control that was found, below its page
    };

    VPropertyTreePage* page = nullptr;
    int parent = -1; ///< the row above it in the tree; -1 at the top
    int hit = -1;    ///< which hit it stands for, 0 the best; -1: none
    Kind kind = Kind::Page;
    bool isExpanded = true;
    VUnicodeString text;

    bool operator==(const VTreeRow&) const = default;
};

/// Visible pages, in the order of the tree.
std::vector<VTreeRow> RowsOfPages(const std::vector<VPropertyTreePage*>& pages);
/// Pages with hits, their hits, and the branches that lead there. Hits may come in any order.
std::vector<VTreeRow> RowsOfHits(const std::vector<VPropertyTreePage*>& pages, const std::vector<VSearchHit>& hits);

} // namespace ostrand
