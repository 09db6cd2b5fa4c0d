// Secrets of the user, as the system keeps them, and random bytes that nobody can foresee. Results are codes of
// platform/error_codes.h, 0 for success.
#pragma once

#include "core/secret_bytes.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace ostrand {

/// Never asks the user anything. Any thread.
class IDataProtection {
public:
    virtual ~IDataProtection() = default;
    /// A block from which only this user gets the bytes back, on this machine, and only under the same name.
    virtual unsigned Protect(std::string_view name, std::span<const uint8_t> plain, std::vector<uint8_t>& block) = 0;
    /// kErrorInvalidData for a block that is damaged, or was made by another user or under another name. `plain` is
    /// then empty.
    virtual unsigned Unprotect(std::string_view name, std::span<const uint8_t> block, VSecretBytes& plain) = 0;
    /// From the system's cryptographic generator. On failure the buffer stays as it was.
    virtual unsigned FillRandom(void* buffer, size_t size) = 0;
};

} // namespace ostrand
