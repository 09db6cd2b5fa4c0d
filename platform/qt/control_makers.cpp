#include "platform/qt/controls/makers.h"

#include "platform/qt/form_widget.h"

#include <algorithm>
#include <cassert>

namespace ostrand::qt {

namespace {

struct Maker {
    VItemKind kind;
    ControlWidgetMaker make;
};
constexpr std::array kMakers = {
    Maker{VItemKind::Group, MakeGroup},       Maker{VItemKind::Label, MakeLabel},
    Maker{VItemKind::Icon, MakeIcon},         Maker{VItemKind::Button, MakeButton},
    Maker{VItemKind::Check, MakeCheck},       Maker{VItemKind::Radio, MakeRadio},
    Maker{VItemKind::Edit, MakeEdit},         Maker{VItemKind::MultiLine, MakeMultiLine},
    Maker{VItemKind::DropList, MakeDropList}, Maker{VItemKind::Report, MakeReport},
    Maker{VItemKind::Place, MakePlace},       Maker{VItemKind::Tree, MakeTree},
};

} // namespace

std::unique_ptr<ControlWidget> MakeControlWidget(FormWidget& form, size_t item)
{
    const VItemKind kind = form.Model().GetTemplate().Items()[item].kind;
    const auto* const maker = std::ranges::find(kMakers, kind, &Maker::kind);
    assert(maker != kMakers.end());
    return maker->make(form, item);
}

} // namespace ostrand::qt
