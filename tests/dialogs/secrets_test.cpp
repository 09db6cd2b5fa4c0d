// What becomes of secrets that were typed: nothing of them is left in freed memory.
#include "dialogs/prompts/firewall_credential_dialog.h"
#include "dialogs/session/expect_send_dialog.h"
#include "tests/dialogs/session_dialog_scene.h"
#include "tests/support/freed_memory.h"

#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

constexpr std::u16string_view kSecret = u"correct horse battery staple";

class TypedSecrets : public SessionDialogScene {
protected:
    void SetUp() override
    {
        if (!CanWatchMemory())
            GTEST_SKIP() << "the allocator of this build can't be watched";
        t_wanted = {reinterpret_cast<const char*>(kSecret.data()), kSecret.size() * sizeof(char16_t)};
        t_found = 0;
    }
    void TearDown() override { t_wanted = {}; }
};

TEST_F(TypedSecrets, OfALogonAction)
{
    using P = SessionLogonScriptsPage;
    using E = ExpectSendPropertiesDialog;
    {
        const auto session = Session();
        PageDriver<P> page(*session);
        page.Click(P::Automate);
        for (const bool isHiddenFirst : {true, false}) {
            page.services.ExpectDialog([isHiddenFirst](VDialog& dialog) {
                FormDriver user(dialog);
                if (isHiddenFirst)
                    user.Click(E::Hide).Type(E::Send, kSecret);
                else
                    user.Type(E::Send, kSecret).Click(E::Hide);
                EXPECT_TRUE(dialog.Control(E::Send).GetText().IsSensitive());
                user.Click(E::Ok);
            });
            page.Click(P::Add).Click(P::Up).Click(P::Down);
        }
        page.Click(P::Delete);
        EXPECT_TRUE(page.Leave());
        LogonActionList actions;
        session->ReadLogonActions(actions);
        EXPECT_EQ(actions[2].send, kSecret);
    }
    EXPECT_EQ(t_found, 0);
}

TEST_F(TypedSecrets, OfAFirewall)
{
    using F = FirewallCredentialDialog;
    {
        VUnicodeString text;
        bool isSaved = false;
        services.ExpectDialog(
            [](VDialog& dialog) { FormDriver(dialog).Type(F::Text, u"x").Type(F::Text, kSecret).Click(F::Ok); });
        FirewallCredentialDialog(VFirewallCredential::Password, text, isSaved, services, nullptr).DoModal();
        EXPECT_EQ(text, kSecret);
    }
    EXPECT_EQ(t_found, 0);
}

} // namespace
} // namespace ostrand::test
