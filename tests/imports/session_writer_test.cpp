// Imported sessions in the store: with Default below them, beside what is there, all or none.
#include "imports/session_writer.h"

#include "config/session/folder_data.h"
#include "config/session/session_paths.h"
#include "core/entry.h"
#include "tests/support/default_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

class SessionWriter : public testing::Test {
protected:
    ~SessionWriter() override
    {
        GlobalConfig* config = nullptr;
        ResetGlobalConfig(config);
    }

    std::optional<StoreValue> Get(std::u16string_view path, std::u16string_view name) const
    {
        return store.Get(BuildSessionKeyPath(path), name);
    }

    static ImportedSession Session(const char16_t* name, const char16_t* folder = u"")
    {
        ImportedSession session;
        session.name = name;
        session.folder = folder;
        session.protocol = u"SSH2";
        session.hostname = u"host";
        session.username = u"ann";
        return session;
    }

    DefaultMemoryStore store;
    VReportMessageParams report;
    VStringArray paths;
};

TEST_F(SessionWriter, ASessionHasTheImportedValuesOverThoseOfDefault)
{
    store.factory.Fill({{u"Sessions\\Default", u"Is Session", 1u},
                        {u"Sessions\\Default", u"Scrollback", 5000u},
                        {u"Sessions\\Default", u"SSH2 Port", 2200u},
                        {u"Sessions\\Default", u"Username", VUnicodeString(u"root")},
                        {u"Sessions\\Default", u"Rows", 40u}});
    ImportedSession session = Session(u"Router");
    session.description = u"one\ntwo";
    session.values = {{u"Scrollback", 700u}, {u"Max Transfer Buffers", 99u}};
    ASSERT_TRUE(WriteImportedSessions({session}, {u"Lab", {}}, paths, report));
    EXPECT_EQ(Get(u"Lab\\Router", u"Scrollback"), StoreValue(700u));
    EXPECT_EQ(Get(u"Lab\\Router", u"Rows"), StoreValue(40u));
    EXPECT_EQ(Get(u"Lab\\Router", u"Username"), StoreValue(VUnicodeString(u"ann"))) << "of a protocol without a module";
    EXPECT_EQ(Get(u"Lab\\Router", u"SSH2 Port"), std::nullopt) << "the usual one, whatever Default has";
    EXPECT_EQ(Get(u"Lab\\Router", u"Max Transfer Buffers"), StoreValue(4u)) << "bounds hold";
    const StoreValue lines = *Get(u"Lab\\Router", u"Description");
    EXPECT_EQ(std::get<VStringArray>(lines).GetCount(), 2u);
    EXPECT_EQ(Get(u"Default", u"Scrollback"), StoreValue(5000u));
    EXPECT_EQ(ProfileFolderData(u"Lab", false).orderedSessions[0], u"Router");
}

TEST_F(SessionWriter, NothingThatIsThereIsWrittenOver)
{
    store.factory.Fill({{u"Sessions\\Lab\\router", u"Is Session", 1u}, {u"Sessions\\Lab\\Router (2)", u"x", 1u}});
    const std::vector<StoreEntry> before = store.factory.Dump();
    ASSERT_TRUE(WriteImportedSessions({Session(u"Router"), Session(u"ROUTER"), Session(u"Router", u"Deep")},
                                      {u"Lab", {}}, paths, report));
    ASSERT_EQ(paths.GetCount(), 3u);
    EXPECT_EQ(paths[0], u"Lab\\Router (3)");
    EXPECT_EQ(paths[1], u"Lab\\ROUTER (4)");
    EXPECT_EQ(paths[2], u"Lab\\Deep\\Router");
    const std::vector<StoreEntry> after = store.factory.Dump();
    for (const StoreEntry& entry : before)
        EXPECT_THAT(after, testing::Contains(entry));
}

TEST_F(SessionWriter, StoppedOrRefusedMeansThatNoneIsThere)
{
    const std::vector<StoreEntry> before = store.factory.Dump();
    EXPECT_FALSE(WriteImportedSessions({Session(u"A"), Session(u"B")}, {{}, [](unsigned done) { return done < 2; }},
                                       paths, report));
    EXPECT_EQ(report.GetCode(), 0u);
    EXPECT_EQ(store.factory.Dump(), before);
    store.factory.FailFlush(112);
    EXPECT_FALSE(WriteImportedSessions({Session(u"A")}, {}, paths, report));
    EXPECT_EQ(report.GetCode(), 112u);
}

} // namespace
} // namespace ostrand::test
