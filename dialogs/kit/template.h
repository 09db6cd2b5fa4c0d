// What a dialog or page shows and where, as a constant table. Builders nest as the window does, and the compiler checks
// the result: an id that is given twice, or a label without a control, doesn't compile.
//
//     using namespace layout;
//     constexpr auto kPage = Page(u"Log File",
//         Group(u"&Log file name",
//             Row(Edit(FileName, Grow), Button(Browse, u"..."))),
//         Group(u"Custom log data",
//             Field(u"&Upon connect:", Edit(OnConnect, MaxChars{256})),
//             Check(OnlyCustom, u"Lo&g only custom data")));
//
// Items are flat, each container ahead of its descendants. Their order is the tab order. "&" marks the letter that
// reaches a control by the keyboard, "&&" is one "&".
#pragma once

#include "dialogs/kit/standard_icon.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace ostrand {

/// Identifies a control within its form; 0 for one that no code asks for. Pages name theirs by an enum.
using VControlId = uint16_t;

enum class VItemKind : uint8_t {
    // Layout alone.
    Page,    ///< the root; text is the title, "tree label\nheading" or one for both
    Row,     ///< children side by side
    Column,  ///< children one below the other
    Field,   ///< a label and the control it serves, with what stands behind it; labels of neighbours line up
    Stretch, ///< takes the room that is left
    // Controls.
    Group, ///< a frame with a caption
    Label,
    Icon,
    Button,
    Check,
    Radio, ///< a group of Options, one control
    Edit,
    MultiLine,
    DropList,
    Report, ///< rows in columns
    Place,  ///< a rectangle and a place in the tab order for another form
    Tree,   ///< the page tree of a dialog
    // Parts of a control.
    Option, ///< of a Radio; its children stand behind its button
    Item,   ///< of a DropList
    Heading ///< of a Report's column
};

enum class VItemFlag : uint16_t {
    Grow = 1 << 0,       ///< takes its share of room that is left
    Masked = 1 << 1,     ///< an edit shows "*" for each character
    DigitsOnly = 1 << 2, ///< an edit takes 0 to 9 alone from the keyboard
    ReadOnly = 1 << 3,   ///< an edit shows text that can be selected and not changed
    ThreeState = 1 << 4, ///< a check box also says "neither"
    Sorted = 1 << 5,     ///< a list keeps its items in order
    MultiSelect = 1 << 6,
    NoHeadings = 1 << 7, ///< a report hides its column headings
    Default = 1 << 8,    ///< the button that Return presses
    Disabled = 1 << 9,   ///< at first
    Hidden = 1 << 10,    ///< at first
    YesFirst = 1 << 11   ///< of a radio group's two options the first is "yes"
};

struct VTemplateItem {
    const char16_t* text = nullptr;       ///< caption, label or title; before translation
    const char16_t* synonyms = nullptr;   ///< further words under which a search finds the control
    const char16_t* spokenName = nullptr; ///< where neither label nor caption says what the control is
    VItemKind kind = VItemKind::Page;
    VIcon icon = VIcon::None;
    VControlId id = 0;
    uint16_t descendants = 0; ///< items behind this one that stand within it
    uint16_t flags = 0;       ///< of VItemFlag
    uint16_t maxChars = 0;    ///< what an edit takes; 0: any number
    uint16_t width = 0;       ///< in average characters, of a Heading in pixels; 0: what the kind usually has
    uint16_t lines = 0;       ///< of a MultiLine or Report; 0: what the kind usually has
    int32_t data = 0;         ///< an Item's number; a Button's result code, 0 for none
    bool hasData = false;     ///< an Item without a number of its own has its place

    constexpr bool Has(VItemFlag flag) const { return (flags & static_cast<uint16_t>(flag)) != 0; }
    constexpr bool IsControl() const { return kind >= VItemKind::Group && kind <= VItemKind::Tree; }
    /// Whether the keyboard can ever reach a control of this kind.
    constexpr bool TakesFocus() const { return kind >= VItemKind::Button && kind <= VItemKind::Tree; }
};

template <size_t N>
using VItems = std::array<VTemplateItem, N>;

