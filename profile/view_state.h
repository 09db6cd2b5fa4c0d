// States of views, kept as short texts: the columns of a list view, the layout of an explorer frame. Applications work
// on the fields; the text is made from them when the value is saved.
#pragma once

#include "core/array.h"
#include "platform/export.h"
#include "profile/values.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace ostrand {

/// What the first four fields mean is for the user of the state.
///
///   text   = first "," second "," third "," fourth "," columnCount { "," column }
///   column = width "," visible "," order                                        in old texts: width
struct OSTRAND_API VListViewFields {
    struct ColumnInfo {
        int width = 0;
        bool visible = true;
        int order = 0;

        bool operator==(const ColumnInfo&) const = default;
    };

    bool first = true;
    int second = 1;
    uint32_t third = 1;
    int fourth = 0;
    int columnCount = 0;
    VArray<ColumnInfo> columns;

    /// On purpose: the parsed columns go in front of those that are there, so two texts in a row leave the columns of
    /// both, of which the first `columnCount` count. And a text without columns, such as Format writes for a
    /// columnCount of 0, gives the defaults, as does one whose columns don't fit its columnCount.
    void ParseText(std::u16string_view text);
    /// Characters that Format needs at most.
    size_t GetTextBound() const;
    /// Writes the text and returns its end. VArray's OutOfRange if `columnCount` says more than `columns` has.
    char16_t* Format(char16_t* at) const;

private:
    void AddColumns(std::u16string_view tokens, bool widthsAlone);
};

///   text = first "," second "," third
struct OSTRAND_API VExplorerFrameFields {
    bool first = false;
    int second = 0;
    int third = 0;

    /// Fields that the text lacks keep their values.
    void ParseText(std::u16string_view text);
    size_t GetTextBound() const;
    char16_t* Format(char16_t* at) const;
};

/// The value of a state: the text is what is stored and compared, the fields are what applications see. On purpose:
/// RevertChanges brings back the text alone. The fields stay, and the next save makes the text from them; held by
/// ValueState.EveryClassFollowsTheSameSteps.
template <class Fields>
class OSTRAND_API VProfileViewState : public VProfile2<VUnicodeString, VProfileSz>, public Fields {
    using Text = VProfile2<VUnicodeString, VProfileSz>;

public:
    /// Text and fields; saved copy and `dirty` stay.
    VProfileViewState& operator=(const VUnicodeString& text)
    {
        Value() = text;
        ReplaceFields();
        return *this;
    }

    void Load(const VProfileKey* key, const VUnicodeString& defaultText)
    {
        Text::Load(key, defaultText);
        Fields::ParseText(Value());
    }
    void Load(const VProfileKey* key, const char16_t* valueName, const VUnicodeString& defaultText)
    {
        SetName(valueName);
        Load(key, defaultText);
    }
    void Merge(const VProfileKey* key)
    {
        if (!ReadValue(key))
            return;
        KeepAsClean();
        Fields::ParseText(Value());
    }
    /// Current text := the fields. Until then a changed field isn't seen by IsModified.
    void FormatText()
    {
        const size_t bound = Fields::GetTextBound();
        char16_t few[kFewCharacters];
        std::vector<char16_t> many(bound <= kFewCharacters ? 0 : bound);
        char16_t* const begin = many.empty() ? few : many.data();
        const std::u16string_view text(begin, static_cast<size_t>(Fields::Format(begin) - begin));
        if (Value().View() != text)
            Value() = text;
    }

    bool Parse(const VUnicodeString& text, IProfileValueParser* parser, IReportMessageParams& report) override
    {
        return Text::Parse(text, parser, report) && ReplaceFields();
    }
    void Save(VProfileKey* key, bool force) override
    {
        if (!key)
            return;
        FormatText();
        Text::Save(key, force);
    }
    /// Text and fields, or the next save would bring back the fields it has now.
    void CopyValue(const VProfileData& other) override
    {
        Text::CopyValue(other);
        Fields::operator=(dynamic_cast<const VProfileViewState&>(other));
    }
    bool SetVariant(const VVariant* in, IReportMessageParams& report) override
    {
        return Text::SetVariant(in, report) && ReplaceFields();
    }

private:
    static constexpr size_t kFewCharacters = 1024;

    bool ReplaceFields()
    {
        Fields::operator=(Fields());
        Fields::ParseText(Value());
        return true;
    }
};

extern template class OSTRAND_API VProfileViewState<VListViewFields>;
extern template class OSTRAND_API VProfileViewState<VExplorerFrameFields>;

class OSTRAND_API VProfileListViewState : public VProfileViewState<VListViewFields> {
public:
    using VProfileViewState::operator=;
};

class OSTRAND_API VProfileExplorerFrameState : public VProfileViewState<VExplorerFrameFields> {
public:
    using VProfileViewState::operator=;
};

} // namespace ostrand
