// Colour schemes: the record, the list.

#include "config/global/color_scheme_list.h"
#include "tests/vectors/json_store.h"
#include "tests/vectors/json_values.h"

namespace ostrand::vectors {

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
    Switch{"advanced", &ColorScheme::advanced}, Switch{"overstrike_bold", &ColorScheme::overstrikeBold},
    Switch{"show_underline", &ColorScheme::showUnderline}, Switch{"enable_blink", &ColorScheme::enableBlink}};
constexpr std::array kColors = {Colors{"foreground", &ColorScheme::foreground},
                                Colors{"background", &ColorScheme::background}};

Json Pack(const Json& theCase)
{
    const Json& fields = theCase.at("fields");
    ColorScheme scheme;
    for (const Switch& s : kSwitches)
        scheme.*s.member = fields.at(s.name).get<uint8_t>();
    for (const Colors& c : kColors)
        scheme.*c.member = fields.at(c.name).get<ColorScheme::Colors>();
    return {{"block", ToJson(scheme)}};
}

Json Unpack(const Json& theCase)
{
    ColorScheme scheme;
    FromJson(theCase.at("block"), scheme);
    Json fields = Json::object();
    for (const Switch& s : kSwitches)
        fields[s.name] = scheme.*s.member;
    for (const Colors& c : kColors)
        fields[c.name] = scheme.*c.member;
    return {{"fields", fields}};
}

Json Schemes(const ProfileColorSchemeList& list, const Json& expected)
{
    Json schemes = Json::array();
    for (size_t i = 0; i < list.GetCount(); ++i) {
        const ProfileColorScheme scheme = list.GetAt(i);
        schemes.push_back({{"name", FromText(scheme.name)}, {"pending", scheme.IsPending()}});
        // The system's colours are not among the known answers.
        if (i < expected.size() && expected[i].contains("block"))
            schemes.back()["block"] = ToJson(scheme.Value());
    }
    return schemes;
}

Json Load(const Json& theCase)
{
    ProfileColorSchemeList list;
    for (const Json& values : theCase.at("stores")) {
        JsonStore store(values, ProfileColorSchemeList::kName);
        const DefaultStore isDefault(&store.Factory());
        list.LoadByName(store.Key(), VUnicodeString(ProfileColorSchemeList::kName));
    }
    Json lookups = Json::array();
    Json exists = Json::array();
    for (const Json& name : theCase.value("lookups", Json::array())) {
        lookups.push_back(FromText(list.GetByName(ToText(name)).name));
        exists.push_back(list.Exists(ToText(name)));
    }
    return {{"schemes", Schemes(list, theCase.at("expect").at("schemes"))}, {"lookups", lookups}, {"exists", exists}};
}

Json Save(const Json& theCase)
{
    JsonStore store(theCase.at("store"), ProfileColorSchemeList::kName);
    const DefaultStore isDefault(&store.Factory());
    ProfileColorSchemeList list;
    list.LoadPart(store.Key());
    for (const Json& change : theCase.at("changes")) {
        if (change.at("do") != "remove")
            Unknown("change", change.at("do"));
        list.RemoveAt(list.Find(ToText(change.at("name"))));
    }
    list.Save(store.Key(), theCase.at("force"));
    return {{"store", store.Values()}};
}

constexpr std::array kKinds = {Kind{"pack", Pack}, Kind{"unpack", Unpack}, Kind{"load", Load}, Kind{"save", Save}};

} // namespace

std::span<const Kind> ColorSchemeKinds() { return kKinds; }

} // namespace ostrand::vectors
