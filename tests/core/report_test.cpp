#include "core/report.h"

#include "core/messages.h"
#include "core/prompts.h"
#include "core/text_file.h"
#include "core/trace.h"
#include "platform/error_codes.h"
#include "tests/support/fake_platform.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <set>

namespace ostrand {
namespace {

std::u16string TextOf(unsigned code, std::initializer_list<const char16_t*> arguments, bool oneLine = false)
{
    VReportMessageParams report(code, LibraryModule());
    for (const char16_t* const argument : arguments)
        report.AddArgument(argument);
    return oneLine ? report.GetTextOneLine() : report.GetText();
}

TEST(Report, TextsComeFromTheTableWithTheirArguments)
{
    EXPECT_EQ(TextOf(kNameInUse, {u"Lab"}), u"'Lab' is already in use.");
    EXPECT_EQ(TextOf(kMidnightLogNeedsDay, {}),
              u"Log file name must contain '%D' when 'Start new log at midnight' is checked.");
    EXPECT_EQ(TextOf(kNameExists, {u"only one"}), u"The %1 name '%2' already exists.") << "inserts stay";
    EXPECT_EQ(TextOf(kLaunchFailed, {u"Orvane", u"C:\\x"}),
              u"Orvane could not be launched from the following location:\r\nC:\\x");
    EXPECT_EQ(TextOf(kLaunchFailed, {u"Orvane", u"C:\\x"}, true),
              u"Orvane could not be launched from the following location: C:\\x");
    EXPECT_EQ(TextOf(kNameInUse, {u"%2!d!"}), u"'%2!d!' is already in use.") << "arguments are no templates";
}

TEST(Report, TheTableIsWhole)
{
    std::set<unsigned> codes;
    for (const VMessageText& row : MessageTable()) {
        SCOPED_TRACE(row.code);
        EXPECT_TRUE(codes.insert(row.code & 0xFFFF).second);
        EXPECT_EQ(FindMessageText(row.code), row.text);
        EXPECT_FALSE(std::u16string_view(row.text).ends_with(u'\n'));
        const VFormatArgument arguments[] = {u"a", u"b"};
        VUnicodeString text;
        EXPECT_EQ(FormatMessageText(row.text, arguments, VFormatLines::Keep, text), kErrorSuccess);
    }
    EXPECT_EQ(codes.size(), 19u);
    EXPECT_EQ(*codes.rbegin(), 0x13u);
}

TEST(Report, PlatformCodesHaveTheSystemsTexts)
{
    EXPECT_EQ(TextOf(0, {}), u"");
    EXPECT_EQ(TextOf(kErrorAccessDenied, {}), u"Access is denied.");
    EXPECT_NE(TextOf(kErrorUnsupportedType, {}), u"");
}

TEST(Report, AnUnknownCodeNamesItselfAndTheModule)
{
    test::FakePlatform fake;
    EXPECT_EQ(TextOf(0xe1040045, {u"x"}), u"Could not retrieve the error text for error code 0xe1040045.\r\n"
                                          u"Status codes from FormatMessage were <Unknown Module>:317 and 317.");
    fake.processes.modulePath = "/usr/lib/ostrand.so";
    EXPECT_EQ(TextOf(1234, {}, true), u"Could not retrieve the error text for error code 0x000004d2. "
                                      u"Status codes from FormatMessage were /usr/lib/ostrand.so:317 and 317.");
}

TEST(Report, TheApplicationBringsTheTextsOfItsCodes)
{
    SetForeignTextHook([](unsigned code, VModuleHandle module) -> const char16_t* {
        return code == kOctalOverflow && module == LibraryModule() ? u"'%1' is too long." : u"foreign";
    });
    EXPECT_EQ(TextOf(kOctalOverflow, {u"777"}), u"'777' is too long.");
    EXPECT_EQ(TextOf(kNameInUse, {u"a"}), u"'a' is already in use.") << "own texts come first";
    VReportMessageParams report(kOctalOverflow, nullptr);
    EXPECT_EQ(std::u16string_view(report.GetText()), u"foreign");
    SetForeignTextHook(nullptr);
}

TEST(Report, TheTextIsMadeOnce)
{
    VReportMessageParams report(kNameInUse, LibraryModule());
    EXPECT_EQ(report.GetTextLength(), 0u);
    EXPECT_EQ(std::u16string_view(report.GetTextOneLine()), u"'%1' is already in use.");
    report.AddArgument(u"late");
    report.SetCode(kNameMissing);
    EXPECT_EQ(std::u16string_view(report.GetText()), u"'%1' is already in use.");
    EXPECT_EQ(report.GetTextLength(), 23u);

    VReportMessageParams copy(report);
    EXPECT_EQ(std::u16string_view(copy.GetText()), u"The late name must be specified.") << "a copy makes its own";
    report.SetMessage(kNameInUse);
    EXPECT_EQ(report.GetTextLength(), 0u);
    EXPECT_EQ(std::u16string_view(report.GetText()), u"'%1' is already in use.");
}

TEST(Report, AssignmentTakesCodeModuleAndArgumentsAlone)
{
    int module = 0;
    VReportMessageParams from(kNameExists, &module);
    std::u16string argument = u"session";
    from.AddArgument(argument.c_str());
    argument = u"changed";
    from.AddArgumentA("\x80 5");
    const VFormatArgument values[] = {7};
    from.AddFormattedArgument(u"%1!02d!", values);
    from.AddArgument(nullptr);
    from.SetReportKind(101);

    VReportMessageParams to;
    EXPECT_EQ(to.GetReportKind(), -1);
    to.SetReportKind(5);
    to.AddRef();
    to.Assign(&from);
    from.SetMessage(0);
    EXPECT_EQ(to.GetCode(), kNameExists);
    EXPECT_EQ(to.GetModule(), &module);
    EXPECT_EQ(to.GetReportKind(), 5);
    ASSERT_EQ(to.GetArgumentCount(), 4);
    EXPECT_EQ(std::u16string_view(to.GetArguments()[0]), u"session");
    EXPECT_EQ(std::u16string_view(std::as_const(to).GetArguments()[1]), u"\u20AC 5");
    EXPECT_EQ(std::u16string_view(to.GetArguments()[2]), u"07");
    EXPECT_EQ(std::u16string_view(to.GetArguments()[3]), u"");

    to.SetMessage(kNameInUse);
    EXPECT_EQ(to.GetModule(), LibraryModule());
    EXPECT_EQ(to.GetArgumentCount(), 0);
    EXPECT_EQ(to.GetReportKind(), 5);
    EXPECT_EQ(to.Release(), 1u) << "a fresh message doesn't reset the count";
    to.Assign(nullptr);
    EXPECT_EQ(to.GetCode(), kNameInUse);
}

struct Router : VReportMessageRouter {
    void Route(IReportMessageParams* message) override
    {
        message->AddRef();
        kept = message;
    }
    IReportMessageParams* kept = nullptr;
};

Router* g_router = nullptr;

TEST(Report, TheRouterGetsACopyThatItMayKeep)
{
    Router router;
    g_router = &router;
    SetReportRouterGetter([]() -> VReportMessageRouter* { return g_router; });
    VReportMessageParams report(kNameInUse, LibraryModule());
    report.AddArgument(u"Lab");
    VReportMessage(101, report);
    SetReportRouterGetter(nullptr);

    ASSERT_NE(router.kept, nullptr);
    EXPECT_NE(router.kept, &report);
    EXPECT_EQ(router.kept->GetReportKind(), 101);
    EXPECT_EQ(report.GetReportKind(), -1);
    EXPECT_EQ(std::u16string_view(router.kept->GetText()), u"'Lab' is already in use.");
    EXPECT_EQ(router.kept->Release(), 0u) << "the reference of the router was the last";
}

/// The log goes into a folder of the test.
class TraceLogTest : public testing::Test {
protected:
    TraceLogTest()
    {
        TraceLog().Close();
        platform.environment.variables["TEMP"] = folder.Path();
        platform.processes.executablePath = "/opt/hollowmere\\Tessaly.5.bin";
    }
    ~TraceLogTest() override { TraceLog().Close(); }

