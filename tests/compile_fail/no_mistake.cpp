// Compiles: what the others get wrong is right here.
#include "tests/compile_fail/record.h"

namespace ostrand {

using C = Printing;

constexpr std::array kRows = {
    Int<&C::copies>(u"Copies", 1, u"How many are printed.", Within{1, 99}),
    Bool<&C::isDuplex>(u"Duplex", false, u"Whether both sides are used."),
};
static_assert(NamesAreUnique(kRows));

} // namespace ostrand
