#include "platform/qt/controls/makers.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/metrics.h"
#include "platform/qt/text.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QStyle>
#include <QStylePainter>

namespace ostrand::qt {

namespace {

/// Leaves the next state to the model, which answers a click.
class ModelledBox final : public QCheckBox {
public:
    explicit ModelledBox(QWidget* parent) : QCheckBox(parent) {}

protected:
    void nextCheckState() override {}
};

class QuietLabel final : public QLabel {
public:
    explicit QuietLabel(QWidget* parent) : QLabel(parent) {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QStylePainter painter(this);
        painter.setPen(QuietText(palette()));
        const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), alignment());
        painter.drawText(contentsRect(), static_cast<int>(side.toInt()), text());
    }
};

/// A box of three states stands beside the words of its third state.
class CheckWidget final : public ControlWidget {
public:
    CheckWidget(FormWidget& form, size_t item)
        : ControlWidget(form, item),
          m_whole(new QWidget(&form)),
          m_box(new ModelledBox(m_whole)),
          m_words(new QuietLabel(m_whole))
    {
        auto* const row = new QHBoxLayout(m_whole);
        row->setContentsMargins({});
        row->addWidget(m_box);
        row->addWidget(m_words);
        QSizePolicy policy = m_words->sizePolicy();
        policy.setRetainSizeWhenHidden(true); // so that nothing moves when the state changes
        m_words->setSizePolicy(policy);
        m_box->setTristate(ModelAs<VCheckControl>().IsThreeState());
        Watch(m_box);
        connect(m_box, &QCheckBox::clicked, this,
                [this] { Act([this](VUserInput& user) { return user.Click(Model().GetId()); }); });
    }

    QWidget* Widget() const override { return m_whole; }
    QWidget* FocusWidget() const override { return m_box; }

protected:
    void Draw(VChange change) override
    {
        const auto& box = ModelAs<VCheckControl>();
        if (change == VChange::Text) {
            m_box->setText(ToQt(box.GetText()));
        } else if (change == VChange::State || change == VChange::Label) {
            constexpr Qt::CheckState kStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
            m_box->setCheckState(kStates[static_cast<unsigned>(box.GetState())]);
            const bool isThird = box.GetState() == VTriState::Undetermined;
            m_words->setText(ToQt(box.GetThirdStateWords()));
            m_words->setVisible(isThird && !box.GetThirdStateWords().IsEmpty());
            const QString name = ToQt(box.GetName());
            m_box->setAccessibleName(m_words->isHidden() ? name : name + ", " + m_words->text());
        } else if (change == VChange::Size) {
            MakeRoomFor(ToQt(box.GetWidestText()), *m_box);
        }
    }

private:
    QWidget* const m_whole;
    ModelledBox* const m_box;
    QuietLabel* const m_words;
};

} // namespace

std::unique_ptr<ControlWidget> MakeCheck(FormWidget& form, size_t item)
{
    return std::make_unique<CheckWidget>(form, item);
}

} // namespace ostrand::qt