    std::vector<std::u16string> Lines() const
    {
        TraceLog().Close();
        VTextFile log;
        std::vector<std::u16string> lines;
        if (log.Open(folder.WidePath("Tessaly.trace.log"), VFileAccess::Read, VFileDisposition::OpenExisting) ==
            kErrorSuccess)
            for (VUnicodeString line; log.ReadLine(line);)
                lines.emplace_back(line.View());
        EXPECT_EQ(log.encoding, VTextEncoding::Utf16);
        return lines;
    }

    test::TempFolder folder;
    test::FakePlatform platform;
};

TEST_F(TraceLogTest, TakesWhatHasNoOtherPlace)
{
    VReportMessageParams report(7, LibraryModule());
    VReportMessage(0, report);
    VTrace(u"%1\n", u"a line");
    Prompts().Show(u"a notice", VPromptIcon::Error);
    VUnicodeString path(u"/home");
    EXPECT_FALSE(Prompts().AskYesNo(u"Really?", VPromptIcon::Question));
    EXPECT_FALSE(Prompts().PickFolder(u"Pick", path));
    EXPECT_EQ(Prompts().OfferDownload({}), VDownloadAnswer::Continue);
    EXPECT_EQ(path, u"/home");
    EXPECT_EQ(Lines(), (std::vector<std::u16string>{u"VReportMessage: no router exists, error code: 7", u"a line",
                                                    u"a notice", u"Really?"}));
}

TEST_F(TraceLogTest, LiesWhereTheEnvironmentSays)
{
    EXPECT_EQ(VTraceLog::FilePath(), folder.WidePath("Tessaly.trace.log"));
    platform.environment.variables = {{"TEMP", ""}, {"TMPDIR", "/var/tmp/"}};
    EXPECT_EQ(VTraceLog::FilePath(), u"/var/tmp/Tessaly.trace.log");
    platform.environment.variables.clear();
    EXPECT_EQ(VTraceLog::FilePath(), u"/tmp/Tessaly.trace.log");
}

TEST_F(TraceLogTest, StartsAnewAndFollowsNoLink)
{
    folder.Write("victim", "precious");
    std::filesystem::create_symlink(folder.Path("victim"), folder.Path("Tessaly.trace.log"));
    VTrace(u"first\n");
    TraceLog().Close();
    VTrace(u"second\n");
    EXPECT_EQ(folder.Read("victim"), "precious");
    EXPECT_EQ(Lines(), (std::vector<std::u16string>{u"second"}));
}

TEST_F(TraceLogTest, ALogThatCantBeOpenedIsIgnored)
{
    platform.environment.variables["TEMP"] = folder.Path("missing/deep");
    VTrace(u"lost\n");
    TraceLog().Close();
    platform.environment.variables["TEMP"] = folder.Path();
    VTrace(u"kept\n");
    EXPECT_EQ(Lines(), (std::vector<std::u16string>{u"kept"}));
}

} // namespace
} // namespace ostrand
