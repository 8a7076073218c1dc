#include <gtest/gtest.h>

#include "tests/robustness/last_words.h"
#include "tests/support/late.h"

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    kovrel::test::install_last_words();
    const kovrel::test::ComApartment apartment;
    return RUN_ALL_TESTS();
}
