// The record against a list of its values that was written by hand.
#include "config/global/global_edit.h"
#include "tests/config/expected_values.h"
#include "tests/config/global_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

constexpr unsigned kNow = 1'700'000'000;

std::string Narrow(std::u16string_view text) { return ToUtf8(text); }

std::u16string TextOrNothing(const char16_t* text) { return text ? text : u""; }

/// The schema's entries without its rules, a part's in its place.
std::vector<const VSchemaEntry*> Entries()
{
    const std::vector<const GlobalRow*> rows = GlobalRows();
    return {rows.begin(), rows.end()};
}

/// The constant default of an entry that keeps it in itself, as numbers and texts do.
std::optional<StoreValue> DefaultOf(const VSchemaEntry& entry)
{
    if (entry.text)
        return VUnicodeString(entry.text);
    if (entry.type == VValueClass::Bool || entry.type == VValueClass::Int || entry.type == VValueClass::UInt)
        return static_cast<unsigned>(entry.number);
    return std::nullopt;
}

void ExpectSame(const VSchemaEntry& entry, const ExpectedValue& expected)
{
    EXPECT_EQ(TextOrNothing(entry.NameFor(true)), expected.nameInOrvane);
    EXPECT_EQ(TextOrNothing(entry.formerly), expected.formerly);
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

TEST(GlobalValues, TheSchemaIsTheList)
{
    const std::vector<ExpectedValue> list = ReadExpectedValues();
    const std::vector<const VSchemaEntry*> entries = Entries();
    std::vector<std::u16string> listed;
    std::vector<std::u16string> named;
    for (const ExpectedValue& value : list)
        listed.push_back(value.name);
    for (const VSchemaEntry* entry : entries)
        named.push_back(entry->name);
    ASSERT_THAT(named, testing::ElementsAreArray(listed));
    for (size_t i = 0; i < list.size(); ++i) {
        SCOPED_TRACE(Narrow(list[i].name));
        ExpectSame(*entries[i], list[i]);
    }
}

class SmoothDisplay : public IDisplay {
public:
    bool SmoothsFonts() override { return true; }
};

StoreValue DefaultOf(const ExpectedValue& expected)
{
    switch (expected.computed) {
    case Computed::Clock:
        return kNow;
    case Computed::FontSmoothing:
        return 1u;
    case Computed::StoreExists:
        return 0u;
    case Computed::ByOthers:
    case Computed::Not:
        break;
    }
    return expected.defaultValue;
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

void ExpectDefault(VProfileData& value, const ExpectedValue& expected, bool isOrvane)
{
    EXPECT_EQ(NameOf(value), expected.NameFor(isOrvane));
    EXPECT_FALSE(value.IsModified());
    EXPECT_EQ(value.IsDirty(), expected.hasDefault) << "a default waits for the next save";
    const auto current = CurrentValue(value);
    ASSERT_EQ(current.has_value(), expected.hasDefault);
    EXPECT_TRUE(!current || *current == DefaultOf(expected));
}

TEST(GlobalValues, ARecordWithoutAKeyHoldsTheDefaultsOfTheList)
{
    FakePlatform platform;
    SmoothDisplay display;
    Platform().display = &display;
    platform.clock.seconds = kNow;
    for (const bool isOrvane : {false, true}) {
        const ConfigPointer config = Read(nullptr, isOrvane);
        const std::vector<VProfileData*> members = LeavesOf(*config);
        size_t at = 0;
        for (const ExpectedValue& expected : ReadExpectedValues()) {
            SCOPED_TRACE(Narrow(expected.NameFor(isOrvane)));
            if (!expected.isInTable || expected.type == "color-schemes")
                continue;
            ASSERT_LT(at, members.size());
            ExpectDefault(*members[at++], expected, isOrvane);
        }
        EXPECT_EQ(at, members.size());
        EXPECT_EQ(config->lineSendDelay, 5);
        EXPECT_EQ(config->characterSendDelay, 0);
    }
}

TEST(GlobalValues, BothSidesOfEachBoundOfTheList)
{
    for (const ExpectedValue& expected : ReadExpectedValues()) {
        if (expected.bound.kind == VBound::Kind::None)
            continue;
        const auto [kind, low, high] = expected.bound;
        const bool isAmong = kind == VBound::Kind::Among;
        const int defaultValue = static_cast<int>(std::get<unsigned>(expected.defaultValue));
        const int belowBecomes = isAmong ? defaultValue : low;
        std::vector<std::pair<int, int>> storedAndRead = {
            {low - 1, belowBecomes}, {low, low}, {INT32_MIN, belowBecomes}, {defaultValue, defaultValue}};
        if (kind == VBound::Kind::AtLeast)
            storedAndRead.emplace_back(INT32_MAX, INT32_MAX);
        else
            storedAndRead.insert(storedAndRead.end(), {{high, high}, {high + 1, isAmong ? defaultValue : high}});
        for (const auto& [stored, read] : storedAndRead) {
            SCOPED_TRACE(Narrow(expected.name) + " = " + std::to_string(stored));
            GlobalStore store({{expected.name.c_str(), static_cast<unsigned>(stored)}});
            const ConfigPointer config = Read(store.Key());
            const auto& value = dynamic_cast<const VProfile<int>&>(*config->FindMember(expected.name));
            EXPECT_EQ(value.value, read);
            EXPECT_EQ(value.saved, stored) << "the saved copy stays, so the next save corrects the store";
            EXPECT_FALSE(value.dirty);
            config->Save(store.Key(), false);
            EXPECT_EQ(store.Get(expected.name), StoreValue(static_cast<unsigned>(read)));
        }
    }
}

} // namespace
} // namespace ostrand::test
