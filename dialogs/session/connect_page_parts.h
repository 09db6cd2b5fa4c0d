// Rows that both forms of the Connection page have.
#pragma once

#include "dialogs/session/connect_page.h"

namespace ostrand {

consteval auto NameField()
{
    return layout::Field(u"&Name:",
                         layout::Edit(SessionConnectPage::Name, layout::Grow, layout::Also{u"rename title session"}));
}

consteval auto DescriptionGroup()
{
    return layout::Group(
        u"D&escription",
        layout::Label(u"Enter a description below that may be optionally displayed in the Connect window."),
        layout::MultiLine(SessionConnectPage::Description, layout::Grow, layout::Also{u"comment note remark"}));
}

} // namespace ostrand
