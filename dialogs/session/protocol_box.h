// A list of protocols on a page, and which of its entries is in effect.
#pragma once

#include "dialogs/kit/list_control.h"

#include <initializer_list>

namespace ostrand {

/// Whether the protocol has a line of its own, which carries no files beside the terminal.
inline bool IsLineProtocol(std::u16string_view name) { return name == u"TAPI" || name == u"Serial"; }

/// An entry's number is its protocol's row in the protocol table, -1 for a protocol that the table lacks. Borrows the
/// list.
class OSTRAND_API ProtocolBox {
public:
    explicit ProtocolBox(VListControl& list) : m_list(list) {}

    /// The protocols of each product in turn, those of all for kProductNone, and selects one. Its name is searched anew
    /// for each product, and added where that has protocols without it.
    void Fill(std::initializer_list<int> products, std::u16string_view protocol);

    VControlId GetControl() const { return m_list.GetId(); }
    bool HasSelection() const { return m_list.GetSelection() >= 0; }
    VUnicodeString GetName() const { return m_list.GetSelectedText(); }
    int GetRow() const { return m_list.GetSelectedData(); }
    /// Of the entry in effect; -1 for none.
    int GetCurrentRow() const { return m_current < 0 ? -1 : m_list[m_current].data; }
    bool IsChanged() const { return HasSelection() && m_list.GetSelection() != m_current; }
    bool IsMissing() const { return HasSelection() && GetRow() < 0; }

    /// The selected entry is in effect now.
    void Accept() { m_current = m_list.GetSelection(); }
    void PutBack() { m_list.Select(m_current); }
    /// Puts this protocol into effect, and lets the user choose no other.
    void Force(std::u16string_view protocol);
    void Enable(bool enabled) { m_list.Enable(enabled); }

private:
    void AddProtocols(int product, std::u16string_view protocol);

    VListControl& m_list;
    int m_current = -1;
};

} // namespace ostrand
