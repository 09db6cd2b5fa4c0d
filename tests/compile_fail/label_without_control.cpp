// A label that serves nothing.
#include "dialogs/kit/template.h"

namespace ostrand {

constexpr auto kPage = layout::Page(u"Printing", layout::Field(u"&Port:", layout::Label(u"none")));

} // namespace ostrand
