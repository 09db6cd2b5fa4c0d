// The exchange between the controls of a form and its page's copies of values.
//
//   Show  copies to controls
//   Peek  controls to copies; nothing is checked, nothing written: what a rule needs to look at the controls
//   Save  controls to copies with checks; then, if all passed, the copies go to the record, in the exchange's order
//
// The first failed check shows its message and silences those behind it; nothing is written then. While an exchange
// runs, no handler of the form is called.
#pragma once

#include "dialogs/kit/focus_target.h"
#include "dialogs/kit/message.h"
#include "dialogs/kit/template.h"
#include "profile/schema_entry.h"
#include "profile/values.h"

#include <functional>
#include <vector>

namespace ostrand {

class OSTRAND_API VDataExchange {
public:
    enum Direction : uint8_t { Show, Peek, Save };

    VDataExchange(VForm& form, Direction direction);
    ~VDataExchange();
    VDataExchange(const VDataExchange&) = delete;
    VDataExchange& operator=(const VDataExchange&) = delete;

    VForm& Form() const { return m_form; }
    bool IsShowing() const { return m_direction == Show; }
    /// Whether checks count: saving, and none has failed.
    bool Validating() const { return m_direction == Save && m_state == State::Running; }
    bool HasFailed() const { return m_state == State::Failed; }
    /// What failed; it gets the focus when the exchange is over, an edit with its whole text selected.
    const VFocusTarget& GetCulprit() const { return m_culprit; }

    /// Does nothing unless checks count.
    void Fail(VControlId control, const VMessage& message);
    template <class... Arguments>
    void Fail(VControlId control, unsigned code, const Arguments&... arguments)
    {
        VReportMessageParams report;
        ostrand::Fail(report, code, arguments...);
        Fail(control, report);
    }
    void Fail(VControlId control, IReportMessageParams& report, VIcon icon = VIcon::None);
    /// The check has told the user itself.
    void FailSilently(VControlId control);
    /// Ends a save as a success with nothing written.
    void Abandon();

    /// A write to the record that comes in its turn, once all checks have passed.
    void ThenWrite(std::function<void()> write);
    /// The same exchange of a form that stands in one of this form's places.
    void ExchangeForm(VForm& inner);

    /// Ends the exchange: runs the writes, unless a check failed or the exchange was abandoned.
    void Finish();

private:
    enum class State : uint8_t { Running, Failed, Abandoned };

    VForm& m_form;
    const Direction m_direction;
    State m_state = State::Running;
    VFocusTarget m_culprit;
    std::vector<std::function<void()>> m_writes;
};

/// A text, or in multi-line edits its lines. A save refuses more characters than the control takes.
OSTRAND_API void DDX_Text(VDataExchange& dx, VControlId edit, VUnicodeString& value);
/// A whole number, with blanks around it and a sign. Other texts are refused; a peek leaves the value alone.
OSTRAND_API void DDX_Text(VDataExchange& dx, VControlId edit, int& value);
OSTRAND_API void DDX_Text(VDataExchange& dx, VControlId edit, unsigned& value);
/// The same while the control is enabled; else the value stays, whatever the control shows.
OSTRAND_API void VDDX_EnabledText(VDataExchange& dx, VControlId edit, unsigned& value);

OSTRAND_API void DDX_Check(VDataExchange& dx, VControlId box, bool& value);
OSTRAND_API void DDX_Check(VDataExchange& dx, VControlId box, VTriState& value);
/// An index; one that the group lacks chooses none, and none chosen leaves the value alone. So do the lists below.
OSTRAND_API void DDX_Radio(VDataExchange& dx, VControlId group, int& value);
OSTRAND_API void DDX_CBIndex(VDataExchange& dx, VControlId list, int& value);
/// The number of the selected entry.
OSTRAND_API void DDX_CBData(VDataExchange& dx, VControlId list, int& value);
/// The value of the selected entry, by its exact text; what is shown may be its translation.
OSTRAND_API void DDX_CBString(VDataExchange& dx, VControlId list, VUnicodeString& value);

OSTRAND_API void DDV_Range(VDataExchange& dx, VControlId edit, int64_t value, int64_t low, int64_t high);
OSTRAND_API void DDV_Bound(VDataExchange& dx, VControlId edit, int64_t value, const VBound& bound);

/// The exchange that fits the control's kind: a bool is a box or the second of two options; a number an edit, an option
/// or an entry's number; a text an edit or an entry.
OSTRAND_API void DDX_Value(VDataExchange& dx, VControlId control, bool& value);
OSTRAND_API void DDX_Value(VDataExchange& dx, VControlId control, VTriState& value);
OSTRAND_API void DDX_Value(VDataExchange& dx, VControlId control, int& value);
OSTRAND_API void DDX_Value(VDataExchange& dx, VControlId control, unsigned& value);
OSTRAND_API void DDX_Value(VDataExchange& dx, VControlId control, VUnicodeString& value);

} // namespace ostrand
