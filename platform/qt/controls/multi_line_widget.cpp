#include "platform/qt/controls/makers.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/metrics.h"
#include "platform/qt/text.h"

#include <QPlainTextEdit>
#include <QStyle>

namespace ostrand::qt {

namespace {

constexpr int kUsualLines = 4;
constexpr int kFewestCharacters = 30;

/// As high as a number of lines of its font.
class TextBox final : public QPlainTextEdit {
public:
    TextBox(QWidget* parent, int lines) : QPlainTextEdit(parent), m_lines(lines) {}

    QSize sizeHint() const override
    {
        const int frame = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
        return {CharactersWidth(*this, kFewestCharacters) + frame, fontMetrics().lineSpacing() * m_lines + frame};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    const int m_lines;
};

/// Qt ends lines with "\n", the control with "\r\n".
QString ToLines(std::u16string_view text) { return ToQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")); }
QString FromLines(QString text) { return text.replace(QLatin1Char('\n'), QStringLiteral("\r\n")); }
size_t FromPosition(const QString& lines, int position)
{
    return static_cast<size_t>(position + lines.left(position).count(QLatin1Char('\n')));
}
int ToPosition(std::u16string_view text, size_t position)
{
    return static_cast<int>(ToLines(text.substr(0, position)).size());
}

class MultiLineWidget final : public ControlWidget {
public:
    MultiLineWidget(FormWidget& form, size_t item)
        : ControlWidget(form, item),
          m_box(new TextBox(&form, Item().lines > 0 ? Item().lines : kUsualLines))
    {
        m_box->setTabChangesFocus(true);
        m_box->setSizePolicy(QSizePolicy::Expanding,
                             Item().Has(VItemFlag::Grow) ? QSizePolicy::Expanding : QSizePolicy::Fixed);
        Watch(m_box);
        m_box->viewport()->installEventFilter(this); // menu and tooltip come to it
        connect(m_box, &QPlainTextEdit::textChanged, this, &MultiLineWidget::TellText);
        connect(m_box, &QPlainTextEdit::cursorPositionChanged, this, &MultiLineWidget::TellSelection);
        connect(m_box, &QPlainTextEdit::selectionChanged, this, &MultiLineWidget::TellSelection);
    }

    QWidget* Widget() const override { return m_box; }

protected:
    void Draw(VChange change) override
    {
        const auto& edit = ModelAs<VEditControl>();
        if (change == VChange::Text && !IsCurrent()) {
            m_isDrawing = true;
            m_box->setPlainText(ToLines(edit.GetText()));
            m_isDrawing = false;
        } else if (change == VChange::Selection && Shown() != edit.GetSelection()) {
            QTextCursor cursor = m_box->textCursor();
            cursor.setPosition(ToPosition(edit.GetText(), edit.GetSelection().begin));
            cursor.setPosition(ToPosition(edit.GetText(), edit.GetSelection().end), QTextCursor::KeepAnchor);
            m_box->setTextCursor(cursor);
            m_box->ensureCursorVisible();
        } else if (change == VChange::Enabled) {
            m_box->setReadOnly(edit.IsReadOnly());
        }
    }

private:
    bool IsCurrent() const { return FromQt(FromLines(m_box->toPlainText())) == Model().GetText().View(); }
    VEditControl::Range Shown() const
    {
        const QString lines = m_box->toPlainText();
        return {FromPosition(lines, m_box->textCursor().anchor()), FromPosition(lines, m_box->textCursor().position())};
    }
    /// A text that the control refuses goes back to what it was, with the caret where it stood.
    void TellText()
    {
        if (m_isDrawing || IsCurrent())
            return;
        const QString text = FromLines(m_box->toPlainText());
        const VEditControl::Range before = ModelAs<VEditControl>().GetSelection();
        const QPointer<MultiLineWidget> alive(this);
        Act([this, &text](VUserInput& user) { return user.Type(Model().GetId(), FromQt(text)); });
        if (alive && FromQt(text) != Model().GetText().View())
            ModelAs<VEditControl>().Select(before);
    }
    void TellSelection()
    {
        if (!m_isDrawing && m_box->hasFocus() && IsCurrent() && Shown() != ModelAs<VEditControl>().GetSelection())
            Act([this](VUserInput& user) { return user.SelectText(Model().GetId(), Shown()); });
    }

    TextBox* const m_box;
    bool m_isDrawing = false;
};

} // namespace

std::unique_ptr<ControlWidget> MakeMultiLine(FormWidget& form, size_t item)
{
    return std::make_unique<MultiLineWidget>(form, item);
}

} // namespace ostrand::qt
