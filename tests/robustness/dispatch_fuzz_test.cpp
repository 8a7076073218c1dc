// Thousands of random calls. For a run of any length, and to repeat a run by its seed:
//     dispatch_fuzz_tests --calls=1000000 --seed=7
#include <gtest/gtest.h>

#include "tests/robustness/dispatch_fuzzer.h"
#include "tests/robustness/last_words.h"
#include "tests/robustness/scarce_memory.h"
#include "tests/robustness/unattended.h"
#include "tests/robustness/workplace.h"
#include "tests/support/box_watcher.h"
#include "tests/support/resources.h"

namespace kovrel::test {
namespace {

long calls_wanted = 20'000;
std::uint64_t seed = 20'260;

TEST(RandomCalls, DoNoHarm) {
    std::printf("%ld calls from seed %llu\n", calls_wanted, static_cast<unsigned long long>(seed));
    const Workplace workplace;
    const Unattended unattended;
    // Refuses nothing; counts the library's allocated blocks.
    const ScarceMemory memory;
    Unattended::set_seed(seed);
    DispatchFuzzer fuzzer(seed);
    constexpr long between_checks = 5'000;
    const long warm_up = calls_wanted / 4;
    Resources before;
    for (long made = 0; made < calls_wanted; ++made) {
        if (made == warm_up) before = Resources::now();
        fuzzer.call();
        if (made % between_checks == between_checks - 1) {
            fuzzer.release_all();
            Workplace::remove_pictures();
            std::printf("%ld calls: %s, %zu blocks\n", made + 1, Resources::now().text().c_str(),
                        ScarceMemory::blocks());
            std::fflush(stdout);
        }
        if (!fuzzer.problems().empty()) break;
    }
    fuzzer.release_all();
    Workplace::remove_pictures();
    for (const std::string& problem : fuzzer.problems()) ADD_FAILURE() << problem;
    std::printf("%ld succeeded, %ld failed inside, %ld more from within; %ld boxes, %ld steps\n",
                fuzzer.succeeded(), fuzzer.failed_inside(), fuzzer.inner_calls(),
                Unattended::boxes(), Unattended::window_steps());
    EXPECT_EQ(own_windows().size(), 0U);
    // The calls must reach the code they are meant for.
    EXPECT_GT(fuzzer.succeeded(), calls_wanted / 5);
    EXPECT_GT(fuzzer.inner_calls(), calls_wanted / 100);
    EXPECT_GT(Unattended::boxes(), calls_wanted / 100);
    EXPECT_GT(Unattended::window_steps(), calls_wanted / 1'000);
    // The system caches some windows, fonts and INI files, which does not grow with the calls.
    Resources::now().expect_no_more_than(before, SIZE_T{1024} * 1024);
}

}  // namespace
}  // namespace kovrel::test

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    for (int index = 1; index < count; ++index) {
        const std::string argument = arguments[index];
        if (argument.starts_with("--calls="))
            kovrel::test::calls_wanted = std::stol(argument.substr(8));
        if (argument.starts_with("--seed=")) kovrel::test::seed = std::stoull(argument.substr(7));
    }
    kovrel::test::install_last_words();
    const kovrel::test::ComApartment apartment;
    return RUN_ALL_TESTS();
}
