#include "tools/suggest.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace ostrand::tool {

namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

/// Letters to insert, delete or replace (V. Levenshtein, 1965), by the row-wise method of Wagner and Fischer.
size_t EditDistance(std::string_view a, std::string_view b)
{
    std::vector<size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (const char c : a) {
        size_t diagonal = row[0]++;
        for (size_t j = 0; j < b.size(); ++j) {
            const size_t replaced = diagonal + (Lower(c) == Lower(b[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
        }
    }
    return row[b.size()];
}

} // namespace

std::string NearestName(std::string_view typed, std::span<const std::string> names)
{
    std::string nearest;
    size_t least = std::max<size_t>(2, typed.size() / 3) + 1;
    for (const std::string& name : names) {
        // The lengths alone rule most names out, and all of them for a text that is no name at all.
        if (std::max(typed.size(), name.size()) - std::min(typed.size(), name.size()) >= least)
            continue;
        const size_t distance = EditDistance(typed, name);
        if (distance < least) {
            least = distance;
            nearest = name;
        }
    }
    return nearest;
}

} // namespace ostrand::tool
