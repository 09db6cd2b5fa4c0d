// VForm: what dialogs, pages and panels share. Controls made from a template, handlers, the exchange, focus, marks.
//
//     On({Browse}, VEventKind::Clicked, &LogFilePage::OnBrowse);     // in the constructor of a page
//     At<VEditControl>(FileName).SelectAll();
#pragma once

#include "dialogs/kit/binding.h"
#include "dialogs/kit/button_control.h"
#include "dialogs/kit/check_control.h"
#include "dialogs/kit/edit_control.h"
#include "dialogs/kit/exchange.h"
#include "dialogs/kit/form_view.h"
#include "dialogs/kit/icon_control.h"
#include "dialogs/kit/list_control.h"
#include "dialogs/kit/place_control.h"
#include "dialogs/kit/radio_control.h"
#include "dialogs/kit/report_control.h"
#include "dialogs/kit/services.h"
#include "dialogs/kit/translate.h"

#include <deque>
#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

namespace ostrand {

class IRecordInfo;
class VDialog;

/// Controls exist from construction on. A form that stands in a place of another one is its child; the child's owner
/// keeps it alive as long as it stands there. One thread.
class OSTRAND_API VForm : private IControlOwner {
public:
    using NoSuchControl = VArray<VControlId>::OutOfRange;

    explicit VForm(const VTemplate& shown);
    virtual ~VForm();
    VForm(const VForm&) = delete;
    VForm& operator=(const VForm&) = delete;

    const VTemplate& GetTemplate() const { return m_template; }
    /// The control of the template's item of this index; null for layout and parts.
    VControl* ControlOfItem(size_t item) const { return m_controls[item].get(); }
    /// Null for an id that the form lacks.
    VControl* Find(VControlId id) const;
    /// NoSuchControl for an id that the form lacks.
    VControl& Control(VControlId id) const;
    /// The same as the class of its kind; NoSuchControl for another kind.
    template <class C>
    C& At(VControlId id) const
    {
        if (C* const control = dynamic_cast<C*>(&Control(id)))
            return *control;
        throw NoSuchControl();
    }

    /// Runs the exchange. False when a check of a save failed: the user has been told, and the focus is on the control.
    bool UpdateData(VDataExchange::Direction direction);

    /// Leads to the control; handlers of focus are called. False for one that can't have the focus now, also since its
    /// form isn't in front.
    bool SetFocus(VControlId id);
    /// 0 unless one of this form's own controls has the focus.
    VControlId GetFocus() const;
    /// The whole form gets the focus: its first control, unless a form has another idea.
    virtual void OnReceivedFocus();
    /// Controls that can have the focus now, in tab order, with those of forms in places.
    void CollectFocusTargets(std::vector<VFocusTarget>& targets);
    VFocusTarget GetFocusTarget() const { return Top().m_focus; }
    void SetFocusTarget(const VFocusTarget& target);

    /// This form, and those in places of it.
    void CollectForms(std::vector<VForm*>& forms);
    /// The dialog that the form stands in; one that stands nowhere is its own top.
    const VForm& Top() const;
    VForm& Top() { return const_cast<VForm&>(std::as_const(*this).Top()); }
    /// Puts a form into a place, in the tab order too; null takes it out.
    void Put(VControlId place, VForm* form);

    /// Those of the dialog that the form stands in, else the process's.
    virtual IDialogServices& Services();
    /// The window that boxes come above; null without one.
    void* Window();

    /// Borrowed; null takes it off.
    void SetView(IFormView* view) { m_view = view; }
    IFormView* GetView() const { return m_view; }

    /// Tells of values that the form's copies stand for; asked by this form and those within it. Borrowed.
    void AddRecord(const IRecordInfo& record) { m_records.push_back(&record); }
    /// Null where no record knows the value.
    const IRecordInfo* RecordOf(const VProfileData& value) const;
    /// A value of this name in another record than `own`; null for none.
    const VProfileData* FindValueElsewhere(std::u16string_view name, const IRecordInfo& own) const;
    /// What edits values, in the exchange's order.
    const std::vector<VBinding*>& GetBindings() const { return m_bindings; }
    /// Null for a control that edits no value.
    VBinding* BindingOf(VControlId id) const;
    /// As if the user had set the control to the value's default, or to what it was when the dialog opened. False where
    /// that can't be done: no such value, a control that is disabled or locked.
    bool ResetToDefault(VControlId id);
    bool UndoChange(VControlId id);
    void RefreshMarks();

    /// As a click on an enabled button does.
    virtual void Press(VButtonControl& button);

protected:
    friend class VBinding;

    /// All bindings in their order; a page adds its checks behind them, or exchanges in an order of its own.
    virtual void DoDataExchange(VDataExchange& dx);
    void On(std::initializer_list<VControlId> ids, VEventKind event, const std::function<void()>& handler)
    {
        for (const VControlId id : ids)
            m_handlers.push_back({id, event, handler});
    }
    /// `handler` is a member of the form's own class.
    template <class F>
    void On(std::initializer_list<VControlId> ids, VEventKind event, void (F::*handler)())
    {
        On(ids, event, [this, handler] { (static_cast<F*>(this)->*handler)(); });
    }
    void SetParentForm(VForm* parent) { m_parent = parent; }
    /// Told to the top form, of every form within it.
    virtual void ChangedWithin(const VForm&, const VControl&, VChange) {}
    /// For destructors of forms that others may still speak to: from here on neither handlers nor a view are called.
    void Silence();
    /// Locks what administrators decide, shows the copies, sets the marks: the beginning of a form on the screen.
    void ShowFirst();

private:
    friend class VDataExchange;
    friend class VUserInput;

    struct Handler {
        VControlId control;
        VEventKind event;
        std::function<void()> run;
    };

    void ControlChanged(VControl& control, VChange change) override;
    void ControlEvent(VControl& control, VEventKind event) override;
    /// Handlers of a control's event, in the order in which they were set; not while an exchange runs.
    void Handle(VControl& control, VEventKind event);
    bool IsSettable(VControlId id) const;
    VPlaceControl* PlaceOf(const VForm& form) const;
    void RaiseFocus(VControlId id, VEventKind event);
    void PassFocusOn(VControlId from);

    const VTemplate m_template;
    std::vector<std::unique_ptr<VControl>> m_controls; // one for each item of the template; null for layout and parts
    std::vector<VBinding*> m_bindings;
    std::deque<Handler> m_handlers; // one that runs may add others
    std::vector<const IRecordInfo*> m_records;
    VForm* m_parent = nullptr;
    IFormView* m_view = nullptr;
    VFocusTarget m_focus; // of the whole window; used in the top form alone
    int m_exchanging = 0;
};

} // namespace ostrand
