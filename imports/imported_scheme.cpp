#include "imports/imported_scheme.h"

#include "core/fold.h"
#include "imports/import_text.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr size_t kMaxName = 200; // far above any real one, and within what stores take
constexpr const char16_t* kNameless = u"Imported";

ColorScheme SchemeOf(const SchemeColors& colors)
{
    ColorScheme scheme;
    for (size_t i = 0; i < scheme.foreground.size(); ++i) {
        const bool isBold = (i & kBold) != 0;
        scheme.foreground[i] = isBold ? colors.boldForeground.value_or(*colors.foreground) : *colors.foreground;
        scheme.background[i] = isBold ? colors.boldBackground.value_or(*colors.background) : *colors.background;
    }
    return scheme;
}

} // namespace

bool SchemeCollector::Add(std::u16string_view name, const SchemeColors& colors, size_t line)
{
    const VUnicodeString clean = NameFor(name);
    if (!colors.foreground || !colors.background) {
        Reject(line, Format(u"scheme '%1' has no %2 colour", Cited(clean),
                            colors.foreground ? u"background" : u"foreground"));
        return true;
    }
    ImportedScheme& scheme = Place(clean);
    scheme = {clean, SchemeOf(colors)};
    scheme.hasAnsi = std::ranges::all_of(colors.ansi, [](const auto& color) { return color.has_value(); });
    if (scheme.hasAnsi)
        std::ranges::transform(colors.ansi, scheme.ansi.begin(), [](const auto& color) { return *color; });
    else
        Note(line, Format(u"scheme '%1' doesn't tell all sixteen ANSI colours, and comes without them", Cited(clean)));
    return m_import.schemes.size() <= kMaxSchemes;
}

ImportedScheme& SchemeCollector::Place(const VUnicodeString& name)
{
    std::u16string folded(name.View());
    std::ranges::transform(folded, folded.begin(), FoldCase);
    const auto [place, isNew] = m_places.try_emplace(std::move(folded), m_import.schemes.size());
    if (isNew)
        m_import.schemes.emplace_back();
    else
        Note(0, Format(u"scheme '%1' is there more than once; the last one counts", Cited(name)));
    return m_import.schemes[place->second];
}

void SchemeCollector::Note(size_t line, VUnicodeString text)
{
    if (m_import.notes.size() < kMaxNotes)
        m_import.notes.push_back({line, std::move(text)});
}

void SchemeCollector::Reject(size_t line, const VUnicodeString& text)
{
    if (!m_reason)
        m_reason = {line, text};
    Note(line, text);
}

bool SchemeCollector::Finish(SchemeImport& out, ImportFault& error, const char16_t* none)
{
    if (m_import.schemes.size() > kMaxSchemes)
        return FailImport(error, 0, u"has more than %1!u! colour schemes", kMaxSchemes);
    if (m_import.schemes.empty()) {
        error = m_reason.value_or(ImportFault{0, none});
        return false;
    }
    out = std::move(m_import);
    return true;
}

VUnicodeString SchemeCollector::NameFor(std::u16string_view name) const
{
    for (const std::u16string_view candidate : {name, BaseName(m_file.name)}) {
        std::u16string clean(candidate.substr(0, kMaxName));
        std::ranges::replace_if(clean, [](char16_t c) { return c < u' ' || c == 0x7F; }, u' ');
        const VUnicodeString trimmed = VUnicodeString(std::u16string_view(clean)).Trimmed();
        if (!trimmed.IsEmpty())
            return trimmed;
    }
    return kNameless;
}

} // namespace ostrand
