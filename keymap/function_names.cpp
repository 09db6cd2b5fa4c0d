#include "keymap/function_names.h"

#include "keymap/function_table.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <type_traits>

namespace ostrand {

namespace {

/// Second names, which are read and never written.
struct SecondName {
    std::u16string_view name;
    unsigned code;
};
constexpr SecondName kSecondNames[] = {{u"VT_HELP", 153}, {u"VT_DO", 154}};

template <class Character>
constexpr size_t UnitOf(Character c)
{
    return static_cast<std::make_unsigned_t<Character>>(c);
}

template <class Character>
constexpr bool Same(std::u16string_view entry, std::basic_string_view<Character> name)
{
    return std::equal(entry.begin(), entry.end(), name.begin(), name.end(),
                      [](char16_t a, Character b) { return a == UnitOf(b); });
}

constexpr size_t kSlots = 512;
constexpr uint8_t kNoPlace = 0xFF;

/// Where a name is looked for first. Its length and three characters lead nearly every name to a slot of its own.
template <class Character>
constexpr size_t SlotOf(std::basic_string_view<Character> name)
{
    const size_t size = name.size();
    return (size + 31 * UnitOf(name[size - 1]) + 29 * UnitOf(name[size / 2]) +
            5 * UnitOf(name[size > 1 ? size - 2 : 0])) %
           kSlots;
}

/// Places of the table by slot; a name whose slot is taken stands in the next free one. No name occurs twice, so what
/// is found is what a walk would find.
constexpr auto kPlaces = [] {
    std::array<uint8_t, kSlots> places{};
    places.fill(kNoPlace);
    for (uint8_t place = 0; place < kFunctionCount; ++place) {
        size_t slot = SlotOf(kFunctionTable[place]);
        for (; places[slot] != kNoPlace; slot = (slot + 1) % kSlots)
            if (kFunctionTable[places[slot]] == kFunctionTable[place])
                throw "a name occurs twice";
        places[slot] = place;
    }
    return places;
}();

template <class Character>
int CodeOf(std::basic_string_view<Character> name)
{
    if (name.empty())
        return 0;
    for (size_t slot = SlotOf(name); kPlaces[slot] != kNoPlace; slot = (slot + 1) % kSlots)
        if (Same(kFunctionTable[kPlaces[slot]], name))
            return kPlaces[slot];
    for (const SecondName& second : kSecondNames)
        if (Same(second.name, name))
            return static_cast<int>(second.code);
    return -1;
}

} // namespace

int FunctionCodeOf(std::u16string_view name) { return CodeOf(name); }

int FunctionCodeOf(std::string_view name) { return CodeOf(name); }

std::u16string_view FunctionNameOf(unsigned code)
{
    return code < kFunctionCount ? kFunctionTable[code] : std::u16string_view();
}

std::u16string_view FunctionNameAt(size_t place)
{
    assert(place < kFunctionTable.size());
    return kFunctionTable[place];
}

} // namespace ostrand
