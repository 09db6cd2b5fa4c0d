#include "dialogs/kit/report_control.h"
#include "platform/qt/controls/makers.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/metrics.h"
#include "platform/qt/roomy_rows.h"
#include "platform/qt/text.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QIcon>
#include <QTreeView>

#include <numeric>

namespace ostrand::qt {

namespace {

constexpr int kUsualLines = 6;
constexpr int kFewestCharacters = 16;

/// Rows and columns as they stand in the control.
class Rows final : public QAbstractTableModel {
public:
    Rows(const VReportControl& report, const FormWidget& form, QObject* parent)
        : QAbstractTableModel(parent),
          m_report(report),
          m_form(form)
    {
    }

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_report.GetCount(); }
    int columnCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_report.GetColumns().size());
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (index.row() >= m_report.GetCount())
            return {};
        const VReportControl::Row& row = m_report[index.row()];
        if (role == Qt::DecorationRole && index.column() == 0)
            return ImageOf(row);
        const auto column = static_cast<size_t>(index.column());
        if ((role != Qt::DisplayRole && role != Qt::ToolTipRole) || column >= row.cells.size())
            return {};
        return ToQt(row.cells[column]);
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return {};
        return ToQt(m_report.GetColumns()[static_cast<size_t>(section)].heading);
    }
    void Reset()
    {
        beginResetModel();
        endResetModel();
    }

private:
    QVariant ImageOf(const VReportControl::Row& row) const
    {
        const auto* const images = reinterpret_cast<const QList<QIcon>*>(m_form.Model().Services().SessionImages());
        return images && row.image >= 0 && row.image < images->size() ? (*images)[row.image] : QVariant();
    }

    const VReportControl& m_report;
    const FormWidget& m_form;
};

/// As high as a number of its rows, as wide as its columns; one that grows may also be narrower.
class ReportView final : public QTreeView {
public:
    ReportView(QWidget* parent, const VTemplateItem& item)
        : QTreeView(parent),
          m_lines(item.lines > 0 ? item.lines : kUsualLines),
          m_grows(item.Has(VItemFlag::Grow))
    {
    }

    QSize sizeHint() const override
    {
        const int row = fontMetrics().height() * 3 / 2;
        const int heading = isHeaderHidden() ? 0 : header()->sizeHint().height();
        return {m_width + 2 * frameWidth(), row * m_lines + heading + 2 * frameWidth()};
    }
    QSize minimumSizeHint() const override
    {
        const QSize hint = sizeHint();
        return m_grows ? QSize(CharactersWidth(*this, kFewestCharacters), hint.height() / 2) : hint;
    }
    void SetContentWidth(int width)
    {
        m_width = width;
        updateGeometry();
    }

private:
    const int m_lines;
    const bool m_grows;
    int m_width = 0;
};

class ReportWidget final : public ControlWidget {
public:
    ReportWidget(FormWidget& form, size_t item)
        : ControlWidget(form, item),
          m_view(new ReportView(&form, Item())),
          m_rows(new Rows(ModelAs<VReportControl>(), form, m_view))
    {
        m_view->setModel(m_rows);
        m_view->setItemDelegate(new RoomyRows(m_view));
        m_view->setRootIsDecorated(false);
        m_view->setUniformRowHeights(true);
        m_view->setAllColumnsShowFocus(true);
        m_view->setHeaderHidden(Item().Has(VItemFlag::NoHeadings));
        m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
        m_view->setSelectionMode(Item().Has(VItemFlag::MultiSelect) ? QAbstractItemView::ExtendedSelection
                                                                    : QAbstractItemView::SingleSelection);
        m_view->setSizePolicy(QSizePolicy::Expanding,
                              Item().Has(VItemFlag::Grow) ? QSizePolicy::Expanding : QSizePolicy::Fixed);
        Watch(m_view);
        connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ReportWidget::TellSelection);
        connect(m_view, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
            const int row = index.row();
            Act([this, row](VUserInput& user) { return user.DoubleClick(Model().GetId(), row); });
        });
    }

    ~ReportWidget() override { m_view->setModel(nullptr); } // Qt may still lay the view out, and the control is gone

    QWidget* Widget() const override { return m_view; }

protected:
    VUnicodeString FallbackName() const override
    {
        const auto& columns = ModelAs<VReportControl>().GetColumns();
        return columns.empty() ? VUnicodeString() : columns.front().heading;
    }
    void Draw(VChange change) override
    {
        if (change == VChange::Items) {
            m_isDrawing = true;
            m_rows->Reset();
            m_isDrawing = false;
        }
        if (change == VChange::Items || change == VChange::Size)
            DrawColumns();
        if (change == VChange::Items || change == VChange::Selection)
            DrawSelection();
    }

private:
    void DrawColumns()
    {
        int width = 0;
        const auto& columns = ModelAs<VReportControl>().GetColumns();
        for (size_t i = 0; i < columns.size(); ++i) {
            const int column = TemplatePixels(*m_view, columns[i].width);
            if (i + 1 < columns.size()) // the last one takes what is left
                m_view->header()->resizeSection(static_cast<int>(i), column);
            width += column;
        }
        m_view->SetContentWidth(width);
    }
    void DrawSelection()
    {
        const auto& report = ModelAs<VReportControl>();
        QItemSelection selection;
        for (int row = 0; row < report.GetCount(); ++row)
            if (report[row].isSelected)
                selection.select(m_rows->index(row, 0), m_rows->index(row, 0));
        m_isDrawing = true;
        QItemSelectionModel& chosen = *m_view->selectionModel();
        chosen.select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        const QModelIndex first = m_rows->index(report.GetSelected(), 0);
        if (first.isValid() && !chosen.isRowSelected(chosen.currentIndex().row()))
            chosen.setCurrentIndex(first, QItemSelectionModel::NoUpdate);
        if (first.isValid())
            m_view->scrollTo(chosen.currentIndex());
        m_isDrawing = false;
    }
    void TellSelection()
    {
        if (m_isDrawing)
            return;
        std::vector<int> rows;
        for (const QModelIndex& index : m_view->selectionModel()->selectedRows())
            rows.push_back(index.row());
        Act([this, &rows](VUserInput& user) { return user.SelectRows(Model().GetId(), rows); });
    }

    ReportView* const m_view;
    Rows* const m_rows;
    bool m_isDrawing = false;
};

} // namespace

std::unique_ptr<ControlWidget> MakeReport(FormWidget& form, size_t item)
{
    return std::make_unique<ReportWidget>(form, item);
}

} // namespace ostrand::qt
