// Every member without memory: each of its allocations fails once, alone and with all that follow.
// Nothing crashes or leaks, and the host or the user is told.
#include <cstdio>
#include <gtest/gtest.h>

#include "tests/robustness/last_words.h"
#include "tests/robustness/scarce_memory.h"
#include "tests/robustness/sensible.h"
#include "tests/robustness/unattended.h"
#include "tests/robustness/workplace.h"
#include "tests/support/box_watcher.h"
#include "tests/support/resources.h"

namespace kovrel::test {
namespace {

constexpr HRESULT no_memory = static_cast<HRESULT>(0x800A0007);
constexpr std::size_t most_requests = 20'000;
constexpr std::array refusals{ScarceMemory::Refusal::once, ScarceMemory::Refusal::from_then_on};

const char* name_of(ScarceMemory::Refusal refusal) {
    return refusal == ScarceMemory::Refusal::once ? "once" : "from then on";
}

/// Creates an instance of the class, failing each of the allocations in turn.
void refuse_creation(const OwnClass& of_class, ScarceMemory::Refusal refusal) {
    const OwnLibrary& library = OwnLibrary::get();
    for (std::size_t request = 1; request < most_requests; ++request) {
        announce(narrow(of_class.name) + " created, request " + std::to_string(request) + ' ' +
                 name_of(refusal));
        ScarceMemory::refuse(request, refusal);
        const auto instance = library.create(of_class);
        const bool granted = ScarceMemory::grant_all() < request;
        EXPECT_EQ(static_cast<bool>(instance), granted) << narrow(of_class.name);
        if (!granted) continue;
        EXPECT_GT(request, 1U) << narrow(of_class.name);
        return;
    }
    ADD_FAILURE() << narrow(of_class.name) << " asks for memory without end";
}

TEST(WithoutMemory, CreationFailsCleanly) {
    const OwnLibrary& library = OwnLibrary::get();
    ScarceMemory::warm_up(library.create(L"clsFGen").get());
    const ScarceMemory memory;
    for (const OwnClass& of_class : library.classes()) {
        for (const auto refusal : refusals) {
            refuse_creation(of_class, refusal);  // allocates what is kept for ever
            const std::size_t blocks = ScarceMemory::blocks();
            refuse_creation(of_class, refusal);
            EXPECT_EQ(ScarceMemory::blocks(), blocks) << narrow(of_class.name);
        }
    }
    EXPECT_EQ(library.can_unload(), S_OK);
}

class EveryCall {
 public:
    /// Fails each allocation of the call in turn; returns how many there are.
    std::size_t refuse_all(const OwnClass& of_class, const OwnMember& member) {
        std::size_t most = 0;
        call(of_class, member, 0, ScarceMemory::Refusal::once);  // allocates what is kept for ever
        for (const auto refusal : refusals) {
            for (std::size_t request = 1; request < most_requests; ++request) {
                if (call(of_class, member, request, refusal)) break;
                most = std::max(most, request);
                if (testing::Test::HasFailure()) return most;
            }
        }
        return most;
    }

 private:
    /// True when the call made fewer allocations than that.
    bool call(const OwnClass& of_class, const OwnMember& member, std::size_t request,
              ScarceMemory::Refusal refusal) {
        const std::string what = narrow(of_class.name) + '.' + narrow(member.name) + " kind " +
                                 std::to_string(member.kind) + ", request " +
                                 std::to_string(request) + ' ' + name_of(refusal);
        announce(what);
        const std::size_t blocks = ScarceMemory::blocks();
        bool over = false;
        {
            const std::vector<Variant> arguments = host_.arguments(of_class, member);
            auto instance = OwnLibrary::get().create(of_class);
            // The same seed each time, so that boxes and windows are worked in the same way.
            Unattended::set_seed(7);
            if (request != 0) ScarceMemory::refuse(request, refusal);
            Variant result;
            const HRESULT answer = call_member(instance.get(), member, arguments, &result);
            over = request != 0 && ScarceMemory::grant_all() < request;
            const bool told =
                answer == sensible_answer(member) || answer == no_memory || answer == E_OUTOFMEMORY;
            EXPECT_TRUE(told) << what << ": " << std::hex << answer;
        }
        EXPECT_EQ(own_windows().size(), 0U) << what;
        EXPECT_EQ(OwnLibrary::get().can_unload(), S_OK) << what;
        if (request != 0) {
            EXPECT_EQ(ScarceMemory::blocks(), blocks) << what;
        }
        return over;
    }

    SensibleHost host_;
};

TEST(WithoutMemory, EveryMemberFailsCleanly) {
    const Workplace workplace;
    const Unattended unattended;
    // A window for modal windows to disable.
    HWND const host = CreateWindowW(L"STATIC", L"Anfitriona", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                                    0, 200, 100, nullptr, nullptr, nullptr, nullptr);
    ScarceMemory::warm_up(OwnLibrary::get().create(L"clsFGen").get());
    const ScarceMemory memory;
    EveryCall calls;
    std::size_t requests = 0;
    std::size_t members = 0;
    for (const OwnClass& of_class : OwnLibrary::get().classes()) {
        for (const OwnMember& member : of_class.members) {
            const std::size_t made = calls.refuse_all(of_class, member);
            requests += made;
            ++members;
            if (testing::Test::HasFailure()) return;
        }
        Workplace::remove_pictures();
    }
    EXPECT_NE(IsWindowEnabled(host), FALSE);
    DestroyWindow(host);
    std::printf("%zu members, %zu requests, %ld boxes\n", members, requests, Unattended::boxes());
    EXPECT_GT(members, 140U);
    EXPECT_GT(requests, 700U);
}

}  // namespace
}  // namespace kovrel::test
