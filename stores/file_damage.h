// Files that were damaged: by a failing disk or machine, by a program that stopped in the midst of writing, by a tool
// that merges texts. Which lines count as damage, file_check.h tells; any other line that doesn't parse is an edit, and
// so is a text that ends early at a line end. A damaged file is set aside and made good from its last good version,
// value by value.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ostrand {

/// `lastGood`: the last version that is known to be good, or null. With it a last line counts as cut, too, where what
/// is left of it would still parse; and a file of no bytes counts as damaged where there were values. Walks all lines:
/// to be called for texts that LooksDamaged (damage_scan.h).
bool IsDamaged(std::string_view text, const std::string* lastGood);

/// What isn't damaged stays as it is. Else all lines that aren't damaged, byte for byte; and the values that they lack,
/// as the last good version spelled them, each behind the value that stood before it there. Comments that were lost
/// stay lost. Where no whole value is left, all of the last good version.
std::string Repaired(std::string_view damaged, const std::string* lastGood);

/// A free name beside a file for its damaged contents: "Router 1.ini.damaged-20261124-175202". `time` is in units of
/// 100 nanoseconds since 1601; the name tells UTC. No key's file has such a name.
std::string AsideName(const std::string& file, uint64_t time);
/// Whether AsideName gave a file its name.
bool IsAsideName(std::string_view name);

} // namespace ostrand
