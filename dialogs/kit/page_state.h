// What a page tree remembers from one dialog to the next.
#pragma once

#include "core/map.h"

namespace ostrand {

struct VPropertyPageState {
    bool isExpanded = true;
    bool isSelected = false; ///< of one page at most
};

/// By the pages' state-map names. States belong to the map they were made in by StateOf, and those of a copy to the
/// copy.
class OSTRAND_API VPropertyPageStateMap : public VMap<VUnicodeString, VPropertyPageState*> {
public:
    VPropertyPageStateMap() = default;
    VPropertyPageStateMap(const VPropertyPageStateMap& other) : VMap(other) { OwnStates(); }
    VPropertyPageStateMap& operator=(const VPropertyPageStateMap& other);
    ~VPropertyPageStateMap() { RemoveAll(); }

    /// The state of this name, made where there is none.
    VPropertyPageState& StateOf(const VUnicodeString& name);
    bool RemoveKey(const VUnicodeString& name);
    void RemoveAll();

private:
    /// After a copy of the pointers: states of the map's own in their place.
    void OwnStates();
};

} // namespace ostrand
