#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <string_view>

#include "harness/input.h"

// Apart from the input itself, which programs without GoogleTest use, too.

namespace quillo::e2e {

void ReportAttempts(int attempts) {
    const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
    if (test == nullptr) return;
    int repeated = 1;
    for (int i = 0; i < test->result()->test_property_count(); ++i) {
        const ::testing::TestProperty& property = test->result()->GetTestProperty(i);
        if (property.key() == std::string_view(kRepeatedActions)) repeated += std::atoi(property.value());
    }
    ::testing::Test::RecordProperty(kRepeatedActions, repeated);
    // scripts/check_repeats.py counts these lines, and limits their number.
    std::cout << "REPEATED ACTION: " << attempts << " attempts, in " << test->name() << std::endl;
}

}  // namespace quillo::e2e
