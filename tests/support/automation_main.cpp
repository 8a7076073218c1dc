#include <gtest/gtest.h>

#include "tests/support/late.h"

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    const kovrel::test::ComApartment apartment;
    return RUN_ALL_TESTS();
}
