// The lock interface of records that several threads may hold.
#pragma once

#include "core/unknown.h"

namespace ostrand {

/// A counted object that can be locked. Operations in this order behind the three of IUnknown.
class ISynchObject : public IUnknown {
public:
    virtual void Lock() = 0;
    virtual void Unlock() = 0;
    virtual ~ISynchObject() = default;
    /// Deletes the object; called when its last reference goes.
    virtual void Destroy() { delete this; }
};

} // namespace ostrand
