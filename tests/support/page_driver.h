// Plays a user on forms. What a user could not do fails the test: setting a control that is disabled, hidden or
// covered, typing beyond the limit, pressing keys that don't exist.
//
//     PageDriver<SessionLogFilePage> page(values);
//     page.Click(P::NewAtMidnight).Type(P::FileName, u"log-%d.txt");
//     EXPECT_EQ(page.RefusedLeave(), kMidnightLogNeedsDay);
#pragma once

#include "dialogs/kit/property_tree.h"
#include "dialogs/kit/user_input.h"
#include "keymap/virtual_keys.h"
#include "tests/support/scripted_services.h"

#include <utility>

namespace ostrand::test {

class FormDriver {
public:
    explicit FormDriver(VForm& form) : m_form(form), m_user(form) {}

    FormDriver& Click(VControlId id) { return Must(m_user.Click(id), "click", id); }
    FormDriver& Type(VControlId id, std::u16string_view text) { return Must(m_user.Type(id, text), "type into", id); }
    FormDriver& Focus(VControlId id) { return Must(m_user.MoveFocus(id), "go to", id); }
    FormDriver& Choose(VControlId id, int index)
    {
        const bool isRadio = dynamic_cast<VRadioControl*>(m_form.Find(id)) != nullptr;
        return Must(isRadio ? m_user.ChooseOption(id, index) : m_user.ChooseEntry(id, index), "choose from", id);
    }
    FormDriver& Rows(VControlId id, const std::vector<int>& rows)
    {
        return Must(m_user.SelectRows(id, rows), "select rows of", id);
    }
    FormDriver& DoubleClick(VControlId id, int row) { return Must(m_user.DoubleClick(id, row), "double click on", id); }
    FormDriver& Key(std::u16string_view name, bool isShift = false)
    {
        return PressKey({.virtualKey = CodeOf(name), .isShift = isShift}, name);
    }
    FormDriver& AltKey(std::u16string_view name)
    {
        return PressKey({.kind = VKeyEvent::Kind::SystemDown, .virtualKey = CodeOf(name)}, name);
    }

private:
    static unsigned CodeOf(std::u16string_view name) { return static_cast<unsigned>(VirtualKeyCodeOf(name)); }
    FormDriver& PressKey(const VKeyEvent& key, std::u16string_view name)
    {
        if (!m_user.PressKey(key))
            ADD_FAILURE() << "there is no key " << ToUtf8(name);
        return *this;
    }
    FormDriver& Must(bool couldBeDone, const char* act, VControlId id)
    {
        if (!couldBeDone)
            ADD_FAILURE() << "a user can't " << act << ' '
                          << (m_form.Find(id) ? ToUtf8(m_form.Find(id)->Dump()) : "a control that isn't there");
        return *this;
    }

    VForm& m_form;
    VUserInput m_user;
};

/// Counts how often it was opened.
class TestTreeDialog : public VPropertyTreeDialog {
public:
    using VPropertyTreeDialog::VPropertyTreeDialog;

    int opened = 0;

private:
    void OnOpened() override { ++opened; }
};

inline constexpr auto kEmptyPage = layout::Page(u"Empty");

/// One page on the screen, in a dialog with a second, empty one to leave for.
template <class P>
class PageDriver : public FormDriver {
public:
    template <class... Arguments>
    explicit PageDriver(Arguments&&... arguments)
        : PageDriver(std::make_unique<P>(std::forward<Arguments>(arguments)...))
    {
    }
    ~PageDriver() { dialog.Close(); }

    P* operator->() { return m_page.get(); }
    P& operator*() { return *m_page; }
    VControl& operator[](VControlId id) { return m_page->Control(id); }
    template <class C>
    C& At(VControlId id)
    {
        return m_page->template At<C>(id);
    }

    /// Chooses the other page. Messages must be expected.
    bool Leave() { return dialog.SelectPage(m_other); }
    bool Return() { return dialog.SelectPage(*m_page); }
    /// Leaving must fail with one message: its code, 0 for one without.
    unsigned RefusedLeave()
    {
        services.ExpectMessage();
        EXPECT_FALSE(Leave());
        return services.messages.empty() ? 0 : services.messages.back().code;
    }
    std::u16string RefusalText()
    {
        RefusedLeave();
        return services.messages.empty() ? std::u16string() : std::u16string(services.messages.back().text.View());
    }

    ScriptedServices services;
    TestTreeDialog dialog{u"Test", VTreeStyle::WithApply, nullptr, services};

private:
    explicit PageDriver(std::unique_ptr<P> page) : FormDriver(*page), m_page(std::move(page)), m_other(kEmptyPage)
    {
        dialog.AddPage(m_page.get());
        dialog.AddPage(&m_other);
        dialog.Open();
    }

    std::unique_ptr<P> m_page;
    VPropertyTreePage m_other;
};

} // namespace ostrand::test
