#include "notes/mail_form.h"

#include <gtest/gtest.h>

#include "platform/win_locale_text.h"
#include "support.h"

namespace quillo::windows_tests {
namespace {

TEST(MailForm, ExistsOnlyWhereTheSystemHasAMailInterface) {
    WinLocaleText locale;
    BusyFlag dialogs;
    MapiMail missing(locale, dialogs, L"there is no such library.dll");
    EXPECT_EQ(missing.NewSession(), nullptr);
    MapiMail incomplete(locale, dialogs, L"version.dll");
    EXPECT_EQ(incomplete.NewSession(), nullptr) << "a library without the functions of a mail interface";
}

TEST(MailForm, IsAHiddenWindowForOneSending) {
    WinLocaleText locale;
    BusyFlag dialogs;
    MapiMail mail(locale, dialogs);
    {
        const std::unique_ptr<MailSession> session = mail.NewSession();
        ASSERT_NE(session, nullptr);
        const HWND form = FindWindowW(nullptr, L"QuilloMail");
        ASSERT_NE(form, nullptr);
        EXPECT_FALSE(IsWindowVisible(form));
        EXPECT_NE(mail.NewSession(), nullptr) << "two notes may be on their way at once";
        EXPECT_TRUE(dialogs.IsSet());
    }
    EXPECT_FALSE(dialogs.IsSet());
    EXPECT_EQ(FindWindowW(nullptr, L"QuilloMail"), nullptr);
}

}  // namespace
}  // namespace quillo::windows_tests
