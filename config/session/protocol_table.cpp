#include "config/session/protocol_table.h"

namespace ostrand {

void ConnectProtocolTableElement::FillGaps()
{
    const ConnectProtocolTableElement constructed;
    const auto fill = [&constructed, this](auto field) {
        if (!(this->*field))
            this->*field = constructed.*field;
    };
    using Row = ConnectProtocolTableElement;
    fill(&Row::pagesFactory);
    fill(&Row::addGlobalPages);
    fill(&Row::hook1);
    fill(&Row::hook2);
    fill(&Row::hook3);
    fill(&Row::hook4);
    fill(&Row::hook5);
    fill(&Row::hook6);
}

ConnectProtocolTable& GetConnectProtocolTable()
{
    // Never destroyed: sessions may outlive static objects.
    static auto& table = *new ConnectProtocolTable;
    return table;
}

} // namespace ostrand
