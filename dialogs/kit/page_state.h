// What a page tree remembers from one dialog to the next.
#pragma once

#include "core/map.h"

#include <span>

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
    VPropertyPageStateMap(const VPropertyPageStateMap& other) : VMap(other), m_branches(other.m_branches)
    {
        OwnStates();
    }
    VPropertyPageStateMap& operator=(const VPropertyPageStateMap& other);
    ~VPropertyPageStateMap() { RemoveAll(); }

    /// The state of this name, made where there is none.
    VPropertyPageState& StateOf(const VUnicodeString& name);
    bool RemoveKey(const VUnicodeString& name);
    void RemoveAll();

    // As settings keep it from one run of a program to the next.

    /// A digit for each page in the order of the tree, "0" for a closed branch. A page that has no state yet goes by
    /// its digit; those that a dialog adds when it opens have none. Whatever the dialogs' last trees lacked stays.
    void SetBranches(const VUnicodeString& digits) { m_branches = digits; }
    const VUnicodeString& GetBranches() const { return m_branches; }
    /// Empty while no page is selected. A name that no page has selects none.
    VUnicodeString GetSelected() const;
    void Select(const VUnicodeString& name);

    // What a dialog does with the digits, for its pages by name.

    void TakeBranches(std::span<const VUnicodeString> pages);
    void KeepBranches(std::span<const VUnicodeString> pages);

private:
    /// After a copy of the pointers: states of the map's own in their place.
    void OwnStates();

    VUnicodeString m_branches;
};

} // namespace ostrand