/// A template's items, which live as long as the process.
class VTemplate {
public:
    template <size_t N>
    constexpr VTemplate(const VItems<N>& items) : m_items(items) // NOLINT(google-explicit-constructor): reads as one
    {
    }
    template <size_t N>
    VTemplate(const VItems<N>&& temporary) = delete;
    /// Items that a program has made, with the counts of their descendants.
    explicit VTemplate(std::span<const VTemplateItem> items) : m_items(items) {}
    constexpr std::span<const VTemplateItem> Items() const { return m_items; }
    constexpr const char16_t* Title() const { return m_items.front().text; }

private:
    std::span<const VTemplateItem> m_items;
};

namespace layout {

inline constexpr VItemFlag Grow = VItemFlag::Grow, Masked = VItemFlag::Masked, DigitsOnly = VItemFlag::DigitsOnly,
                           ReadOnly = VItemFlag::ReadOnly, Sorted = VItemFlag::Sorted,
                           MultiSelect = VItemFlag::MultiSelect, NoHeadings = VItemFlag::NoHeadings,
                           Default = VItemFlag::Default, Disabled = VItemFlag::Disabled, Hidden = VItemFlag::Hidden,
                           YesFirst = VItemFlag::YesFirst;
struct MaxChars {
    uint16_t count;
};
struct Width {
    uint16_t characters;
};
struct Lines {
    uint16_t count;
};
/// Words, parted by blanks, that a user may think of instead of those on the label.
struct Also {
    const char16_t* words;
};

/// What screen readers and searches call a control without a label, or one whose caption says nothing, such as "...".
struct Named {
    const char16_t* name;
};

namespace detail {

constexpr void Apply(VTemplateItem& item, VItemFlag flag) { item.flags |= static_cast<uint16_t>(flag); }
constexpr void Apply(VTemplateItem& item, MaxChars max) { item.maxChars = max.count; }
constexpr void Apply(VTemplateItem& item, Width width) { item.width = width.characters; }
constexpr void Apply(VTemplateItem& item, Lines lines) { item.lines = lines.count; }
constexpr void Apply(VTemplateItem& item, Also also) { item.synonyms = also.words; }
constexpr void Apply(VTemplateItem& item, Named named) { item.spokenName = named.name; }

template <class Part>
inline constexpr size_t kItemsIn = 0;
template <size_t N>
inline constexpr size_t kItemsIn<VItems<N>> = N;

/// An item with its options and children, which may come in any order.
template <class... Parts>
consteval auto Make(VTemplateItem head, const Parts&... parts)
{
    VItems<1 + (kItemsIn<Parts> + ... + 0)> all{};
    size_t end = 1;
    [[maybe_unused]] const auto take = [&]<class Part>(const Part& part) {
        if constexpr (kItemsIn<Part> > 0) {
            for (const VTemplateItem& item : part)
                all[end++] = item;
        } else {
            Apply(head, part);
        }
    };
    (take(parts), ...);
    head.descendants = static_cast<uint16_t>(end - 1);
    all[0] = head;
    return all;
}
template <class... Parts>
consteval auto Make(VItemKind kind, VControlId id, const char16_t* text, const Parts&... parts)
{
    VTemplateItem head;
    head.kind = kind;
    head.id = id;
    head.text = text;
    return Make(head, parts...);
}

constexpr VItemKind ParentOf(VItemKind part)
{
    return part == VItemKind::Option ? VItemKind::Radio
           : part == VItemKind::Item ? VItemKind::DropList
                                     : VItemKind::Report;
}

/// Faults that a builder can't see, since they lie between items.
constexpr void Check(std::span<const VTemplateItem> items)
{
    for (size_t i = 0; i < items.size(); ++i) {
        const VTemplateItem& item = items[i];
        for (size_t k = i + 1; item.id != 0 && k < items.size(); ++k)
            if (items[k].id == item.id)
                throw "two controls have one id";
        if (item.TakesFocus() && item.id == 0)
            throw "a control that users work with has no id";
        if (item.kind == VItemKind::Field && (item.descendants == 0 || !items[i + 1].TakesFocus()))
            throw "a field's label serves no control";
        for (size_t k = i + 1; k <= i + item.descendants; k += 1 + items[k].descendants)
            if (items[k].kind >= VItemKind::Option && ParentOf(items[k].kind) != item.kind)
                throw "a part stands outside its control";
    }
}

} // namespace detail

template <class... Children>
consteval auto Page(const char16_t* title, const Children&... children)
{
    const auto items = detail::Make(VItemKind::Page, 0, title, children...);
    detail::Check(items);
    return items;
}
template <class... Children>
consteval auto Row(const Children&... children)
{
    return detail::Make(VItemKind::Row, 0, nullptr, children...);
}
template <class... Children>
consteval auto Column(const Children&... children)
{
    return detail::Make(VItemKind::Column, 0, nullptr, children...);
}
/// The first child is the control that the label belongs to.
template <class... Children>
consteval auto Field(const char16_t* label, const Children&... children)
{
    return detail::Make(VItemKind::Field, 0, label, children...);
}
consteval auto Stretch() { return detail::Make(VItemKind::Stretch, 0, nullptr, Grow); }

template <class... Parts>
consteval auto Group(const char16_t* caption, const Parts&... parts)
{
    return detail::Make(VItemKind::Group, 0, caption, parts...);
}
template <class... Parts>
consteval auto Group(VControlId id, const char16_t* caption, const Parts&... parts)
{
    return detail::Make(VItemKind::Group, id, caption, parts...);
}
template <class... Options>
consteval auto Label(const char16_t* text, const Options&... options)
{
    return detail::Make(VItemKind::Label, 0, text, options...);
}
template <class... Options>
consteval auto Label(VControlId id, const char16_t* text, const Options&... options)
{
    return detail::Make(VItemKind::Label, id, text, options...);
}
template <class... Options>
consteval auto Icon(VControlId id, VIcon icon, const Options&... options)
{
    auto items = detail::Make(VItemKind::Icon, id, nullptr, options...);
    items[0].icon = icon;
    return items;
}
template <class... Options>
consteval auto Button(VControlId id, const char16_t* text, const Options&... options)
{
    return detail::Make(VItemKind::Button, id, text, options...);
}
/// Shows a picture; the text is what screen readers and searches go by.
template <class... Options>
consteval auto IconButton(VControlId id, VIcon icon, const char16_t* text, const Options&... options)
{
    auto items = Button(id, text, options...);
    items[0].icon = icon;
    return items;
}
/// Ends its dialog: kResultOk through OnOK, kResultCancel through OnCancel, any other code at once.
template <class... Options>
consteval auto EndButton(VControlId id, const char16_t* text, int result, const Options&... options)
{
    auto items = Button(id, text, options...);
    items[0].data = result;
    return items;
}
template <class... Options>
consteval auto Check(VControlId id, const char16_t* text, const Options&... options)
{
    return detail::Make(VItemKind::Check, id, text, options...);
}
template <class... Options>
consteval auto TriState(VControlId id, const char16_t* text, const Options&... options)
{
    return detail::Make(VItemKind::Check, id, text, VItemFlag::ThreeState, options...);
}
template <class... Parts>
consteval auto Radio(VControlId id, const Parts&... parts)
{
    return detail::Make(VItemKind::Radio, id, nullptr, parts...);
}
template <class... Children>
consteval auto Option(const char16_t* text, const Children&... children)
{
    return detail::Make(VItemKind::Option, 0, text, children...);
}
template <class... Options>
consteval auto Edit(VControlId id, const Options&... options)
{
    return detail::Make(VItemKind::Edit, id, nullptr, options...);
}
template <class... Options>
consteval auto MultiLine(VControlId id, const Options&... options)
{
    return detail::Make(VItemKind::MultiLine, id, nullptr, options...);
}
template <class... Parts>
consteval auto DropList(VControlId id, const Parts&... parts)
{
    return detail::Make(VItemKind::DropList, id, nullptr, parts...);
}
consteval auto Item(const char16_t* text) { return detail::Make(VItemKind::Item, 0, text); }
consteval auto Item(const char16_t* text, int32_t data)
{
    auto items = Item(text);
    items[0].data = data;
    items[0].hasData = true;
    return items;
}
template <class... Parts>
consteval auto Report(VControlId id, const Parts&... parts)
{
    return detail::Make(VItemKind::Report, id, nullptr, parts...);
}
consteval auto Heading(const char16_t* text, uint16_t pixels)
{
    return detail::Make(VItemKind::Heading, 0, text, Width{pixels});
}
template <class... Options>
consteval auto Place(VControlId id, const Options&... options)
{
    return detail::Make(VItemKind::Place, id, nullptr, options...);
}
template <class... Options>
consteval auto Tree(VControlId id, const Options&... options)
{
    return detail::Make(VItemKind::Tree, id, nullptr, options...);
}

} // namespace layout

} // namespace ostrand
