#include "dialogs/kit/property_tree.h"
#include "platform/qt/controls/makers.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/metrics.h"
#include "platform/qt/roomy_rows.h"
#include "platform/qt/text.h"

#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>

namespace ostrand::qt {

namespace {

constexpr int kFewestCharacters = 16;
constexpr int kUsualLines = 16;

/// As wide as its longest label.
class Tree final : public QTreeWidget {
public:
    explicit Tree(QWidget* parent) : QTreeWidget(parent)
    {
        setHeaderHidden(true);
        setUniformRowHeights(true);
        setEditTriggers(QAbstractItemView::NoEditTriggers);
        setItemDelegate(new RoomyRows(this));
    }

    QSize sizeHint() const override
    {
        int width = CharactersWidth(*this, kFewestCharacters);
        for (QTreeWidgetItemIterator item(const_cast<Tree*>(this)); *item; ++item)
            width =
                std::max(width, LevelOf(**item) * indentation() + fontMetrics().horizontalAdvance((*item)->text(0)));
        width += 2 * frameWidth() + verticalScrollBar()->sizeHint().width() + Gutter(*this);
        return {width, fontMetrics().lineSpacing() * kUsualLines};
    }
    QSize minimumSizeHint() const override
    {
        return {CharactersWidth(*this, kFewestCharacters), QTreeWidget::minimumSizeHint().height()};
    }

private:
    static int LevelOf(const QTreeWidgetItem& item)
    {
        int level = 1;
        for (const QTreeWidgetItem* above = item.parent(); above; above = above->parent())
            ++level;
        return level;
    }
};

/// A page in the tree, as it was when the tree was built.
struct Node {
    VPropertyTreePage* page;
    int parent; ///< index of a node, -1 for none
    VUnicodeString label;
    bool operator==(const Node&) const = default;
};

class PageTreeWidget final : public ControlWidget {
public:
    PageTreeWidget(FormWidget& form, size_t item)
        : ControlWidget(form, item),
          m_dialog(dynamic_cast<VPropertyTreeDialog*>(&form.Model())),
          m_tree(new Tree(&form))
    {
        Watch(m_tree);
        connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &PageTreeWidget::TellChoice);
        connect(m_tree, &QTreeWidget::itemExpanded, this, [this](auto* node) { TellExpansion(node, true); });
        connect(m_tree, &QTreeWidget::itemCollapsed, this, [this](auto* node) { TellExpansion(node, false); });
        TreeChanged();
    }

    QWidget* Widget() const override { return m_tree; }

    void TreeChanged() override
    {
        std::vector<Node> nodes;
        if (m_dialog)
            Collect(m_dialog->GetPages(), -1, nodes);
        const QSignalBlocker quiet(m_tree);
        if (nodes != m_nodes)
            Build(nodes);
        for (size_t i = 0; i < m_nodes.size(); ++i)
            m_items[i]->setExpanded(m_nodes[i].page->IsExpanded());
        ActivePageChanged();
    }

    void ActivePageChanged() override
    {
        const QSignalBlocker quiet(m_tree);
        QTreeWidgetItem* const active = ItemOf(m_dialog ? m_dialog->GetActivePage() : nullptr);
        m_tree->setCurrentItem(active);
        if (active)
            m_tree->scrollToItem(active);
    }

protected:
    VUnicodeString FallbackName() const override { return Translate(u"Pages"); }
    void Draw(VChange) override {}

private:
    static void Collect(const std::vector<VPropertyTreePage*>& pages, int parent, std::vector<Node>& nodes)
    {
        for (VPropertyTreePage* const page : pages) {
            if (!page->IsInVisibleTree())
                continue;
            nodes.push_back({page, parent, page->GetTreeLabel()});
            Collect(page->GetChildren(), static_cast<int>(nodes.size()) - 1, nodes);
        }
    }
    void Build(const std::vector<Node>& nodes)
    {
        m_tree->clear();
        m_items.clear();
        m_nodes = nodes;
        for (const Node& node : nodes) {
            const QStringList label(ToQt(node.label));
            m_items.push_back(node.parent < 0 ? new QTreeWidgetItem(m_tree, label)
                                              : new QTreeWidgetItem(m_items[static_cast<size_t>(node.parent)], label));
        }
        m_tree->updateGeometry();
    }
    QTreeWidgetItem* ItemOf(const VPropertyTreePage* page) const
    {
        const auto node = std::ranges::find(m_nodes, page, &Node::page);
        return node == m_nodes.end() ? nullptr : m_items[static_cast<size_t>(node - m_nodes.begin())];
    }
    VPropertyTreePage* PageOf(const QTreeWidgetItem* item) const
    {
        const auto at = std::ranges::find(m_items, item);
        return at == m_items.end() ? nullptr : m_nodes[static_cast<size_t>(at - m_items.begin())].page;
    }
    /// A page that may not be left keeps the selection, once Qt is through with changing it.
    void TellChoice()
    {
        const QList<QTreeWidgetItem*> chosen = m_tree->selectedItems();
        VPropertyTreePage* const page = chosen.isEmpty() ? nullptr : PageOf(chosen.front());
        if (page)
            Act([page](VUserInput& user) { return user.ChoosePage(*page); });
        if (page != m_dialog->GetActivePage())
            QTimer::singleShot(0, this, [this] { ActivePageChanged(); });
    }
    /// So does one that would go with the node it stands below.
    void TellExpansion(QTreeWidgetItem* item, bool isExpanded)
    {
        VPropertyTreePage* const page = PageOf(item);
        if (page)
            Act([this, page, isExpanded](VUserInput&) { return m_dialog->Expand(*page, isExpanded), true; });
        if (page && page->IsExpanded() != isExpanded)
            QTimer::singleShot(0, this, [this] { TreeChanged(); });
    }

    VPropertyTreeDialog* const m_dialog;
    Tree* const m_tree;
    std::vector<Node> m_nodes;
    std::vector<QTreeWidgetItem*> m_items; // one for each node
};

} // namespace

std::unique_ptr<ControlWidget> MakeTree(FormWidget& form, size_t item)
{
    return std::make_unique<PageTreeWidget>(form, item);
}

} // namespace ostrand::qt
