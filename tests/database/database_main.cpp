// The tests of this folder, which need a driver: without one they count as not run.
#include <gtest/gtest.h>
#include <iostream>

#include "tests/database/database.h"

namespace {

constexpr int not_run = 77;

}  // namespace

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    const kovrel::test::ComApartment apartment;
    try {
        const ficha::Database database(kovrel::test::connection_text());
    } catch (const ficha::DatabaseFailure& failure) {
        std::cout << "Not run, without a database: " << kovrel::test::narrow(failure.description)
                  << '\n';
        return not_run;
    }
    return RUN_ALL_TESTS();
}
