// A hundred thousand instances and notices, and a few hundred windows: memory and handles do not
// grow.
#include <cstdio>
#include <gtest/gtest.h>
#include <set>

#include "tests/robustness/last_words.h"
#include "tests/robustness/sensible.h"
#include "tests/robustness/unattended.h"
#include "tests/robustness/workplace.h"
#include "tests/support/box_watcher.h"
#include "tests/support/resources.h"

namespace kovrel::test {
namespace {

constexpr int creations = 100'000;           // of each class
constexpr SIZE_T slack = SIZE_T{64} * 1024;  // less than a leak of one byte each

TEST(Endurance, AHundredThousandInstancesOfEachClass) {
    const OwnLibrary& library = OwnLibrary::get();
    const auto create_often = [&](const OwnClass& of_class, int times) {
        const OwnMember& member = of_class.members.front();
        for (int index = 0; index < times; ++index) {
            const auto instance = library.create(of_class);
            ASSERT_TRUE(instance);
            DISPID id = DISPID_UNKNOWN;
            auto* name = const_cast<wchar_t*>(member.name.c_str());
            ASSERT_EQ(instance->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), S_OK);
        }
    };
    // The heap caches frequent sizes after a while.
    constexpr int warm_up = 20'000;
    for (const OwnClass& of_class : library.classes()) create_often(of_class, warm_up);
    for (const OwnClass& of_class : library.classes()) {
        announce(narrow(of_class.name) + " created over and over");
        const Resources before = Resources::now();
        create_often(of_class, creations);
        std::printf("%s: %s\n", narrow(of_class.name).c_str(), Resources::now().text().c_str());
        Resources::now().expect_no_more_than(before, slack);
        EXPECT_EQ(library.can_unload(), S_OK);
    }
}

TEST(Endurance, HundredsOfCallsOfEveryMember) {
    const Workplace workplace;
    const Unattended unattended;
    const OwnLibrary& library = OwnLibrary::get();
    // These have tests of their own, or wait.
    const std::set<std::wstring> left_out{
        L"PideFecha",           L"MsgFormA",   L"LanzaVerificadorNIFyCCC",
        L"BarraProgresoInicia", L"GenerarZip", L"Espera"};
    // The host's objects, whose logs grow, are released at the end.
    const auto call_often = [&](const OwnClass& of_class, const OwnMember& member, int times) {
        SensibleHost host;
        const auto instance = library.create(of_class);
        for (int index = 0; index < times; ++index) {
            (void)call_member(instance.get(), member, host.arguments(of_class, member));
        }
    };
    constexpr int first_calls = 100;
    constexpr int calls = 400;
    constexpr SIZE_T text_lost = SIZE_T{16} * 1024;  // a leak of a short text in each call
    for (const OwnClass& of_class : library.classes()) {
        for (const OwnMember& member : of_class.members) {
            if (left_out.contains(member.name)) continue;
            const std::string what = narrow(of_class.name) + '.' + narrow(member.name);
            SCOPED_TRACE(what);
            announce(what + " called over and over");
            call_often(of_class, member, first_calls);
            const Resources before = Resources::now();
            call_often(of_class, member, calls);
            Resources::now().expect_no_more_than(before, text_lost);
        }
        Workplace::remove_pictures();
    }
}

TEST(Endurance, AHundredThousandNotices) {
    const OwnLibrary& library = OwnLibrary::get();
    SensibleHost host;
    const OwnClass& of_class = library.named(L"clsAvisos");
    const auto avisos = library.create(of_class);
    const std::vector<Variant> silent{Variant(1)};
    ASSERT_EQ(call_member(avisos.get(), of_class.member(L"Modo", DISPATCH_PROPERTYPUT), silent),
              S_OK);
    const OwnClass& speaking = library.named(L"clsFGen");
    const OwnMember& member = speaking.member(L"Verifica_NIF", DISPATCH_METHOD);
    const auto general = library.create(speaking);
    const auto arguments = host.arguments(speaking, member);
    const auto speak = [&](int times) {
        for (int index = 0; index < times; ++index) {
            ASSERT_EQ(call_member(general.get(), member, arguments), S_OK);
        }
    };
    const auto count = [&] {
        Variant result;
        call_member(avisos.get(), of_class.member(L"Count", DISPATCH_PROPERTYGET), {}, &result);
        return result.to_int32();
    };
    announce("notices over and over");
    speak(1000);
    EXPECT_EQ(count(), 1000);
    const Resources before = Resources::now();
    speak(100'000);
    EXPECT_EQ(count(), 1000);
    std::printf("notices: %s\n", Resources::now().text().c_str());
    Resources::now().expect_no_more_than(before, slack);
}

TEST(Endurance, HundredsOfWindows) {
    const Workplace workplace;
    const Unattended unattended;
    const OwnLibrary& library = OwnLibrary::get();
    SensibleHost host;
    const auto round = [&] {
        announce("windows opened over and over");
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
    constexpr int first_rounds = 20;
    constexpr int rounds = 60;
    for (int index = 0; index < first_rounds; ++index) round();
    const Resources before = Resources::now();
    for (int index = 0; index < rounds; ++index) round();
    std::printf("windows: %s\n", Resources::now().text().c_str());
    // The system's tables of windows and fonts grow by pages.
    Resources::now().expect_no_more_than(before, 2 * slack);
    EXPECT_EQ(own_windows().size(), 0U);
}

}  // namespace
}  // namespace kovrel::test
