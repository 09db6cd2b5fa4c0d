#include "dialogs/kit/page_state.h"

#include <algorithm>

namespace ostrand {

VPropertyPageStateMap& VPropertyPageStateMap::operator=(const VPropertyPageStateMap& other)
{
    if (this == &other)
        return *this;
    RemoveAll();
    VMap::operator=(other);
    OwnStates();
    m_branches = other.m_branches;
    return *this;
}

void VPropertyPageStateMap::OwnStates()
{
    for (size_t i = 0; i < GetCount(); ++i) {
        VPropertyPageState*& state = (*this)[GetKey(i)];
        state = new VPropertyPageState(*state);
    }
}

VPropertyPageState& VPropertyPageStateMap::StateOf(const VUnicodeString& name)
{
    VPropertyPageState*& state = (*this)[name];
    if (!state)
        state = new VPropertyPageState;
    return *state;
}

bool VPropertyPageStateMap::RemoveKey(const VUnicodeString& name)
{
    VPropertyPageState* state = nullptr;
    Lookup(name, state);
    delete state;
    return VMap::RemoveKey(name);
}

void VPropertyPageStateMap::RemoveAll()
{
    for (size_t i = 0; i < GetCount(); ++i) {
        VPropertyPageState* state = nullptr;
        Lookup(GetKey(i), state);
        delete state;
    }
    VMap::RemoveAll();
}

VUnicodeString VPropertyPageStateMap::GetSelected() const
{
    for (size_t i = 0; i < GetCount(); ++i)
        if (VPropertyPageState* state = nullptr; Lookup(GetKey(i), state) && state->isSelected)
            return GetKey(i);
    return {};
}

void VPropertyPageStateMap::Select(const VUnicodeString& name)
{
    if (const VUnicodeString former = GetSelected(); !former.IsEmpty())
        StateOf(former).isSelected = false;
    StateOf(name).isSelected = true;
}

void VPropertyPageStateMap::TakeBranches(std::span<const VUnicodeString> pages)
{
    for (size_t i = 0; i < std::min(pages.size(), m_branches.GetLength()); ++i)
        if (VPropertyPageState* state = nullptr; !Lookup(pages[i], state))
            StateOf(pages[i]).isExpanded = m_branches[i] != u'0';
}

void VPropertyPageStateMap::KeepBranches(std::span<const VUnicodeString> pages)
{
    VUnicodeString digits;
    for (const VUnicodeString& page : pages)
        digits += StateOf(page).isExpanded ? u"1" : u"0";
    m_branches = digits + m_branches.Mid(pages.size());
}

} // namespace ostrand
