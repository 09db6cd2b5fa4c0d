// Records walk their members; blobs and records as wholes.
#include "profile/blob.h"
#include "profile/values.h"
#include "tests/profile/value_store.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

class Pair : public VProfileRecord {
public:
    Pair(int number, const char16_t* text)
    {
        count.SetName(u"Count");
        count.Load(nullptr, number);
        label.SetName(u"Label");
        label.Load(nullptr, text);
    }
    VProfileData* GetMember(int index) override
    {
        VProfileData* const members[] = {&count, &label, nullptr};
        return members[index];
    }

    VProfile<int> count;
    VProfile2<VUnicodeString, VProfileSz> label;
};

TEST(Record, OnlyModifiedMembersAreCopied)
{
    Pair target(1, u"t");
    Pair source(4, u"s");
    target.CopyValue(source);
    EXPECT_FALSE(target.IsModified()) << "they differ, but nobody changed anything";

    source.count = 5;
    target.CopyValue(source);
    EXPECT_EQ(target.count, 5);
    EXPECT_TRUE(target.count.IsModified());
    EXPECT_EQ(target.label.Value(), u"t");

    source.AcceptChanges();
    source.label = VUnicodeString(u"x");
    source.label.AcceptChanges();
    target.RevertChanges();
    target.CopyValue(source);
    EXPECT_EQ(target.count, 1) << "an accepted change is none any more";
    EXPECT_EQ(target.label.Value(), u"t");
    EXPECT_THROW(target.CopyValue(source.count), std::bad_cast);
}

TEST(Record, TwoEditorsDoNotUndoOneAnother)
{
    Pair record(1, u"t");
    Pair first(1, u"t");
    Pair second(1, u"t");
    first.count = 2;
    second.label = VUnicodeString(u"u");
    record.CopyValue(first);
    record.CopyValue(second);
    EXPECT_EQ(record.count, 2);
    EXPECT_EQ(record.label.Value(), u"u");
}

TEST(Record, SavesMembersInOrderAndOnlyWhatIsDue)
{
    ValueStore store;
    Pair record(1, u"t");
    record.Save(&store.Key(), false);
    EXPECT_EQ(store.TakeWrites(), (std::vector<std::u16string>{u"Count", u"Label"})) << "defaults";
    record.label = VUnicodeString(u"T");
    EXPECT_TRUE(record.IsModified());
    record.Save(&store.Key(), false);
    EXPECT_EQ(store.TakeWrites(), std::vector<std::u16string>{u"Label"});
    record.Save(&store.Key(), true);
    EXPECT_EQ(store.TakeWrites().size(), 2u);
}

TEST(Blob, AnEmptyOneIsNeverWritten)
{
    ValueStore store;
    VProfileBlob blob;
    EXPECT_FALSE(blob.Load(&store.Key(), u"Data"));
    EXPECT_TRUE(blob.Load(nullptr, u"Data"));
    EXPECT_FALSE(blob.ReadValue(nullptr));
    blob.Save(&store.Key(), true);
    blob.SetData(std::vector<uint8_t>{1});
    blob.Save(&store.Key(), false);
    EXPECT_EQ(store.TakeWrites().size(), 1u);
    blob.SetData({});
    EXPECT_TRUE(blob.IsModified());
    blob.Save(&store.Key(), true);
    EXPECT_TRUE(store.TakeWrites().empty());
}

TEST(Blob, SavedCopiesComeAlongAndDoNotPileUp)
{
    ValueStore store;
    VProfileBlob blob;
    blob.SetName(u"Data");
    for (const uint8_t byte : {uint8_t{1}, uint8_t{2}, uint8_t{3}}) {
        blob.SetData(std::vector<uint8_t>{byte});
        blob.Save(&store.Key(), false);
        ASSERT_TRUE(blob.savedCopy);
        EXPECT_FALSE(blob.savedCopy->savedCopy);
    }
    blob.SetData(std::vector<uint8_t>{4});
    VProfileBlob other;
    other.CopyValue(blob);
    EXPECT_TRUE(other.IsModified());
    other.RevertChanges();
    EXPECT_EQ(other.data, std::vector<uint8_t>{3});
    EXPECT_EQ(other.GetSize(), 1u);

    const VProfileBlob& same = other;
    other = same;
    EXPECT_EQ(other.data, std::vector<uint8_t>{3});
    EXPECT_TRUE(other.IsDirty());
}

} // namespace
} // namespace ostrand
