// Two threads at work at the same time, each with an apartment and instances of its own, do not
// affect each other.
#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

#include "tests/robustness/sensible.h"
#include "tests/robustness/unattended.h"
#include "tests/robustness/workplace.h"
#include "tests/support/box_watcher.h"

namespace kovrel::test {
namespace {

constexpr int rounds = 40;
constexpr int window_rounds = 25;

/// A result as text, to compare the threads' results.
std::wstring as_text(const Variant& value) {
    Variant text;
    return SUCCEEDED(VariantChangeType(&text, const_cast<Variant*>(&value), 0, VT_BSTR))
               ? std::wstring(text_of(text.bstrVal))
               : L"?";
}

/// Calls members whose results depend only on their arguments and that show no windows but boxes.
std::vector<std::wstring> work(int round) {
    const OwnLibrary& library = OwnLibrary::get();
    SensibleHost host;
    std::vector<std::wstring> results;
    for (const wchar_t* const name : {L"clsFGen", L"clsFFechas", L"clsCSQL", L"clsMensajes"}) {
        const OwnClass& of_class = library.named(name);
        const auto instance = library.create(of_class);
        for (const OwnMember& member : of_class.members) {
            const bool opens_window = member.name == L"MsgFormA" || member.name == L"PideFecha" ||
                                      member.name == L"LanzaVerificadorNIFyCCC" ||
                                      member.name == L"Mensajes" ||
                                      member.name.starts_with(L"BarraProgreso");
            if (opens_window || member.kind != DISPATCH_METHOD) continue;
            Variant result;
            Unattended::set_seed(static_cast<std::uint64_t>(round));
            const HRESULT answer =
                call_member(instance.get(), member, host.arguments(of_class, member), &result);
            results.push_back(member.name + L' ' + std::to_wstring(answer) + L' ' +
                              as_text(result));
        }
    }
    return results;
}

/// Runs `body` with its number on two threads that start together.
template <class Body>
void on_two_threads(Body body) {
    std::atomic<int> ready{0};
    const auto run = [&](int number) {
        const ComApartment apartment;
        ++ready;
        while (ready < 2) std::this_thread::yield();
        body(number);
    };
    std::thread first(run, 1);
    std::thread second(run, 2);
    first.join();
    second.join();
}

TEST(TwoApartments, GetTheSameResultsAsOne) {
    const Workplace workplace;
    const Unattended unattended;
    std::vector<std::vector<std::wstring>> alone;
    alone.reserve(rounds);
    for (int round = 0; round < rounds; ++round) alone.push_back(work(round));
    EXPECT_GT(alone.front().size(), 80U);
    std::atomic<int> differences{0};
    on_two_threads([&](int /*number*/) {
        for (int round = 0; round < rounds; ++round) {
            if (work(round) != alone[static_cast<std::size_t>(round)]) ++differences;
        }
    });
    EXPECT_EQ(differences, 0);
    EXPECT_EQ(OwnLibrary::get().can_unload(), S_OK);
}

TEST(TwoApartments, KeepTheirSettingsApart) {
    const Workplace workplace;
    const OwnLibrary& library = OwnLibrary::get();
    std::atomic<int> wrong{0};
    on_two_threads([&](int number) {
        const OwnClass& profile = library.named(L"clsProfile");
        const auto instance = library.create(profile);
        const Variant file(L".\\hilo" + std::to_wstring(number) + L".ini");
        for (int round = 0; round < 200; ++round) {
            const Variant value(std::to_wstring(number) + L" vuelta " + std::to_wstring(round));
            call_member(instance.get(), profile.member(L"GuardarIni", DISPATCH_METHOD),
                        {file, Variant(L"Sección"), Variant(L"Clave"), value});
            Variant read;
            call_member(instance.get(), profile.member(L"LeerIni", DISPATCH_METHOD),
                        {file, Variant(L"Sección"), Variant(L"Clave"), Variant(L"")}, &read);
            if (as_text(read) != as_text(value)) ++wrong;
        }
    });
    EXPECT_EQ(wrong, 0);
}

/// Makes two threads with open windows take turns, message by message, because Wine's text fields
/// crash when two threads draw at the same time.
class Turns {
 public:
    Turns() { SetEvent(turn_[0]); }
    Turns(const Turns&) = delete;
    Turns& operator=(const Turns&) = delete;
    ~Turns() {
        for (HANDLE turn : turn_) CloseHandle(turn);
    }

