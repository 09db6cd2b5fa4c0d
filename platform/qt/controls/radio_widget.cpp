#include "platform/qt/controls/radio_widget.h"

#include "platform/qt/controls/makers.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/text.h"

#include <QButtonGroup>

#include <algorithm>

namespace ostrand::qt {

RadioWidget::RadioWidget(FormWidget& form, size_t item) : ControlWidget(form, item), m_whole(new QWidget(&form))
{
    auto* const group = new QButtonGroup(m_whole);
    for (const VRadioControl::Option& option : ModelAs<VRadioControl>().GetOptions()) {
        auto* const button = new QRadioButton(ToQt(option.text), m_whole);
        group->addButton(button, static_cast<int>(m_buttons.size()));
        Watch(button);
        m_buttons.push_back(button);
    }
    connect(group, &QButtonGroup::idClicked, this, &RadioWidget::Choose);
}

void RadioWidget::Choose(int option)
{
    Act([this, option](VUserInput& user) { return user.ChooseOption(Model().GetId(), option); });
}

QWidget* RadioWidget::FocusWidget() const
{
    const auto find = [this](auto wanted) { return std::find_if(m_buttons.begin(), m_buttons.end(), wanted); };
    auto found = find([](const QRadioButton* button) { return button->isChecked(); });
    if (found == m_buttons.end())
        found = find([](const QRadioButton* button) { return button->isEnabled(); });
    return found == m_buttons.end() ? m_whole : *found;
}

void RadioWidget::SetEnabled(bool isEnabled)
{
    const auto& options = ModelAs<VRadioControl>().GetOptions();
    for (size_t i = 0; i < m_buttons.size(); ++i)
        m_buttons[i]->setEnabled(isEnabled && options[i].isEnabled);
}

void RadioWidget::Draw(VChange change)
{
    if (change == VChange::Options)
        SetEnabled(Model().IsEnabled());
    if (change != VChange::State || m_buttons.empty())
        return;
    const int index = ModelAs<VRadioControl>().GetIndex();
    QButtonGroup& group = *m_buttons.front()->group();
    group.setExclusive(index >= 0); // none can be chosen in a group that is exclusive
    for (size_t i = 0; i < m_buttons.size(); ++i)
        m_buttons[i]->setChecked(static_cast<int>(i) == index);
    group.setExclusive(true);
}

std::unique_ptr<ControlWidget> MakeRadio(FormWidget& form, size_t item)
{
    return std::make_unique<RadioWidget>(form, item);
}

} // namespace ostrand::qt
