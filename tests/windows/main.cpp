#include <gtest/gtest.h>

#include "support.h"

int main(int argc, char** argv) {
    quillo::windows_tests::EndProcessOnCrash();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
