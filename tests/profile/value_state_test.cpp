// The states of a value, walked through by every class of value there is. A class that departs from the rule has its
// own steps beside those of all others.
#include "profile/blob.h"
#include "profile/blowfish_value.h"
#include "profile/capi_string.h"
#include "profile/color_values.h"
#include "profile/encoded_string.h"
#include "profile/log_font.h"
#include "profile/margins.h"
#include "profile/multi_line.h"
#include "profile/time_value.h"
#include "profile/view_state.h"
#include "profile/window_placement.h"
#include "tests/profile/value_store.h"
#include "tests/support/fake_protection.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace ostrand {
namespace {

constexpr const char16_t* kName = u"Value";
constexpr int kNoSample = -1;

/// A value of any class. Each class has two samples, 0 and 1; sample 0 is the default that it is loaded with.
class Subject {
public:
    virtual ~Subject() = default;
    virtual VProfileData& Data() = 0;
    virtual void Load(const VProfileKey* key) = 0;
    virtual void Merge(const VProfileKey* key) = 0;
    virtual void Set(int sample) = 0;
    virtual void Assign(Subject& other) = 0;
    virtual int Current() = 0;
};

template <class V, class T>
class ValueSubject : public Subject {
public:
    ValueSubject(const T& first, const T& second) : m_samples{first, second} { m_value.SetName(kName); }
    VProfileData& Data() override { return m_value; }
    void Load(const VProfileKey* key) override { m_value.Load(key, m_samples[0]); }
    void Merge(const VProfileKey* key) override { m_value.Merge(key); }
    void Set(int sample) override { m_value = m_samples[sample]; }
    void Assign(Subject& other) override { m_value = dynamic_cast<ValueSubject&>(other).m_value; }
    int Current() override
    {
        const T& now = m_value;
        return now == m_samples[0] ? 0 : now == m_samples[1] ? 1 : kNoSample;
    }

protected:
    V m_value;
    T m_samples[2];
};

template <class T>
class NumberSubject : public ValueSubject<VProfile<T>, T> {
public:
    using ValueSubject<VProfile<T>, T>::ValueSubject;
    int Current() override
    {
        return this->m_value == this->m_samples[0] ? 0 : this->m_value == this->m_samples[1] ? 1 : kNoSample;
    }
};

/// A protected text, loaded like the others.
template <class V>
struct Secret : V {
    using V::operator=;
    void Load(const VProfileKey* key, const VUnicodeString& text) { V::Load(key, kName, text.c_str()); }
};

class BlobSubject : public Subject {
public:
    BlobSubject() { m_value.SetName(kName); }
    VProfileData& Data() override { return m_value; }
    void Load(const VProfileKey* key) override { m_value.Load(key, kName); }
    void Merge(const VProfileKey* key) override { m_value.ReadValue(key); }
    void Set(int sample) override { m_value.SetData(m_samples[sample]); }
    void Assign(Subject& other) override { m_value = dynamic_cast<BlobSubject&>(other).m_value; }
    int Current() override { return m_value.data == m_samples[0] ? 0 : m_value.data == m_samples[1] ? 1 : kNoSample; }

private:
    VProfileBlob m_value;
    std::vector<uint8_t> m_samples[2] = {{9}, {1, 2, 0, 3}};
};

VStringArray Lines(std::initializer_list<const char16_t*> texts)
{
    VStringArray lines;
    for (const char16_t* text : texts)
        lines.Append(text);
    return lines;
}

using MakeSubject = std::function<std::unique_ptr<Subject>()>;

template <class S, class T>
MakeSubject Of(T first, T second)
{
    return [=] { return std::make_unique<S>(first, second); };
}

template <class V, class T>
MakeSubject OfValue(T first, T second)
{
    return Of<ValueSubject<V, T>>(first, second);
}

const std::map<std::string, MakeSubject>& AllClasses()
{
    using Lists = VProfile2<VStringArray, VProfileMultiSz>;
    static const std::map<std::string, MakeSubject> classes = {
        {"int", Of<NumberSubject<int>>(5, -3)},
        {"unsigned", Of<NumberSubject<unsigned>>(5u, 0xFFFFFFFFu)},
        {"unsigned long", Of<NumberSubject<unsigned long>>(5ul, 0xFFFFFFFFul)},
        {"bool", Of<NumberSubject<bool>>(false, true)},
        {"tri-state", Of<NumberSubject<VTriState>>(VTriState::Undetermined, VTriState::True)},
        {"string", OfValue<VProfile2<VUnicodeString, VProfileSz>>(VUnicodeString(u"Lab"), VUnicodeString(u"lab"))},
        {"list", OfValue<Lists>(Lines({u"a", u"b"}), Lines({u"b", u"a"}))},
        {"lines", OfValue<VProfileMultiLineString>(Lines({}), Lines({u"a"}))},
        {"placement",
         OfValue<VProfileWindowPlacement>(VWindowPlacement(), VWindowPlacement{{44, 0, 1, 0, 0, -4, -4, 1, 2, 3, 4}})},
        {"font", OfValue<VProfileLogFont>(VLogFont(12, u"Courier"), VLogFont(12, u"courier"))},
        {"margins",
         OfValue<VProfile2<VMarginData, VProfileBinary>>(VMarginData{.5, .5, .5, .5}, VMarginData{.5, .5, .5, .6})},
        {"colours", OfValue<VProfile2<CustomColors, VProfileBinary>>(CustomColors{}, CustomColors{{{1, 2, 3}}})},
        {"time", OfValue<VProfileTime>(VFileTime{0}, VFileTime{133536836967890000})},
        {"list view", OfValue<VProfileListViewState>(VUnicodeString(u"1,1,1,0,1,80,1,0"),
                                                     VUnicodeString(u"0,5,4294967295,-1,2,80,1,1,90,0,0"))},
        {"explorer frame",
         OfValue<VProfileExplorerFrameState>(VUnicodeString(u"1,-1,200"), VUnicodeString(u"0,1000,-5"))},
        {"encoded", OfValue<Secret<VProfileEncodedString>>(VUnicodeString(), VUnicodeString(u"lab"))},
        {"blowfish", OfValue<Secret<VProfileBlowfishString>>(VUnicodeString(u"Lab"), VUnicodeString(u"lab"))},
        {"capi", OfValue<Secret<VProfileCapiString>>(VUnicodeString(u"Lab"), VUnicodeString(u"lab"))},
        {"blob", [] { return std::make_unique<BlobSubject>(); }},
    };
    return classes;
}

enum Act {
    Put,      // another object writes the sample into the store
    PutOther, // the store gets a value of another kind under the name
    Remove,   // the store loses the value
    Load,
    LoadNull,
    Merge,
    MergeNull,
    Set,
    CopyFrom, // CopyValue of an object that holds the sample
    AssignFrom,
    Accept,
    Revert,
    Save,
    SaveForced,
    SaveNull,
    SaveRefused, // into a key that refuses writes
};

struct Step {
    Act act;
    int sample = 0;
    // Behind the step:
    int value = kNoSample;
    bool dirty = false;
    bool modified = false;
    bool wrote = false;
};

struct Story {
    const char* name;
    std::vector<Step> steps;
    std::map<std::string, std::vector<Step>> exceptions = {};
};

constexpr bool kDirty = true, kModified = true, kWrote = true, kNo = false;

const std::vector<Story>& Stories()
{
    static const std::vector<Story> stories = {
        {"a found value is clean", {{Put, 1}, {Load, 0, 1}, {Save, 0, 1}, {SaveForced, 0, 1, kNo, kNo, kWrote}}},
        {"a default is pending, and the next save writes it",
         {{Load, 0, 0, kDirty}, {Save, 0, 0, kNo, kNo, kWrote}, {Save, 0, 0}},
         {{"blob", {{Load}, {Save}, {SaveForced}}},
          {"blowfish", {{Load, 0, 0}, {Save, 0, 0}, {SaveForced, 0, 0, kNo, kNo, kWrote}}}}},
        {"a value of another kind counts as missing and is repaired",
         {{PutOther}, {Load, 0, 0, kDirty}, {Save, 0, 0, kNo, kNo, kWrote}, {Set, 1, 1, kNo, kModified}, {Load, 0, 0}},
         {{"blob", {{PutOther}, {Load}, {SaveForced}}},
          {"blowfish", {{PutOther}, {Load, 0, 0}, {Save, 0, 0}, {SaveForced, 0, 0, kNo, kNo, kWrote}}}}},
        {"without a key there is a default and no write",
         {{Put, 1}, {LoadNull, 0, 0, kDirty}, {SaveNull, 0, 0, kDirty}},
         {{"blob", {{Put, 1}, {LoadNull}, {SaveNull}}}, {"blowfish", {{Put, 1}, {LoadNull, 0, 0}, {SaveNull, 0, 0}}}}},
        {"a change is written once",
         {{Put, 1},
          {Load, 0, 1},
          {Set, 0, 0, kNo, kModified},
          {Save, 0, 0, kNo, kNo, kWrote},
          {Save, 0, 0},
          {Load, 0, 0}}},
        {"a refused write counts as saved",
         {{Put, 1}, {Load, 0, 1}, {Set, 0, 0, kNo, kModified}, {SaveRefused, 0, 0}, {Save, 0, 0}, {Load, 0, 1}}},
        {"an accepted change is pending and beyond recall",
         {{Put, 1},
          {Load, 0, 1},
          {Set, 0, 0, kNo, kModified},
          {Accept, 0, 0, kDirty},
          {Revert, 0, 0, kDirty},
          {Save, 0, 0, kNo, kNo, kWrote}},
         {{"blob",
           {{Put, 1}, {Load, 0, 1}, {Set, 0, 0, kNo, kModified}, {Accept, 0, 0}, {Revert, 0, 0}, {Save, 0, 0}}}}},
        {"accepting without a change writes nothing",
         {{Put, 1}, {Load, 0, 1}, {Accept, 0, 1}, {Save, 0, 1}},
         {{"blob",
           {{Put, 1},
            {Load, 0, 1},
            {Accept, 0, 1, kDirty},
            {Save, 0, 1, kDirty, kNo, kWrote},
            {Save, 0, 1, kDirty, kNo, kWrote}}}}},
        {"a reverted change is not written",
         {{Put, 1}, {Load, 0, 1}, {Set, 0, 0, kNo, kModified}, {Revert, 0, 1}, {Save, 0, 1}},
         // Fields aren't reverted: the save makes the text from them.
         {{"list view",
           {{Put, 1}, {Load, 0, 1}, {Set, 0, 0, kNo, kModified}, {Revert, 0, 1}, {Save, 0, 0, kNo, kNo, kWrote}}},
          {"explorer frame",
           {{Put, 1}, {Load, 0, 1}, {Set, 0, 0, kNo, kModified}, {Revert, 0, 1}, {Save, 0, 0, kNo, kNo, kWrote}}}}},
        {"reverting leaves a pending default pending",
         {{Load, 0, 0, kDirty}, {Set, 1, 1, kDirty, kModified}, {Revert, 0, 0, kDirty}},
         {{"blob",
           {{Load}, {Set, 1, 1, kNo, kModified}, {Revert, 1, 1, kNo, kModified}, {Save, 0, 1, kNo, kNo, kWrote}}},
          {"blowfish", {{Load, 0, 0}, {Set, 1, 1, kNo, kModified}, {Revert, 0, 0}}}}},
        {"a merged value counts as saved",
         {{Load, 0, 0, kDirty}, {Put, 1}, {Merge, 0, 1}, {Save, 0, 1}},
         {{"blob", {{Load}, {Put, 1}, {Merge, 0, 1}, {Save, 0, 1}}},
          {"blowfish", {{Load, 0, 0}, {Put, 1}, {Merge, 0, 1}, {Save, 0, 1}}}}},
        {"a merge that finds nothing changes nothing",
         {{Put, 1},
          {Load, 0, 1},
          {Set, 0, 0, kNo, kModified},
          {Remove},
          {Merge, 0, 0, kNo, kModified},
          {MergeNull, 0, 0, kNo, kModified},
          {Accept, 0, 0, kDirty},
          {Merge, 0, 0, kDirty}},
         {{"blob",
           {{Put, 1},
            {Load, 0, 1},
            {Set, 0, 0, kNo, kModified},
            {Remove},
            {Merge, 0, 0, kNo, kModified},
            {MergeNull, 0, 0, kNo, kModified}}}}},
        {"a copied value shows as a change",
         {{Put, 1}, {Load, 0, 1}, {CopyFrom, 0, 0, kNo, kModified}, {Save, 0, 0, kNo, kNo, kWrote}},
         {{"blob", {{Put, 1}, {Load, 0, 1}, {CopyFrom, 0, 0, kDirty, kModified}, {Save, 0, 0, kDirty, kNo, kWrote}}}}},
        {"an assigned object is written even when it is the same",
         {{Put, 1}, {Load, 0, 1}, {AssignFrom, 1, 1, kDirty}, {Save, 0, 1, kNo, kNo, kWrote}},
         {{"blob", {{Put, 1}, {Load, 0, 1}, {AssignFrom, 1, 1, kDirty}, {Save, 0, 1, kDirty, kNo, kWrote}}}}},
    };
    return stories;
}

void PutOtherKind(VProfileKey& key, Subject& subject)
{
    if (dynamic_cast<VProfileDword*>(&subject.Data()))
        key.WriteString(kName, u"7");
    else
        key.WriteDword(kName, 7);
}

/// Does what the step says; true if the subject is what it was done to.
bool TakeStep(const Step& step, Subject& subject, const MakeSubject& make, ValueStore& store)
{
    const std::unique_ptr<Subject> other = make();
    VProfileData& data = subject.Data();
    other->Set(step.sample);
    switch (step.act) {
    case Put:
        other->Data().Save(&store.Key(), true);
        return false;
    case PutOther:
        PutOtherKind(store.Key(), subject);
        return false;
    case Remove:
        store.Key().DeleteValue(kName);
        return false;
    case Load:
        subject.Load(&store.Key());
        break;
    case LoadNull:
        subject.Load(nullptr);
        break;
    case Merge:
        subject.Merge(&store.Key());
        break;
    case MergeNull:
        subject.Merge(nullptr);
        break;
    case Set:
        subject.Set(step.sample);
        break;
    case CopyFrom:
        data.CopyValue(other->Data());
        break;
    case AssignFrom:
        subject.Assign(*other);
        break;
    case Accept:
        data.AcceptChanges();
        break;
    case Revert:
        data.RevertChanges();
        break;
    case Save:
        data.Save(&store.Key(), false);
        break;
    case SaveForced:
        data.Save(&store.Key(), true);
        break;
    case SaveNull:
        data.Save(nullptr, true);
        break;
    case SaveRefused:
        data.Save(&store.RefusingKey(), false);
        break;
    }
    return true;
}

TEST(ValueState, EveryClassFollowsTheSameSteps)
{
    const test::FakeProtection protection;
    for (const Story& story : Stories()) {
        for (const auto& [name, make] : AllClasses()) {
            SCOPED_TRACE(name + ": " + story.name);
            const auto exception = story.exceptions.find(name);
            ValueStore store;
            const std::unique_ptr<Subject> subject = make();
            int number = 0;
            for (const Step& step : exception == story.exceptions.end() ? story.steps : exception->second) {
                SCOPED_TRACE("step " + std::to_string(++number));
                store.TakeWrites();
                if (!TakeStep(step, *subject, make, store))
                    continue;
                EXPECT_EQ(subject->Current(), step.value) << "value";
                EXPECT_EQ(subject->Data().IsDirty(), step.dirty) << "dirty";
                EXPECT_EQ(subject->Data().IsModified(), step.modified) << "modified";
                EXPECT_EQ(!store.TakeWrites().empty(), step.wrote) << "wrote";
            }
        }
    }
}

TEST(ValueState, ALeafIsItsOwnMember)
{
    for (const auto& [name, make] : AllClasses()) {
        SCOPED_TRACE(name);
        const std::unique_ptr<Subject> subject = make();
        for (const int index : {-1, 0, 7})
            EXPECT_EQ(subject->Data().GetMember(index), &subject->Data());
    }
}

} // namespace
} // namespace ostrand
