// As programs begin that draw at the display's own resolution.
#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/late.h"

int main(int count, char** arguments) {
    SetProcessDPIAware();
    testing::InitGoogleTest(&count, arguments);
    const kovrel::test::ComApartment apartment;
    return RUN_ALL_TESTS();
}
