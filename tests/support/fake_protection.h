// Protection of secrets that only looks like it. `FakeProtection protection;` is in place for its lifetime; a block is
// the user, the name, a zero and the bytes, turned over.
#pragma once

#include "platform/error_codes.h"
#include "platform/platform.h"

#include <algorithm>
#include <string>

namespace ostrand::test {

class FakeProtection : public IDataProtection {
public:
    FakeProtection() { Platform().dataProtection = this; }

    unsigned Protect(std::string_view name, std::span<const uint8_t> plain, std::vector<uint8_t>& block) override
    {
        block.clear();
        if (failure != kErrorSuccess)
            return failure;
        const std::string head = HeadFor(name);
        block.assign(head.begin(), head.end());
        for (const uint8_t byte : plain)
            block.push_back(static_cast<uint8_t>(~byte));
        return kErrorSuccess;
    }
    unsigned Unprotect(std::string_view name, std::span<const uint8_t> block, VSecretBytes& plain) override
    {
        plain.clear();
        const std::string head = HeadFor(name);
        if (block.size() < head.size() || !std::equal(head.begin(), head.end(), block.begin()))
            return kErrorInvalidData;
        plain.resize(block.size() - head.size());
        for (size_t i = 0; i < plain.size(); ++i)
            plain[i] = static_cast<uint8_t>(~block[head.size() + i]);
        return kErrorSuccess;
    }
    unsigned FillRandom(void* buffer, size_t size) override
    {
        if (failure == kErrorSuccess)
            std::fill_n(static_cast<uint8_t*>(buffer), size, ++m_drawn);
        return failure;
    }

    char user = 'a';                  ///< whose blocks can be opened
    unsigned failure = kErrorSuccess; ///< what Protect and FillRandom answer

private:
    std::string HeadFor(std::string_view name) const { return user + std::string(name) + '\0'; }

    VPlatformScope m_scope;
    uint8_t m_drawn = 0;
};

} // namespace ostrand::test
