#include "dialogs/kit/property_tree.h"
#include "platform/qt/controls/makers.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/mark_layer.h"
#include "platform/qt/metrics.h"
#include "platform/qt/roomy_rows.h"
#include "platform/qt/text.h"

#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>

namespace ostrand::qt {

namespace {

constexpr int kUsualCharacters = 30;
constexpr int kFewestCharacters = 16;
constexpr int kMostAtLeast = 24; // that it keeps for its labels where the window is narrow
constexpr int kUsualLines = 16;
constexpr int kKindRole = Qt::UserRole;
constexpr int kBestRole = Qt::UserRole + 1;

/// What is only on the way to a hit is quiet, a setting stands out from the pages by its frame, the best hit is bold.
class PageRows final : public RoomyRows {
public:
    using RoomyRows::RoomyRows;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        RoomyRows::initStyleOption(option, index);
        const auto kind = index.data(kKindRole).value<VTreeRow::Kind>();
        if (kind == VTreeRow::Kind::Branch)
            option->palette.setColor(QPalette::Text, QuietText(option->palette));
        if (index.data(kBestRole).toBool()) {
            option->font.setBold(true);
            option->fontMetrics = QFontMetrics(option->font);
        }
        if (kind == VTreeRow::Kind::Setting) {
            const int height = option->fontMetrics.ascent();
            option->icon = FoundIcon(*option, height);
            option->decorationSize = QSize(height, height);
            option->features |= QStyleOptionViewItem::HasDecoration;
        }
    }

private:
    static QIcon FoundIcon(const QStyleOptionViewItem& option, int height)
    {
        const qreal density = option.widget->devicePixelRatioF();
        QPixmap pixmap(QSize(height, height) * density);
        pixmap.setDevicePixelRatio(density);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        QPalette palette = option.palette;
        if (option.state.testFlag(QStyle::State_Selected)) {
            palette.setColor(QPalette::Window, option.palette.color(QPalette::Highlight));
            palette.setColor(QPalette::Highlight, option.palette.color(QPalette::HighlightedText));
        }
        PaintFound(painter, QRectF(0, height * 0.2, height, height * 0.6), palette, height);
        return pixmap;
    }
};

/// As wide as its longest label.
class Tree final : public QTreeWidget {
public:
    explicit Tree(QWidget* parent) : QTreeWidget(parent)
    {
        setHeaderHidden(true);
        setUniformRowHeights(true);
        setEditTriggers(QAbstractItemView::NoEditTriggers);
        setItemDelegate(new PageRows(this));
    }

    QSize sizeHint() const override
    {
        return {std::max(m_width, CharactersWidth(*this, kUsualCharacters)), fontMetrics().lineSpacing() * kUsualLines};
    }
    QSize minimumSizeHint() const override
    {
        const int most = CharactersWidth(*this, kMostAtLeast);
        return {std::max(std::min(m_width, most), CharactersWidth(*this, kFewestCharacters)),
                QTreeWidget::minimumSizeHint().height()};
    }

    /// To the rows that it has now.
    void FitWidth()
    {
        m_width = 0;
        for (QTreeWidgetItemIterator item(this); *item; ++item)
            m_width =
                std::max(m_width, LevelOf(**item) * indentation() + fontMetrics().horizontalAdvance((*item)->text(0)));
        m_width += 2 * frameWidth() + verticalScrollBar()->sizeHint().width() + Gutter(*this);
        updateGeometry();
    }

private:
    static int LevelOf(const QTreeWidgetItem& item)
    {
        int level = 1;
        for (const QTreeWidgetItem* above = item.parent(); above; above = above->parent())
            ++level;
        return level;
    }

    int m_width = 0;
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
        connect(m_tree, &QTreeWidget::itemDoubleClicked, this, &PageTreeWidget::TellOpened);
        TreeChanged();
    }

    QWidget* Widget() const override { return m_tree; }

