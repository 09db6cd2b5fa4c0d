#include "dialogs/kit/property_tree.h"
#include "platform/qt/controls/makers.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/metrics.h"
#include "platform/qt/text.h"

#include <QLineEdit>
#include <QProxyStyle>
#include <QValidator>

#include <algorithm>

namespace ostrand::qt {

namespace {

constexpr int kUsualCharacters = 24;
constexpr int kUsualOfGrowing = 40;
constexpr int kFewestCharacters = 12; // of an edit that grows
constexpr int kNoLimit = 32767;       // Qt's own

/// Masks with "*", whatever the desktop's style would take.
class MaskStyle final : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        if (hint == SH_LineEdit_PasswordCharacter)
            return '*';
        if (hint == SH_LineEdit_PasswordMaskDelay)
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

/// Refuses what the control refuses, before it shows.
class Acceptance final : public QValidator {
public:
    Acceptance(const VEditControl& edit, QObject* parent) : QValidator(parent), m_edit(edit) {}

    State validate(QString& text, int&) const override
    {
        const auto characters = FromQt(text);
        return characters == m_edit.GetText().View() || m_edit.Accepts(characters) ? Acceptable : Invalid;
    }

private:
    const VEditControl& m_edit;
};

/// As wide as a number of characters of its font.
class LineEdit final : public QLineEdit {
public:
    LineEdit(QWidget* parent, int usual, int fewest) : QLineEdit(parent), m_usual(usual), m_fewest(fewest) {}

    QSize sizeHint() const override { return Sized(m_usual); }
    QSize minimumSizeHint() const override { return Sized(m_fewest); }
    void Widen(int characters)
    {
        m_usual = std::max(m_usual, characters);
        m_fewest = std::max(m_fewest, characters);
        updateGeometry();
    }

private:
    QSize Sized(int characters) const
    {
        QSize size = QLineEdit::sizeHint();
        const int frame = size.width() - 17 * fontMetrics().horizontalAdvance('x'); // the hint of Qt has 17 of them
        size.setWidth(CharactersWidth(*this, characters) + std::max(frame, 0));
        return size;
    }

    int m_usual;
    int m_fewest;
};

int UsualWidth(const VTemplateItem& item)
{
    return item.width > 0 ? item.width : item.Has(VItemFlag::Grow) ? kUsualOfGrowing : kUsualCharacters;
}

class EditWidget final : public ControlWidget {
public:
    EditWidget(FormWidget& form, size_t item)
        : ControlWidget(form, item),
          m_edit(new LineEdit(&form, UsualWidth(Item()),
                              Item().Has(VItemFlag::Grow) ? std::min(kFewestCharacters, UsualWidth(Item()))
                                                          : UsualWidth(Item())))
    {
        m_edit->setValidator(new Acceptance(ModelAs<VEditControl>(), m_edit));
        if (!Item().Has(VItemFlag::Grow))
            m_edit->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        if (dynamic_cast<const VPropertyTreeDialog*>(&form.Model()) &&
            Model().GetId() == VPropertyTreeDialog::SearchText)
            m_edit->setClearButtonEnabled(true);
        Watch(m_edit);
        connect(m_edit, &QLineEdit::textEdited, this, [this](const QString& text) {
            Act([this, &text](VUserInput& user) { return user.Type(Model().GetId(), FromQt(text)); });
            TellSelection();
        });
        connect(m_edit, &QLineEdit::selectionChanged, this, &EditWidget::TellSelection);
        connect(m_edit, &QLineEdit::cursorPositionChanged, this, &EditWidget::TellSelection);
    }

    ~EditWidget() override { m_edit->setValidator(nullptr); } // it asks the control, which may be gone

    QWidget* Widget() const override { return m_edit; }

protected:
    void Draw(VChange change) override
    {
        const auto& edit = ModelAs<VEditControl>();
        if (change == VChange::Text)
            DrawText(edit);
        else if (change == VChange::Selection && Shown() == edit.GetSelection())
            return;
        else if (change == VChange::Selection)
            Select(edit.GetSelection());
        else if (change == VChange::Enabled)
            m_edit->setReadOnly(edit.IsReadOnly());
        else if (change == VChange::Mask)
            DrawMask(edit);
        else if (change == VChange::Size && !edit.GetWidestText().IsEmpty())
            m_edit->Widen(static_cast<int>(edit.GetWidestText().GetLength()));
    }

private:
    void DrawText(const VEditControl& edit)
    {
        const int length = static_cast<int>(edit.GetText().GetLength());
        const int most = edit.GetMaxChars() > 0 ? static_cast<int>(edit.GetMaxChars()) : kNoLimit;
        m_edit->setMaxLength(std::max(most, length)); // code may set more than users may type
        if (FromQt(m_edit->text()) != edit.GetText().View())
            m_edit->setText(ToQt(edit.GetText()));
    }
    void DrawMask(const VEditControl& edit)
    {
        if (edit.IsMasked() && !m_hasMaskStyle) {
            auto* const style = new MaskStyle;
            style->setParent(m_edit);
            m_edit->setStyle(style);
            m_hasMaskStyle = true;
        }
        m_edit->setEchoMode(edit.IsMasked() ? QLineEdit::Password : QLineEdit::Normal);
    }
    void Select(const VEditControl::Range& range)
    {
        m_edit->setSelection(static_cast<int>(range.begin),
                             static_cast<int>(range.end) - static_cast<int>(range.begin));
        if (range.begin == range.end)
            m_edit->setCursorPosition(static_cast<int>(range.end));
    }
    VEditControl::Range Shown() const
    {
        const auto caret = static_cast<size_t>(m_edit->cursorPosition());
        if (!m_edit->hasSelectedText())
            return {caret, caret};
        const auto begin = static_cast<size_t>(m_edit->selectionStart());
        const auto end = static_cast<size_t>(m_edit->selectionEnd());
        return caret == begin ? VEditControl::Range{end, begin} : VEditControl::Range{begin, end};
    }
    void TellSelection()
    {
        const bool isCurrent = FromQt(m_edit->text()) == Model().GetText().View(); // else the text comes first
        if (m_edit->hasFocus() && isCurrent && Shown() != ModelAs<VEditControl>().GetSelection())
            Act([this](VUserInput& user) { return user.SelectText(Model().GetId(), Shown()); });
    }

    LineEdit* const m_edit;
    bool m_hasMaskStyle = false;
};

} // namespace

std::unique_ptr<ControlWidget> MakeEdit(FormWidget& form, size_t item)
{
    return std::make_unique<EditWidget>(form, item);
}

} // namespace ostrand::qt
