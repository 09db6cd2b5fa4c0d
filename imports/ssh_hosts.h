// The blocks of an OpenSSH client configuration, and which of their values hold for a host.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

/// Keywords whose values are taken over.
enum class SshKeyword { HostName, Port, User, ProxyJump };
inline constexpr size_t kSshKeywords = 4;

/// One per keyword; empty where there is none.
using SshValues = std::array<std::string, kSshKeywords>;

/// A pattern of a `Host` line: "*" stands for any characters, "?" for one, and "!" in front excludes.
struct SshPattern {
    explicit SshPattern(std::string_view written);

    bool Fits(std::string_view host) const;

    std::string text; ///< without the "!"
    bool isNegated = false;
    bool isWild = false;
};

struct SshBlock {
    std::vector<SshPattern> patterns;
    SshValues values;

    /// One pattern fits, and none that excludes.
    bool Fits(std::string_view host) const;
};

class SshBlocks {
public:
    /// Of all pairs of a host and a pattern together: characters that may have to be compared. Files beyond that are
    /// no configuration that somebody has.
    static constexpr uint64_t kMostWork = uint64_t{1} << 28;

    /// The next block of the file.
    SshBlock& Add(std::vector<SshPattern> patterns);
    /// The first value of each keyword, from the blocks that fit. False where that takes too long.
    bool ValuesOf(std::string_view host, SshValues& values);

private:
    std::vector<SshBlock> m_blocks;
    uint64_t m_work = 0;
    uint64_t m_plainPatterns = 0;
    uint64_t m_wildBytes = 0; // of all patterns that aren't plain
};

} // namespace ostrand