    void TreeChanged() override
    {
        const std::vector<VTreeRow> rows = m_dialog ? m_dialog->GetTreeRows() : std::vector<VTreeRow>();
        const QSignalBlocker quiet(m_tree);
        const bool isSame = std::ranges::equal(rows, m_rows, [](VTreeRow a, const VTreeRow& b) {
            a.isExpanded = b.isExpanded;
            return a == b;
        });
        m_rows = rows;
        if (!isSame)
            Build();
        for (size_t i = 0; i < m_rows.size(); ++i)
            m_items[i]->setExpanded(m_rows[i].isExpanded);
        const bool isSearching = m_dialog && m_dialog->IsSearching();
        m_tree->setItemsExpandable(!isSearching);
        TellHitCount(isSearching);
        ActivePageChanged();
    }

    void ActivePageChanged() override
    {
        const QSignalBlocker quiet(m_tree);
        const int row = m_dialog ? m_dialog->GetSelectedRow() : -1;
        const bool isShown = row >= 0 && row < static_cast<int>(m_items.size()); // else TreeChanged is still to come
        QTreeWidgetItem* const selected = isShown ? m_items[static_cast<size_t>(row)] : nullptr;
        m_tree->setCurrentItem(selected);
        if (selected)
            m_tree->scrollToItem(selected);
    }

protected:
    VUnicodeString FallbackName() const override { return Translate(u"Pages"); }
    void Draw(VChange) override {}

private:
    void Build()
    {
        m_tree->clear();
        m_items.clear();
        for (const VTreeRow& row : m_rows) {
            const QStringList text(ToQt(row.text));
            m_items.push_back(row.parent < 0 ? new QTreeWidgetItem(m_tree, text)
                                             : new QTreeWidgetItem(m_items[static_cast<size_t>(row.parent)], text));
            QTreeWidgetItem& item = *m_items.back();
            item.setData(0, kKindRole, QVariant::fromValue(row.kind));
            item.setData(0, kBestRole, row.hit == 0);
            if (row.kind == VTreeRow::Kind::Setting)
                item.setToolTip(0, text.front()); // it may be longer than the tree is wide
        }
        if (m_dialog && !m_dialog->IsSearching())
            m_tree->FitWidth();
    }
    /// Who can't see the count hears it where the words are typed.
    void TellHitCount(bool isSearching)
    {
        const ControlWidget* const words = Form().OfId(VPropertyTreeDialog::SearchText);
        const VUnicodeString count =
            isSearching ? m_dialog->Control(VPropertyTreeDialog::HitCount).GetText() : VUnicodeString();
        if (words)
            words->FocusWidget()->setAccessibleDescription(ToQt(count));
    }
    int RowOf(const QTreeWidgetItem* item) const
    {
        const auto at = std::ranges::find(m_items, item);
        return at == m_items.end() ? -1 : static_cast<int>(at - m_items.begin());
    }
    /// A page that may not be left keeps the selection, once Qt is through with changing it.
    void TellChoice()
    {
        const QList<QTreeWidgetItem*> chosen = m_tree->selectedItems();
        const int row = chosen.isEmpty() ? -1 : RowOf(chosen.front());
        Act([row](VUserInput& user) { return user.ChooseTreeRow(row); });
        if (row != m_dialog->GetSelectedRow())
            QTimer::singleShot(0, this, [this] { ActivePageChanged(); });
    }
    /// So does one that would go with the node it stands below.
    void TellExpansion(QTreeWidgetItem* item, bool isExpanded)
    {
        const int row = RowOf(item);
        if (row < 0)
            return;
        VPropertyTreePage& page = *m_rows[static_cast<size_t>(row)].page;
        Act([this, &page, isExpanded](VUserInput&) { return m_dialog->Expand(page, isExpanded), true; });
        if (page.IsExpanded() != isExpanded)
            QTimer::singleShot(0, this, [this] { TreeChanged(); });
    }
    void TellOpened(const QTreeWidgetItem* item)
    {
        if (m_dialog->IsSearching())
            Act([row = RowOf(item)](VUserInput& user) { return user.OpenTreeRow(row); });
    }

    VPropertyTreeDialog* const m_dialog;
    Tree* const m_tree;
    std::vector<VTreeRow> m_rows;
    std::vector<QTreeWidgetItem*> m_items; // one for each row
};

} // namespace

std::unique_ptr<ControlWidget> MakeTree(FormWidget& form, size_t item)
{
    return std::make_unique<PageTreeWidget>(form, item);
}

} // namespace ostrand::qt
