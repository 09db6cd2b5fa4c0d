// Names of keys as names of files. A key "Router 1" has the file "Router 1.ini" for its values and the folder "Router
// 1" for its subkeys. What a file name can't hold, or would be taken for the store's own, is written "%XX", the bytes
// of its UTF-8 in hexadecimal: "%", controls, "/", a leading dot, a dot or blank at the end, the dot of a final ".ini",
// and lone surrogates (the three bytes of their number). The store's own files begin with "%" and a letter that is no
// hexadecimal digit, so no key has their names.
#pragma once

#include <string>
#include <string_view>

namespace ostrand {

inline constexpr std::string_view kValuesSuffix = ".ini";
inline constexpr std::string_view kRootValuesFile = "%root.ini";
inline constexpr std::string_view kLockFile = "%lock";
inline constexpr std::string_view kTemporaryPrefix = "%tmp-";
inline constexpr std::string_view kJournalFile = "%journal";
inline constexpr std::string_view kSpillFile = "%spill";

/// Bytes of the longest file name that common file systems take, the suffix included.
inline constexpr size_t kLongestFileName = 255;

/// Without the suffix. Any name but the empty one has a file name; it may be too long.
std::string EncodeKeyName(std::u16string_view name);
/// The same behind what stands in `out`.
void AppendKeyName(std::u16string_view name, std::string& out);
/// False for a file that no key's name gives; such files are left alone.
bool DecodeKeyName(std::string_view file, std::u16string& name);

} // namespace ostrand
