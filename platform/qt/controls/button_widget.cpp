#include "platform/qt/controls/makers.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/icons.h"
#include "platform/qt/metrics.h"
#include "platform/qt/text.h"

#include <QPushButton>

#include <algorithm>

namespace ostrand::qt {

namespace {

/// Words have a common least width, so that buttons look alike; "..." and pictures are as narrow as they can be.
class PushButton final : public QPushButton {
public:
    explicit PushButton(QWidget* parent) : QPushButton(parent) {}

    QSize sizeHint() const override
    {
        QSize hint = QPushButton::sizeHint();
        const QString shown = text();
        const bool isWord = std::any_of(shown.begin(), shown.end(), [](QChar c) { return c.isLetterOrNumber(); });
        const int tight = fontMetrics().horizontalAdvance(shown) + CharactersWidth(*this, 3);
        hint.setWidth(isWord ? std::max(hint.width(), CharactersWidth(*this, kWordWidth))
                             : std::max(hint.height(), tight));
        return hint;
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    static constexpr int kWordWidth = 12; // characters, with what is around them
};

class ButtonWidget final : public ControlWidget {
public:
    ButtonWidget(FormWidget& form, size_t item) : ControlWidget(form, item), m_button(new PushButton(&form))
    {
        m_button->setAutoDefault(false); // the dialog decides which button Return presses
        Watch(m_button);
        connect(m_button, &QPushButton::clicked, this,
                [this] { Act([this](VUserInput& user) { return user.Click(Model().GetId()); }); });
    }

    QWidget* Widget() const override { return m_button; }

protected:
    void Draw(VChange change) override
    {
        const QString text = ToQt(Model().GetText());
        if (change == VChange::Text && Item().icon == VIcon::None) {
            m_button->setText(text);
        } else if (change == VChange::Text) {
            m_button->setIcon(StandardIcon(Item().icon, m_button));
            m_button->setToolTip(ToQt(WithoutMark(Model().GetText())));
        } else if (change == VChange::State) {
            m_button->setDefault(ModelAs<VButtonControl>().IsDefault());
        } else if (change == VChange::Size) {
            MakeRoomFor(ToQt(Model().GetWidestText()), *m_button);
        }
    }

private:
    PushButton* const m_button;
};

} // namespace

std::unique_ptr<ControlWidget> MakeButton(FormWidget& form, size_t item)
{
    return std::make_unique<ButtonWidget>(form, item);
}

} // namespace ostrand::qt
