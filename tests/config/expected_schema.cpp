#include "tests/config/expected_schema.h"

#include "tests/config/global_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {

namespace {

std::u16string TextOrNothing(const char16_t* text) { return text ? text : u""; }

bool IsNumber(VValueClass type)
{
    return type == VValueClass::Bool || type == VValueClass::Int || type == VValueClass::UInt ||
           type == VValueClass::TriState;
}

/// The constant default of an entry that keeps it in itself, as numbers and texts do.
std::optional<StoreValue> DefaultOf(const VSchemaEntry& entry)
{
    if (entry.text)
        return VUnicodeString(entry.text);
    if (IsNumber(entry.type))
        return static_cast<unsigned>(entry.number);
    return std::nullopt;
}

void ExpectSame(const VSchemaEntry& entry, const ExpectedValue& expected)
{
    EXPECT_EQ(TextOrNothing(entry.NameFor(true)), expected.nameInOrvane);
    EXPECT_EQ(TextOrNothing(entry.formerly), expected.formerly);
    EXPECT_EQ(entry.formerlyIsDefault, expected.formerlyIsDefault);
    EXPECT_EQ(ValueClassName(entry.type), expected.type);
    EXPECT_EQ(entry.isMerged, expected.isMerged);
    EXPECT_EQ(entry.isInTable, expected.isInTable);
    EXPECT_EQ(entry.bound.kind, expected.bound.kind);
    EXPECT_EQ(entry.bound.low, expected.bound.low);
    EXPECT_EQ(entry.bound.high, expected.bound.high);
    EXPECT_EQ(entry.computed != nullptr, expected.computed != Computed::Not);
    EXPECT_NE(TextOrNothing(entry.meaning), u"");
    const auto value = DefaultOf(entry);
    EXPECT_TRUE(!value || entry.computed || *value == expected.defaultValue);
}

/// The current value in its stored form; nothing for a value that is never written as it stands.
std::optional<StoreValue> CurrentValue(VProfileData& value)
{
    // A view's text is made anew by a save.
    if (const auto* const text = dynamic_cast<const VProfileString*>(&value))
        return text->Value();
    GlobalStore store;
    value.Save(store.Key(), true);
    return store.Get(value.name);
}

void ExpectDefault(VProfileData& value, const ExpectedValue& expected, const StoreValue& defaultValue)
{
    EXPECT_FALSE(value.IsModified());
    EXPECT_EQ(value.IsDirty(), expected.hasDefault && expected.isPending) << "a default waits for the next save";
    const auto current = CurrentValue(value);
    ASSERT_EQ(current.has_value(), expected.hasDefault);
    EXPECT_TRUE(!current || *current == defaultValue);
}

} // namespace

std::vector<const VSchemaEntry*> EntriesOf(const VSchemaView& schema)
{
    std::vector<const VSchemaEntry*> entries;
    for (size_t i = 0; i < schema.GetCount(); ++i)
        if (!schema[i].IsRule())
            entries.push_back(&schema[i]);
    return entries;
}

void ExpectSchemaIsTheList(const std::vector<const VSchemaEntry*>& entries, const std::vector<ExpectedValue>& list)
{
    std::vector<std::u16string> listed;
    std::vector<std::u16string> named;
    for (const ExpectedValue& value : list)
        listed.push_back(value.name);
    for (const VSchemaEntry* entry : entries)
        named.push_back(entry->name);
    ASSERT_THAT(named, testing::ElementsAreArray(listed));
    for (size_t i = 0; i < list.size(); ++i) {
        SCOPED_TRACE(ToUtf8(list[i].name));
        ExpectSame(*entries[i], list[i]);
    }
}

void ExpectDefaultsOfTheList(const std::vector<VProfileData*>& members, const std::vector<ExpectedValue>& list,
                             bool isOrvane, const std::function<StoreValue(const ExpectedValue&)>& defaultOf)
{
    size_t at = 0;
    for (const ExpectedValue& expected : list) {
        SCOPED_TRACE(ToUtf8(expected.NameFor(isOrvane)));
        if (!expected.isInTable)
            continue;
        ASSERT_LT(at, members.size());
        VProfileData& value = *members[at++];
        EXPECT_EQ(NameOf(value), expected.NameFor(isOrvane));
        ExpectDefault(value, expected, defaultOf(expected));
    }
    EXPECT_EQ(at, members.size());
}

} // namespace ostrand::test
