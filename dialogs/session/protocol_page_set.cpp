#include "dialogs/session/protocol_page_set.h"

#include "config/session/module_guard.h"

#include <utility>

namespace ostrand {

ProtocolPageSet::ProtocolPageSet(const Context& context) : m_context(context)
{
    m_pages.SetSize(GetConnectProtocolTable().GetCount());
}

void ProtocolPageSet::Show(int index)
{
    Pages& pages = m_pages[static_cast<size_t>(index)];
    const ConnectProtocolTableElement& row = GetConnectProtocolTable()[static_cast<size_t>(index)];
    if (!pages && row.pagesFactory)
        GuardModule(row, u"PagesFactory", [&] {
            pages = Pages::Adopt(row.pagesFactory(m_context.dialog, m_context.mode, m_context.session, m_context.owner,
                                                  m_context.connectPage));
        });
    if (pages)
        GuardModule(row, u"ShowPages", [&] { pages->ShowPages(m_context.dialog, m_context.session); });
}

void ProtocolPageSet::Hide(int index)
{
    Pages& pages = m_pages[static_cast<size_t>(index)];
    if (pages)
        GuardModule(GetConnectProtocolTable()[static_cast<size_t>(index)], u"HidePages",
                    [&] { pages->HidePages(m_context.dialog); });
}

void ProtocolPageSet::Remove()
{
    for (size_t i = 0; i < m_pages.GetCount(); ++i) {
        Pages pages = std::exchange(m_pages[i], {});
        if (!pages)
            continue;
        const ConnectProtocolTableElement& row = GetConnectProtocolTable()[i];
        GuardModule(row, u"RemovePages", [&] { pages->RemovePages(m_context.dialog); });
        GuardModule(row, u"Release", [&] { pages.Reset(); });
    }
}

} // namespace ostrand
