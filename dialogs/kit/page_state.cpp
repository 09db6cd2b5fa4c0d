#include "dialogs/kit/page_state.h"

namespace ostrand {

VPropertyPageStateMap& VPropertyPageStateMap::operator=(const VPropertyPageStateMap& other)
{
    if (this == &other)
        return *this;
    RemoveAll();
    VMap::operator=(other);
    OwnStates();
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

} // namespace ostrand
