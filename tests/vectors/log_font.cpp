// Fonts and their two stored forms.

#include "tests/vectors/json_store.h"
#include "tests/vectors/json_values.h"

#include <array>

namespace ostrand::vectors {

namespace {

/// All fields but the face, under their names.
template <class Font, class Visit>
void VisitFields(Font& font, Visit visit)
{
    visit("height", font.height);
    visit("width", font.width);
    visit("escapement", font.escapement);
    visit("orientation", font.orientation);
    visit("weight", font.weight);
    visit("italic", font.italic);
    visit("underline", font.underline);
    visit("strike_out", font.strikeOut);
    visit("char_set", font.charSet);
    visit("out_precision", font.outPrecision);
    visit("clip_precision", font.clipPrecision);
    visit("quality", font.quality);
    visit("pitch_and_family", font.pitchAndFamily);
    visit("point_size", font.pointSize);
}

Json FontFields(const VLogFont& font)
{
    Json fields = {{"face", FromText(font.GetFace())}};
    VisitFields(font, [&fields](const char* name, auto field) { fields[name] = field; });
    return fields;
}

Json Pack(const Json& theCase)
{
    const Json& fields = theCase.at("fields");
    VLogFont font;
    font.SetFace(ToText(fields.at("face")));
    VisitFields(font, [&fields](const char* name, auto& field) { field = fields.at(name); });
    return {{"block", ToJson(font)}};
}

Json Unpack(const Json& theCase)
{
    std::vector<uint8_t> bytes = ToBytes(theCase.at("block"));
    VLogFont font;
    if (bytes.size() == VLogFont::kStoredSize) {
        font.Unpack(std::span<const uint8_t>(bytes).first<VLogFont::kStoredSize>());
    } else {
        bytes.resize(VLogFont::kOldStoredSize);
        font = VLogFont::FromOldForm(std::span<const uint8_t>(bytes).first<VLogFont::kOldStoredSize>());
    }
    return {{"fields", FontFields(font)}};
}

Json FromSize(const Json& theCase)
{
    const VLogFont font(theCase.at("size"), ToText(theCase.at("face")));
    return {{"fields", FontFields(font)}, {"block", ToJson(font)}};
}

Json ReadStored(const Json& theCase)
{
    Json values = Json::object();
    for (const auto& [name, block] : theCase.at("blocks").items())
        values[name] = {{"block", block}};
    JsonStore store(values);
    VProfileLogFont value;
    value.SetName(ToText(theCase.at("value_name")));
    if (!value.ReadValue(store.Key()))
        return {{"found", false}};
    return {{"found", true}, {"block", ToJson(value.Value())}, {"fields", FontFields(value)}};
}

constexpr std::array kKinds = {Kind{"pack", Pack}, Kind{"unpack", Unpack}, Kind{"from size", FromSize},
                               Kind{"read value", ReadStored}};

} // namespace

std::span<const Kind> LogFontKinds() { return kKinds; }

} // namespace ostrand::vectors
