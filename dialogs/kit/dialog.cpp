#include "dialogs/kit/dialog.h"

#include "core/fold.h"
#include "dialogs/kit/marked_letter.h"

#include <algorithm>
#include <cassert>

namespace ostrand {

VDialog::VDialog(const VTemplate& shown, VForm& owner) : VDialog(shown, owner.Services(), owner.Window()) {}

VDialog::VDialog(const VTemplate& shown, IDialogServices& services, void* parentWindow)
    : VForm(shown),
      m_services(services),
      m_parentWindow(parentWindow),
      m_title(Translate(shown.Title()))
{
}

int VDialog::DoModal()
{
    const struct Closing {
        ~Closing() { dialog.Close(); } // also when a handler throws
        VDialog& dialog;
    } closing{*this};
    Open();
    if (m_isRunning)
        m_services.RunModal(*this);
    return m_result;
}

void VDialog::Open()
{
    assert(!m_isRunning);
    m_result = kResultCancel;
    m_isRunning = true;
    Begin();
}

int VDialog::Close()
{
    m_isRunning = false;
    m_posted.clear();
    OnDestroy();
    return m_result;
}

void VDialog::Begin()
{
    if (OnInitDialog())
        OnReceivedFocus();
}

void VDialog::EndDialog(int code)
{
    if (!m_isRunning)
        return;
    m_result = code;
    m_isRunning = false;
    if (GetView())
        GetView()->Ended();
}

void VDialog::SetTitle(const VUnicodeString& title)
{
    m_title = title;
    if (GetView())
        GetView()->TitleChanged();
}

VControlId VDialog::GetDefaultButton() const
{
    for (const VTemplateItem& item : GetTemplate().Items())
        if (const auto* const button = dynamic_cast<const VButtonControl*>(Find(item.id));
            button && button->IsDefault())
            return item.id;
    return 0;
}

void VDialog::SetDefaultButton(VControlId id)
{
    if (const VControlId before = GetDefaultButton(); before != 0)
        At<VButtonControl>(before).SetDefault(false);
    if (id != 0)
        At<VButtonControl>(id).SetDefault(true);
}

void VDialog::RunPosted()
{
    for (size_t waiting = m_posted.size(); waiting > 0 && m_isRunning; --waiting) {
        const std::function<void()> task = std::move(m_posted.front());
        m_posted.pop_front();
        task();
    }
}

void VDialog::ResizeElements(std::initializer_list<VControlId> controls, std::initializer_list<VUnicodeString> texts)
{
    const auto shorter = [](const VUnicodeString& a, const VUnicodeString& b) { return a.GetLength() < b.GetLength(); };
    const auto longest = std::max_element(texts.begin(), texts.end(), shorter);
    for (const VControlId id : controls)
        if (longest != texts.end())
            Control(id).SetWidestText(*longest);
}

void VDialog::ResizeElements(VControlId label, const VUnicodeString& text)
{
    Control(label).SetText(text);
    Control(label).GrowWithText();
}

void VDialog::End(int result)
{
    if (!m_isRunning)
        return;
    if (result == kResultOk)
        OnOK();
    else if (result == kResultCancel)
        OnCancel();
    else
        EndDialog(result);
}

void VDialog::Press(VButtonControl& button)
{
    VForm::Press(button);
    if (button.GetResult() != 0)
        End(button.GetResult());
}

bool VDialog::HandleKey(const VKeyEvent& key)
{
    if (PreTranslateMessage(key))
        return true;
    if (key.kind == VKeyEvent::Kind::Up)
        return false;
    if (key.kind == VKeyEvent::Kind::SystemDown)
        return key.virtualKey < 0x80 && PressMarkedLetter(*this, FoldCase(static_cast<char16_t>(key.virtualKey)));
    switch (key.virtualKey) {
    case kKeyReturn:
        return PressByReturn();
    case kKeyEscape:
        End(kResultCancel);
        return true;
    case kKeyTab:
        FocusNext(key.isShift);
        return true;
    case kKeyF1:
        OnHelp();
        return true;
    default:
        return false;
    }
}

/// A focused button, else the default one, unless the focused control makes lines by Return.
bool VDialog::PressByReturn()
{
    const VFocusTarget focus = GetFocusTarget();
    VControl* const focused = focus.form ? focus.form->Find(focus.control) : nullptr;
    if (focused && focused->GetKind() == VItemKind::MultiLine)
        return false;
    if (auto* const button = dynamic_cast<VButtonControl*>(focused)) {
        focus.form->Press(*button);
        return true;
    }
    if (const VControlId id = GetDefaultButton(); id != 0 && Control(id).CanFocus())
        Press(At<VButtonControl>(id));
    return true;
}

void VDialog::FocusNext(bool backwards)
{
    std::vector<VFocusTarget> targets;
    CollectFocusTargets(targets);
    if (targets.empty())
        return;
    if (backwards)
        std::reverse(targets.begin(), targets.end());
    const auto at = std::find(targets.begin(), targets.end(), GetFocusTarget());
    const bool isLast = at == targets.end() || at + 1 == targets.end();
    SetFocusTarget(isLast ? targets.front() : at[1]);
}

void* VDialog::GetParentWindow()
{
    void* const own = Window();
    return own ? own : m_parentWindow;
}

bool VDialog::OnInitDialog()
{
    ShowFirst();
    return true;
}

void VDialog::OnOK()
{
    if (UpdateData(VDataExchange::Save))
        EndDialog(kResultOk);
}

void VDialog::OnCancel() { EndDialog(kResultCancel); }

} // namespace ostrand
