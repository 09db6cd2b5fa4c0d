// Operations on the text of paths. Pure: they look at no file, and their results are the same on every system. Both "\"
// and "/" part folders; "\" is the one that is put in, but "/" in paths that begin with one, as other systems' do.
#pragma once

#include "core/strings.h"

namespace ostrand {

/// One separator between the two; one of two that meet is dropped. So JoinPath("", "x") is "\x".
OSTRAND_API VUnicodeString JoinPath(std::u16string_view a, std::u16string_view b);
/// The folder, and what stands behind the last separator; separators at the end don't count. Both are empty for a drive
/// and for a single separator.
OSTRAND_API VUnicodeString SplitPath(std::u16string_view path, VUnicodeString& fileName);
/// The folder of SplitPath.
OSTRAND_API VUnicodeString GetParentFolder(std::u16string_view path);

/// "C:" or "C:\", with the first character as the letter, whatever it is; else the letter is 0.
OSTRAND_API bool IsDriveRoot(std::u16string_view path, char16_t* letter = nullptr);

/// Whether a path holds no character that the strictest system refuses: none below 32 and none of "*:<>?|, but for the
/// colon behind a drive's letter and the "?" of a leading "\\?". Then each "/" becomes "\" and `badIndex` -1; else
/// `badIndex` is the first bad place and the path stays.
OSTRAND_API bool CheckPathSyntax(VUnicodeString& path, int* badIndex = nullptr);

/// Whether the name of a file or folder holds one of \/:*?"<>|. `found` is then the first of these, in this order, that
/// occurs; else 0.
OSTRAND_API bool HasIllegalNameCharacter(std::u16string_view name, char16_t* found = nullptr);
/// CON, COM1 and their like, in any case.
OSTRAND_API bool IsReservedDeviceName(std::u16string_view name);

} // namespace ostrand
