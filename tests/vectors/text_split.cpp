// Splitting texts, and the hash of the map.

#include "core/map.h"
#include "core/tokenize.h"
#include "tests/vectors/json_text.h"

#include <array>

namespace ostrand::vectors {

namespace {

Json Split(const Json& theCase)
{
    VStringArray pieces;
    Tokenize(ToText(theCase.at("text")), pieces, ToText(theCase.at("separator"))[0]);
    return {{"pieces", FromList(pieces)}};
}

std::vector<std::u16string_view> Views(const VStringArray& texts) { return {texts.begin(), texts.end()}; }

Json SplitFully(const Json& theCase)
{
    const VStringArray separators = ToList(theCase.at("separators"));
    const VStringArray quotes = ToList(theCase.at("quotes"));
    const auto separatorViews = Views(separators);
    const auto quoteViews = Views(quotes);
    const VTokenizeRules rules{separatorViews, quoteViews, theCase.at("drop_empty"), theCase.at("strip_quotes")};
    VStringArray pieces;
    const bool result = Tokenize(ToText(theCase.at("text")), pieces, rules);
    return {{"result", result}, {"pieces", FromList(pieces)}};
}

Json Hash(const Json& theCase)
{
    const uint32_t hash = MapHash(ToText(theCase.at("text")));
    return {{"hash", hash}, {"bucket", hash % VMap<VUnicodeString, int>::kDefaultBuckets}};
}

constexpr std::array kKinds = {Kind{"tokenize", Split}, Kind{"tokenize fully", SplitFully}, Kind{"hash", Hash}};

} // namespace

std::span<const Kind> TextSplitKinds() { return kKinds; }

} // namespace ostrand::vectors
