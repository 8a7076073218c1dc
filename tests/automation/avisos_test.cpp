// clsAvisos: what is shown, what is answered and what is noted.
#include "tests/automation/avisos.h"

#include <cmath>
#include <filesystem>
#include <thread>

#include "services/clock.h"
#include "tests/support/scripted_object.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {
namespace {

constexpr HRESULT invalid_argument = static_cast<HRESULT>(0x800A0005);
constexpr HRESULT subscript = static_cast<HRESULT>(0x800A0009);

TEST_F(Avisos, BeginsByShowingAndNotes) {
    EXPECT_EQ(get(avisos_.get(), L"Modo").value.to_int32(), shown_mode);
    EXPECT_EQ(count(), 0);
    const BoxWatcher boxes({answer(IDOK), answer(IDNO)});
    EXPECT_EQ(wrong_nif(), L"12345678Z");
    EXPECT_EQ(last_line(), noted_wrong_nif);
    EXPECT_EQ(ask(), IDNO);
    EXPECT_EQ(count(), 2);
    EXPECT_EQ(last_line(),
              "3|clsMensajes.MsjFact_DeseaEditarFacturacion||¿Desea editar la facturación "
              "generada?|36|7|0");
}

TEST_F(Avisos, SilentlyNothingIsShown) {
    const BoxWatcher no_box;
    set_mode(silent_mode);
    const double before = now();
    EXPECT_EQ(wrong_nif(), L"12345678Z");
    EXPECT_EQ(last_line(), noted_wrong_nif);
    const double noted = get(last().get(), L"Hora").value.to_double();
    // A date keeps its time to about a millionth of a second.
    EXPECT_GE(noted, before - 1e-9);
    EXPECT_LE(noted, now() + 1e-9);
    EXPECT_EQ(ask(), IDYES);
    EXPECT_EQ(count(), 2);
}

TEST_F(Avisos, WhenReleasedEverythingIsAsBefore) {
    set_mode(silent_mode);
    avisos_ = {};
    const BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(wrong_nif(), L"12345678Z");
}

TEST_F(Avisos, TheModeIsOneOfThree) {
    set_mode(event_mode);
    for (const std::int32_t mode : {-1, 3, 100}) {
        EXPECT_EQ(put(avisos_.get(), L"Modo", Variant(mode)).error, invalid_argument) << mode;
    }
    EXPECT_EQ(get(avisos_.get(), L"Modo").value.to_int32(), event_mode);
}

TEST_F(Avisos, ErrorsHaveTheirNumber) {
    const BoxWatcher no_box;
    set_mode(silent_mode);
    call(general_.get(), L"BarraProgreso", {Variant(ComPtr<IDispatch>()), Variant(5)});
    EXPECT_EQ(last_line(),
              "2|clsFGen.BarraProgreso|kovrel|Error 91\r (Variable de objeto o bloque With no "
              "establecido) en procedimiento BarraProgreso del Módulo de clase "
              "clsFGen.|16|1|91");
    const auto services = create(L"Kovrel.clsADODBServices");
    const auto field = ScriptedObject::make();
    field->property(L"Value", Variant(L"no es una imagen"));
    call(services.get(), L"GetImageFromField", {Variant(ComPtr<IDispatch>(field.get()))});
    EXPECT_EQ(get(last().get(), L"Clase").value.to_int32(), Kovrel::caError);
    EXPECT_EQ(get(last().get(), L"Numero").value.to_int32(), 13);
    EXPECT_EQ(get(last().get(), L"Texto").value.to_text(), L"ERROR  13: No coinciden los tipos");
    EXPECT_EQ(get(last().get(), L"Miembro").value.to_text(), L"clsADODBServices.GetImageFromField");
}

TEST_F(Avisos, QuestionsGetTheAnswersGivenBeforehand) {
    const BoxWatcher no_box;
    set_mode(silent_mode);
    const auto answer_with = [&](std::int32_t style, std::int32_t given, const wchar_t* text) {
        return call(avisos_.get(), L"Respuestas", {Variant(style), Variant(given), Variant(text)})
            .error;
    };
    EXPECT_EQ(answer_with(MB_YESNO, IDNO, L""), S_OK);
    EXPECT_EQ(ask(), IDNO);
    EXPECT_EQ(answer_with(MB_YESNO, IDYES, L"editar la facturación"), S_OK);
    EXPECT_EQ(ask(), IDYES);
    EXPECT_EQ(answer_with(MB_YESNO, 0, L"editar la facturación"), S_OK);
    EXPECT_EQ(ask(), IDNO);
    EXPECT_EQ(answer_with(MB_YESNO, IDOK, L""), invalid_argument);
    EXPECT_EQ(answer_with(MB_RETRYCANCEL, IDCANCEL, L""), invalid_argument);

    const TestFolder folder;
    const auto profile = create(L"Kovrel.clsProfile");
    const auto creates = [&](const wchar_t* name) {
        const std::wstring wanted = folder / name;
        call(profile.get(), L"ExisteCarpeta", {Variant(wanted), Variant(true), Variant(true)});
        return std::filesystem::exists(wanted);
    };
    EXPECT_TRUE(creates(L"uno"));
    EXPECT_EQ(answer_with(MB_OKCANCEL, IDCANCEL, L""), S_OK);
    EXPECT_FALSE(creates(L"dos"));
    EXPECT_EQ(get(last().get(), L"Respuesta").value.to_int32(), IDCANCEL);
}

TEST_F(Avisos, WindowsAreCancelled) {
    const BoxWatcher no_box;
    set_mode(silent_mode);
    call(messages_.get(), L"MsgFormA", {Variant(L"Título"), Variant(L"Un texto"), Variant(true)});
    EXPECT_EQ(last_line(), "1|clsMensajes.MsgFormA|Título|Un texto|0|1|0");
    call(messages_.get(), L"MsgFormA", {Variant(L""), Variant(L"Otro"), Variant(true)});
    EXPECT_EQ(last_line(), "1|clsMensajes.MsgFormA|Información|Otro|0|1|0");

    EXPECT_TRUE(call(general_.get(), L"LanzaVerificadorNIFyCCC").value.is_empty());
    EXPECT_EQ(last_line(), "5|clsFGen.LanzaVerificadorNIFyCCC|||0|2|0");

    const auto dialog = create(L"Kovrel.cgsFileOpR");
    put(dialog.get(), L"CancelError", Variant(true));
    EXPECT_FALSE(call(dialog.get(), L"ShowOpen", {Variant(L"a.txt")}).value.to_bool());
    EXPECT_EQ(last_line(), "5|cgsFileOpR.ShowOpen|Abrir|a.txt|0|2|0");
    EXPECT_EQ(get(dialog.get(), L"FileName").value.to_text(), L"a.txt");
    ComPtr<IErrorInfo> error;
    EXPECT_EQ(GetErrorInfo(0, error.put()), S_OK);

    const auto profile = create(L"Kovrel.clsProfile");
    EXPECT_EQ(text_of_result(call(profile.get(), L"BrowseForFolder",
                                  {Variant(0), Variant(L"Elija"), Variant(L"C:\\")})),
              L"");
    EXPECT_EQ(last_line(), "5|clsProfile.BrowseForFolder||Elija|0|2|0");
    EXPECT_EQ(count(), 5);
}

TEST_F(Avisos, TheDatePromptGivesTheHostsDateOrNone) {
    const BoxWatcher no_box;
    set_mode(silent_mode);
    const auto dates = create(L"Kovrel.clsFFechas");
    const auto asked = [&](VARIANT& proposed) {
        return call(dates.get(), L"PideFecha",
                    {Variant(L"¿Desde?"), Variant(L"Alta"), LateArgument::variable(proposed)})
            .value.to_double();
    };
    Variant proposed(Date{44000});
    EXPECT_EQ(asked(proposed), 44000);
    EXPECT_EQ(last_line(), "5|clsFFechas.PideFecha|Alta|¿Desde?|0|2|0");
    Variant none(Date{});
    EXPECT_EQ(asked(none), 0);
    EXPECT_EQ(none.to_double(), today());
    EXPECT_EQ(asked(proposed), 44000);
}

TEST_F(Avisos, ProgressIsOnlyNoted) {
    const BoxWatcher no_box;
    set_mode(silent_mode);
    call(general_.get(), L"BarraProgresoInicia", {Variant(L"Copia"), Variant(L"Empieza")});
    EXPECT_EQ(last_line(), "4|clsFGen.BarraProgresoInicia|Copia|Empieza|0|1|0");
    EXPECT_EQ(
        call(general_.get(), L"BarraProgresoActualiza", {Variant(50), Variant(L"Mitad")}).result,
        S_OK);
    EXPECT_EQ(last_line(), "4|clsFGen.BarraProgresoActualiza|Copia|Mitad|0|1|0");
    EXPECT_EQ(get(last().get(), L"Porcentaje").value.to_int32(), 50);
    EXPECT_FALSE(call(general_.get(), L"BarraProgresoCancelada").value.to_bool());
    call(general_.get(), L"BarraProgresoFinaliza");
    EXPECT_EQ(count(), 2);
    call(general_.get(), L"BarraProgresoActualiza", {Variant(60), Variant(L"Tarde")});
    EXPECT_EQ(get(last().get(), L"Numero").value.to_int32(), 91);
}

TEST_F(Avisos, TheYoungestDecides) {
    const BoxWatcher no_box;
    set_mode(silent_mode);
    auto inner = new_avisos(silent_mode);
    wrong_nif();
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(count_of(inner), 1);
    inner = {};
    wrong_nif();
    EXPECT_EQ(count(), 1);
    // Released out of order.
    inner = new_avisos(silent_mode);
    avisos_ = {};
    wrong_nif();
    EXPECT_EQ(count_of(inner), 1);
}

TEST_F(Avisos, ApartmentsHaveTheirOwnModes) {
    set_mode(shown_mode);
    const BoxWatcher boxes({answer(IDOK)});
    std::thread other([] {
        const ComApartment apartment;
        const auto general = create(L"Kovrel.clsFGen");
        const auto avisos = new_avisos(silent_mode);
        for (int i = 0; i < 100; ++i) {
            EXPECT_EQ(text_of_result(call(general.get(), L"Verifica_NIF",
                                          {Variant(L"12345678A"), Variant(true)})),
                      L"12345678Z");
        }
        EXPECT_EQ(count_of(avisos), 100);
    });
    EXPECT_EQ(wrong_nif(), L"12345678Z");
    other.join();
    EXPECT_EQ(count(), 1);
}

TEST_F(Avisos, TheOldestAreDroppedPastTheLimit) {
    const BoxWatcher no_box;
    set_mode(silent_mode);
    EXPECT_EQ(get(avisos_.get(), L"Limite").value.to_int32(), 1000);
    EXPECT_EQ(put(avisos_.get(), L"Limite", Variant(-1)).error, invalid_argument);
    EXPECT_EQ(put(avisos_.get(), L"Limite", Variant(2)).result, S_OK);
    ask();
    wrong_nif();
    ask();
    EXPECT_EQ(count(), 2);
    EXPECT_EQ(line_of(call(avisos_.get(), L"Item", {Variant(1)}).value.to_object()),
              noted_wrong_nif);
    put(avisos_.get(), L"Limite", Variant(0));
    wrong_nif();
    EXPECT_EQ(count(), 0);
}

TEST_F(Avisos, AreACollection) {
    const BoxWatcher no_box;
    set_mode(silent_mode);
    const auto has_last = [&] {
        const Variant newest = get(avisos_.get(), L"Ultimo").value;
        EXPECT_EQ(newest.vt, VT_DISPATCH);
        return newest.pdispVal != nullptr;
    };
    EXPECT_FALSE(has_last());
    ask();
    wrong_nif();
    EXPECT_TRUE(has_last());
    for (const std::int32_t place : {0, 3, -1}) {
        EXPECT_EQ(call(avisos_.get(), L"Item", {Variant(place)}).error, subscript) << place;
    }
    const Variant second = call(avisos_.get(), L"Item", {Variant(2)}).value;
    EXPECT_EQ(line_of(second.to_object()), noted_wrong_nif);
    // The default member of an aviso is its text.
    Variant text;
    DISPPARAMS none{};
    EXPECT_EQ(second.to_object()->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_PROPERTYGET, &none,
                                         &text, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(text.to_text(), wrong_nif_text);

    Variant enumeration;
    ASSERT_EQ(avisos_->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, &none,
                              &enumeration, nullptr, nullptr),
              S_OK);
    ComPtr<IEnumVARIANT> avisos;
    ASSERT_EQ(enumeration.punkVal->QueryInterface(IID_IEnumVARIANT, avisos.put_void()), S_OK);
    Variant found;
    std::vector<std::int32_t> kinds;
    while (avisos->Next(1, &found, nullptr) == S_OK) {
        kinds.push_back(get(found.to_object().get(), L"Clase").value.to_int32());
        found = Variant();
    }
    EXPECT_EQ(kinds, (std::vector<std::int32_t>{Kovrel::caPregunta, Kovrel::caMensaje}));

    const std::wstring lines = text_of_result(call(avisos_.get(), L"ATexto"));
    EXPECT_EQ(std::count(lines.begin(), lines.end(), L'\n'), 2);
    EXPECT_NE(lines.find(wrong_nif_text), std::wstring::npos);
    call(avisos_.get(), L"Limpia");
    EXPECT_EQ(count(), 0);
    EXPECT_FALSE(has_last());
    EXPECT_EQ(text_of_result(call(avisos_.get(), L"ATexto")), L"");
    // What was given out stays.
    EXPECT_EQ(line_of(second.to_object()), noted_wrong_nif);
}

TEST_F(Avisos, AnswerEarlyBoundCalls) {
    const BoxWatcher no_box;
    auto* const avisos = reinterpret_cast<Kovrel::_clsAvisos*>(avisos_.get());
    EXPECT_EQ(avisos->put_Modo(Kovrel::maSilencio), S_OK);
    EXPECT_EQ(avisos->Respuestas(MB_YESNO, IDNO, nullptr), S_OK);
    auto* const messages = reinterpret_cast<Kovrel::_clsMensajes*>(messages_.get());
    long pressed = 0;
    EXPECT_EQ(messages->MsjFact_DeseaEditarFacturacion(&pressed), S_OK);
    EXPECT_EQ(pressed, IDNO);
    ComPtr<Kovrel::_clsAviso> aviso;
    EXPECT_EQ(avisos->Item(1, aviso.put()), S_OK);
    Bstr member;
    EXPECT_EQ(aviso->get_Miembro(member.put()), S_OK);
    EXPECT_EQ(member.view(), L"clsMensajes.MsjFact_DeseaEditarFacturacion");
    EXPECT_EQ(avisos->Item(2, aviso.put()), subscript);
    EXPECT_EQ(avisos->put_Modo(static_cast<Kovrel::eModoAvisos>(7)), invalid_argument);
}

}  // namespace
}  // namespace kovrel::test
