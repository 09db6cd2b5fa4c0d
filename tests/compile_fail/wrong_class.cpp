// The row of a number over a switch.
#include "tests/compile_fail/record.h"

namespace ostrand {

using C = Printing;

constexpr std::array kRows = {
    Int<&C::copies>(u"Copies", 1, u"How many are printed.", Within{1, 99}),
    Int<&C::isDuplex>(u"Duplex", 0, u"Whether both sides are used."),
};
static_assert(NamesAreUnique(kRows));

} // namespace ostrand
