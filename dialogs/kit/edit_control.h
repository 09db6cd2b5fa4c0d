// VEditControl: one line of text, or several, or one that is masked.
#pragma once

#include "dialogs/kit/control.h"

namespace ostrand {

/// Lines end with "\r\n", whatever was set. TextChanged is raised by every change, also by those that code makes.
class OSTRAND_API VEditControl final : public VControl {
public:
    VEditControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label);

    bool IsMultiLine() const { return GetItem().kind == VItemKind::MultiLine; }
    /// Code may set texts that are longer than users may type. Selection and caret go to the end.
    void SetText(const VUnicodeString& text) override;
    /// How many characters users may type; 0: any number.
    unsigned GetMaxChars() const { return GetItem().maxChars; }
    /// Whether a user could make this text of the present one. A text that is too long already may be shortened.
    bool Accepts(std::u16string_view text) const;

    /// Every text of a masked edit is marked sensitive, and stays so when the mask is taken off.
    bool IsMasked() const { return m_isMasked; }
    void SetMasked(bool masked);
    bool IsReadOnly() const { return m_isReadOnly; }
    void SetReadOnly(bool readOnly) { Assign(m_isReadOnly, readOnly, VChange::Enabled); }

    struct Range {
        size_t begin = 0;
        size_t end = 0; ///< where the caret is
        bool operator==(const Range&) const = default;
    };
    const Range& GetSelection() const { return m_selection; }
    /// Cut to the text. Views scroll the caret into view.
    void Select(Range range);
    void SelectAll() { Select({0, VUnicodeString::npos}); }

    VUnicodeString Dump() const override;

private:
    Range m_selection;
    bool m_isMasked;
    bool m_isReadOnly;
};

} // namespace ostrand
