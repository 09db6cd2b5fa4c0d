#include "platform/qt/controls/makers.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/text.h"

#include <QAbstractListModel>
#include <QComboBox>

namespace ostrand::qt {

namespace {

constexpr int kFewestCharacters = 10;

/// The entries as they stand in the control.
class Entries final : public QAbstractListModel {
public:
    Entries(const VListControl& list, QObject* parent) : QAbstractListModel(parent), m_list(&list) {}

    int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() || !m_list ? 0 : m_list->GetCount();
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        const bool isText = role == Qt::DisplayRole && index.row() < rowCount({});
        return isText ? ToQt((*m_list)[index.row()].text) : QVariant();
    }
    void Forget()
    {
        m_list = nullptr;
        Reset();
    }
    void Reset()
    {
        beginResetModel();
        endResetModel();
    }

private:
    const VListControl* m_list;
};

class DropListWidget final : public ControlWidget {
public:
    DropListWidget(FormWidget& form, size_t item)
        : ControlWidget(form, item),
          m_box(new QComboBox(&form)),
          m_entries(new Entries(ModelAs<VListControl>(), m_box))
    {
        m_box->setModel(m_entries);
        m_box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        m_box->setMinimumContentsLength(Item().width > 0 ? Item().width : kFewestCharacters);
        m_box->setFocusPolicy(Qt::StrongFocus); // a wheel that passes over it chooses nothing
        Watch(m_box);
        connect(m_box, &QComboBox::activated, this, [this](int index) {
            Act([this, index](VUserInput& user) { return user.ChooseEntry(Model().GetId(), index); });
        });
    }

    ~DropListWidget() override { m_entries->Forget(); } // Qt may still look, and the control is gone

    QWidget* Widget() const override { return m_box; }

protected:
    void Draw(VChange change) override
    {
        const auto& list = ModelAs<VListControl>();
        if (change == VChange::Items)
            m_entries->Reset();
        if (change == VChange::Items || change == VChange::Selection)
            m_box->setCurrentIndex(list.GetSelection());
        else if (change == VChange::Size && !list.GetWidestText().IsEmpty())
            m_box->setMinimumContentsLength(static_cast<int>(list.GetWidestText().GetLength()));
    }

private:
    QComboBox* const m_box;
    Entries* const m_entries;
};

} // namespace

std::unique_ptr<ControlWidget> MakeDropList(FormWidget& form, size_t item)
{
    return std::make_unique<DropListWidget>(form, item);
}

} // namespace ostrand::qt
