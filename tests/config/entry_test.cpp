// The one configuration of the process: fetched, dropped, read anew, saved, locked.
#include "core/entry.h"

#include "config/global/global_store.h"
#include "core/product.h"
#include "tests/config/global_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

MemoryStoreFactory* g_factory = nullptr;

class Entry : public testing::Test {
protected:
    Entry()
    {
        g_factory = &store.Factory();
        OstrandUiInit(nullptr);
        OstrandUiInitProfileFactory([]() -> VProfileStoreFactory* { return g_factory; });
    }
    ~Entry() override
    {
        GlobalConfig* config = nullptr;
        ResetGlobalConfig(config);
        OstrandUiInitProfileFactory(nullptr);
        SetAppNameFunction(nullptr);
    }

    static GlobalConfig& Fetch(int productId = -1)
    {
        GlobalConfig* config = nullptr;
        GetGlobalConfig(config, productId);
        return *config;
    }

    FakePlatform platform;
    GlobalStore store;
};

TEST_F(Entry, TheFirstFetchReadsAndLaterOnesGiveTheSame)
{
    store.Put(u"Timeout", 7u);
    GlobalConfig& config = Fetch();
    EXPECT_EQ(config.timeout, 7);
    store.Put(u"Timeout", 8u);
    EXPECT_EQ(&Fetch(), &config);
    EXPECT_EQ(&Fetch(kProductOrvane), &config) << "the product counts at the first fetch alone";
    EXPECT_EQ(config.timeout, 7);
    EXPECT_FALSE(config.IsOrvane());
}

