// Which terminals a session may emulate, and which key map goes with each. Two tables of the process, filled at
// start-up and whenever the global configuration is read, then only read, without a lock.
#pragma once

#include "core/array.h"
#include "platform/export.h"

#include <string_view>

namespace ostrand {

class GlobalConfig;

/// One row of the table of emulations.
struct EmulationInfo {
    VUnicodeString name;
    int keymap = 0; ///< its default key map, a place in KeymapNames
};

/// Names of the built-in key maps; the first stands for a file of the user's own. Lent, and valid until the next
/// rebuild, as are the rows of Emulations.
OSTRAND_API const VStringArray& KeymapNames();
/// The built-in emulations, then the termcap entries that the user selected.
OSTRAND_API const VArray<EmulationInfo>& Emulations();

/// Fills both tables anew, for the product whose name the application has. Without a configuration there are no termcap
/// entries. No other thread may be reading the tables.
OSTRAND_API void RebuildEmulationTables(int productId, const GlobalConfig* config);

/// Whether the fourth row is the emulation "Nerith", which all products but Quillo have. VArray's OutOfRange with fewer
/// than four rows: a call before start-up.
OSTRAND_API bool HasNerithEmulation();
/// The same for the reading of sessions, which no missing start-up call may stop: false with fewer than four rows.
bool OffersNerith();

/// Whether the name is one of the configuration's selected termcap entries; false without a configuration. The case of
/// all names of emulations counts.
OSTRAND_API bool IsTermcapEmulation(std::u16string_view name, const GlobalConfig* config);
/// Whether the name is a built-in emulation, of a product with or without "Nerith".
bool IsBuiltInEmulation(std::u16string_view name, bool hasNerith);
/// Whether it is one whose sessions begin with ANSI colours.
bool HasAnsiColors(std::u16string_view name, bool hasNerith);

/// For tests: as if nothing had filled the tables yet.
void ForgetEmulationTables();

} // namespace ostrand
