// Filters: their texts and their place in the store.
#include "config/global/filter_list.h"

#include "tests/support/default_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::ElementsAre;

TEST(Filter, TextsForPeople)
{
    FilterConfig filter(u"Sources", nullptr);
    EXPECT_EQ(filter.GetCriteriaText(), u"");
    EXPECT_EQ(std::u16string(filter.GetTypeText()), u"Include");
    filter.filterCriteria.Append(u"*.c");
    EXPECT_EQ(filter.GetCriteriaText(), u"*.c");
    filter.filterCriteria.Append(u"");
    filter.filterCriteria.Append(u"*.h");
    EXPECT_EQ(filter.GetCriteriaText(), u"*.c; ; *.h");
    filter.filterType = 1;
    EXPECT_EQ(std::u16string(filter.GetTypeText()), u"Exclude");
    for (const int strange : {2, -1}) {
        filter.filterType = strange;
        EXPECT_EQ(std::u16string(filter.GetTypeText()), u"");
    }
    EXPECT_EQ(filter.FindMember(u"MATCH FILTER CASE"), &filter.matchFilterCase);
}

TEST(Filter, LivesInItsOwnKeyBelowFilters)
{
    DefaultMemoryStore store;
    VReportMessageParams report;
    FilterConfig filter(u"None", nullptr); // no name is built in here
    filter.filterCriteria.Append(u"*.c");
    ASSERT_TRUE(SaveFilter(filter, report));
    EXPECT_THAT(store.NamesIn(u"Filters\\None"), ElementsAre(u"Filter Type", u"Filter Criteria", u"Match Filter Case",
                                                             u"Apply Filter to Folders", u"Is Session"));
    store.TakeWrites();
    const auto again = LoadFilter(u"none");
    ASSERT_TRUE(again);
    EXPECT_EQ(again->GetCriteriaText(), u"*.c");
    again->matchFilterCase = true;
    ASSERT_TRUE(SaveFilter(*again, report));
    EXPECT_THAT(store.TakeWrites(), ElementsAre(u"Filters\\None|Match Filter Case"));

    FilterConfig other(u"Other", nullptr);
    other.CopyValue(*LoadFilter(u"None"));
    EXPECT_EQ(other.GetCriteriaText(), u"") << "only what is changed in the source is copied";

    VStringArray names;
    FilterStore().ListNames(names);
    EXPECT_THAT(std::vector(names.begin(), names.end()), ElementsAre(u"None"));
    EXPECT_TRUE(DeleteFilter(u"None", report));
    EXPECT_FALSE(FilterExists(u"None"));
    EXPECT_FALSE(DeleteFilter(u"None", report));
}

} // namespace
} // namespace ostrand::test
