#include "stores/store_places.h"

#include "profile/key.h"

namespace ostrand {

bool FindValuePlace(const VProfileKey& key, const char16_t* valueName, ValuePlace& place)
{
    auto* const places = dynamic_cast<IStorePlaces*>(key.GetBackEnd());
    return places && places->FindPlace(valueName, place);
}

} // namespace ostrand
