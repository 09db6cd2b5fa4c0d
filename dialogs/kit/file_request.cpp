#include "dialogs/kit/file_request.h"

#include "dialogs/kit/form.h"

namespace ostrand {

namespace {

/// Takes the text up to the next "|".
std::u16string_view NextField(std::u16string_view& rest)
{
    const size_t end = std::min(rest.find(u'|'), rest.size());
    const std::u16string_view field = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return field;
}

} // namespace

std::vector<VFileFilter> ParseFileFilter(std::u16string_view filter)
{
    std::vector<VFileFilter> filters;
    while (!filter.empty()) {
        const std::u16string_view name = NextField(filter);
        const std::u16string_view patterns = NextField(filter);
        if (!name.empty() && !patterns.empty())
            filters.push_back({name, patterns});
    }
    return filters;
}

bool OnBrowseHelper(VForm& form, VControlId edit, VFileRequest request)
{
    const VUnicodeString proposed = request.path;
    if (!form.Services().PickFile(form.Window(), request))
        return false;
    if (!(request.path == proposed))
        form.Control(edit).SetText(request.path);
    return true;
}

} // namespace ostrand
