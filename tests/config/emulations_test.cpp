// The tables of emulations and key maps, and who fills them.
#include "config/session/emulations.h"

#include "core/entry.h"
#include "core/product.h"
#include "tests/config/global_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::ElementsAre;

MemoryStoreFactory* g_factory = nullptr;

class Emulations : public testing::Test {
protected:
    Emulations()
    {
        g_factory = &store.Factory();
        OstrandUiInitProfileFactory([]() -> VProfileStoreFactory* { return g_factory; });
    }
    ~Emulations() override
    {
        GlobalConfig* config = nullptr;
        ResetGlobalConfig(config);
        OstrandUiInitProfileFactory(nullptr);
        SetAppNameFunction(nullptr);
        ForgetEmulationTables();
    }

    void PutTermcapEntries(std::initializer_list<const char16_t*> names)
    {
        VStringArray list;
        for (const char16_t* name : names)
            list.Append(name);
        store.Put(u"Selected Termcap Entries", list);
    }

    FakePlatform platform;
    GlobalStore store;
};

/// "EMULATION: KEY MAP" for each row.
std::vector<std::string> Rows()
{
    std::vector<std::string> rows;
    for (const EmulationInfo& e : ostrand::Emulations())
        rows.push_back(ToUtf8(e.name) + ": " + ToUtf8(KeymapNames()[static_cast<size_t>(e.keymap)]));
    return rows;
}

TEST_F(Emulations, TheRowsAndTheirKeymaps)
{
    PutTermcapEntries({u"wy75", u"Xterm"});
    const ConfigPointer config = Read(store.Key());
    RebuildEmulationTables(kProductTessaly, config.Get());
    EXPECT_THAT(Rows(), ElementsAre("ANSI: VT100", "Linux: Linux", "SCOANSI: SCOANSI", "Nerith: Nerith",
                                    "VT100: Default", "VT102: VT100", "VT220: VT220", "WYSE50: Wyse50",
                                    "WYSE60: Wyse60", "Xterm: Xterm", "wy75: Default", "Xterm: Default"));
    EXPECT_EQ(KeymapNames()[0], u"Custom");
    EXPECT_TRUE(HasNerithEmulation());

    RebuildEmulationTables(kProductQuillo, nullptr);
    EXPECT_THAT(Rows(), ElementsAre("ANSI: VT100", "Linux: Linux", "SCOANSI: SCOANSI", "VT100: Default", "VT102: VT100",
                                    "VT220: VT220", "WYSE50: Wyse50", "WYSE60: Wyse60", "Xterm: Xterm"));
    EXPECT_EQ(KeymapNames().GetCount(), 9u);
    EXPECT_FALSE(HasNerithEmulation());
    EXPECT_FALSE(OffersNerith());
}

TEST_F(Emulations, BeforeStartUpTheQuestionIsAFaultOfTheCaller)
{
    ForgetEmulationTables();
    EXPECT_THROW(HasNerithEmulation(), VArray<EmulationInfo>::OutOfRange);
    EXPECT_FALSE(OffersNerith()) << "sessions open all the same";
}

TEST_F(Emulations, StartUpGoesByTheNameOfTheApplication)
{
    const struct {
        VAppNameFunction name;
        bool hasNerith;
    } cases[] = {
        {[] { return VUnicodeString(u"quillo"); }, false}, {[] { return VUnicodeString(u"Tessaly"); }, true},
        {[] { return VUnicodeString(u"Orvane"); }, true},  {[] { return VUnicodeString(u"MIGRATE"); }, true},
        {[] { return VUnicodeString(u"other"); }, true},
    };
    PutTermcapEntries({u"wy75"});
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        SetAppNameFunction(c.name);
        SetCurrentAppProductID(c.hasNerith ? kProductQuillo : kProductTessaly); // another number, not asked here
        OstrandUiInit(nullptr);
        EXPECT_EQ(HasNerithEmulation(), c.hasNerith);
        EXPECT_EQ(Rows().size(), c.hasNerith ? 10u : 9u) << "no termcap entries yet";
        OstrandUiInitGUI(nullptr, nullptr);
        EXPECT_EQ(HasNerithEmulation(), c.hasNerith);
        EXPECT_EQ(Rows().back(), "wy75: Default");
        OstrandUiInit(nullptr);
        OstrandUiInitGUI(nullptr, nullptr);
        EXPECT_EQ(Rows().back(), "wy75: Default") << "the configuration was there already";
    }
    SetCurrentAppProductID(kProductNone);
}

TEST_F(Emulations, AFetchFillsTheTablesOnlyWhereItReads)
{
    PutTermcapEntries({u"first"});
    GlobalConfig* config = nullptr;
    GetGlobalConfig(config, kProductQuillo);
    EXPECT_EQ(Rows().back(), "first: Default");
    EXPECT_TRUE(HasNerithEmulation()) << "the tables go by the application's name, whatever number is passed";

    config->selectedTermcapEntries.Append(u"second");
    GetGlobalConfig(config, -1);
    EXPECT_EQ(Rows().back(), "first: Default");
    EXPECT_TRUE(IsTermcapEmulation(u"second", config)) << "this asks the configuration";
    EXPECT_FALSE(IsTermcapEmulation(u"First", config));
    PutTermcapEntries({u"third"});
    ReloadGlobalConfig(config);
    EXPECT_EQ(Rows().back(), "third: Default");
}

} // namespace
} // namespace ostrand::test
