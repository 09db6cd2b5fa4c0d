#include "dialogs/kit/property_tree_rows.h"

#include "dialogs/kit/property_page.h"

#include <algorithm>
#include <numeric>

namespace ostrand {

namespace {

using Pages = std::vector<VPropertyTreePage*>;

class RowMaker {
public:
    /// Without hits every visible page has its row.
    explicit RowMaker(const std::vector<VSearchHit>* hits) : m_hits(hits), m_inOrder(hits ? hits->size() : 0)
    {
        std::iota(m_inOrder.begin(), m_inOrder.end(), size_t{0});
        std::sort(m_inOrder.begin(), m_inOrder.end(),
                  [hits](size_t a, size_t b) { return (*hits)[a].order < (*hits)[b].order; });
    }

    void Add(const Pages& pages, int parent)
    {
        for (VPropertyTreePage* const page : pages)
            if (page->IsInVisibleTree())
                AddPage(*page, parent);
    }
    std::vector<VTreeRow> Take() { return std::move(m_rows); }

private:
    void AddPage(VPropertyTreePage& page, int parent)
    {
        const int row = static_cast<int>(m_rows.size());
        m_rows.push_back({&page, parent, -1, VTreeRow::Kind::Page, m_hits || page.IsExpanded(), page.GetTreeLabel()});
        const bool isFound = !m_hits || AddHits(page, row);
        Add(page.GetChildren(), row);
        if (isFound)
            return;
        if (row + 1 == static_cast<int>(m_rows.size()))
            m_rows.pop_back();
        else
            m_rows[static_cast<size_t>(row)].kind = VTreeRow::Kind::Branch;
    }
    bool AddHits(VPropertyTreePage& page, int row)
    {
        bool isAny = false;
        for (const size_t at : m_inOrder) {
            const VSearchHit& hit = (*m_hits)[at];
            if (hit.page != &page)
                continue;
            isAny = true;
            if (hit.control == 0)
                m_rows[static_cast<size_t>(row)].hit = static_cast<int>(at);
            else
                m_rows.push_back({&page, row, static_cast<int>(at), VTreeRow::Kind::Setting, false, hit.name});
        }
        return isAny;
    }

    const std::vector<VSearchHit>* m_hits;
    std::vector<size_t> m_inOrder; // indices of hits
    std::vector<VTreeRow> m_rows;
};

} // namespace

std::vector<VTreeRow> RowsOfPages(const Pages& pages)
{
    RowMaker maker(nullptr);
    maker.Add(pages, -1);
    return maker.Take();
}

std::vector<VTreeRow> RowsOfHits(const Pages& pages, const std::vector<VSearchHit>& hits)
{
    RowMaker maker(&hits);
    maker.Add(pages, -1);
    return maker.Take();
}

} // namespace ostrand
