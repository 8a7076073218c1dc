// A process without an interactive desktop, as a service is: nothing can be shown to anybody, so
// the library is silent by itself and waits for no answer.
#include <windows.h>

#include <cstdio>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "runtime/failure.h"
#include "tests/support/box_watcher.h"
#include "tests/support/late.h"

namespace kovrel::test {
namespace {

constexpr std::int32_t shown = 0;
constexpr std::int32_t silent = 1;
constexpr std::int32_t by_event = 2;
constexpr std::int32_t a_message = 1;
constexpr std::int32_t an_error = 2;
constexpr std::int32_t a_question = 3;
constexpr std::int32_t progress = 4;
constexpr std::int32_t a_window = 5;

/// Gives the process a window station and a desktop of its own, which nobody sees.
bool leave_the_desktop() {
    // Without a name: giving one takes an administrator.
    HWINSTA station = CreateWindowStationW(nullptr, 0, WINSTA_ALL_ACCESS, nullptr);
    if (station == nullptr || SetProcessWindowStation(station) == FALSE) return false;
    HDESK desktop = CreateDesktopW(L"Default", nullptr, nullptr, 0, GENERIC_ALL, nullptr);
    return desktop != nullptr && SetThreadDesktop(desktop) != FALSE;
}

/// Calls a member that would wait for ever if it showed anything.
Variant called(const ComPtr<IDispatch>& object, const wchar_t* member,
               const std::vector<LateArgument>& arguments = {}) {
    const Outcome outcome = call(object.get(), member, arguments);
    EXPECT_EQ(outcome.result, S_OK) << narrow(member) << ": " << narrow(outcome.description);
    return outcome.value;
}

std::int32_t number_of(const ComPtr<IDispatch>& object, const wchar_t* property) {
    return get(object.get(), property).value.to_int32();
}

std::string text_in(const ComPtr<IDispatch>& object, const wchar_t* property) {
    return narrow(get(object.get(), property).value.to_text());
}

ComPtr<IDispatch> item(const ComPtr<IDispatch>& notices, std::int32_t place) {
    return called(notices, L"Item", {Variant(place)}).to_object();
}

BOOL CALLBACK count_window(HWND /*window*/, LPARAM count_at) {
    ++*reinterpret_cast<std::int32_t*>(count_at);
    return TRUE;
}

std::int32_t windows_of_desktop() {
    std::int32_t count = 0;
    EnumDesktopWindows(GetThreadDesktop(GetCurrentThreadId()), &count_window,
                       reinterpret_cast<LPARAM>(&count));
    return count;
}

TEST(NoDesktop, NobodySeesTheWindowStation) {
    USEROBJECTFLAGS flags{};
    DWORD size = 0;
    ASSERT_TRUE(GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags,
                                          sizeof flags, &size));
    EXPECT_EQ(flags.dwFlags & WSF_VISIBLE, 0U);
}

TEST(NoDesktop, WhatWasSaidBeforehandIsInTheRecord) {
    const auto general = create(L"Kovrel.clsFGen");
    EXPECT_EQ(called(general, L"Verifica_NIF", {Variant(L"12345678A")}).to_text(), L"12345678Z");
    // Without its window: the box of an error.
    called(general, L"BarraProgresoActualiza", {Variant(10), Variant(L"Nada")});

    const auto notices = create(L"Kovrel.clsAvisos");
    EXPECT_EQ(number_of(notices, L"Modo"), silent);
    ASSERT_EQ(number_of(notices, L"Count"), 2);
    const auto first = item(notices, 1);
    EXPECT_EQ(number_of(first, L"Clase"), a_message);
    EXPECT_EQ(text_in(first, L"Miembro"), "clsFGen.Verifica_NIF");
    EXPECT_EQ(text_in(first, L"Titulo"), "Error en la letra del N.I.F.");
    EXPECT_EQ(text_in(first, L"Texto"),
              "La letra del N.I.F. 'A' es incorrecta y será sustituida por la correcta: 'Z'");
    EXPECT_EQ(number_of(first, L"Respuesta"), IDOK);
    const auto second = item(notices, 2);
    EXPECT_EQ(number_of(second, L"Clase"), an_error);
    EXPECT_EQ(number_of(second, L"Numero"), 91);
    EXPECT_EQ(text_in(second, L"Miembro"), "clsFGen.BarraProgresoActualiza");

    // Each notice is told once.
    const auto younger = create(L"Kovrel.clsAvisos");
    EXPECT_EQ(number_of(younger, L"Count"), 0);
}

TEST(NoDesktop, NothingCanBeShown) {
    const auto notices = create(L"Kovrel.clsAvisos");
    const Outcome refused = put(notices.get(), L"Modo", Variant(shown));
    EXPECT_EQ(refused.result, DISP_E_EXCEPTION);
    EXPECT_EQ(HRESULT_CODE(refused.error), static_cast<int>(FailureNumber::invalid_argument));
    EXPECT_EQ(number_of(notices, L"Modo"), silent);
    EXPECT_EQ(put(notices.get(), L"Modo", Variant(by_event)).result, S_OK);
    EXPECT_EQ(number_of(notices, L"Modo"), by_event);
}

TEST(NoDesktop, QuestionsAndWindowsReturnAtOnce) {
    const auto messages = create(L"Kovrel.clsMensajes");
    const auto general = create(L"Kovrel.clsFGen");
    const auto dates = create(L"Kovrel.clsFFechas");
    const auto profile = create(L"Kovrel.clsProfile");
    const std::int32_t windows = windows_of_desktop();
    EXPECT_EQ(called(messages, L"MsjFact_DeseaEditarFacturacion").to_int32(), IDYES);
    called(messages, L"MsgFormA", {Variant(L"Título"), Variant(L"Texto")});
    EXPECT_EQ(called(dates, L"PideFecha", {Variant(L"¿Desde qué día?")}).to_date().days, 0);
    EXPECT_EQ(called(profile, L"BrowseForFolder", {Variant(0), Variant(L"Elija")}).to_text(), L"");
    called(general, L"LanzaVerificadorNIFyCCC");
    called(general, L"BarraProgresoInicia", {Variant(L"Recibos"), Variant(L"Se generan")});
    called(general, L"BarraProgresoActualiza", {Variant(50), Variant(L"La mitad")});
    EXPECT_EQ(windows_of_desktop(), windows);
    called(general, L"BarraProgresoFinaliza");

    const auto notices = create(L"Kovrel.clsAvisos");
    std::vector<std::pair<std::string, std::int32_t>> kinds;
    for (std::int32_t place = 1; place <= number_of(notices, L"Count"); ++place) {
        const auto notice = item(notices, place);
        kinds.emplace_back(text_in(notice, L"Miembro"), number_of(notice, L"Clase"));
    }
    const std::vector<std::pair<std::string, std::int32_t>> expected{
        {"clsMensajes.MsjFact_DeseaEditarFacturacion", a_question},
        {"clsMensajes.MsgFormA", a_message},
        {"clsFFechas.PideFecha", a_window},
        {"clsProfile.BrowseForFolder", a_window},
        {"clsFGen.LanzaVerificadorNIFyCCC", a_window},
        {"clsFGen.BarraProgresoInicia", progress},
        {"clsFGen.BarraProgresoActualiza", progress}};
    EXPECT_EQ(kinds, expected);
}

TEST(NoDesktop, EachThreadHasItsOwnRecord) {
    const auto general = create(L"Kovrel.clsFGen");
    called(general, L"Verifica_NIF", {Variant(L"12345678A")});
    std::thread([] {
        const ComApartment apartment;
        const auto other = create(L"Kovrel.clsFGen");
        called(other, L"Verifica_NIF", {Variant(L"87654321B")});
        const auto notices = create(L"Kovrel.clsAvisos");
        EXPECT_EQ(number_of(notices, L"Modo"), silent);
        ASSERT_EQ(number_of(notices, L"Count"), 1);
        EXPECT_EQ(text_in(item(notices, 1), L"Texto"),
                  "La letra del N.I.F. 'B' es incorrecta y será sustituida por la correcta: 'X'");
    }).join();
    const auto notices = create(L"Kovrel.clsAvisos");
    EXPECT_EQ(number_of(notices, L"Count"), 1);
}

}  // namespace
}  // namespace kovrel::test

int main(int count, char** arguments) {
    if (!kovrel::test::leave_the_desktop()) {
        std::printf("FAILED: no window station of its own, error %lu\n", GetLastError());
        return 1;
    }
    testing::InitGoogleTest(&count, arguments);
    const kovrel::test::ComApartment apartment;
    return RUN_ALL_TESTS();
}
