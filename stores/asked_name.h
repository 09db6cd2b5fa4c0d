// A name that somebody asks for, in the forms that finding it needs.
#pragma once

#include "stores/name_index.h"

#include <cstdint>
#include <string_view>

namespace ostrand {

/// Lives as long as the name it was made from.
class AskedName {
public:
    explicit AskedName(std::u16string_view name);

    std::u16string_view View() const { return m_name; }
    /// The HashName.
    uint64_t Hash() const { return m_hash; }
    bool IsAscii() const { return m_isAscii; }
    /// Whether `plain`, which is ASCII, is this name but for case.
    bool IsPlain(std::string_view plain) const;

private:
    static constexpr size_t kShort = 128;

    std::u16string_view m_name;
    uint64_t m_hash;
    bool m_isAscii;
    char m_ascii[kShort]; // of a short ASCII name
};

} // namespace ostrand
