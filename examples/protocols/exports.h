// What a module of these brings: a table of its protocols. The functions that the library looks for stand in
// exports.cpp, the same for all modules.
#pragma once

#include "config/session/protocol_table.h"

#include <span>
#include <string_view>

namespace example {

struct Protocol {
    std::u16string_view name;
    ostrand::ConnectProtocolTableElement::CreateConfig createConfig;
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

} // namespace example
