// Reentrant calls: every member called from the events that waits, boxes and windows dispatch, the
// last reference released or windows closed during a call.
#include <array>
#include <cstdio>
#include <gtest/gtest.h>

#include "tests/robustness/last_words.h"
#include "tests/robustness/sensible.h"
#include "tests/robustness/unattended.h"
#include "tests/robustness/workplace.h"
#include "tests/support/box_watcher.h"
#include "tests/support/resources.h"

namespace kovrel::test {
namespace {

/// Members that dispatch events.
struct Outer {
    const wchar_t* of_class;
    const wchar_t* member;
};
constexpr std::array outers{Outer{L"clsFGen", L"Espera"},
                            Outer{L"clsMensajes", L"MsgFormA"},
                            Outer{L"clsFFechas", L"PideFecha"},
                            Outer{L"clsFGen", L"LanzaVerificadorNIFyCCC"},
                            Outer{L"clsFGen", L"BarraProgresoInicia"},
                            Outer{L"clsFGen", L"Verifica_NIF"},
                            Outer{L"clsFGen", L"ValidateDataComboALista"},
                            Outer{L"cgsFileOpR", L"ShowOpen"},
                            Outer{L"clsProfile", L"BrowseForFolder"},
                            Outer{L"clsFZip", L"GenerarZip"}};

class Reentry : public testing::Test {
 protected:
    ~Reentry() override { Workplace::remove_pictures(); }

    /// Calls the outer member with an event during the call; true when the event was dispatched.
    bool call(const Outer& outer, ComPtr<IDispatch>& instance, const std::function<void()>& event) {
        const OwnClass& of_class = library_.named(outer.of_class);
        const OwnMember& member = of_class.member(outer.member, DISPATCH_METHOD);
        bool happened = false;
        Unattended::set_seed(3);
        Unattended::on_next_event([&] {
            happened = true;
            event();
        });
        const auto arguments = host_.arguments(of_class, member);
        IDispatch* const target = instance.get();
        EXPECT_EQ(call_member(target, member, arguments), S_OK) << narrow(outer.member);
        Unattended::on_next_event({});
        return happened;
    }

    void expect_nothing_left(const std::string& what) {
        EXPECT_EQ(library_.can_unload(), S_OK) << what;
        EXPECT_EQ(own_windows().size(), 0U) << what;
    }

