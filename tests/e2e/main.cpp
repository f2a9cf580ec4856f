#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>

#include "harness/quillo_process.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // Rectangles and pixels are the screen's own, at any resolution.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    if (!std::filesystem::exists(quillo::e2e::QuilloExe()) && !::testing::GTEST_FLAG(list_tests)) {
        std::cerr << "There is no program to test at " << std::filesystem::path(quillo::e2e::QuilloExe())
                  << ". Build the target quillo, or name the program in QUILLO_EXE.\n";
        return 1;
    }
    return RUN_ALL_TESTS();
}
