// Colour schemes as importers give them, and how the few colours of a file become a scheme.
//
// Terminals know one foreground and one background, and some a colour for bold text. A scheme has a pair for each of
// eight attributes: those with bold in them take the bold colours where the file tells such, all others the plain
// ones. The switches are those of a default record, so the editor shows the two pairs that differ.
#pragma once

#include "config/global/color_scheme.h"
#include "imports/import_fault.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ostrand {

/// 0 to 7 black, red, green, yellow, blue, magenta, cyan, white; 8 to 15 the same in bright; each 0x00BBGGRR.
using AnsiColors = std::array<uint32_t, 16>;

struct ImportedScheme {
    VUnicodeString name; ///< never empty, without controls: fit for a value's name
    ColorScheme scheme;
    AnsiColors ansi{};    ///< zeros without `hasAnsi`
    bool hasAnsi = false; ///< the file tells all sixteen
};

struct SchemeImport {
    std::vector<ImportedScheme> schemes; ///< names differ in more than case
    std::vector<ImportFault> notes;      ///< what was passed over; the first of them, if there are very many
};

/// A file as the readers take it.
struct SchemeFile {
    std::string_view bytes;
    std::u16string_view name; ///< path or name; names the scheme where the content has no name for it
};

constexpr uint32_t ColorOf(unsigned red, unsigned green, unsigned blue) { return red | green << 8 | blue << 16; }

/// The colours of one scheme on their way: each empty until the file tells it.
struct SchemeColors {
    using Color = std::optional<uint32_t>;

    Color foreground, background, boldForeground, boldBackground;
    std::array<Color, 16> ansi;
};

/// Collects the schemes of a file.
class SchemeCollector {
public:
    /// Files with more schemes than this are refused.
    static constexpr size_t kMaxSchemes = 4096;
    static constexpr size_t kMaxNotes = 100;

    explicit SchemeCollector(SchemeFile file) : m_file(file) {}

    /// Adds one. A later scheme replaces an earlier one of its name, at that one's place. One without foreground or
    /// background is passed over with a note, and one with less than sixteen ANSI colours comes without them and with
    /// a note. False for too many.
    bool Add(std::u16string_view name, const SchemeColors& colors, size_t line);
    /// What was passed over.
    void Note(size_t line, VUnicodeString text);
    /// The same, where it costs a scheme.
    void Reject(size_t line, const VUnicodeString& text);
    /// Forgets what was added.
    void Restart() { *this = SchemeCollector(m_file); }
    /// All schemes; false if there are none, with what cost the first one as the reason, or else `none`.
    bool Finish(SchemeImport& out, ImportFault& error, const char16_t* none);

private:
    VUnicodeString NameFor(std::u16string_view name) const;
    /// The scheme of this name, a new one if need be.
    ImportedScheme& Place(const VUnicodeString& name);

    SchemeFile m_file;
    SchemeImport m_import;
    std::optional<ImportFault> m_reason;
    std::unordered_map<std::u16string, size_t> m_places; // by folded name
};

} // namespace ostrand
