// What a file chooser is asked for.
#pragma once

#include "core/strings.h"

#include <vector>

namespace ostrand {

/// One choice of a chooser's filter.
struct VFileFilter {
    VUnicodeString name;
    VUnicodeString patterns; ///< parted by ";"
};
/// From "Log Files (*.log)|*.log|All Files (*.*)|*.*||"; a name without patterns is left out.
OSTRAND_API std::vector<VFileFilter> ParseFileFilter(std::u16string_view filter);

/// All texts as they are shown.
struct VFileRequest {
    VUnicodeString title;
    VUnicodeString path;      ///< in: what is proposed; out: what was chosen, a native path
    VUnicodeString extension; ///< as "*.log"; more than one, or none, gives names no extension
    VUnicodeString filter;
    bool isSave = false; ///< else to open, and then the file must exist
};

class VForm;

/// Lets the user choose a file, and puts its path into the form's edit where it is another one than `request` proposes.
/// False when cancelled.
OSTRAND_API bool OnBrowseHelper(VForm& form, uint16_t edit, VFileRequest request);

} // namespace ostrand
