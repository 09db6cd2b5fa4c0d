// Colour schemes that people have, whatever program they come from: the form is guessed by the content, then by the
// file's name.
//
//     SchemeImport import;
//     ImportFault error;
//     if (ImportSchemes({bytes, u"Solarized.Xresources"}, import, error))
//         for (const ImportedScheme& scheme : import.schemes) ...
//
// Readers keep nothing, never throw but for lack of memory, and may run on any thread. Memory and time grow with the
// file, which may have 32 MiB. How the colours of a file become a scheme stands in imported_scheme.h.
#pragma once

#include "imports/imported_scheme.h"

#include <span>

namespace ostrand {

struct SchemeForm {
    const char16_t* name; ///< for people
    /// Whether the content looks like this form.
    bool (*fits)(std::string_view bytes);
    /// What names of such files end in, in any case; the rest is empty.
    std::array<std::u16string_view, 3> endings;
    bool (*read)(const SchemeFile& file, SchemeImport& out, ImportFault& error);
};

/// All forms, in the order in which their content is asked.
std::span<const SchemeForm> SchemeForms();

/// Null for a file of no known form.
const SchemeForm* GuessSchemeForm(const SchemeFile& file);

/// False, with the reason and its line or member, if no scheme can be had; `out` is then untouched.
[[nodiscard]] bool ImportSchemes(const SchemeFile& file, SchemeImport& out, ImportFault& error);

} // namespace ostrand
