// How well a text has a word that somebody typed.
#pragma once

#include "core/strings.h"

#include <string>
#include <vector>

namespace ostrand {

/// A text as it is compared: in lower case, with its words known. For a text that is looked at many times.
class OSTRAND_API VFoldedText {
public:
    explicit VFoldedText(std::u16string_view text);

    std::u16string_view Text() const { return m_text; }
    size_t CountWords() const { return m_words.size(); }
    std::u16string_view Word(size_t index) const
    {
        return std::u16string_view(m_text).substr(m_words[index].begin, m_words[index].length);
    }

private:
    struct Span {
        size_t begin, length;
    };

    std::u16string m_text;
    std::vector<Span> m_words;
};

/// 0: not at all; the more the better. In falling order: a whole word of the text, the beginning of one, a part of the
/// text, a word with slips. `word` is in lower case.
OSTRAND_API int MatchWord(std::u16string_view word, const VFoldedText& text);

} // namespace ostrand