    const Workplace workplace_;
    const Unattended unattended_;
    const OwnLibrary& library_ = OwnLibrary::get();
    SensibleHost host_;
};

TEST_F(Reentry, EveryMemberFromWithinEveryWaitAndWindow) {
    const ULONG references = host_.references();
    std::size_t calls = 0;
    for (const Outer& outer : outers) {
        for (const OwnClass& inner_class : library_.classes()) {
            for (const OwnMember& inner : inner_class.members) {
                const std::string what = narrow(outer.member) + std::string(" with ") +
                                         narrow(inner_class.name) + '.' + narrow(inner.name) +
                                         " within";
                announce(what);
                {
                    auto instance = library_.create(outer.of_class);
                    // On the same instance if it is of that class.
                    const auto other = inner_class.name == outer.of_class
                                           ? instance
                                           : library_.create(inner_class);
                    HRESULT answer = E_UNEXPECTED;
                    const bool happened = call(outer, instance, [&] {
                        answer =
                            call_member(other.get(), inner, host_.arguments(inner_class, inner));
                    });
                    ASSERT_TRUE(happened) << what;
                    // The window of the outer call may be the first item of the collection.
                    EXPECT_TRUE(answer == S_OK || answer == sensible_answer(inner))
                        << what << ": " << std::hex << answer;
                    ++calls;
                }
                expect_nothing_left(what);
                ASSERT_EQ(host_.references(), references) << what;
                ASSERT_FALSE(HasFailure());
            }
        }
    }
    std::printf("%zu calls within calls, %ld boxes\n", calls, Unattended::boxes());
    EXPECT_GT(calls, 1'000U);
}

TEST_F(Reentry, TheLastReferenceIsReleasedDuringTheCall) {
    for (const Outer& outer : outers) {
        announce(narrow(outer.member) + std::string(" released within"));
        auto instance = library_.create(outer.of_class);
        EXPECT_TRUE(call(outer, instance, [&] { instance = nullptr; })) << narrow(outer.member);
        EXPECT_FALSE(instance);
        expect_nothing_left(narrow(outer.member));
    }
}

TEST_F(Reentry, NestedWaitsEnd) {
    announce("waits within waits");
    const Outer& wait = outers.front();
    auto outermost = library_.create(L"clsFGen");
    int depth = 0;
    constexpr int deepest = 20;
    std::function<void()> again = [&] {
        if (++depth == deepest) return;
        auto inner = library_.create(L"clsFGen");
        call(wait, inner, again);
    };
    EXPECT_TRUE(call(wait, outermost, again));
    EXPECT_EQ(depth, deepest);
    outermost = nullptr;
    expect_nothing_left("waits");
}

TEST_F(Reentry, ASecondWindowOfTheSameKind) {
    for (const Outer& outer : {outers[1], outers[2], outers[3]}) {
        announce(narrow(outer.member) + std::string(" within itself"));
        auto first = library_.create(outer.of_class);
        auto second = library_.create(outer.of_class);
        const long boxes = Unattended::boxes();
        EXPECT_TRUE(call(outer, first, [&] { call(outer, second, [] {}); }));
        // Each call has its own dialog; the other two windows are shared, and a second call is an
        // error.
        const bool is_dialog = outer.member == std::wstring(L"MsgFormA");
        EXPECT_EQ(Unattended::boxes() > boxes, !is_dialog) << narrow(outer.member);
        first = second = nullptr;
        expect_nothing_left(narrow(outer.member));
    }
}

TEST_F(Reentry, TheHostClosesItsWindowsDuringTheCall) {
    for (const Outer& outer : outers) {
        announce(narrow(outer.member) + std::string(" with the host's windows closed within"));
        auto instance = library_.create(outer.of_class);
        HWND const owner = CreateWindowW(L"STATIC", L"Anfitriona", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                         0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr);
        HWND const second = CreateWindowW(L"STATIC", L"Otra", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                                          0, 200, 100, nullptr, nullptr, nullptr, nullptr);
        SetActiveWindow(owner);
        EXPECT_TRUE(call(outer, instance, [&] { DestroyWindow(owner); })) << narrow(outer.member);
        // The remaining window is enabled again.
        EXPECT_NE(IsWindowEnabled(second), FALSE) << narrow(outer.member);
        DestroyWindow(second);
        instance = nullptr;
        expect_nothing_left(narrow(outer.member));
    }
}

TEST_F(Reentry, TheHostDestroysTheLibrarysOwnWindows) {
    // Not the date prompt, which waits for its date even without its window.
    for (const Outer& outer : {outers[1], outers[3], outers[4]}) {
        announce(narrow(outer.member) + std::string(" with its window destroyed"));
        auto instance = library_.create(outer.of_class);
        EXPECT_TRUE(call(outer, instance, [&] {
            for (HWND window : own_windows()) DestroyWindow(window);
        })) << narrow(outer.member);
        // The instance still works.
        const OwnClass& of_class = library_.named(outer.of_class);
        const OwnMember& member = of_class.member(outer.member, DISPATCH_METHOD);
        EXPECT_EQ(call_member(instance.get(), member, host_.arguments(of_class, member)), S_OK);
        instance = nullptr;
        expect_nothing_left(narrow(outer.member));
    }
}

// Dispatched by the system, as messages of a host's timers and buttons are.
std::function<void()>* posted_work = nullptr;

LRESULT CALLBACK run_posted_work(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message != WM_APP) return DefWindowProcW(window, message, wparam, lparam);
    (*posted_work)();
    return 0;
}

TEST_F(Reentry, FromAMessageOfTheHostsOwnWindow) {
    WNDCLASSW description{};
    description.lpfnWndProc = &run_posted_work;
    description.lpszClassName = L"Host.Work";
    RegisterClassW(&description);
    for (const Outer& outer : {outers[0], outers[1], outers[2], outers[3]}) {
        announce(narrow(outer.member) + std::string(" with a message of the host's"));
        auto instance = library_.create(outer.of_class);
        HWND const window = CreateWindowW(L"Host.Work", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                          nullptr, nullptr);
        int worked = 0;
        std::function<void()> work = [&] {
            const OwnClass& dates = library_.named(L"clsFFechas");
            const OwnMember& member = dates.member(L"Dias_Mes", DISPATCH_METHOD);
            const auto other = library_.create(dates);
            Variant days;
            call_member(other.get(), member, {Variant(2), Variant(2024)}, &days);
            worked += days.vt == VT_I2 && days.iVal == 29 ? 1 : 0;
            instance = nullptr;
        };
        posted_work = &work;
        PostMessageW(window, WM_APP, 0, 0);
        call(outer, instance, [] {});
        EXPECT_EQ(worked, 1) << narrow(outer.member);
        EXPECT_FALSE(instance);
        DestroyWindow(window);
        expect_nothing_left(narrow(outer.member));
    }
    UnregisterClassW(L"Host.Work", nullptr);
}

}  // namespace
}  // namespace kovrel::test
