// A hundred thousand instances and a few hundred windows: what the process holds stays the same.
#include <cstdio>
#include <gtest/gtest.h>

#include "tests/robustness/last_words.h"
#include "tests/robustness/resources.h"
#include "tests/robustness/sensible.h"
#include "tests/robustness/unattended.h"
#include "tests/robustness/workplace.h"
#include "tests/support/box_watcher.h"

namespace kovrel::test {
namespace {

constexpr int creations = 100'000;  // of each class
constexpr int warm_up = 1'000;
constexpr SIZE_T slack = 512 * 1024;  // eight bytes lost each time would be more

TEST(Endurance, AHundredThousandInstancesOfEachClass) {
    const OwnLibrary& library = OwnLibrary::get();
    for (const OwnClass& of_class : library.classes()) {
        announce(narrow(of_class.name) + " created over and over");
        const OwnMember& member = of_class.members.front();
        const auto round = [&] {
            const auto instance = library.create(of_class);
            ASSERT_TRUE(instance);
            DISPID id = DISPID_UNKNOWN;
            auto* name = const_cast<wchar_t*>(member.name.c_str());
            ASSERT_EQ(instance->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), S_OK);
        };
        for (int index = 0; index < warm_up; ++index) round();
        const Resources before = Resources::now();
        for (int index = 0; index < creations; ++index) round();
        std::printf("%s: %s\n", narrow(of_class.name).c_str(), Resources::now().text().c_str());
        Resources::now().expect_no_more_than(before, slack);
        EXPECT_EQ(library.can_unload(), S_OK);
    }
}

TEST(Endurance, HundredsOfWindows) {
    const Workplace workplace;
    const Unattended unattended;
    const OwnLibrary& library = OwnLibrary::get();
    SensibleHost host;
    const auto round = [&] {
        for (const auto& [name, member_name] : {std::pair{L"clsFFechas", L"PideFecha"},
                                                {L"clsMensajes", L"MsgFormA"},
                                                {L"clsFGen", L"LanzaVerificadorNIFyCCC"},
                                                {L"clsFGen", L"BarraProgresoInicia"}}) {
            const OwnClass& of_class = library.named(name);
            const OwnMember& member = of_class.member(member_name, DISPATCH_METHOD);
            const auto instance = library.create(of_class);
            Unattended::close_at_once();
            ASSERT_EQ(call_member(instance.get(), member, host.arguments(of_class, member)), S_OK);
        }
    };
    constexpr int first_rounds = 50;
    constexpr int rounds = 150;
    for (int index = 0; index < first_rounds; ++index) round();
    const Resources before = Resources::now();
    for (int index = 0; index < rounds; ++index) round();
    std::printf("windows: %s\n", Resources::now().text().c_str());
    // The system's own lists of windows and fonts grow by pages.
    Resources::now().expect_no_more_than(before, 2 * slack);
    EXPECT_EQ(own_windows().size(), 0U);
}

}  // namespace
}  // namespace kovrel::test
