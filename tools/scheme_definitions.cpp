// Colour schemes: fields of a record in the list that the global record holds.
#include "config/global/color_scheme_list.h"
#include "core/fold.h"
#include "core/messages.h"
#include "tools/definitions.h"
#include "tools/scheme_colors.h"
#include "tools/text.h"
#include "tools/words.h"

#include <algorithm>
#include <array>

namespace ostrand::tool {

namespace {

struct Switch {
    const char* name;
    uint8_t ColorScheme::* member;
};
struct Colors {
    const char* name;
    ColorScheme::Colors ColorScheme::* member;
};

constexpr std::array kSwitches = {
    Switch{"advanced", &ColorScheme::advanced}, Switch{"overstrikeBold", &ColorScheme::overstrikeBold},
    Switch{"showUnderline", &ColorScheme::showUnderline}, Switch{"enableBlink", &ColorScheme::enableBlink}};
constexpr std::array kColors = {Colors{"foreground", &ColorScheme::foreground},
                                Colors{"background", &ColorScheme::background}};

bool EqualNames(const std::string& a, std::string_view b)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return lower(x) == lower(y); });
}

bool SaveList(ConfigFolder& folder, IReportMessageParams& report)
{
    ProfileColorSchemeList& list = folder.Config().colorSchemes;
    list.Save(nullptr, false);
    if (list.GetSaveReport().GetCode() == 0)
        return true;
    report.Assign(&list.GetSaveReport());
    return false;
}

class SchemeDefinition : public Definition {
public:
    /// A new scheme has no place yet: `place` is the list's count.
    SchemeDefinition(ConfigFolder& folder, const ProfileColorScheme& scheme, size_t place)
        : m_folder(folder),
          m_scheme(scheme),
          m_place(place)
    {
    }

    Json Fields(bool) override
    {
        Json fields = Json::object();
        for (const Switch& s : kSwitches)
            fields[s.name] = m_scheme.*s.member != 0;
        for (const Colors& c : kColors)
            fields[c.name] = ColorsToJson(m_scheme.*c.member);
        return fields;
    }
    bool Set(const std::string& field, const std::string& word, std::string& problem) override
    {
        for (const Switch& s : kSwitches)
            if (EqualNames(field, s.name))
                return SetSwitch(s, word, problem);
        for (const Colors& c : kColors)
            if (EqualNames(field.substr(0, field.find('.')), c.name))
                return SetColors(m_scheme.*c.member, field, word, problem);
        problem = "no field is named " + Cited(field) +
                  "; there are advanced, overstrikeBold, showUnderline, enableBlink, foreground, background, and one "
                  "attribute's colours such as foreground.bold";
        return false;
    }
    bool Save(IReportMessageParams& report) override
    {
        ProfileColorSchemeList& list = m_folder.Config().colorSchemes;
        if (m_place < list.GetCount())
            list.ReplaceAt(m_place, m_scheme);
        else
            list.Add(m_scheme);
        return SaveList(m_folder, report);
    }

private:
    bool SetSwitch(const Switch& s, const std::string& word, std::string& problem)
    {
        const auto truth = ReadTruth(word);
        if (truth)
            m_scheme.*s.member = *truth ? 1 : 0;
        else
            problem = std::string("'") + s.name + "' takes a bool, true or false, not " + Cited(word);
        return truth.has_value();
    }

    ConfigFolder& m_folder;
    ProfileColorScheme m_scheme;
    size_t m_place;
};

std::vector<VUnicodeString> SchemeNames(ConfigFolder& folder)
{
    std::vector<VUnicodeString> names;
    const ProfileColorSchemeList& list = folder.Config().colorSchemes;
    for (size_t i = 0; i < list.GetCount(); ++i)
        names.push_back(list.GetAt(i).name);
    return names;
}

std::unique_ptr<Definition> LoadScheme(ConfigFolder& folder, const VUnicodeString& name)
{
    const ProfileColorSchemeList& list = folder.Config().colorSchemes;
    const size_t place = list.Find(name);
    if (place == list.GetCount())
        return nullptr;
    return std::make_unique<SchemeDefinition>(folder, list.GetAt(place), place);
}

std::unique_ptr<Definition> MakeScheme(ConfigFolder& folder, const VUnicodeString& name)
{
    ProfileColorScheme scheme(name, ColorScheme::Of(0x000000, 0xFFFFFF));
    scheme.dirty = true;
    return std::make_unique<SchemeDefinition>(folder, scheme, folder.Config().colorSchemes.GetCount());
}

bool CheckNewScheme(ConfigFolder& folder, const VUnicodeString& name, IReportMessageParams& report)
{
    if (name.IsEmpty())
        return Fail(report, kNameMissing, u"scheme");
    return !folder.Config().colorSchemes.Exists(name) || Fail(report, kNameExists, u"scheme", name);
}

/// Under a name that differs in case alone the store would keep the old spelling, so the old one goes first.
bool RenameScheme(ConfigFolder& folder, const VUnicodeString& from, const VUnicodeString& to,
                  IReportMessageParams& report)
{
    ProfileColorSchemeList& list = folder.Config().colorSchemes;
    const size_t place = list.Find(from);
    if (place == list.GetCount())
        return Fail(report, kNameUnknown, u"scheme", from);
    ProfileColorScheme scheme = list.GetAt(place);
    const bool isSameName = EqualNoCase(from, to);
    if (!isSameName && !CheckNewScheme(folder, to, report))
        return false;
    scheme.SetName(to);
    scheme.dirty = true;
    if (isSameName) {
        list.RemoveAt(place);
        if (!SaveList(folder, report))
            return false;
        list.Add(scheme);
    } else {
        list.ReplaceAt(place, scheme);
    }
    return SaveList(folder, report);
}

bool DeleteScheme(ConfigFolder& folder, const VUnicodeString& name, IReportMessageParams& report)
{
    ProfileColorSchemeList& list = folder.Config().colorSchemes;
    const size_t place = list.Find(name);
    if (place == list.GetCount())
        return Fail(report, kNameUnknown, u"scheme", name);
    list.RemoveAt(place);
    return SaveList(folder, report);
}

} // namespace

const DefinitionKind& SchemeKind()
{
    static const DefinitionKind kind = {"scheme",     u"Monochrome", false,      {"foreground", "background"},
                                        SchemeNames,  LoadScheme,    MakeScheme, CheckNewScheme,
                                        RenameScheme, DeleteScheme};
    return kind;
}

} // namespace ostrand::tool
