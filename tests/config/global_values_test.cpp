// The record against a list of its values that was written by hand.
#include "config/global/global_edit.h"
#include "tests/config/expected_schema.h"
#include "tests/config/global_scene.h"

#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

constexpr unsigned kNow = 1'700'000'000;

/// The schema's entries without its rules, a part's in its place.
std::vector<const VSchemaEntry*> Entries()
{
    const std::vector<const GlobalRow*> rows = GlobalRows();
    return {rows.begin(), rows.end()};
}

TEST(GlobalValues, TheSchemaIsTheList) { ExpectSchemaIsTheList(Entries(), ReadExpectedValues()); }

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
    case Computed::Not:
    case Computed::FromOtherValues:
        break;
    }
    return expected.defaultValue;
}

TEST(GlobalValues, ARecordWithoutAKeyHoldsTheDefaultsOfTheList)
{
    FakePlatform platform;
    SmoothDisplay display;
    Platform().display = &display;
    platform.clock.seconds = kNow;
    for (const bool isOrvane : {false, true}) {
        const ConfigPointer config = Read(nullptr, isOrvane);
        std::vector<ExpectedValue> expected = ReadExpectedValues();
        std::erase_if(expected, [](const ExpectedValue& value) { return value.type == "color-schemes"; });
        ExpectDefaultsOfTheList(LeavesOf(*config), expected, isOrvane, DefaultOf);
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
            SCOPED_TRACE(ToUtf8(expected.name) + " = " + std::to_string(stored));
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
