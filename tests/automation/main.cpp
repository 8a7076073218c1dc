#include <gtest/gtest.h>

#include "tests/automation/late.h"

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    const kovrel::test::ComApartment apartment;
    return RUN_ALL_TESTS();
}
