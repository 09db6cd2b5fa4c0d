#include "dialogs/kit/exchange.h"

#include "dialogs/kit/form.h"
#include "dialogs/kit/number_text.h"

#include <limits>

namespace ostrand {

namespace {

constexpr const char16_t* kNeedsInteger = u"Please enter an integer.";
constexpr const char16_t* kNeedsPositiveInteger = u"Please enter a positive integer.";
constexpr const char16_t* kNeedsIntegerBetween = u"Please enter an integer between %1 and %2.";
constexpr const char16_t* kNeedsShorterText = u"Please enter no more than %1 characters.";

void FailWithWarning(VDataExchange& dx, VControlId control, const VUnicodeString& text)
{
    dx.Fail(control, {text, VIcon::Warning});
}

} // namespace

VDataExchange::VDataExchange(VForm& form, Direction direction) : m_form(form), m_direction(direction)
{
    ++m_form.m_exchanging;
}

VDataExchange::~VDataExchange() { --m_form.m_exchanging; }

void VDataExchange::Fail(VControlId control, const VMessage& message)
{
    if (!Validating())
        return;
    m_form.Services().ShowMessage(m_form.Window(), message);
    FailSilently(control);
}

void VDataExchange::Fail(VControlId control, IReportMessageParams& report, VIcon icon)
{
    VMessage message;
    message.text = TextOf(report);
    message.icon = icon;
    message.code = report.GetCode();
    Fail(control, message);
}

void VDataExchange::FailSilently(VControlId control)
{
    if (!Validating())
        return;
    m_state = State::Failed;
    m_culprit = {&m_form, control};
}

void VDataExchange::Abandon()
{
    if (Validating())
        m_state = State::Abandoned;
}

void VDataExchange::ThenWrite(std::function<void()> write)
{
    if (m_direction == Save)
        m_writes.push_back(std::move(write));
}

void VDataExchange::ExchangeForm(VForm& inner)
{
    if (m_state != State::Running)
        return;
    VDataExchange dx(inner, m_direction);
    inner.DoDataExchange(dx);
    if (dx.HasFailed()) {
        m_state = State::Failed;
        m_culprit = dx.m_culprit;
    }
    if (dx.m_state == State::Running)
        for (std::function<void()>& write : dx.m_writes)
            m_writes.push_back(std::move(write));
}

void VDataExchange::Finish()
{
    if (Validating())
        for (const std::function<void()>& write : m_writes)
            write();
}

namespace {

/// The number in an edit, if it is one of class N; else the value stays, and a save is refused.
template <class N>
void ExchangeNumber(VDataExchange& dx, VControlId edit, N& value, const char16_t* refusal)
{
    VEditControl& control = dx.Form().At<VEditControl>(edit);
    if (dx.IsShowing())
        return control.SetText(NumberText(value));
    const std::optional<int64_t> number = ParseWholeNumber(control.GetText());
    if (number && *number >= std::numeric_limits<N>::min() && *number <= std::numeric_limits<N>::max())
        value = static_cast<N>(*number);
    else
        FailWithWarning(dx, edit, Translate(refusal));
}

} // namespace

void DDX_Text(VDataExchange& dx, VControlId edit, VUnicodeString& value)
{
    VEditControl& control = dx.Form().At<VEditControl>(edit);
    if (dx.IsShowing())
        return control.SetText(value);
    value = control.GetText();
    if (const unsigned max = control.GetMaxChars(); max > 0 && value.GetLength() > max)
        FailWithWarning(dx, edit, TranslateFormat(kNeedsShorterText, NumberText(max)));
}

void DDX_Text(VDataExchange& dx, VControlId edit, int& value) { ExchangeNumber(dx, edit, value, kNeedsInteger); }

void DDX_Text(VDataExchange& dx, VControlId edit, unsigned& value)
{
    ExchangeNumber(dx, edit, value, kNeedsPositiveInteger);
}

void VDDX_EnabledText(VDataExchange& dx, VControlId edit, unsigned& value)
{
    if (dx.IsShowing() || dx.Form().Control(edit).IsEnabled())
        DDX_Text(dx, edit, value);
}

void DDX_Check(VDataExchange& dx, VControlId box, bool& value)
{
    VCheckControl& control = dx.Form().At<VCheckControl>(box);
    if (dx.IsShowing())
        control.SetChecked(value);
    else
        value = control.IsChecked();
}

void DDX_Check(VDataExchange& dx, VControlId box, VTriState& value)
{
    VCheckControl& control = dx.Form().At<VCheckControl>(box);
    // A stored number may be anything, and stays what it is while its state stands.
    const VTriState state = value == VTriState::False || value == VTriState::True ? value : VTriState::Undetermined;
    if (dx.IsShowing())
        control.SetState(state);
    else if (control.GetState() != state)
        value = control.GetState();
}

namespace {

/// Shows a choice, or takes the one that is made; with none made the value stays.
template <class Choose, class Take>
void ExchangeChoice(const VDataExchange& dx, int chosen, const Choose& choose, const Take& take)
{
    if (dx.IsShowing())
        choose();
    else if (chosen >= 0)
        take();
}

} // namespace

void DDX_Radio(VDataExchange& dx, VControlId group, int& value)
{
    VRadioControl& radio = dx.Form().At<VRadioControl>(group);
    ExchangeChoice(dx, radio.GetIndex(), [&] { radio.SetIndex(value); }, [&] { value = radio.GetIndex(); });
}

void DDX_CBIndex(VDataExchange& dx, VControlId id, int& value)
{
    VListControl& list = dx.Form().At<VListControl>(id);
    ExchangeChoice(dx, list.GetSelection(), [&] { list.Select(value); }, [&] { value = list.GetSelection(); });
}

void DDX_CBData(VDataExchange& dx, VControlId id, int& value)
{
    VListControl& list = dx.Form().At<VListControl>(id);
    ExchangeChoice(
        dx, list.GetSelection(), [&] { list.Select(list.FindData(value)); }, [&] { value = list.GetSelectedData(); });
}

void DDX_CBString(VDataExchange& dx, VControlId id, VUnicodeString& value)
{
    VListControl& list = dx.Form().At<VListControl>(id);
    ExchangeChoice(
        dx, list.GetSelection(), [&] { list.Select(list.FindValue(value)); }, [&] { value = list.GetSelectedValue(); });
}

void DDV_Range(VDataExchange& dx, VControlId edit, int64_t value, int64_t low, int64_t high)
{
    if (value < low || value > high)
        FailWithWarning(dx, edit, TranslateFormat(kNeedsIntegerBetween, NumberText(low), NumberText(high)));
}

void DDV_Bound(VDataExchange& dx, VControlId edit, int64_t value, const VBound& bound)
{
    if (!bound.Allows(value))
        DDV_Range(dx, edit, value, bound.low,
                  bound.kind == VBound::Kind::AtLeast ? std::numeric_limits<int>::max() : bound.high);
}

void DDX_Value(VDataExchange& dx, VControlId control, bool& value)
{
    if (dx.Form().Control(control).GetKind() == VItemKind::Check)
        return DDX_Check(dx, control, value);
    const bool isYesFirst = dx.Form().Control(control).GetItem().Has(VItemFlag::YesFirst);
    int index = value == isYesFirst ? 0 : 1;
    DDX_Radio(dx, control, index);
    value = (index == 0) == isYesFirst;
}

void DDX_Value(VDataExchange& dx, VControlId control, VTriState& value) { DDX_Check(dx, control, value); }

void DDX_Value(VDataExchange& dx, VControlId control, int& value)
{
    switch (dx.Form().Control(control).GetKind()) {
    case VItemKind::Radio:
        return DDX_Radio(dx, control, value);
    case VItemKind::DropList:
        return DDX_CBData(dx, control, value);
    default:
        return DDX_Text(dx, control, value);
    }
}

void DDX_Value(VDataExchange& dx, VControlId control, unsigned& value) { DDX_Text(dx, control, value); }

void DDX_Value(VDataExchange& dx, VControlId control, VUnicodeString& value)
{
    if (dx.Form().Control(control).GetKind() == VItemKind::DropList)
        DDX_CBString(dx, control, value);
    else
        DDX_Text(dx, control, value);
}

} // namespace ostrand
