#include "platform/win_printer.h"

#include <gtest/gtest.h>

#include "platform/win32.h"
#include "util/busy_flag.h"

namespace quillo::windows_tests {
namespace {

bool HasDefaultPrinter() {
    DWORD size = 0;
    HMODULE spooler = LoadLibraryW(L"winspool.drv");
    using GetDefault = BOOL WINAPI(wchar_t*, DWORD*);
    const auto procedure = reinterpret_cast<void*>(GetProcAddress(spooler, "GetDefaultPrinterW"));
    reinterpret_cast<GetDefault*>(procedure)(nullptr, &size);
    return size > 0;
}

// What a printer prints is read back in ring 3, where there is one.
TEST(WinPrinter, WithoutADefaultPrinterTheJobHasFailedFromTheStart) {
    if (HasDefaultPrinter()) GTEST_SKIP() << "there is a default printer";
    BusyFlag dialogs;
    WinPrinter printer(dialogs);
    std::unique_ptr<PrintJob> job = printer.Open(u"Buy milk");
    ASSERT_NE(job, nullptr);
    EXPECT_FALSE(job->StartPage());
    EXPECT_EQ(job->Finish(), PrintOutcome::Failed);
    EXPECT_TRUE(dialogs.IsSet());
    job.reset();
    EXPECT_FALSE(dialogs.IsSet());
}

}  // namespace
}  // namespace quillo::windows_tests
