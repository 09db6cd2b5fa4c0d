#include "imports/scheme_import.h"

#include "core/fold.h"
#include "imports/import_text.h"
#include "imports/registry_export.h"
#include "imports/relaxed_json.h"
#include "imports/terminal_theme_schemes.h"
#include "imports/windows_terminal_schemes.h"
#include "imports/xresources_schemes.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr size_t kLookedAt = 4096; // of a file's content

/// An object or a list behind comments.
bool IsJson(std::string_view bytes)
{
    bytes = bytes.substr(bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0, kLookedAt);
    const std::string plain = PlainJson(bytes);
    const std::string_view content = Trim(plain);
    return content.starts_with('{') || content.starts_with('[');
}

/// A line that only X resources have: a comment, a definition, or a key with "*" in it or "." in front.
bool IsXresources(std::string_view bytes)
{
    bytes = bytes.substr(bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0, kLookedAt);
    while (!bytes.empty()) {
        const std::string_view line = Trim(bytes.substr(0, bytes.find('\n')));
        bytes.remove_prefix(std::min(bytes.find('\n'), bytes.size() - 1) + 1);
        const std::string_view key = line.substr(0, line.find(':'));
        if (line.starts_with('!') || line.starts_with("#define") || line.starts_with("#if"))
            return true;
        if (key.size() < line.size() && key.find(' ') == std::string_view::npos && key.find_first_of("*.") < key.size())
            return true;
    }
    return false;
}

constexpr SchemeForm kForms[] = {
    {u"sessions of PuTTY in a registry export", IsRegistryExport, {u".reg"}, ReadTerminalThemeSchemes},
    {u"schemes of Windows Terminal", IsJson, {u".json", u".jsonc"}, ReadWindowsTerminalSchemes},
    {u"X resources", IsXresources, {u"Xresources", u"Xdefaults", u".xrdb"}, ReadXresourcesSchemes},
};

bool HasEnding(std::u16string_view name, const SchemeForm& form)
{
    return std::ranges::any_of(form.endings, [name](std::u16string_view ending) {
        return !ending.empty() && name.size() >= ending.size() &&
               EqualNoCase(name.substr(name.size() - ending.size()), ending);
    });
}

} // namespace

std::span<const SchemeForm> SchemeForms() { return kForms; }

const SchemeForm* GuessSchemeForm(const SchemeFile& file)
{
    const auto* form = std::ranges::find_if(kForms, [&file](const SchemeForm& f) { return f.fits(file.bytes); });
    if (form == std::end(kForms))
        form = std::ranges::find_if(kForms, [&file](const SchemeForm& f) { return HasEnding(file.name, f); });
    return form == std::end(kForms) ? nullptr : form;
}

bool ImportSchemes(const SchemeFile& file, SchemeImport& out, ImportFault& error)
{
    if (const SchemeForm* const form = GuessSchemeForm(file))
        return form->read(file, out, error);
    return FailImport(error, 0, u"is of no form of colour schemes that is known here");
}

} // namespace ostrand
