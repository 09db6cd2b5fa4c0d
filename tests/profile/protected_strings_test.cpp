// Texts that the store doesn't hold as plain ones: taking over protected text, keeping what can't be read, and zeroing.
#include "core/messages.h"
#include "profile/blowfish_value.h"
#include "profile/capi_string.h"
#include "profile/encoded_string.h"
#include "tests/profile/value_store.h"
#include "tests/support/fake_platform.h"
#include "tests/support/fake_protection.h"
#include "tests/support/fixed_random.h"
#include "tests/support/freed_memory.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace ostrand {
namespace {

constexpr const char16_t* kName = u"Firewall Password";
constexpr const char16_t* kSecret = u"correct horse";

/// A store that holds what a VProfileCapiString of one user wrote.
struct ProtectedStore : ValueStore {
    explicit ProtectedStore(const char16_t* text = kSecret)
    {
        platform.environment.variables["TEMP"] = "/no/trace/log";
        VProfileCapiString value;
        value.SetName(kName);
        value.SetValue(text);
        value.Save(&Key(), true);
        TakeWrites();
    }
    std::u16string Stored()
    {
        VUnicodeString stored;
        return Key().ReadString(kName, stored) ? std::u16string(stored.View()) : u"(nothing)";
    }

    test::FakePlatform platform;
    test::FakeProtection protection;
};

/// Both classes that read protected text.
template <class V>
struct Reads;
template <>
struct Reads<VProfileCapiString> {
    static void Load(VProfileCapiString& value, VProfileKey& key) { value.Load(&key, kName, u"default"); }
};
template <>
struct Reads<VProfileEncodedString> {
    static void Load(VProfileEncodedString& value, VProfileKey& key)
    {
        EXPECT_FALSE(value.LoadTakingOver(&key, kName));
    }
};

template <class V>
class ProtectedText : public testing::Test {
protected:
    ProtectedText() { store.protection.user = 'b'; } // the store was carried to another user
    void Load(V& value) { Reads<V>::Load(value, store.Key()); }

