#include "config/session/emulations.h"

#include "config/global/global_config.h"
#include "core/product.h"

#include <algorithm>
#include <array>

namespace ostrand {

namespace {

constexpr std::u16string_view kNerith = u"Nerith";

enum KeymapPlace : int { Custom, Default, Linux, ScoAnsi, Vt100, Vt220, Wyse50, Wyse60, Xterm, Nerith };

/// Nerith's stands last, since not every product has it.
constexpr std::array<std::u16string_view, 10> kKeymaps = {u"Custom", u"Default", u"Linux",  u"SCOANSI", u"VT100",
                                                          u"VT220",  u"Wyse50",  u"Wyse60", u"Xterm",   kNerith};

struct BuiltIn {
    std::u16string_view name;
    KeymapPlace keymap;
    bool hasAnsiColors;
};

// On purpose: the emulation VT100 goes with the key map Default, while ANSI and VT102 go with the map named VT100; and
// emulations spell "WYSE50" where maps spell "Wyse50". Stores hold these names. Held by
// Emulations.TheRowsAndTheirKeymaps.
constexpr std::array<BuiltIn, 10> kBuiltIn = {{
    {u"ANSI", Vt100, true},
    {u"Linux", Linux, true},
    {u"SCOANSI", ScoAnsi, true},
    {kNerith, Nerith, true},
    {u"VT100", Default, false},
    {u"VT102", Vt100, false},
    {u"VT220", Vt220, false},
    {u"WYSE50", Wyse50, false},
    {u"WYSE60", Wyse60, false},
    {u"Xterm", Xterm, false},
}};

constexpr size_t kNerithRow = 3;

struct Tables {
    VStringArray keymaps;
    VArray<EmulationInfo> emulations;
};

Tables& CurrentTables()
{
    static Tables tables;
    return tables;
}

const BuiltIn* FindBuiltIn(std::u16string_view name, bool hasNerith)
{
    const auto found = std::find_if(kBuiltIn.begin(), kBuiltIn.end(), [&](const BuiltIn& e) { return e.name == name; });
    return found == kBuiltIn.end() || (name == kNerith && !hasNerith) ? nullptr : &*found;
}

} // namespace

const VStringArray& KeymapNames() { return CurrentTables().keymaps; }

const VArray<EmulationInfo>& Emulations() { return CurrentTables().emulations; }

void RebuildEmulationTables(int productId, const GlobalConfig* config)
{
    const bool hasNerith = productId != kProductQuillo;
    Tables tables;
    for (const std::u16string_view name : kKeymaps)
        if (hasNerith || name != kNerith)
            tables.keymaps.Append(name);
    for (const BuiltIn& e : kBuiltIn)
        if (hasNerith || e.name != kNerith)
            tables.emulations.Append({e.name, e.keymap});
    if (config)
        for (const VUnicodeString& name : config->selectedTermcapEntries.Value())
            tables.emulations.Append({name, Default});
    CurrentTables() = std::move(tables);
}

bool HasNerithEmulation() { return Emulations()[kNerithRow].name == kNerith; }

bool OffersNerith() { return Emulations().GetCount() > kNerithRow && HasNerithEmulation(); }

bool IsTermcapEmulation(std::u16string_view name, const GlobalConfig* config)
{
    if (!config)
        return false;
    const VStringArray& entries = config->selectedTermcapEntries.Value();
    return std::find(entries.begin(), entries.end(), name) != entries.end();
}

bool IsBuiltInEmulation(std::u16string_view name, bool hasNerith) { return FindBuiltIn(name, hasNerith) != nullptr; }

bool HasAnsiColors(std::u16string_view name, bool hasNerith)
{
    const BuiltIn* const found = FindBuiltIn(name, hasNerith);
    return found && found->hasAnsiColors;
}

void ForgetEmulationTables() { CurrentTables() = Tables(); }

} // namespace ostrand
