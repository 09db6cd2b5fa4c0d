// VControl: the state of one control, apart from any window. Pages and a view both change it through its setters, and
// its owner passes each change on: to the view as a VChange, to the page's handlers as a VEventKind.
#pragma once

#include "core/strings.h"
#include "dialogs/kit/template.h"

#include <optional>

namespace ostrand {

class VControl;

/// What a view has to draw anew.
enum class VChange : uint8_t {
    Text,
    Label,
    Enabled,
    Visible,
    State,     ///< of a check box, a radio group, an icon; a button's being the default one
    Options,   ///< which options of a radio group are enabled
    Items,     ///< entries of a list, rows of a report
    Selection, ///< of a list, a report, or the text of an edit
    Mask,
    Content, ///< the form in a place
    Marks,
    Size
};

/// What a page may handle. Text changes and report selections are told whoever makes them, page or user; all others
/// come from users alone.
enum class VEventKind : uint8_t {
    Clicked, ///< a button, a check box, an option
    TextChanged,
    SelectionChanged,
    DoubleClicked, ///< a row of a report
    FocusGained,
    FocusLost
};

/// Who holds a control. Both are called after the control has changed.
class IControlOwner {
public:
    virtual void ControlChanged(VControl& control, VChange change) = 0;
    virtual void ControlEvent(VControl& control, VEventKind event) = 0;

protected:
    ~IControlOwner() = default;
};

/// How a control's setting stands beside what else is known of it; shown by the view as marks.
struct VMarks {
    bool isChanged = false;  ///< since the dialog opened
    bool differs = false;    ///< from the default
    bool isLocked = false;   ///< an administrator decides it
    bool canBeReset = false; ///< has a default to go to
    bool operator==(const VMarks&) const = default;
};

/// Base of all; of its own the class of labels, groups and trees. One thread.
class OSTRAND_API VControl {
public:
    /// `item` belongs to a template; `label` is the untranslated text of its field, or null.
    VControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label);
    virtual ~VControl() = default;
    VControl(const VControl&) = delete;
    VControl& operator=(const VControl&) = delete;

    VControlId GetId() const { return m_item.id; }
    VItemKind GetKind() const { return m_item.kind; }
    const VTemplateItem& GetItem() const { return m_item; }

    /// Caption, or what stands in an edit. Texts that code sets are shown as they are: it translates them.
    const VUnicodeString& GetText() const { return m_text; }
    virtual void SetText(const VUnicodeString& text);
    /// The text in front of a control, empty without one. It is shown, hidden, enabled and disabled with it.
    const VUnicodeString& GetLabel() const { return m_label; }
    void SetLabel(const VUnicodeString& label);
    /// What users call the control: its label, else its caption; without "&".
    VUnicodeString GetName() const;

    /// A locked control is never enabled.
    bool IsEnabled() const { return m_isEnabled && !m_marks.isLocked; }
    void Enable(bool enabled);
    bool IsVisible() const { return m_isVisible; }
    void Show(bool visible);
    bool CanFocus() const { return m_item.TakesFocus() && IsEnabled() && m_isVisible; }

    const VMarks& GetMarks() const { return m_marks; }
    void SetMarks(const VMarks& marks);
    /// Whether a search has found the control; shown among the marks.
    bool IsFound() const { return m_isFound; }
    void SetFound(bool isFound) { Assign(m_isFound, isFound, VChange::Marks); }

    /// Texts that the control must be wide enough for, beyond the one that it shows.
    const VUnicodeString& GetWidestText() const { return m_widest; }
    void SetWidestText(const VUnicodeString& text);
    /// Whether the control takes the height that its text needs at the window's width.
    bool GrowsWithText() const { return m_growsWithText; }
    void GrowWithText();

    /// One line for traces and tests; never shows what a masked edit holds.
    virtual VUnicodeString Dump() const;

protected:
    void Changed(VChange change) { m_owner.ControlChanged(*this, change); }
    void Raise(VEventKind event) { m_owner.ControlEvent(*this, event); }
    /// The text, as it stands, is a secret from here on.
    void MarkText() { m_text.MarkSensitive(); }
    /// Sets a field, and tells the view if that changes it.
    template <class T>
    bool Assign(T& field, const T& value, VChange change)
    {
        if (field == value)
            return false;
        field = value;
        Changed(change);
        return true;
    }

private:
    IControlOwner& m_owner;
    const VTemplateItem& m_item;
    VUnicodeString m_text;
    VUnicodeString m_label;
    VUnicodeString m_widest;
    VMarks m_marks;
    bool m_isEnabled;
    bool m_isVisible;
    bool m_growsWithText = false;
    bool m_isFound = false;
};

} // namespace ostrand