    ProtectedStore store;
};
using ReadingClasses = testing::Types<VProfileCapiString, VProfileEncodedString>;
TYPED_TEST_SUITE(ProtectedText, ReadingClasses);

TYPED_TEST(ProtectedText, ThatCannotBeDecodedSurvivesEverySave)
{
    const std::u16string stored = this->store.Stored();
    TypeParam value;
    this->Load(value);
    EXPECT_TRUE(value.IsEmpty() && !value.IsModified() && !value.IsDirty());
    TypeParam copy = value;
    value = copy; // schedules a write
    value = u"typed";
    value = u"";
    value.AcceptChanges();
    value.Save(&this->store.Key(), true);
    copy.Save(&this->store.Key(), true);
    EXPECT_EQ(this->store.Stored(), stored);

    this->store.protection.user = 'a'; // back home
    TypeParam later;
    if constexpr (std::is_same_v<TypeParam, VProfileEncodedString>)
        EXPECT_TRUE(later.LoadTakingOver(&this->store.Key(), kName));
    else
        later.Load(&this->store.Key(), kName, u"");
    EXPECT_EQ(later, kSecret);
}

TYPED_TEST(ProtectedText, ThatCannotBeDecodedGivesWayToANewText)
{
    TypeParam value;
    this->Load(value);
    value = u"new";
    value.Save(&this->store.Key(), false);
    EXPECT_EQ(this->store.TakeWrites().size(), 1u);
    value = u"";
    value.Save(&this->store.Key(), false);
    EXPECT_EQ(this->store.Stored(), u"") << "it may be emptied from now on";

    ProtectedStore other;
    other.protection.user = 'b';
    Reads<TypeParam>::Load(value, other.Key());
    value = u"accepted";
    value.AcceptChanges();
    value = u"";
    value.Save(&other.Key(), false);
    EXPECT_EQ(other.Stored(), u"");
}

TEST(EncodedString, TakesOverProtectedText)
{
    ProtectedStore store;
    VProfileEncodedString value;
    EXPECT_TRUE(value.LoadTakingOver(&store.Key(), kName));
    EXPECT_EQ(value, kSecret);
    EXPECT_TRUE(value.IsModified());
    value.Save(&store.Key(), false);
    EXPECT_FALSE(VProfileCapiString::Recognises(store.Stored()));
    VProfileEncodedString again;
    EXPECT_FALSE(again.LoadTakingOver(&store.Key(), kName));
    EXPECT_EQ(again, kSecret);
    EXPECT_FALSE(again.IsModified() || again.IsDirty());
}

TEST(EncodedString, TheSameTextIsStoredInDifferentWays)
{
    ValueStore store;
    VUnicodeString first, second;
    VProfileEncodedString value;
    value.Load(nullptr, kName, nullptr);
    value = u"p\u00E4ss\u20AC";
    for (VUnicodeString* const stored : {&first, &second}) {
        value.Save(&store.Key(), true);
        store.Key().ReadString(kName, *stored);
        VProfileEncodedString back;
        back.Load(&store.Key(), kName, nullptr);
        EXPECT_EQ(back, value);
    }
    EXPECT_NE(first, second);
}

TEST(CapiString, WhatCannotBeProtectedIsNotWritten)
{
    ProtectedStore store;
    const std::u16string before = store.Stored();
    VProfileCapiString value;
    value.Load(&store.Key(), kName, u"");
    value = u"new";
    store.protection.failure = kErrorDiskFull;
    value.Save(&store.Key(), false);
    EXPECT_EQ(store.Stored(), before);
    EXPECT_TRUE(value.IsModified()) << "for another try";
    EXPECT_EQ(value.report.GetCode(), kProtectionFailed);
    ASSERT_EQ(value.report.GetArgumentCount(), 2);
    EXPECT_EQ(value.report.GetArguments()[0], std::u16string_view(kName));

    store.protection.failure = kErrorSuccess;
    value.Save(&store.Key(), false);
    EXPECT_EQ(value.report.GetCode(), 0u);
    EXPECT_FALSE(value.IsModified());
    value.Load(&store.Key(), u"firewall password", u"");
    EXPECT_EQ(value.report.GetCode(), kUnprotectionFailed) << "the name is part of the protection";
}

TEST(CapiString, AMergeOfUnreadableTextChangesNothing)
{
    ProtectedStore store;
    VProfileCapiString value;
    value.Load(&store.Key(), kName, u"");
    store.protection.user = 'b';
    value.Merge(&store.Key());
    EXPECT_EQ(value, kSecret);
}

TEST(BlowfishString, ASourceAndAModeReachBothCopies)
{
    test::FixedRandom random({1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    VProfileBlowfishString value(nullptr);
    VBlowfishString& face = value;
    face.SetRandomSource(&random);
    face.SetCipherMode(1);
    face = u"a";
    value.RevertChanges();
    EXPECT_EQ(value.mode, 1u);
    EXPECT_EQ(value.random.Get(), &random);

    VVariant variant;
    VReportMessageParams report;
    value = u"monitor";
    EXPECT_TRUE(value.GetVariant(&variant, report));
    EXPECT_EQ(std::get<VUnicodeString>(variant.data), u"monitor");
}

// The system's generator fails, and a text is encrypted all the same.
TEST(BlowfishString, IsDecodableWithoutRandomBytes)
{
    test::FakeProtection protection;
    protection.failure = kErrorGeneralFailure;
    VCapiRandomSource random;
    VBlowfishString text;
    text.SetRandomSource(&random);
    text = kSecret;
    VBlowfishString back;
    back.Decode(text.Encode());
    EXPECT_EQ(back, kSecret);
    text.SetRandomSource(nullptr);
}

template <class V>
void LoadNamed(V& value, VProfileKey& key)
{
    value.Load(&key, kName, u"");
}

template <class V>
class SecretMemory : public testing::Test {
protected:
    void SetUp() override
    {
        if (!test::CanWatchMemory())
            GTEST_SKIP() << "the allocator of this build can't be watched";
    }
    ~SecretMemory() override { test::t_wanted = {}; }
};
using AllClasses = testing::Types<VProfileEncodedString, VProfileBlowfishString, VProfileCapiString>;
TYPED_TEST_SUITE(SecretMemory, AllClasses);

TYPED_TEST(SecretMemory, IsZeroWhenItsLastHolderGoes)
{
    test::FakeProtection protection;
    ValueStore store;
    auto value = std::make_unique<TypeParam>();
    LoadNamed(*value, store.Key());
    *value = kSecret;
    auto copy = std::make_unique<TypeParam>(*value);
    test::StartWatching(value->c_str(), value->GetLength() * sizeof(char16_t));
    value.reset();
    EXPECT_FALSE(test::t_watch.wasFreed);
    copy.reset();
    EXPECT_TRUE(test::t_watch.wasFreed && test::t_watch.wasZero);
}

TYPED_TEST(SecretMemory, NoConversionLeavesThePlainTextBehind)
{
    test::FakeProtection protection;
    ValueStore store;
    for (const std::string_view wanted : {std::string_view("c\0o\0r\0r\0e\0c\0t", 13), std::string_view("correct")}) {
        SCOPED_TRACE(wanted.size());
        test::t_wanted = wanted;
        std::make_unique<std::string>(std::string(40, ' ') + std::string(wanted));
        EXPECT_GT(std::exchange(test::t_found, 0), 0) << "it would be seen";
        {
            TypeParam value;
            LoadNamed(value, store.Key());
            value = kSecret;
            value.Save(&store.Key(), false);
            LoadNamed(value, store.Key());
            ASSERT_EQ(value, kSecret);
            TypeParam copy;
            copy.CopyValue(value);
            copy.AcceptChanges();
            value.SetValue(u"");
            value.RevertChanges();
            value.Merge(&store.Key());
        }
        EXPECT_EQ(test::t_found, 0);
        test::t_wanted = {};
    }
}

} // namespace
} // namespace ostrand
