// Registry exports: what the Windows registry editor writes as *.reg, and programs that keep its form.
//
//   file   = ( "Windows Registry Editor Version 5.00" | "REGEDIT4" ) end { line }
//   line   = "[" path "]" end | "[-" path "]" end | name "=" data end | ";" comment end | end
//   name   = text | "@"                                         "@" is the default value, whose name is empty
//   data   = text | "dword:" digits | "hex" [ "(" kind ")" ] ":" [ bytes ] | "-"
//   text   = '"' { character | "\\" | '\"' } '"'                 may hold line ends
//   bytes  = byte { "," [ "\" end ] byte }                       hexadecimal, as are kind and digits
//
// UTF-16 with its mark, UTF-8, or the 8-bit code page. Blanks between the parts and at the ends of lines don't count,
// nor does a comment behind data. In a file of version 5 texts among bytes are UTF-16, in the older form narrow.
#pragma once

#include "core/array.h"
#include "imports/import_fault.h"

#include <cstdint>
#include <variant>
#include <vector>

namespace ostrand {

/// Kinds of values as the registry numbers them; others keep their number and come as bytes.
inline constexpr uint32_t kRegistryText = 1;
inline constexpr uint32_t kRegistryExpandText = 2;
inline constexpr uint32_t kRegistryBytes = 3;
inline constexpr uint32_t kRegistryNumber = 4;
inline constexpr uint32_t kRegistryTextList = 7;

/// The file says that the value goes.
struct RegistryDeletion {
    bool operator==(const RegistryDeletion&) const = default;
};
using RegistryBytes = std::vector<uint8_t>;
using RegistryData = std::variant<RegistryDeletion, VUnicodeString, uint32_t, VStringArray, RegistryBytes>;

struct RegistryValue {
    VUnicodeString name; ///< empty for the default value
    uint32_t kind = 0;
    RegistryData data;
    size_t line = 0;
};

struct RegistryKey {
    VUnicodeString path; ///< "HKEY_CURRENT_USER\Software\..."
    bool isDeleted = false;
    size_t line = 0;
    std::vector<RegistryValue> values;
};

/// Files with more keys and values than this are refused.
inline constexpr size_t kMaxRegistryItems = 500'000;

/// Whether the content begins as an export does, whatever comes behind.
bool IsRegistryExport(std::string_view bytes);

/// All keys and values in their order; a key that the file names twice comes twice. False, with the line, at the first
/// thing that doesn't follow the grammar; `keys` then holds what stands before it.
[[nodiscard]] bool ReadRegistryExport(std::string_view bytes, std::vector<RegistryKey>& keys, ImportFault& error);

} // namespace ostrand
