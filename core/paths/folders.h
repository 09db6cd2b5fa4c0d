// Folders that users name: whether they exist, asking to make them, picking one. Messages and questions go through
// core/prompts.h.
#pragma once

#include "core/strings.h"

namespace ostrand {

/// Of the running executable.
OSTRAND_API VUnicodeString GetExeFolder();

/// Whether a file, not a folder, has this path.
OSTRAND_API bool IsFile(std::u16string_view path);
/// Whether the folder of the running executable has this program, with or without ".exe" behind its name.
OSTRAND_API bool HasProgramBeside(std::u16string_view name);

/// The path itself if it exists, else the nearest folder above it that does; empty when none does.
OSTRAND_API VUnicodeString FindExistingFolder(std::u16string_view path);

/// Whether the path exists or could be made, one level at most, with the user's consent. A path without any folder in
/// it becomes a full one, with the user's consent, too. What is refused is told. A file in the folder's place is no
/// failure.
OSTRAND_API bool EnsureFolderExists(VUnicodeString& path);

/// Expands a template without session and host, checks its syntax and ensures that the folder exists. `path` stays as
/// it is while the folder is the one it expands to; otherwise it becomes that folder, in the system's own spelling.
OSTRAND_API bool ValidateLocalFolder(VUnicodeString& path);

/// The user picks a folder, beginning at `path`. False when cancelled; a picked thing that isn't in the file system is
/// told and empties `path`.
OSTRAND_API bool BrowseForFolder(std::u16string_view title, VUnicodeString& path);

/// The same for the configuration folder, beginning at what the template `path` expands to. True when `path` was
/// replaced by another folder. A template that doesn't expand goes to the router.
OSTRAND_API bool BrowseForConfigFolder(VUnicodeString& path);

} // namespace ostrand
