// A page of a protocol's settings in the dialog of a session's options, made from the rows of the settings' schema: a
// box for each switch, a field for each number and text, and the host where there is one.
//
// A class of settings C brings
//
//     C::kTitle            the protocol's name
//     C::Record            the record with the schema
//     C::GetRecord()       that of these settings
//     C::MakeDefaults()    one that holds nothing but defaults
#pragma once

#include "config/session/protocol_table.h"
#include "config/session/session_interface.h"
#include "dialogs/kit/property_page.h"
#include "dialogs/kit/record_info.h"

#include <deque>

namespace example {

enum PageControl : ostrand::VControlId { Hostname = 1, Username, FirstValue };

/// The items of a template, which must live as long as its pages.
std::vector<ostrand::VTemplateItem> MakePageItems(const char16_t* title, bool hasHost, ostrand::VSchemaView schema);

/// Several pages may edit one host, so each takes the values anew when it comes to the front.
class RecordPage final : public ostrand::VPropertyTreePage {
public:
    using VPropertyTreePage::VPropertyTreePage;

    /// Nothing for a value of a class that no control of these pages edits.
    void Bind(ostrand::VControlId control, ostrand::VProfileData* value);
    void OnSetActive() override;

private:
    // Bindings stay where they are made, and so in deques.
    std::deque<ostrand::VEdited<bool>> m_switches;
    std::deque<ostrand::VEdited<int>> m_numbers;
    std::deque<ostrand::VEdited<ostrand::VUnicodeString>> m_texts;
};

class CountedPages : public ostrand::IProtocolPages {
public:
    virtual ~CountedPages() = default;
    virtual void Destroy() { delete this; }
};

class OnePage : public ostrand::VUnknown<CountedPages> {
public:
    OnePage(const ostrand::VTemplate& shown, ostrand::VPropertyTreePage& parent) : m_page(shown)
    {
        parent.AddPage(&m_page);
    }
    void ShowPages(ostrand::IPropertyTreeDialog* dialog, ostrand::ISessionConfig*) override
    {
        dialog->ShowPage(&m_page);
    }
    void HidePages(ostrand::IPropertyTreeDialog* dialog) override { dialog->HidePage(&m_page); }
    void RemovePages(ostrand::IPropertyTreeDialog* dialog) override { dialog->RemovePage(&m_page); }

protected:
    RecordPage m_page;
};

template <class C>
inline constexpr bool kHasHost = requires(C& config) { config.GetHostname(); };

template <class C>
class PagesOf final : public OnePage {
public:
    PagesOf(C& config, ostrand::VPropertyTreePage& parent)
        : OnePage(Template(), parent),
          m_info(config.GetRecord(), m_defaults)
    {
        m_page.AddRecord(m_info); // so that the bounds of the rows hold
        if constexpr (kHasHost<C>) {
            m_page.Bind(Hostname, config.GetHostname());
            m_page.Bind(Username, config.GetUsername());
        }
        ostrand::VControlId control = FirstValue;
        for (const auto& row : C::Record::Schema().Rows())
            if (!row.IsRule())
                m_page.Bind(control++, row.member(config.GetRecord()));
    }

private:
    static const ostrand::VTemplate& Template()
    {
        static const std::vector<ostrand::VTemplateItem> items =
            MakePageItems(C::kTitle, kHasHost<C>, C::Record::Schema().View());
        static const ostrand::VTemplate shown{std::span(items)};
        return shown;
    }

    typename C::Record m_defaults = C::MakeDefaults();
    ostrand::VRecordInfo<typename C::Record> m_info;
};

/// The session's settings of this class, if a side of it works with them now.
template <class C>
C* FindConfig(ostrand::ISessionConfig& session)
{
    for (ostrand::ConnectConfig* const config :
         {session.GetTerminalConnectConfig(), session.GetTransferConnectConfig()})
        if (auto* const found = dynamic_cast<C*>(config))
            return found;
    return nullptr;
}

template <class C>
ostrand::IProtocolPages* MakePages(ostrand::IPropertyTreeDialog*, int, ostrand::ISessionConfig* session,
                                   ostrand::IUnknown*, ostrand::VPropertyTreePage* connectPage)
{
    C* const config = FindConfig<C>(*session);
    return config ? new PagesOf<C>(*config, *connectPage) : nullptr;
}

} // namespace example
