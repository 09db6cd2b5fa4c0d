// The schema over a small record of its own.
#include "profile/schema.h"
#include "stores/memory_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand {
namespace {

struct Lamp : VProfileRecord {
    struct ReadContext : VReadContext {
        int usual = 0;
        int fuse = 100;
    };

    VProfileData* GetMember(int) override { return nullptr; }

    VProfile<int> brightness;
    VProfile<int> ceiling;
    VProfile<bool> isOn;
    VProfile<unsigned> colour;
    VProfileString place;
    VProfileStringList rooms;
    VProfile<int> service;
    VProfileEncodedString code;
    VProfileBlowfishString owner;
    VProfile<VTriState> dims;
    VProfileString shade;
    VProfileLogFont label;
    VProfile<int> watts;
};

using C = Lamp;

int Usual(const C& lamp, const C::ReadContext& in) { return in.usual + (lamp.isOn ? 1 : 0); }

void CeilingHolds(C& lamp) { lamp.brightness = std::min(lamp.brightness.value, lamp.ceiling.value); }

VUnicodeString UsualShade(const C& lamp, const C::ReadContext&) { return lamp.isOn ? u"white" : u"none"; }

VLogFont UsualLabel(const C& lamp, const C::ReadContext& in) { return {in.usual, lamp.shade}; }

void WattsFitTheFuse(C& lamp, const C::ReadContext& in) { lamp.watts = std::min(lamp.watts.value, in.fuse); }

constexpr std::array kRows = {
    Bool<&C::isOn>(u"Is On", true, u"Whether it shines.", Formerly{u"On"}),
    Int<&C::brightness>(u"Brightness", 5, u"How much.", Within{1, 10}),
    Int<&C::ceiling>(u"Ceiling", By<Usual>(u"the usual, one more when on"), u"Most brightness.", AtLeast{3}),
    Rule<CeilingHolds>(u"The ceiling holds."),
    UInt<&C::colour>(u"Colour", 0xFFFFFFFF, u"Of the light.", NotMerged),
    String<&C::place>(u"Place", u"desk", u"Where it stands.", InOrvane{u"Place OVN"}),
    Strings<&C::rooms>(u"Rooms", u"Where it may stand."),
    Int<&C::service>(u"Service", 2, u"Set by hand.", NeverSaved),
    Encoded<&C::code>(u"Code", u"Opens it."),
    Encrypted<&C::owner>(u"Owner", u"nobody", u"Whose it is."),
    TriState<&C::dims>(u"Dims", VTriState::Undetermined, u"Whether it can be dimmed."),
    String<&C::shade>(u"Shade", By<UsualShade>(u"white when on"), u"Colour of the shade."),
    Font<&C::label>(u"Label", By<UsualLabel>(u"the usual size, the shade as face"), u"Of its label."),
    Int<&C::watts>(u"Watts", 60, u"What it takes.", DefaultFrom{u"Watt"}),
    LoadRule<WattsFitTheFuse>(u"The fuse holds."),
};
static_assert(NamesAreUnique(kRows));
static_assert(CountInTable(kRows) == 12);

constexpr std::array kTakesOldName = {
    Bool<&C::isOn>(u"Is On", true, u"", Formerly{u"brightness"}),
    Int<&C::brightness>(u"Brightness", 5, u""),
};
static_assert(!NamesAreUnique(kTakesOldName), "an old name is another value's name");
constexpr std::array kMeetInOrvane = {
    Bool<&C::isOn>(u"Is On", true, u"", InOrvane{u"Light"}),
    Int<&C::brightness>(u"Light", 5, u""),
};
static_assert(!NamesAreUnique(kMeetInOrvane), "two names meet in one application alone");
constexpr std::array kForeignLetter = {Bool<&C::isOn>(u"Is \u00D6n", true, u"")};
static_assert(!NamesAreUnique(kForeignLetter), "names are found by a fold of plain letters alone");

/// One for the process, as records have it: it is never destroyed, since its names are shared for good.
const VSchema<Lamp>& LampSchema()
{
    static const auto& schema = *new VSchema<Lamp>(kRows);
    return schema;
}

class Schema : public testing::Test {
protected:
    Lamp& Load(std::vector<StoreEntry> entries, bool isOrvane = false, int usual = 6)
    {
        factory.Fill(entries);
        schema.Load(lamp, Lamp::ReadContext{{&key, isOrvane}, usual, 100});
        return lamp;
    }

