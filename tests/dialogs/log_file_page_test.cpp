// The Log File page.
#include "dialogs/session/log_file_page.h"

#include "core/messages.h"
#include "tests/config/session_scene.h"
#include "tests/support/page_driver.h"

#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using P = SessionLogFilePage;

class LogFilePage : public testing::Test {
protected:
    SessionScene scene;
    SessionConfig session{u"Router1", nullptr};
};

TEST_F(LogFilePage, AMidnightLogNeedsTheDayInItsName)
{
    PageDriver<P> page(session);
    for (const char16_t* name : {u"log-%d.txt", u"", u"D%"}) {
        if (!page.At<VCheckControl>(P::NewAtMidnight).IsChecked())
            page.Click(P::NewAtMidnight);
        page.Type(P::FileName, name);
        EXPECT_EQ(page.RefusedLeave(), kMidnightLogNeedsDay);
        EXPECT_EQ(page.services.messages.back().text,
                  u"Log file name must contain '%D' when 'Start new log at midnight' is checked.");
        EXPECT_EQ(page->GetFocus(), P::FileName);
        EXPECT_FALSE(session.newLogFileAtMidnight) << "nothing is written after a failed check";
    }
    page.Type(P::FileName, u"log-%D.txt");
    EXPECT_TRUE(page.Leave());
    EXPECT_TRUE(session.newLogFileAtMidnight);
    EXPECT_EQ(session.logFilename.Value(), u"log-%D.txt");
}

TEST_F(LogFilePage, OnlyCustomDataNeedsCustomData)
{
    session.logOnlyCustom = true;
    session.customLogMessageEachLine = u" %h ";
    PageDriver<P> page(session);
    EXPECT_TRUE(page[P::OnlyCustom].IsEnabled());
    page.Type(P::OnEachLine, u"  \t");
    EXPECT_FALSE(page[P::OnlyCustom].IsEnabled());
    EXPECT_FALSE(page.At<VCheckControl>(P::OnlyCustom).IsChecked());
    page.Type(P::OnConnect, u" up ");
    EXPECT_TRUE(page[P::OnlyCustom].IsEnabled());
    EXPECT_FALSE(page.At<VCheckControl>(P::OnlyCustom).IsChecked());
    ASSERT_TRUE(page.Leave());
    EXPECT_FALSE(session.logOnlyCustom);
    EXPECT_EQ(session.customLogMessageEachLine.Value(), u"");
    EXPECT_EQ(session.customLogMessageConnect.Value(), u" up ") << "other texts keep their blanks";
}

TEST_F(LogFilePage, LimitsModeAndBrowsing)
{
    session.customLogMessageConnect = VUnicodeString(std::u16string(257, u'x'));
    session.newLogFileAtMidnight = true;
    PageDriver<P> page(session);
    EXPECT_EQ(page.RefusalText(), u"Please enter no more than 256 characters.") << "ahead of the missing day";
    page.Type(P::OnConnect, std::u16string(256, u'x')).Click(P::NewAtMidnight).Choose(P::Mode, 1);

    page.services.ExpectCancelled(Call::File);
    page.Click(P::Browse);
    page.services.ExpectFile(u"session.log");
    page.Click(P::Browse);
    EXPECT_EQ(page[P::FileName].GetText(), u"") << "the proposal itself is no choice";
    page.services.ExpectFile(u"/var/log/router.log");
    page.Click(P::Browse);
    const VFileRequest& asked = page.services.files.back();
    EXPECT_EQ(asked.title, u"Select Log File");
    EXPECT_TRUE(asked.isSave);
    const std::vector<VFileFilter> filters = ParseFileFilter(asked.filter);
    ASSERT_EQ(filters.size(), 2u);
    EXPECT_EQ(filters[1].name, u"All Files (*.*)");
    EXPECT_EQ(filters[1].patterns, u"*.*");
    EXPECT_TRUE(ParseFileFilter(u"odd|").empty());

    ASSERT_TRUE(page.Leave());
    EXPECT_TRUE(session.logMode);
    EXPECT_EQ(session.logFilename.Value(), u"/var/log/router.log");
}

} // namespace
} // namespace ostrand::test