TEST_F(Entry, TheProductIsTheOneAskedForOrTheApplications)
{
    const struct {
        VAppNameFunction name;
        int productId;
        bool isOrvane;
    } cases[] = {
        {[] { return VUnicodeString(u"ORVANE"); }, -1, true},
        {[] { return VUnicodeString(u"Orvane"); }, kProductTessaly, false},
        {[] { return VUnicodeString(u"Quillo"); }, -1, false},
        {[] { return VUnicodeString(u"something else"); }, kProductOrvane, true},
        {[] { return VUnicodeString(u"something else"); }, -1, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        GlobalConfig* none = nullptr;
        ResetGlobalConfig(none);
        SetAppNameFunction(c.name);
        EXPECT_EQ(Fetch(c.productId).IsOrvane(), c.isOrvane);
    }
}

TEST_F(Entry, StartUpBuildsTheConfiguration)
{
    store.Put(u"Timeout", 7u);
    OstrandUiInitGUI(nullptr, nullptr);
    store.Put(u"Timeout", 8u);
    EXPECT_EQ(Fetch().timeout, 7);
}

TEST_F(Entry, AReloadReadsAnewAndLosesWhatWasNotSaved)
{
    GlobalConfig* config = nullptr;
    ReloadGlobalConfig(config);
    ASSERT_TRUE(config) << "with none there yet, one is built";
    config->timeout = 1;
    const auto old = VUnknownPointer<GlobalConfig>::Share(config);
    store.TakeWrites();
    store.Put(u"Timeout", 8u);
    ReloadGlobalConfig(config);
    EXPECT_NE(config, old.Get());
    EXPECT_EQ(config->timeout, 8);
    EXPECT_EQ(old->timeout, 1) << "a reference of one's own keeps the old object";
    EXPECT_THAT(store.TakeWrites(), IsEmpty());
}

TEST_F(Entry, AResetDropsWithoutSaving)
{
    GlobalConfig* config = &Fetch();
    config->timeout = 1;
    ResetGlobalConfig(config);
    EXPECT_EQ(config, nullptr);
    EXPECT_THAT(store.TakeWrites(), IsEmpty());
    ResetGlobalConfig(config);
    EXPECT_EQ(Fetch().timeout, 180);
}

TEST_F(Entry, SavesWriteWhatIsDue)
{
    GlobalConfig& config = Fetch();
    EXPECT_TRUE(SaveGlobalConfig(false));
    const size_t all = store.TakeWrites().size();
    EXPECT_EQ(all, 210u) << "every member but the empty block";
    EXPECT_TRUE(SaveGlobalConfig(false));
    EXPECT_THAT(store.TakeWrites(), IsEmpty());
    config.timeout = 5;
    EXPECT_TRUE(SaveGlobalConfig(false));
    EXPECT_THAT(store.TakeWrites(), ElementsAre(u"Timeout"));
    EXPECT_TRUE(SaveGlobalConfig(true));
    EXPECT_EQ(store.TakeWrites().size(), all);
}

TEST_F(Entry, ASaveTellsWhatTheStoreRefused)
{
    Fetch();
    VReportMessageParams report;
    store.Factory().FailFlush(kErrorDiskFull);
    EXPECT_FALSE(SaveGlobalConfig(false, &report));
    EXPECT_EQ(report.GetCode(), kErrorDiskFull);
    EXPECT_FALSE(SaveGlobalConfig(false)) << "the report is the caller's choice";
    store.Factory().FailFlush(0);
    EXPECT_TRUE(SaveGlobalConfig(false));

    store.Factory().FailWrites(kErrorGeneralFailure);
    EXPECT_FALSE(SaveGlobalConfig(true, &report));
    EXPECT_EQ(report.GetCode(), kErrorGeneralFailure);
    EXPECT_TRUE(SaveGlobalConfig(false)) << "nothing was due, so nothing was refused";
    store.Factory().FailWrites(0);
    {
        VProfileStore open;
        VProfileKey key(open.GetRootKey(), u"Global");
        store.Factory().FailWrites(kErrorGeneralFailure);
        key.WriteDword(u"Timeout", 1);
        store.Factory().FailWrites(0);
        key.WriteDword(u"MRU Count", 1);
        EXPECT_FALSE(key.Flush(report)) << "a later write that is taken hides no earlier one";
        EXPECT_TRUE(key.Flush(report));
    }

    store.Factory().SetReadOnly(true);
    Fetch().timeout = 1;
    EXPECT_FALSE(SaveGlobalConfig(false, &report));
    EXPECT_EQ(report.GetCode(), kErrorAccessDenied);
}

TEST_F(Entry, AMergeTakesAnyKey)
{
    GlobalConfig& config = Fetch();
    GlobalStore administrator({{u"MRU Count", 99u}});
    MergeGlobalConfig(*administrator.Key());
    EXPECT_EQ(config.mruCount, 9);
    EXPECT_THAT(store.TakeWrites(), IsEmpty());
}

TEST_F(Entry, ButtonBarsAreTheListsOfTheirKey)
{
    const auto names = [] {
        VStringArray out;
        GetButtonBarNames(out);
        return std::vector<std::u16string>(out.begin(), out.end());
    };
    EXPECT_THAT(names(), ElementsAre(u"Default")) << "without the key";
    const VStringArray bar;
    store.Factory().Fill({{u"ButtonBar", u"Zeta", bar},
                          {u"ButtonBar", u"Number", 1u},
                          {u"ButtonBar", u"default", bar},
                          {u"ButtonBar", u"Text", VUnicodeString(u"x")},
                          {u"ButtonBar", u"Alpha", bar},
                          {u"ButtonBar\\Below", u"Deep", bar}});
    EXPECT_THAT(names(), ElementsAre(u"Zeta", u"default", u"Alpha", u"Default")) << "the case of the name counts";
    store.Factory().Fill({{u"Other", u"x", 1u}});

    MemoryStoreFactory withDefault;
    withDefault.Fill({{u"ButtonBar", u"Default", bar}, {u"ButtonBar", u"Alpha", bar}});
    g_factory = &withDefault;
    EXPECT_THAT(names(), ElementsAre(u"Default", u"Alpha"));
    EXPECT_THAT(withDefault.Log(), IsEmpty()) << "asking makes no key";
    g_factory = &store.Factory();
}

TEST_F(Entry, AReloadWaitsForTheLockAndTheOldObjectLivesUntilItIsLeft)
{
    GlobalConfig& old = Fetch();
    std::promise<void> isLocked;
    std::atomic<bool> mayLeave = false;
    std::atomic<bool> hasLeft = false;
    std::thread reader([&] {
        const VGlobalConfigLock lock;
        isLocked.set_value();
        while (!mayLeave)
            std::this_thread::yield();
        old.timeout = 3;
        hasLeft = true;
    });
    isLocked.get_future().wait();

    std::thread reloader([&hasLeft] {
        GlobalConfig* fresh = nullptr;
        ReloadGlobalConfig(fresh);
        EXPECT_TRUE(hasLeft) << "the record was dropped under a reader";
        EXPECT_EQ(fresh->timeout, 180);
    });
    mayLeave = true;
    reader.join();
    reloader.join();
}

TEST_F(Entry, AThreadMayLockAgainAndReloadUnderItsLock)
{
    GlobalConfig* config = &Fetch();
    const auto held = VUnknownPointer<GlobalConfig>::Share(config);
    {
        const VGlobalConfigLock outer;
        const VGlobalConfigLock inner;
        ReloadGlobalConfig(config);
        EXPECT_NE(config, held.Get());
    }
    // Both locks were given back through the old object, or another thread would wait for good.
    std::thread([] { const VGlobalConfigLock lock; }).join();

    EXPECT_EQ(held->AddRef(), 2u) << "nobody but this test holds the old object";
    EXPECT_EQ(held->Release(), 1u);
}

TEST_F(Entry, WithNoConfigurationThereIsNothingToLock)
{
    const VGlobalConfigLock lock;
    std::thread([] { const VGlobalConfigLock other; }).join();
}

} // namespace
} // namespace ostrand::test
