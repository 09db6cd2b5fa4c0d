#include "config/global/color_scheme_list.h"

#include "core/fold.h"
#include "platform/error_codes.h"
#include "platform/platform.h"

#include <algorithm>
#include <unordered_set>

namespace ostrand {

namespace {

constexpr const char16_t* kMonochrome = u"Monochrome";
constexpr const char16_t* kWindows = u"Windows";
constexpr uint32_t kBlack = 0x000000;
constexpr uint32_t kWhite = 0xFFFFFF;

ColorScheme SystemColors()
{
    return ColorScheme::Of(Platform().display->WindowTextColor(), Platform().display->WindowColor());
}

/// The one built-in scheme with a second colour: all bold text is blue.
ColorScheme BlackOnCyan()
{
    ColorScheme scheme = ColorScheme::Of(kBlack, 0xFFFF00);
    for (size_t i = 0; i < kAttributeCount; ++i)
        if ((i & kBold) != 0)
            scheme.foreground[i] = 0xFF0000;
    return scheme;
}

struct BuiltInScheme {
    const char16_t* name;
    uint32_t foreground;
    uint32_t background;
    ColorScheme (*make)() = nullptr; ///< where the colours above don't tell it all
};

constexpr BuiltInScheme kBuiltIn[] = {
    {kMonochrome, kBlack, kWhite},
    {u"Black / Floral White", kBlack, 0xF0FBFF},
    {u"Yellow / Black", 0x00FFFF, kBlack},
    {u"Traditional", 0x00FF00, kBlack},
    {kWindows, 0, 0, SystemColors},
    {u"Black / Cyan", 0, 0, BlackOnCyan},
    {u"Floral White / Dark Cyan", 0xF0FBFF, 0x808000},
    {u"White / Black", kWhite, kBlack},
};

} // namespace

ProfileColorSchemeList::ProfileColorSchemeList(const ProfileColorSchemeList& other)
    : VProfileData(other),
      m_snapshot(other.m_snapshot ? std::make_unique<ProfileColorSchemeList>(*other.m_snapshot) : nullptr)
{
    CopySchemes(other);
}

ProfileColorSchemeList& ProfileColorSchemeList::operator=(const ProfileColorSchemeList& other)
{
    if (this == &other)
        return *this;
    name = other.name;
    dirty = other.dirty;
    Clear();
    CopySchemes(other);
    return *this;
}

void ProfileColorSchemeList::LoadPart(const VProfileKey* key)
{
    if (key)
        LoadByName(key, VUnicodeString(kName));
    else
        AddBuiltInSchemes(nullptr);
}

void ProfileColorSchemeList::LoadByName(const VProfileKey*, const VUnicodeString& listName)
{
    SetName(listName);
    const VProfileStore store(true);
    const VProfileKey key(store.GetRootKey(), kName);
    const unsigned code = key.GetStatus().GetCode();
    m_loadFailure = code == kErrorFileNotFound ? 0 : code;
    ReadSchemes(key);
    if (GetCount() == 0)
        AddBuiltInSchemes(&key);
    else if (!Exists(kMonochrome))
        AddDefault(&key, kMonochrome, kBlack, kWhite);
}

bool ProfileColorSchemeList::ReadValue(const VProfileKey* key)
{
    if (!key || !key->KeyExists(name.c_str()))
        return false;
    LoadByName(key, VUnicodeString(name));
    return true;
}

void ProfileColorSchemeList::ReadSchemes(const VProfileKey& key)
{
    VProfileKeyIterator values(&key, true);
    VUnicodeString schemeName;
    int type = 0;
    while (values.NextValue(schemeName, &type)) {
        Load(&key, schemeName.c_str(), ColorScheme::Of(kBlack, kWhite));
        // The user's colours of today; where they have changed, the scheme counts as modified.
        if (schemeName == kWindows) {
            ProfileColorScheme& scheme = *m_schemes[GetCount() - 1];
            const ColorScheme colors = SystemColors();
            scheme.foreground = colors.foreground;
            scheme.background = colors.background;
        }
    }
}

void ProfileColorSchemeList::AddBuiltInSchemes(const VProfileKey* key)
{
    for (const BuiltInScheme& scheme : kBuiltIn)
        Load(key, scheme.name, scheme.make ? scheme.make() : ColorScheme::Of(scheme.foreground, scheme.background));
}

void ProfileColorSchemeList::AddDefault(const VProfileKey* key, const char16_t* schemeName, uint32_t foreground,
                                        uint32_t background)
{
    Load(key, schemeName, ColorScheme::Of(foreground, background));
}

/// Appends the stored scheme, else the given one, which then waits for the next save.
void ProfileColorSchemeList::Load(const VProfileKey* key, const char16_t* schemeName, const ColorScheme& scheme)
{
    auto value = std::make_unique<ProfileColorScheme>();
    value->SetName(schemeName);
    value->Load(key, scheme);
    m_schemes.Append(std::move(value));
}

void ProfileColorSchemeList::Save(VProfileKey*, bool force)
{
    m_saveReport.SetMessage(m_loadFailure);
    if (m_loadFailure != 0)
        return; // what was never read would be deleted
    if (!force && !IsAnyPending()) {
        const VProfileStore store(true);
        const VProfileKey key(store.GetRootKey(), name.c_str());
        if (Surplus(key).IsEmpty())
            return; // and the store isn't opened for writing
    }
    const VProfileStore store;
    VProfileKey key(store.GetRootKey(), name.c_str());
    for (const VUnicodeString& schemeName : Surplus(key))
        key.DeleteValue(schemeName.c_str());
    for (const auto& scheme : m_schemes)
        scheme->Save(&key, force);
    static_cast<void>(key.Flush(m_saveReport)); // the report has the answer
}

/// Names of stored values that are no scheme of the list.
VStringArray ProfileColorSchemeList::Surplus(const VProfileKey& key) const
{
    const auto hash = [](std::u16string_view text) { return static_cast<size_t>(HashNoCase(text)); };
    std::unordered_set<std::u16string_view, decltype(hash), decltype(&EqualNoCase)> own(GetCount(), hash, EqualNoCase);
    for (const auto& scheme : m_schemes)
        own.insert(scheme->name);
    VStringArray names;
    VProfileKeyIterator values(&key, true);
    VUnicodeString schemeName;
    int type = 0;
    while (values.NextValue(schemeName, &type))
        if (!own.contains(schemeName))
            names.Append(schemeName);
    return names;
}

bool ProfileColorSchemeList::IsAnyPending() const
{
    return std::any_of(m_schemes.begin(), m_schemes.end(), [](const auto& scheme) { return scheme->IsPending(); });
}

bool ProfileColorSchemeList::IsModified() const
{
    const auto isSame = [](const auto& a, const auto& b) { return a->Value() == b->Value(); };
    return m_snapshot && !std::equal(m_schemes.begin(), m_schemes.end(), m_snapshot->m_schemes.begin(),
                                     m_snapshot->m_schemes.end(), isSame);
}

void ProfileColorSchemeList::AcceptChanges()
{
    auto snapshot = std::make_unique<ProfileColorSchemeList>();
    *snapshot = *this;
    m_snapshot = std::move(snapshot);
}

void ProfileColorSchemeList::RevertChanges()
{
    if (m_snapshot)
        *this = *m_snapshot;
}

size_t ProfileColorSchemeList::Find(std::u16string_view schemeName) const
{
    const auto found = std::find_if(m_schemes.begin(), m_schemes.end(),
                                    [=](const auto& scheme) { return EqualNoCase(scheme->name, schemeName); });
    return static_cast<size_t>(found - m_schemes.begin());
}

ProfileColorScheme ProfileColorSchemeList::GetByName(std::u16string_view schemeName) const
{
    if (const size_t place = Find(schemeName); place < GetCount())
        return GetAt(place);
    if (const size_t place = Find(kMonochrome); place < GetCount())
        return GetAt(place);
    return ProfileColorScheme(kMonochrome, ColorScheme::Of(kBlack, kWhite)); // a list that was never loaded
}

void ProfileColorSchemeList::Add(const ProfileColorScheme& scheme)
{
    m_schemes.Append(std::make_unique<ProfileColorScheme>(scheme));
}

void ProfileColorSchemeList::ReplaceAt(size_t index, const ProfileColorScheme& scheme)
{
    m_schemes[index] = std::make_unique<ProfileColorScheme>(scheme);
}

void ProfileColorSchemeList::CopySchemes(const ProfileColorSchemeList& other)
{
    for (const auto& scheme : other.m_schemes)
        Add(*scheme);
}

} // namespace ostrand
