// Two controls of a page with one id.
#include "dialogs/kit/template.h"

namespace ostrand {

constexpr auto kPage = layout::Page(u"Printing", layout::Check(1, u"&Raw"), layout::Group(u"Port", layout::Edit(1)));

} // namespace ostrand
