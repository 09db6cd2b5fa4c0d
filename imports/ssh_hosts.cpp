#include "imports/ssh_hosts.h"

#include <algorithm>
#include <utility>

namespace ostrand {

namespace {

/// Walks back to the last star alone, so it takes the product of both lengths at most.
bool FitsWild(std::string_view pattern, std::string_view text)
{
    size_t p = 0;
    size_t t = 0;
    size_t star = std::string_view::npos;
    size_t behindStar = 0; // in the text
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            behindStar = t;
        } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == text[t])) {
            ++p;
            ++t;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            t = ++behindStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

} // namespace

SshPattern::SshPattern(std::string_view written) : isNegated(written.starts_with('!'))
{
    text = written.substr(isNegated ? 1 : 0);
    isWild = text.find_first_of("*?") != std::string::npos;
}

bool SshPattern::Fits(std::string_view host) const { return isWild ? FitsWild(text, host) : text == host; }

bool SshBlock::Fits(std::string_view host) const
{
    const auto fits = [host](bool isNegated) {
        return [=](const SshPattern& pattern) { return pattern.isNegated == isNegated && pattern.Fits(host); };
    };
    return std::ranges::any_of(patterns, fits(false)) && std::ranges::none_of(patterns, fits(true));
}

SshBlock& SshBlocks::Add(std::vector<SshPattern> patterns)
{
    for (const SshPattern& pattern : patterns)
        (pattern.isWild ? m_wildBytes : m_plainPatterns) += pattern.isWild ? pattern.text.size() : 1;
    return m_blocks.emplace_back(SshBlock{std::move(patterns), {}});
}

bool SshBlocks::ValuesOf(std::string_view host, SshValues& values)
{
    m_work += m_plainPatterns + m_wildBytes * (host.size() + 1);
    if (m_work > kMostWork)
        return false;
    for (const SshBlock& block : m_blocks) {
        if (!block.Fits(host))
            continue;
        for (size_t i = 0; i < kSshKeywords; ++i)
            if (values[i].empty())
                values[i] = block.values[i];
    }
    return true;
}

} // namespace ostrand
