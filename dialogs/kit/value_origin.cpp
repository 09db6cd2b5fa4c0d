#include "dialogs/kit/value_origin.h"

#include "core/fold.h"
#include "profile/key.h"

namespace ostrand {

namespace {

bool HasValue(const VProfileKey& key, std::u16string_view name)
{
    VProfileKeyIterator values(&key, true);
    VUnicodeString found;
    int type = 0;
    while (values.NextValue(found, &type))
        if (EqualNoCase(found, name))
            return true;
    return false;
}

} // namespace

VValueOrigin FindOrigin(const VSchemaEntry& entry, const VUnicodeString& valueName, const VRecordPlace& place,
                        bool isCorrected)
{
    VValueOrigin origin;
    if (!place.factory)
        return origin;
    const VProfileStore store(true, place.factory);
    const VProfileKey key(store.GetRootKey(), place.key.c_str());
    const char16_t* name = valueName.c_str();
    origin.kind = VValueOrigin::Kind::Stored;
    if (!HasValue(key, name)) {
        name = entry.formerly && HasValue(key, entry.formerly) ? entry.formerly : nullptr;
        origin.kind = name ? VValueOrigin::Kind::OldName : VValueOrigin::Kind::NotStored;
    }
    if (!name)
        return origin;
    store.Extras().FindPlace(place.key.c_str(), name, origin.place);
    unsigned stored = 0;
    if (entry.bound.kind != VBound::Kind::None && key.ReadDword(name, &stored) &&
        !entry.bound.Allows(static_cast<int>(stored)))
        origin.correctedFrom = static_cast<int>(stored);
    // A value under its old name differs from its saved copy without having been corrected.
    origin.isCorrected = origin.correctedFrom || (isCorrected && origin.kind == VValueOrigin::Kind::Stored);
    return origin;
}

} // namespace ostrand
