// RadioWidget: a group of options as buttons, which the layout puts one below the other.
#pragma once

#include "platform/qt/control_widget.h"

#include <QRadioButton>

#include <vector>

namespace ostrand::qt {

class RadioWidget final : public ControlWidget {
public:
    RadioWidget(FormWidget& form, size_t item);

    QWidget* Widget() const override { return m_whole; }
    /// The chosen option, else the first one that can be chosen.
    QWidget* FocusWidget() const override;
    QRect MarkedArea() const override { return AreaOf(*FocusWidget()); }
    QRadioButton* ButtonOf(int option) const { return m_buttons[static_cast<size_t>(option)]; }

protected:
    void SetEnabled(bool isEnabled) override;
    void Draw(VChange change) override;

private:
    void Choose(int option);

    QWidget* const m_whole;
    std::vector<QRadioButton*> m_buttons;
};

} // namespace ostrand::qt
