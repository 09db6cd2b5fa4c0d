// Finds settings by what users call them: labels, groups, names of values, what the schema says of them, synonyms.
// Forgives one slip of the keys in words of four letters, two in words of eight.
#pragma once

#include "dialogs/kit/control.h"
#include "dialogs/kit/word_match.h"

#include <map>
#include <vector>

namespace ostrand {

class VForm;
class VPropertyTreePage;

/// A control that every word fits, or a page whose name they fit.
struct VSearchHit {
    VPropertyTreePage* page = nullptr;
    VForm* form = nullptr;  ///< that the control stands in: the page, or a form in a place of it
    VControlId control = 0; ///< 0: the page itself
    int score = 0;
    size_t order = 0;    ///< among all hits of a search, as the tree and the pages have them
    VUnicodeString name; ///< "Rows"
};

/// Searches pages, and keeps their texts from one search to the next. Whoever owns it clears it when a page, a form in
/// a place or a text has changed. What is hidden isn't found.
class OSTRAND_API VSettingSearch {
public:
    /// Adds the page's hits, itself ahead of its controls. `words` are parted by blanks.
    void Search(VPropertyTreePage& page, std::u16string_view words, std::vector<VSearchHit>& hits);
    void Clear() { m_pages.clear(); }

private:
    /// A text under which something is found, and how much a match in it counts.
    struct Text {
        VFoldedText text;
        int weight;
        bool isOwn; ///< else it counts beside a match in a text of the control's own
    };
    struct Entry {
        VSearchHit hit;
        const VControl* control = nullptr; ///< null: the page
        std::vector<Text> texts;
    };

    static int Score(const std::vector<std::u16string>& words, const std::vector<Text>& texts);
    static std::vector<Text> TextsOf(const VPropertyTreePage& page, const VForm& form, size_t item);
    static void Add(VPropertyTreePage& page, VForm& form, std::vector<Entry>& entries);
    const std::vector<Entry>& EntriesOf(VPropertyTreePage& page);

    std::map<const VPropertyTreePage*, std::vector<Entry>> m_pages;
    unsigned m_language = 0; // of the texts
};

} // namespace ostrand