    MemoryStoreFactory factory;
    VProfileStore store{&factory};
    VProfileKey key{store.GetRootKey(), u"Lamp"};
    const VSchema<Lamp>& schema = LampSchema();
    Lamp lamp;
};

TEST_F(Schema, DefaultsMayLookAtEarlierValues)
{
    EXPECT_EQ(Load({}).ceiling, 7) << "the switch above it is on by default";
    EXPECT_EQ(Load({{u"Lamp", u"Is On", 0u}}).ceiling, 6);
    EXPECT_EQ(Load({}, false, 0).ceiling, 3) << "a computed default meets its bound as well";
    EXPECT_EQ(lamp.ceiling.saved, 0);
}

TEST_F(Schema, TextsAndFontsMayHaveSuchDefaultsToo)
{
    Load({{u"Lamp", u"Is On", 0u}}, false, 9);
    EXPECT_EQ(lamp.shade, u"none");
    EXPECT_TRUE(lamp.shade.dirty && !lamp.shade.IsModified());
    EXPECT_EQ(lamp.label.Value(), VLogFont(9, u"none"));
    EXPECT_EQ(lamp.label.saved, VLogFont(9, u"none"));
    EXPECT_EQ(lamp.dims, VTriState::Undetermined);
    Load({{u"Lamp", u"Shade", VUnicodeString(u"red")}, {u"Lamp", u"Dims", 1u}});
    EXPECT_EQ(lamp.shade, u"red");
    EXPECT_EQ(lamp.label.GetFace(), u"red");
    EXPECT_EQ(lamp.dims, VTriState::True);
}

TEST_F(Schema, AnOldNameIsADefaultOrAChange)
{
    Load({{u"Lamp", u"On", 0u}, {u"Lamp", u"Watt", 40u}});
    EXPECT_TRUE(lamp.isOn.IsModified() && lamp.isOn.dirty);
    EXPECT_EQ(lamp.watts, 40);
    EXPECT_FALSE(lamp.watts.IsModified());
    EXPECT_TRUE(lamp.watts.dirty) << "the next save writes the new name";
    Load({{u"Lamp", u"Watts", 50u}});
    EXPECT_EQ(lamp.watts, 50);
    EXPECT_FALSE(lamp.watts.dirty);
}

TEST_F(Schema, ARuleOfTheReadingLeavesAMergeAlone)
{
    Load({{u"Lamp", u"Watts", 500u}});
    EXPECT_EQ(lamp.watts, 100);
    EXPECT_EQ(lamp.watts.saved, 500);
    MemoryStoreFactory other;
    other.Fill({{u"Other", u"Watts", 300u}});
    const VProfileStore otherStore(&other);
    const VProfileKey otherKey(otherStore.GetRootKey(), u"Other");
    schema.Merge(lamp, &otherKey);
    EXPECT_EQ(lamp.watts, 300) << "a merge has no fuse to look at";
}

TEST_F(Schema, ARuleSeesCorrectedValuesAndChangesCurrentOnesAlone)
{
    Load({{u"Lamp", u"Brightness", 30u}});
    EXPECT_EQ(lamp.brightness, 7) << "30, then 10 by the bound, then 7 by the rule";
    EXPECT_EQ(lamp.brightness.saved, 30);
    EXPECT_FALSE(lamp.brightness.dirty);
}

TEST_F(Schema, AMergeRunsBoundsAndRulesAndSkipsWhatIsNotMerged)
{
    Load({});
    MemoryStoreFactory other;
    other.Fill(
        {{u"Other", u"Ceiling", 1u}, {u"Other", u"Colour", 7u}, {u"Other", u"On", 0u}, {u"Other", u"Service", 9u}});
    const VProfileStore otherStore(&other);
    const VProfileKey otherKey(otherStore.GetRootKey(), u"Other");
    schema.Merge(lamp, &otherKey);
    EXPECT_EQ(lamp.ceiling, 3);
    EXPECT_EQ(lamp.ceiling.saved, 1);
    EXPECT_EQ(lamp.brightness, 3) << "by the rule";
    EXPECT_EQ(lamp.colour, 0xFFFFFFFFu);
    EXPECT_TRUE(lamp.isOn) << "an old name isn't merged";
    EXPECT_EQ(lamp.service, 9) << "never saved, but merged";
    schema.Merge(lamp, nullptr);
    EXPECT_EQ(lamp.ceiling, 3);
}

TEST_F(Schema, SecretsComeAsPlainTextAndMergeAsSuch)
{
    Load({{u"Lamp", u"Code", u"01020304606060"}});
    EXPECT_EQ(lamp.code, u"abc");
    EXPECT_EQ(lamp.owner, u"nobody");
    EXPECT_FALSE(lamp.owner.dirty) << "this default isn't pending";
    MemoryStoreFactory other;
    other.Fill({{u"Other", u"Owner", u"uff4e278828af1e590c7a704d134b99c4051f78d27fa2fdb6"},
                {u"Other", u"Code", u"0000000064"}});
    const VProfileStore otherStore(&other);
    const VProfileKey otherKey(otherStore.GetRootKey(), u"Other");
    schema.Merge(lamp, &otherKey);
    EXPECT_EQ(lamp.owner, u"secret");
    EXPECT_EQ(lamp.code, u"d");
}

TEST_F(Schema, NamesDependOnTheApplicationAndAreShared)
{
    Load({}, true);
    EXPECT_EQ(lamp.place.name, u"Place OVN");
    Lamp another;
    schema.Load(another, Lamp::ReadContext{{nullptr, true}, 0, 0});
    EXPECT_TRUE(another.place.name.SharesBufferWith(lamp.place.name)) << "a name is held once for all objects";
}

TEST_F(Schema, TheTableLeavesOutRulesAndWhatIsNeverSaved)
{
    Load({});
    std::vector<VProfileData*> table;
    for (int i = 0; VProfileData* const member = schema.GetMember(lamp, i); ++i)
        table.push_back(member);
    EXPECT_THAT(table, testing::ElementsAre(&lamp.isOn, &lamp.brightness, &lamp.ceiling, &lamp.colour, &lamp.place,
                                            &lamp.rooms, &lamp.code, &lamp.owner, &lamp.dims, &lamp.shade, &lamp.label,
                                            &lamp.watts));
    EXPECT_EQ(schema.GetMember(lamp, -1), nullptr);
    EXPECT_EQ(schema.View().GetCount(), kRows.size());
    EXPECT_TRUE(schema.View()[3].IsRule());

    EXPECT_EQ(schema.FindMember(u"PLACE", false), 4);
    EXPECT_EQ(schema.FindMember(u"place ovn", true), 4);
    EXPECT_EQ(schema.RowOf(4).name, std::u16string_view(u"Place"));
    for (const char16_t* name : {u"Place OVN", u"Service", u"On", u""})
        EXPECT_EQ(schema.FindMember(name, false), -1) << ToUtf8(name);
}

} // namespace
} // namespace ostrand
