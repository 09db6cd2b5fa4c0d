// The rules of a time zone from the text of POSIX's TZ variable, which is also the last line of a zone file (TZif,
// RFC 8536):
//
//   zone   = name offset [ name [ offset ] [ "," rule "," rule ] ]      the first rule begins daylight time
//   name   = letter letter letter {letter} | "<" { letter | digit | "+" | "-" } ">"
//   offset = [ "+" | "-" ] hours [ ":" minutes [ ":" seconds ] ]         west of UTC is positive
//   rule   = ( "M" month "." week "." weekday | "J" day | day ) [ "/" offset ]
//
// Rules that count the days of the year have no counterpart here; such a zone counts as one without daylight time.
#pragma once

#include "profile/zone_information.h"

#include <string>
#include <string_view>

namespace ostrand {

struct VZoneRule {
    std::string standardName; ///< abbreviation, such as CET
    std::string daylightName; ///< empty for a zone without daylight time
    VTimeZoneInformation information;
};

/// False, `out` untouched, for a text that doesn't follow the grammar to its end.
[[nodiscard]] OSTRAND_API bool ParseZoneText(std::string_view text, VZoneRule& out);
/// The last line of a zone file; empty for a file of the first version and for anything else.
OSTRAND_API std::string_view LastLineOfZoneFile(std::string_view bytes);
/// False for a file that can't be read or that has no rule for the years to come.
[[nodiscard]] bool ReadZoneFile(const std::string& path, VZoneRule& out);

} // namespace ostrand
