#include "profile/variant.h"

#include "core/messages.h"
#include "profile/values.h"
#include "profile/view_state.h"
#include "profile/window_placement.h"

#include <gtest/gtest.h>

#include <optional>

namespace ostrand {
namespace {

VVariant Of(decltype(VVariant::data) data) { return VVariant{std::move(data)}; }
VVariant Text(const char16_t* text) { return Of(VUnicodeString(text)); }

template <class T>
std::optional<T> Converted(const VVariant& in)
{
    T out{};
    return ConvertVariant(in, out) ? std::optional<T>(out) : std::nullopt;
}

TEST(Variant, Conversions)
{
    const auto none = std::nullopt;
    struct Case {
        const char* what;
        VVariant in;
        std::optional<uint32_t> toUnsigned;
        std::optional<int32_t> toSigned;
        std::optional<bool> toBool;
        std::optional<VUnicodeString> toText;
    };
    const VVariant five = Of(5);
    const VVariant reference = Of(VVariantReference{&five});
    const Case cases[] = {
        {"empty", Of({}), 0, 0, false, u""},
        {"signed", Of(-5), none, -5, true, u"-5"},
        {"unsigned", Of(VVariant::UnsignedInt{4294967295}), 4294967295, none, true, u"4294967295"},
        {"unsigned long", Of(VVariant::UnsignedLong{0}), 0, 0, false, u"0"},
        {"true", Of(true), 4294967295, -1, true, u"-1"},
        {"false", Of(false), 0, 0, false, u"0"},
        {"decimal text", Text(u" +17\t"), 17, 17, true, u" +17\t"},
        {"negative text", Text(u"-2147483648"), none, INT32_MIN, true, u"-2147483648"},
        {"largest text", Text(u"4294967295"), 4294967295, none, true, u"4294967295"},
        {"too large text", Text(u"4294967296"), none, none, none, u"4294967296"},
        {"hexadecimal text", Text(u"&hFf"), 255, 255, true, u"&hFf"},
        {"sign alone", Text(u"-"), none, none, none, u"-"},
        {"two signs", Text(u"--1"), none, none, none, u"--1"},
        {"prefix alone", Text(u"&H"), none, none, none, u"&H"},
        {"followed text", Text(u"12a"), none, none, none, u"12a"},
        {"foreign digits", Text(u"\u0661"), none, none, none, u"\u0661"},
        {"empty text", Text(u""), none, none, none, u""},
        {"word", Text(u"True"), none, none, true, u"True"},
        {"other word", Text(u"#FALSE#"), none, none, false, u"#FALSE#"},
        {"number text as bool", Text(u"0"), 0, 0, false, u"0"},
        {"array", Of(VVariantArray{five}), none, none, none, none},
        {"reference", reference, 5, 5, true, u"5"},
        {"reference to a reference", Of(VVariantReference{&reference}), none, none, none, none},
        {"reference to nothing", Of(VVariantReference{}), none, none, none, none},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(Converted<uint32_t>(c.in), c.toUnsigned);
        EXPECT_EQ(Converted<int32_t>(c.in), c.toSigned);
        EXPECT_EQ(Converted<bool>(c.in), c.toBool);
        EXPECT_EQ(Converted<VUnicodeString>(c.in), c.toText);
    }
}

/// The kind that a class gives, and that taking it back gives the same value and shows as a change.
template <class Kind, class V, class T>
void ExpectRoundTrip(const T& value, const T& other)
{
    V data;
    data.Load(nullptr, value);
    VVariant variant;
    VReportMessageParams report;
    ASSERT_TRUE(data.GetVariant(&variant, report));
    EXPECT_TRUE(std::holds_alternative<Kind>(variant.data)) << variant.data.index();
    data.Load(nullptr, other);
    ASSERT_TRUE(data.SetVariant(&variant, report));
    EXPECT_TRUE(static_cast<const T&>(data) == value);
    EXPECT_TRUE(data.IsModified());
    EXPECT_EQ(report.GetCode(), 0u);
}

TEST(ValueVariant, EachClassTakesWhatItGives)
{
    using String = VProfile2<VUnicodeString, VProfileSz>;
    using List = VProfile2<VStringArray, VProfileMultiSz>;
    ExpectRoundTrip<int32_t, VProfile<int>>(-7, 7);
    ExpectRoundTrip<VVariant::UnsignedInt, VProfile<unsigned>>(0xFFFFFFFFu, 7u);
    ExpectRoundTrip<VVariant::UnsignedLong, VProfile<unsigned long>>(0xFFFFFFFFul, 7ul);
    ExpectRoundTrip<bool, VProfile<bool>>(true, false);
    ExpectRoundTrip<bool, VProfile<VTriState>>(VTriState::False, VTriState::Undetermined);
    ExpectRoundTrip<VUnicodeString, String>(VUnicodeString(u"x"), VUnicodeString(u"y"));
    VStringArray list;
    list.Append(u"a");
    list.Append(u"");
    ExpectRoundTrip<VVariantArray, List>(list, VStringArray());
}

TEST(ValueVariant, AnIntTakesAllThatFits32Bits)
{
    VProfile<int> number;
    VReportMessageParams report;
    const VVariant large = Of(VVariant::UnsignedLong{0xFFFFFFFE});
    EXPECT_TRUE(number.SetVariant(&large, report));
    EXPECT_EQ(number.value, -2);
}

TEST(ValueVariant, UndeterminedIsGivenAndNeverTaken)
{
    VProfile<VTriState> state;
    state = VTriState::Undetermined;
    VVariant variant = Of(3);
    VReportMessageParams report;
    ASSERT_TRUE(state.GetVariant(&variant, report));
    EXPECT_TRUE(std::holds_alternative<std::monostate>(variant.data));
    ASSERT_TRUE(state.SetVariant(&variant, report));
    EXPECT_EQ(state.value, VTriState::False);
    variant = Of(2);
    ASSERT_TRUE(state.SetVariant(&variant, report));
    EXPECT_EQ(state.value, VTriState::True);
}

template <class V, class T>
void ExpectRefused(const T& value, const VVariant& in, unsigned code)
{
    V data;
    data.SetName(u"Value");
    data.Load(nullptr, value);
    VReportMessageParams report;
    EXPECT_FALSE(data.SetVariant(&in, report));
    EXPECT_EQ(report.GetCode(), code);
    ASSERT_EQ(report.GetArgumentCount(), 1);
    EXPECT_EQ(VUnicodeString(report.GetArguments()[0]), u"Value");
    EXPECT_FALSE(data.IsModified());
}

TEST(ValueVariant, RefusalNamesTheValueAndLeavesIt)
{
    const VVariant array = Of(VVariantArray{Of(1)});
    ExpectRefused<VProfile<int>>(7, Text(u"x"), kVariantNotConvertible);
    ExpectRefused<VProfile<unsigned>>(7u, Of(-5), kVariantNotConvertible);
    ExpectRefused<VProfile<bool>>(true, Text(u"perhaps"), kVariantNotConvertible);
    ExpectRefused<VProfile<VTriState>>(VTriState::True, array, kVariantNotConvertible);
    ExpectRefused<VProfile2<VUnicodeString, VProfileSz>>(VUnicodeString(u"x"), array, kVariantNotConvertible);
    ExpectRefused<VProfileWindowPlacement>(VWindowPlacement(), Of(1), kNoVariantConversion);

    VStringArray list;
    list.Append(u"kept");
    using List = VProfile2<VStringArray, VProfileMultiSz>;
    ExpectRefused<List>(list, Text(u"x"), kVariantNotConvertible);
    ExpectRefused<List>(list, Of(VVariantArray{array}), kVariantNotConvertible);

    VVariant out;
    VReportMessageParams report;
    EXPECT_FALSE(VProfileWindowPlacement().GetVariant(&out, report));
    EXPECT_EQ(report.GetCode(), kNoVariantConversion);
}

TEST(ValueVariant, AListLooksThroughAReference)
{
    const VVariant array = Of(VVariantArray{Of(1), Text(u"b")});
    const VVariant reference = Of(VVariantReference{&array});
    VProfile2<VStringArray, VProfileMultiSz> list;
    list.Append(u"of before");
    VReportMessageParams report;
    ASSERT_TRUE(list.SetVariant(&reference, report));
    ASSERT_EQ(list.GetCount(), 2u);
    EXPECT_EQ(list[0], u"1");
    EXPECT_EQ(list[1], u"b");
}

TEST(ValueVariant, AStateTakesTheFieldsOfItsText)
{
    VProfileListViewState state;
    state.Load(nullptr, u"1,1,1,0,2,100,200");
    const VVariant text = Text(u"0,5,9,3,1,80,0,0");
    VReportMessageParams report;
    ASSERT_TRUE(state.SetVariant(&text, report));
    ASSERT_EQ(state.columns.GetCount(), 1u);
    EXPECT_EQ(state.columns[0], (VListViewFields::ColumnInfo{80, false, 0}));
    state.FormatText();
    EXPECT_EQ(state.Value(), u"0,5,9,3,1,80,0,0");
}

} // namespace
} // namespace ostrand
