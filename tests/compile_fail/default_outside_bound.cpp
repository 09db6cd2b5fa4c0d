// A default that its own bound would correct.
#include "tests/compile_fail/record.h"

namespace ostrand {

using C = Printing;

constexpr std::array kRows = {
    Int<&C::copies>(u"Copies", 0, u"How many are printed.", Within{1, 99}),
    Bool<&C::isDuplex>(u"Duplex", false, u"Whether both sides are used."),
};
static_assert(NamesAreUnique(kRows));

} // namespace ostrand
