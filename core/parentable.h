// Which window a prompt belongs to.
#pragma once

namespace ostrand {

class IParentable {
public:
    /// The toolkit's own handle, handed on and never looked into; null for none.
    virtual void* GetParentWindow() = 0;

protected:
    ~IParentable() = default;
};

} // namespace ostrand
