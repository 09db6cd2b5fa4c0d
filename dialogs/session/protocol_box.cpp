#include "dialogs/session/protocol_box.h"

#include "config/session/protocol_table.h"
#include "core/fold.h"
#include "core/product.h"

namespace ostrand {

void ProtocolBox::Fill(std::initializer_list<int> products, std::u16string_view protocol)
{
    m_list.Clear();
    for (const int product : products)
        AddProtocols(product, protocol);
    Accept();
}

void ProtocolBox::AddProtocols(int product, std::u16string_view protocol)
{
    const int before = m_list.GetCount();
    bool isFound = false;
    int row = 0;
    for (const ConnectProtocolTableElement& element : GetConnectProtocolTable()) {
        const int number = row++;
        if (product != kProductNone && element.productId != product)
            continue;
        const int added = m_list.Add(element.name, number);
        if (!isFound && EqualNoCase(element.name, protocol)) {
            isFound = true;
            m_list.Select(added);
        }
    }
    if (!isFound && m_list.GetCount() > before)
        m_list.Select(m_list.Add(protocol, -1));
}

void ProtocolBox::Force(std::u16string_view protocol)
{
    m_list.Select(m_list.Find(protocol));
    Accept();
    Enable(false);
}

} // namespace ostrand
