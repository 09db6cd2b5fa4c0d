// The stories themselves.
#include "tests/crash/crash_story.h"

namespace ostrand::test {

namespace {

using Do = CrashStory::Do;
using Action = CrashStory::Action;

constexpr size_t kOne = 0, kLong = 1, kOther = 2, kParent = 3, kDeep = 4, kNew = 5;

const std::vector<Action> kOneValue = {{Do::Number, kOne, u"Count", 2}, {Do::Flush, kOne}};

const std::vector<Action> kGrowAndShrink = {
    {Do::Text, kLong, u"Long", 3000},  {Do::Number, kLong, u"Count", 2},
    {Do::Text, kLong, u"Line 7", 600}, {Do::Flush, kLong},
    {Do::Text, kLong, u"Long", 3},     {Do::Drop, kLong, u"Line 9"},
    {Do::Drop, kLong, u"Line 11"},     {Do::Flush, kLong},
};

const std::vector<Action> kNewKey = {
    {Do::Number, kNew, u"Count", 2}, {Do::Text, kNew, u"Text", 900}, {Do::Flush, kNew}};

const std::vector<Action> kSpareFile = {
    {Do::Number, kOne, u"Count", 2},  {Do::Flush, kOne}, {Do::Number, kLong, u"Count", 3}, {Do::Flush, kLong},
    {Do::Number, kOne, u"Count", 40}, {Do::Flush, kOne}, {Do::Text, kLong, u"Long", 9},    {Do::Flush, kLong},
};

const std::vector<Action> kDeletion = {{Do::Number, kDeep, u"Count", 2}, {Do::Flush, kDeep}, {Do::DeleteKey, kParent}};

const std::vector<Action> kTransaction = {
    {Do::Begin},
    {Do::Number, kOne, u"Count", 2},
    {Do::Text, kLong, u"Long", 700},
    {Do::Number, kOther, u"Count", 3},
    {Do::Drop, kParent, u"Line 2"},
    {Do::Text, kNew, u"Text", 30},
    {Do::Commit},
};

/// Each key waits on the disk, some of them twice.
const std::vector<Action> kWideTransaction = {
    {Do::Begin},          {Do::Number, kOne, u"Count", 2},
    {Do::Close, kOne},    {Do::Text, kLong, u"Long", 700},
    {Do::Close, kLong},   {Do::Number, kOther, u"Count", 3},
    {Do::Close, kOther},  {Do::Number, kOne, u"Theirs", 3},
    {Do::Close, kOne},    {Do::Drop, kParent, u"Line 2"},
    {Do::Close, kParent}, {Do::Text, kNew, u"Text", 30},
    {Do::Close, kNew},    {Do::Commit},
};

const std::vector<Action> kSavesAround = {
    {Do::Number, kOne, u"Count", 2},
    {Do::Flush, kOne},
    {Do::Number, kOther, u"Count", 3},
    {Do::Flush, kOther},
    {Do::Begin},
    {Do::Number, kOne, u"Count", 4},
    {Do::Number, kLong, u"Count", 4},
    {Do::Number, kOther, u"Count", 4},
    {Do::Commit},
    {Do::Number, kOne, u"Count", 5},
    {Do::Flush, kOne},
};

const std::vector<Action> kHistory = {
    {Do::Number, kOne, u"Count", 2}, {Do::Flush, kOne}, {Do::Text, kLong, u"Long", 900}, {Do::Flush, kLong},
    {Do::Number, kOne, u"Count", 3}, {Do::Flush, kOne}, {Do::Text, kLong, u"Long", 30},  {Do::Flush, kLong},
    {Do::Text, kOne, u"Name", 20},   {Do::Flush, kOne}, {Do::DeleteKey, kParent},
};

const std::vector<Action> kNewStore = {
    {Do::Number, kNew, u"Count", 2}, {Do::Flush, kNew}, {Do::Number, kOne, u"Count", 3}, {Do::Flush, kOne}};

const std::vector<Action> kTwoPrograms = {
    {Do::Number, kOne, u"Count", 2, 0},   {Do::Flush, kOne, u"", 0, 0},        {Do::Number, kOne, u"Theirs", 3, 1},
    {Do::Flush, kOne, u"", 0, 1},         {Do::Text, kLong, u"Long", 4, 1},    {Do::Flush, kLong, u"", 0, 1},
    {Do::Number, kOne, u"Theirs", 33, 1}, {Do::Flush, kOne, u"", 0, 1},        {Do::Text, kOne, u"Ours", 4, 0},
    {Do::Flush, kOne, u"", 0, 0},         {Do::Number, kLong, u"Count", 5, 1}, {Do::Flush, kLong, u"", 0, 1},
    {Do::Number, kOne, u"Count", 6, 0},   {Do::Flush, kOne, u"", 0, 0},
};

} // namespace

std::vector<std::unique_ptr<CrashStory>> AllCrashStories()
{
    std::vector<std::unique_ptr<CrashStory>> stories;
    const auto add = [&](const char* name, const std::vector<Action>& actions, const CrashStory::Start& start = {}) {
        stories.push_back(std::make_unique<CrashStory>(name, actions, start));
    };
    add("one-value", kOneValue);
    add("grow-and-shrink", kGrowAndShrink);
    add("new-key", kNewKey);
    add("new-store", kNewStore, {.isEmpty = true});
    add("spare-file", kSpareFile);
    add("no-exchange", kSpareFile, {.hasExchange = false});
    add("deletion", kDeletion);
    add("transaction", kTransaction);
    add("wide-transaction", kWideTransaction, {.transactionBytes = 0});
    add("saves-around", kSavesAround);
    add("history", kHistory);
    add("short-history", kHistory, {.options = "History Versions = 2\n"});
    add("two-programs", kTwoPrograms);
    return stories;
}

void ForEachPoint(const CrashStory& story, size_t count, uint64_t seed,
                  const std::function<void(const CrashPoint&)>& take)
{
    const size_t kinds = story.Calls() * kFates;
    Dice seeds(seed);
    for (size_t i = 0; i < count; ++i) {
        const size_t kind = i * kinds / count;
        take({kind / kFates, static_cast<Fate>(kind % kFates), seeds.Roll()});
    }
}

} // namespace ostrand::test
