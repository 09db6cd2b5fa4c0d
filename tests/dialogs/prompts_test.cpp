// Boxes that can be switched off, and what the library below the dialogs asks.
#include "config/session/module_failure.h"
#include "core/messages.h"
#include "core/product.h"
#include "dialogs/download/offer_download_dialog.h"
#include "dialogs/message/optional_message_box.h"
#include "dialogs/prompts/dialog_prompts.h"
#include "dialogs/prompts/firewall_credential_dialog.h"
#include "tests/support/fake_platform.h"
#include "tests/support/page_driver.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using B = OptionalMessageBox;
using O = OfferDownloadDialog;
using testing::HasSubstr;

class DialogPromptsTest : public testing::Test {
protected:
    DialogPromptsTest()
    {
        SetDialogServices(&services);
        SetPrompts(&prompts);
    }
    ~DialogPromptsTest() override
    {
        SetDownloadHost({});
        SetPrompts(nullptr);
        SetDialogServices(nullptr);
    }

    FakePlatform platform;
    ScriptedServices services;
    DialogPrompts prompts{services};
};

TEST_F(DialogPromptsTest, ABoxIsSwitchedOffAtTheClick)
{
    const struct {
        bool hasSecond;
        unsigned defaultButton;
        int icon;
        VIcon shown;
        const char16_t* key;
        int result;
    } kRows[] = {
        {true, 0, 0, VIcon::Warning, u"VK_RETURN", 1},     {true, 256, 1, VIcon::Information, u"VK_RETURN", 2},
        {false, 256, 2, VIcon::Question, u"VK_RETURN", 1}, {true, 7, 3, VIcon::None, u"VK_RETURN", 1},
        {false, 0, -1, VIcon::None, u"VK_ESCAPE", 2},
    };
    for (const auto& row : kRows) {
        VProfile<int> value;
        value = 7;
        services.ExpectDialog([&](VDialog& box) {
            EXPECT_EQ(box.At<VIconControl>(B::Picture).GetIcon(), row.shown);
            EXPECT_EQ(box.Control(B::NeverAgain).GetText(), u"&Do not display this message again");
            EXPECT_EQ(box.Control(B::First).GetText(), u"&Delete");
            EXPECT_EQ(box.Control(B::Second).IsVisible(), row.hasSecond);
            EXPECT_TRUE(box.At<VCheckControl>(B::NeverAgain).IsChecked());
            FormDriver(box).Click(B::NeverAgain);
            EXPECT_EQ(value, 0);
            FormDriver(box).Click(B::NeverAgain);
            FormDriver(box).Focus(B::NeverAgain).Key(row.key);
        });
        EXPECT_EQ(ShowOptionalMessageBox(nullptr, u"Really?", u"", value, u"&Delete", row.hasSecond, row.icon,
                                         row.defaultButton),
                  row.result);
        EXPECT_EQ(value, 1) << "whichever button ends the box";
    }
}

TEST_F(DialogPromptsTest, AModuleThatDoesNotFitBringsAnOffer)
{
    TempFolder folder;
    folder.Write("Tessaly", "");
    platform.processes.executablePath = folder.Path("Tessaly");
    folder.Write("ProtoIota.so", "");
    const VModuleFailure failure{kProductOrvane, VUnicodeString(folder.WidePath("ProtoIota.so")), {}, u"My Terminal"};
    const struct {
        VControlId press;
        const char16_t* host;
        bool isModuleNewer, exit, integration;
        const char* address;
    } kRows[] = {
        {O::Continue, u"", true, false, false, ""},
        {O::Exit, u"https://h", true, true, true, ""},
        {O::Download, u"", true, true, true, ""},
        {O::Download, u"https://h.example/x", true, true, true,
         "https://h.example/x/go.php?pid=My%20Terminal&guid=00000000-0000-0000-0000-000000000000"},
        {O::Download, u"https://h/", false, true, true,
         "https://h/go.php?pid=Orvane&guid=507e5bdd-b419-4f34-a246-551c31bf800a"},
    };
    for (const auto& row : kRows) {
        const auto changed = std::filesystem::last_write_time(folder.Path("Tessaly"));
        std::filesystem::last_write_time(folder.Path("ProtoIota.so"),
                                         changed + std::chrono::seconds(row.isModuleNewer ? 9 : -9));
        SetDownloadHost(row.host);
        services.texts.clear();
        services.ExpectDialog([&](VDialog& dialog) {
            EXPECT_EQ(dialog.GetTitle(), u"My Terminal");
            EXPECT_THAT(ToUtf8(dialog.Control(O::Explanation).GetText()),
                        HasSubstr(row.isModuleNewer ? "version of My Terminal must" : "version of Orvane must"));
            EXPECT_THAT(ToUtf8(dialog.Control(O::Warning).GetText()), HasSubstr("configured for file transfer."));
            FormDriver(dialog).Click(row.press);
        });
        if (*row.address)
            services.Expect({.call = Call::Address, .text = {}});
        VReportMessageParams report;
        report.SetMessage(kModuleContractDiffers);
        bool exit = false;
        bool integration = true;
        HandleModuleFailure(report, failure, exit, integration);
        EXPECT_EQ(exit, row.exit);
        EXPECT_EQ(integration, row.integration);
        EXPECT_EQ(services.texts.empty() ? "" : ToUtf8(services.texts.back()), row.address);
    }
}

TEST_F(DialogPromptsTest, CredentialsChangeByOkAlone)
{
    for (const VFirewallCredential what : {VFirewallCredential::UserName, VFirewallCredential::Password})
        for (const bool accept : {false, true}) {
            VUnicodeString text = u"before";
            bool isSaved = true;
            services.ExpectDialog([&](VDialog& dialog) {
                using F = FirewallCredentialDialog;
                EXPECT_EQ(dialog.Control(F::Text).GetText(), u"before");
                FormDriver(dialog).Type(F::Text, u"sesame").Click(F::IsSaved).Click(accept ? F::Ok : F::Cancel);
            });
            EXPECT_EQ(Prompts().AskFirewallCredential(what, text, isSaved, nullptr), accept);
            EXPECT_EQ(text, accept ? u"sesame" : u"before");
            EXPECT_EQ(isSaved, !accept);
            EXPECT_EQ(text.IsSensitive(), accept && what == VFirewallCredential::Password);
        }
}

} // namespace
} // namespace ostrand::test
