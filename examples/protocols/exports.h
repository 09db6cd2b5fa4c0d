// What a module of these brings: a table of its protocols. The functions that the library looks for stand in
// exports.cpp, the same for all modules.
#pragma once

#include "protocol_pages.h"

#include <span>
#include <string_view>

namespace example {

struct Protocol {
    std::u16string_view name;
    ostrand::ConnectProtocolTableElement::CreateConfig createConfig;
    ostrand::ConnectProtocolTableElement::PagesFactory pagesFactory;
    ostrand::ConnectProtocolTableElement::LogonPanelFactory logonPanelFactory = nullptr;
};

/// Each module defines it.
std::span<const Protocol> Protocols();

/// Makes settings of class C, which are built from the key and what the session's protocols share.
template <class C>
ostrand::ConnectConfig* Create(const ostrand::VProfileKey* key, ostrand::ICommonConfig* common,
                               ostrand::ConnectProtocolTableElement*)
{
    return new C(key, common);
}

/// A protocol with settings of class C, and with a page for them.
template <class C>
constexpr Protocol ProtocolOf(ostrand::ConnectProtocolTableElement::LogonPanelFactory logonPanel = nullptr)
{
    return {C::kTitle, Create<C>, MakePages<C>, logonPanel};
}

} // namespace example
