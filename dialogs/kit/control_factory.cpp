#include "dialogs/kit/control_factory.h"

#include "dialogs/kit/button_control.h"
#include "dialogs/kit/check_control.h"
#include "dialogs/kit/edit_control.h"
#include "dialogs/kit/icon_control.h"
#include "dialogs/kit/list_control.h"
#include "dialogs/kit/place_control.h"
#include "dialogs/kit/radio_control.h"
#include "dialogs/kit/report_control.h"

namespace ostrand {

namespace {

std::unique_ptr<VControl> MakeControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label)
{
    switch (item.kind) {
    case VItemKind::Icon:
        return std::make_unique<VIconControl>(owner, item, label);
    case VItemKind::Button:
        return std::make_unique<VButtonControl>(owner, item, label);
    case VItemKind::Check:
        return std::make_unique<VCheckControl>(owner, item, label);
    case VItemKind::Radio:
        return std::make_unique<VRadioControl>(owner, item, label);
    case VItemKind::Edit:
    case VItemKind::MultiLine:
        return std::make_unique<VEditControl>(owner, item, label);
    case VItemKind::DropList:
        return std::make_unique<VListControl>(owner, item, label);
    case VItemKind::Report:
        return std::make_unique<VReportControl>(owner, item, label);
    case VItemKind::Place:
        return std::make_unique<VPlaceControl>(owner, item, label);
    default:
        return item.IsControl() ? std::make_unique<VControl>(owner, item, label) : nullptr;
    }
}

} // namespace

std::vector<std::unique_ptr<VControl>> MakeControls(IControlOwner& owner, const VTemplate& shown)
{
    std::vector<std::unique_ptr<VControl>> controls;
    const VTemplateItem* field = nullptr; // the item before, where it is a field
    for (const VTemplateItem& item : shown.Items()) {
        controls.push_back(MakeControl(owner, item, field ? field->text : nullptr));
        field = item.kind == VItemKind::Field ? &item : nullptr;
    }
    return controls;
}

} // namespace ostrand