    /// Waits for the turn of `thread`, 0 or 1.
    void begin(std::size_t thread) {
        HANDLE const turn = turn_[thread];
        // Answers messages sent by the other thread, which waits for the answer.
        while (MsgWaitForMultipleObjects(1, &turn, FALSE, INFINITE, QS_SENDMESSAGE) !=
               WAIT_OBJECT_0) {
            MSG message;
            PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
        }
    }
    void pass(std::size_t thread) {
        windows_[thread] = own_windows().size();
        if (windows_[0] != 0 && windows_[1] != 0) ++together_;
        if (over_) return;
        SetEvent(turn_[1 - thread]);
        begin(thread);
    }
    void end(std::size_t thread) {
        windows_[thread] = 0;
        over_ = true;
        SetEvent(turn_[1 - thread]);
    }

    /// How often both threads had a window open.
    [[nodiscard]] int together() const noexcept { return together_; }

 private:
    std::array<HANDLE, 2> turn_{CreateEventW(nullptr, FALSE, FALSE, nullptr),
                                CreateEventW(nullptr, FALSE, FALSE, nullptr)};
    // Written by the thread that has the turn.
    std::array<std::size_t, 2> windows_{};
    int together_ = 0;
    bool over_ = false;
};

TEST(TwoApartments, EachHaveTheirOwnWindows) {
    const Workplace workplace;
    const Unattended unattended;
    const OwnLibrary& library = OwnLibrary::get();
    std::atomic<int> failed{0};
    std::atomic<int> left{0};
    const long boxes = Unattended::boxes();
    Turns turns;
    on_two_threads([&](int number) {
        const auto thread = static_cast<std::size_t>(number) - 1;
        turns.begin(thread);
        Unattended::on_every_look([&] { turns.pass(thread); });
        SensibleHost host;
        for (int round = 0; round < window_rounds; ++round) {
            for (const auto& [name, member_name] : {std::pair{L"clsFFechas", L"PideFecha"},
                                                    {L"clsMensajes", L"MsgFormA"},
                                                    {L"clsFGen", L"LanzaVerificadorNIFyCCC"},
                                                    {L"clsFGen", L"BarraProgresoInicia"},
                                                    {L"clsProfile", L"BrowseForFolder"}}) {
                const OwnClass& of_class = library.named(name);
                const OwnMember& member = of_class.member(member_name, DISPATCH_METHOD);
                const auto instance = library.create(of_class);
                // Windows are closed at their first step, so that a box can only be an error box.
                Unattended::close_at_once();
                Variant result;
                if (call_member(instance.get(), member, host.arguments(of_class, member),
                                &result) != S_OK ||
                    (member.name == L"PideFecha" && result.date < 1)) {
                    ++failed;
                }
            }
        }
        left += static_cast<int>(own_windows().size());
        Unattended::on_every_look({});
        turns.end(thread);
    });
    EXPECT_GT(turns.together(), window_rounds);
    EXPECT_EQ(failed, 0);
    EXPECT_EQ(left, 0);
    EXPECT_EQ(Unattended::boxes(), boxes) << narrow(Unattended::last_box());
    EXPECT_EQ(library.can_unload(), S_OK);
}

TEST(TwoApartments, BrowseFromTheirOwnFolders) {
    const Workplace workplace;
    const Unattended unattended;
    const OwnLibrary& library = OwnLibrary::get();
    std::atomic<int> wrong{0};
    Turns turns;
    on_two_threads([&](int number) {
        const auto thread = static_cast<std::size_t>(number) - 1;
        turns.begin(thread);
        Unattended::on_every_look([&] { turns.pass(thread); });
        const OwnClass& profile = library.named(L"clsProfile");
        const auto instance = library.create(profile);
        for (int round = 0; round < 20; ++round) {
            const std::string folder =
                "C:\\hilo" + std::to_string(number) + "\\" + std::to_string(round);
            call_member(instance.get(), profile.member(L"BrowseForFolder", DISPATCH_METHOD),
                        {Variant(0), Variant(L"Elija"),
                         Variant(std::wstring(folder.begin(), folder.end()))});
            if (Unattended::browsed_from() != folder) ++wrong;
        }
        Unattended::on_every_look({});
        turns.end(thread);
    });
    EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace kovrel::test
