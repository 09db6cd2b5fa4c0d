// VEdited<T>: a page's copy of a value, bound to the control that edits it.
//
//     VEdited<bool> m_prompt{*this, Prompt, m_session.logPrompt};
//     VEdited<int> m_columns{*this, Columns, m_session.cols};       // the bound is that of the value's schema row
//
// The copy is taken at construction and reaches the record with a save that passed. T is bool, int, unsigned, VTriState
// or VUnicodeString; the value may be of a class that converts, such as a number behind a check box, a secret, or
// lines.
#pragma once

#include "dialogs/kit/binding.h"
#include "dialogs/kit/form.h"
#include "dialogs/kit/record_info.h"
#include "dialogs/kit/value_words.h"
#include "profile/multi_line.h"

#include <optional>
#include <type_traits>

namespace ostrand {

/// Whether a number in an edit counts while the edit is disabled.
enum class VWhen : uint8_t { Always, WhileEnabled };

template <class T>
class VEdited final : public VBinding {
public:
    template <class P>
    VEdited(VForm& form, VControlId control, P& target, VWhen when = VWhen::Always)
        : VBinding(form, control, target),
          m_read(Read<P>),
          m_write(Write<P>),
          m_value(Read<P>(target)),
          m_opened(m_value),
          m_when(when)
    {
    }

    const T& Get() const { return m_value; }
    operator const T&() const { return m_value; } // NOLINT(google-explicit-constructor): reads as the value
    VEdited& operator=(const T& value)
    {
        m_value = value;
        return *this;
    }
    /// Takes the record's value again, for pages that do so when they come to the front.
    void Reload() { m_value = m_read(Target()); }

    void Exchange(VDataExchange& dx) override
    {
        if (m_when == VWhen::WhileEnabled && !dx.IsShowing() && !Form().Control(GetControl()).IsEnabled())
            return;
        DDX_Value(dx, GetControl(), m_value);
        if constexpr (std::is_same_v<T, int> || std::is_same_v<T, unsigned>)
            if (const VSchemaEntry* const entry = Entry())
                DDV_Bound(dx, GetControl(), m_value, entry->bound);
        if (!IsLocked())
            dx.ThenWrite([this] { m_write(Target(), m_value); });
    }
    VMarks Compare() override
    {
        T shown = m_value;
        VDataExchange peek(Form(), VDataExchange::Peek);
        DDX_Value(peek, GetControl(), shown);
        const std::optional<T> usual = Default();
        return {.isChanged = !(shown == m_opened),
                .differs = usual && !(shown == *usual),
                .isLocked = IsLocked(),
                .canBeReset = usual.has_value()};
    }
    bool ShowDefault() override
    {
        const std::optional<T> usual = Default();
        if (usual)
            ShowValue(*usual);
        return usual.has_value();
    }
    void ShowOpened() override { ShowValue(m_opened); }
    VUnicodeString DefaultText() override
    {
        const std::optional<T> usual = Default();
        return usual ? ValueWords(Form().Control(GetControl()), *usual) : VUnicodeString();
    }

private:
    template <class P>
    static constexpr bool IsLines = std::is_base_of_v<VProfileMultiLineString, P>;

    template <class P>
    static T Read(const VProfileData& data)
    {
        const P& value = static_cast<const P&>(data);
        if constexpr (IsLines<P>)
            return value.GetText();
        else if constexpr (requires { value.value; })
            return FromNumber(value.value);
        else
            return T(static_cast<const T&>(value));
    }
    template <class P>
    static void Write(VProfileData& data, const T& copy)
    {
        P& value = static_cast<P&>(data);
        if (Read<P>(data) == copy) // a number behind a check box keeps its own way of saying "on"
            return;
        if constexpr (IsLines<P>)
            value.SetText(copy.c_str());
        else if constexpr (requires { value.value; })
            value = static_cast<decltype(value.value)>(copy);
        else
            value = copy;
    }
    template <class N>
    static T FromNumber(N number)
    {
        if constexpr (std::is_same_v<T, bool>)
            return number != N{};
        else
            return static_cast<T>(number);
    }
    std::optional<T> Default() const
    {
        const VProfileData* const usual = DefaultValue();
        return usual ? std::optional<T>(m_read(*usual)) : std::nullopt;
    }
    void ShowValue(const T& value)
    {
        m_value = value;
        VDataExchange show(Form(), VDataExchange::Show);
        DDX_Value(show, GetControl(), m_value);
    }

    T (*const m_read)(const VProfileData&);
    void (*const m_write)(VProfileData&, const T&);
    T m_value;
    const T m_opened;
    const VWhen m_when;
};

} // namespace ostrand
