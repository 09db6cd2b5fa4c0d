#include "dialogs/kit/accessible_name.h"

namespace ostrand {

const VControl* GroupAround(const VForm& form, size_t item)
{
    const std::span<const VTemplateItem> items = form.GetTemplate().Items();
    for (size_t i = item; i-- > 0;)
        if (items[i].kind == VItemKind::Group && i + items[i].descendants >= item)
            return form.ControlOfItem(i);
    return nullptr;
}

VUnicodeString AccessibleName(const VForm& form, size_t item)
{
    const char16_t* const spoken = form.GetTemplate().Items()[item].spokenName;
    VUnicodeString name = spoken ? Translate(spoken) : form.ControlOfItem(item)->GetName();
    if (const VControl* const group = name.IsEmpty() ? GroupAround(form, item) : nullptr)
        name = group->GetName();
    return name.View().ends_with(u':') ? name.Left(name.GetLength() - 1) : name;
}

} // namespace ostrand
