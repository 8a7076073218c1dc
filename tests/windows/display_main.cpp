// The main function of a DPI-aware program.
#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/late.h"

int main(int count, char** arguments) {
    SetProcessDPIAware();
    testing::InitGoogleTest(&count, arguments);
    const kovrel::test::ComApartment apartment;
    return RUN_ALL_TESTS();
}
