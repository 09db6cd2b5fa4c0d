#include "stores/file_changes.h"

#include "stores/file_document.h"
#include "stores/file_render.h"

namespace ostrand {

namespace {

/// Calls `visit` with the name and the text of each value that counts.
template <class Visit>
void WalkValues(const FileDocument& document, Visit visit)
{
    for (size_t i = 0; i < document.Count(); ++i) {
        const std::u16string name = document.NameAt(i);
        const bool canBeAsked = name.find(u'\0') == std::u16string::npos;
        if (canBeAsked && document.FindWhole(name.c_str()).entry == i)
            visit(name, document.ValueAt(i));
    }
}

} // namespace

std::vector<ValueChange> CompareTexts(std::string_view before, std::string_view after)
{
    const FileDocument old{std::string(before)};
    const FileDocument now{std::string(after)};
    std::vector<ValueChange> changes;
    WalkValues(now, [&](const std::u16string& name, std::string_view value) {
        const FileDocument::Found found = old.FindWhole(name.c_str());
        if (!found)
            changes.push_back({name, {}, std::string(ValueText(value))});
        else if (HashValue(found.value) != HashValue(value))
            changes.push_back({name, std::string(ValueText(found.value)), std::string(ValueText(value))});
    });
    WalkValues(old, [&](const std::u16string& name, std::string_view value) {
        if (!now.FindWhole(name.c_str()))
            changes.push_back({name, std::string(ValueText(value)), {}});
    });
    return changes;
}

} // namespace ostrand
