// Random bytes for salts and paddings, behind an interface that a test can put fixed bytes in.
#pragma once

#include "core/unknown.h"
#include "platform/export.h"

namespace ostrand {

/// The order of the operations is part of the binary contract.
class IRandomSource : public IUnknown {
public:
    /// False when there are none to be had; the buffer then stays as it was.
    virtual bool GetBytes(void* buffer, unsigned count) = 0;
    virtual bool Reserved1() { return false; }
    virtual void Reserved2() {}
    /// The same without an answer, and without regard to an earlier failure.
    virtual void FillBytes(void* buffer, unsigned count) = 0;
    virtual ~IRandomSource() = default;
    /// Deletes the object; called when its last reference goes.
    virtual void Destroy() { delete this; }
};

/// The system's cryptographic generator. Any thread.
class VCapiRandomSource : public VUnknown<IRandomSource> {
public:
    /// Tries the generator; `status` keeps the outcome.
    VCapiRandomSource();
    bool GetBytes(void* buffer, unsigned count) override;
    void FillBytes(void* buffer, unsigned count) override;

    unsigned status; ///< 0, or the code of platform/error_codes.h for which there are no bytes
};

/// The one of the process. Lent.
OSTRAND_API IRandomSource& RandomSource();

} // namespace ostrand
