// The catalogue: the exact box of every message, in every way of calling.
#include <gtest/gtest.h>
#include <set>

#include "tests/support/early.h"
#include "tests/support/every_way.h"
#include "tests/support/import_patch.h"
#include "tests/support/scripted_object.h"

namespace kovrel::test {
namespace {

constexpr int critical = 16;
constexpr int exclamation = 48;
constexpr int information = 64;
constexpr int yes_or_no = 36;

struct Message {
    const wchar_t* member;
    std::vector<Variant> arguments;
    const wchar_t* text;
    int style = exclamation;
};

/// Every message, and beside each the arguments that change its text.
const std::vector<Message>& messages() {
    static const std::vector<Message> all{
        {L"MsjNoEsPosibleAbrirFormulario",
         {},
         L"No es posible abrir el formulario en este momento."},
        {L"MsjNoEsPosibleAbrirFormulario_NoDatos",
         {Variant(L"pagador")},
         L"No es posible abrir el formulario en este momento.\r\rNo existe ningún pagador."},
        {L"MsjNoEsPosibleAbrirFormulario_NoDatos",
         {Variant(L"")},
         L"No es posible abrir el formulario en este momento.\r\rNo existe ningún ."},
        {L"MsjNoEsPosibleAbrirFormulario_NoDatos",
         {Variant::null()},
         L"No es posible abrir el formulario en este momento.\r\rNo existe ningún ."},
        {L"MsjNoEsPosibleAbrirFormulario_NoDatos",
         {Variant()},
         L"No es posible abrir el formulario en este momento.\r\rNo existe ningún ."},
        {L"MsjNoEsPosibleAbrirFormulario_NoDatos",
         {Variant(12)},
         L"No es posible abrir el formulario en este momento.\r\rNo existe ningún 12."},
        {L"MsjFormularioEstaAbierto", {}, L"El formulario ya está abierto desde otra ubicación."},
        {L"MsjElegirElementoDeLista", {}, L"Seleccione un elemento de la lista."},
        {L"MsjEscribaElDatoCorrectamente", {}, L"Escriba el dato correctamente."},
        {L"MsjEscribaElDatoCorrectamente", {Variant(L"")}, L"Escriba el dato correctamente."},
        {L"MsjEscribaElDatoCorrectamente",
         {Variant(L"Código")},
         L"Escriba el dato \"Código\" correctamente."},
        {L"MsjDatoNoVacio", {}, L"El dato  no puede quedar vacío."},
        {L"MsjDatoNoVacio", {Variant(L"")}, L"El dato  no puede quedar vacío."},
        {L"MsjDatoNoVacio", {Variant(L"Año")}, L"El dato  \"Año\" no puede quedar vacío."},
        {L"MsjDatoNoVacio", {Variant(L" ")}, L"El dato  \" \" no puede quedar vacío."},
        {L"MsjFechaIncorrecta", {}, L"Escriba la fecha correctamente."},
        {L"MsjFechaMayorQue",
         {Variant(L"fecha de baja"), Variant(L"fecha de alta")},
         L"La fecha de baja debe ser posterior a la fecha de alta."},
        {L"MsjFechaMayorIgualQue",
         {Variant(L"fecha de baja"), Variant(L"fecha de alta")},
         L"La fecha de baja debe ser posterior o igual a la fecha de alta."},
        {L"MsjFechaMenorQue",
         {Variant(L"fecha de alta"), Variant(L"fecha de baja")},
         L"La fecha de alta debe ser anterior a la fecha de baja."},
        {L"MsjFechaMenorIgualQue",
         {Variant(L"fecha de alta"), Variant(L"fecha de baja")},
         L"La fecha de alta debe ser anterior o igual a la fecha de baja."},
        {L"MsjFechaMayorQue", {Variant(L""), Variant(L"")}, L"La  debe ser posterior a la ."},
        {L"MsjGuardarCambiosAntesdeOperacion",
         {},
         L"Antes de realizar la operación \"Guarde\" o \"Deshaga\" los cambios realizados en el "
         L"registro."},
        {L"MsjGuardarCambiosRegistroPrincipal",
         {},
         L"Antes de realizar la operación \"Guarde\" o \"Deshaga\" los cambios realizados en el "
         L"registro principal."},
        {L"MsjGuardarCambiosRegistroSecundario",
         {Variant(L"LÍNEAS")},
         L"Antes de realizar la operación \"Guarde\" o \"Deshaga\" los cambios realizados en la "
         L"tabla LÍNEAS."},
        {L"MsjProcesoCancelado", {}, L"Proceso cancelado."},
        {L"MsjOperacionCanceladaUsuario", {}, L"Operación cancelada por el usuario."},
        {L"MsjNoEsPosibleRealizarOperacionConsulteProveeedor",
         {},
         L"No ha sido posible realizar la operación. Consulte al proveedor de la aplicación.",
         critical},
        {L"MsjNoEsPosibleRealizarOperacionConsulteProveeedor",
         {Variant(L"")},
         L"No ha sido posible realizar la operación. Consulte al proveedor de la aplicación.",
         critical},
        {L"MsjNoEsPosibleRealizarOperacionConsulteProveeedor",
         {Variant(L"  0 ")},
         L"No ha sido posible realizar la operación. Consulte al proveedor de la aplicación.",
         critical},
        {L"MsjNoEsPosibleRealizarOperacionConsulteProveeedor",
         {Variant(L"00")},
         L"No es posible realizar la operación. Consulte al proveedor de la aplicación.\r\r00",
         critical},
        {L"MsjNoEsPosibleRealizarOperacionConsulteProveeedor",
         {Variant(L" Error 3021")},
         L"No es posible realizar la operación. Consulte al proveedor de la aplicación.\r\r Error "
         L"3021",
         critical},
        {L"MsjNoEsPosibleRealizarOperacionMasTexto",
         {},
         L"No ha sido posible realizar la operación.",
         critical},
        {L"MsjNoEsPosibleRealizarOperacionMasTexto",
         {Variant(L"0")},
         L"No es posible realizar la operación.\r\r0",
         critical},
        {L"MsjNoEsPosibleRealizarOperacionMasTexto",
         {Variant(L"El disco está lleno.")},
         L"No es posible realizar la operación.\r\rEl disco está lleno.",
         critical},
        {L"MsjFiltro_NoExistenResgistrosParaFiltro",
         {},
         L"No existe ningún registro que cumpla las condiciones establecidas."},
        {L"MsjBus_NoExistenRegistrosParaBusqueda",
         {},
         L"No existen registros en donde realizar la búsqueda.",
         information},
        {L"MsjBus_RegistroNoEncontrado", {}, L"No se ha encontrado ningún registro."},
        {L"MsjFact_NoFacturacionPeriodoReviseFechas",
         {},
         L"No es posible facturar este periodo. Revise las fechas de Alta y Baja del Contrato o "
         L"seleccione un periodo activo para la facturación.",
         critical},
        {L"MsjFact_ProcesoCanceladoUsuario",
         {},
         L"Proceso de facturación cancelado por el usuario."},
        {L"MsjFact_ErrorAlEliminarFacturasPag",
         {},
         L"No ha sido posible eliminar las Facturas de Pagador de la tabla "
         L"\"FACTURAS_PAGADORES\".",
         critical},
        {L"MsjFact_ErrorAlActualizarNumeracionFacturas",
         {},
         L"No ha sido posible actualizar los números de facturas en la tabla \"CONTRATOS\".",
         critical},
        {L"MsjBD_ErrorAlAbrirBaseDatos",
         {},
         L"No es posible acceder a la base de datos. Intente enlazar la aplicación al fichero de "
         L"base de datos.",
         critical},
        {L"MsjBD_ErrorAlAbrirBaseDatos",
         {Variant(L"No se encontró el archivo.")},
         L"No es posible acceder a la base de datos. Intente enlazar la aplicación al fichero de "
         L"base de datos.\r\rNo se encontró el archivo.",
         critical},
        {L"MsjFormularioEstaAbiertoDeseaVolverAAbrirlo",
         {},
         L"El formulario ya está abierto.\r\r¿Desea volver a abrirlo ahora?",
         yes_or_no},
        {L"MsjBus_IrAlSiguienteRegistro",
         {Variant(std::int16_t{12}), Variant(std::int16_t{3})},
         L"Registro 3 de 12 registros encontrados.\r\r¿Ir al siguiente?",
         yes_or_no},
        {L"MsjBus_IrAlSiguienteRegistro",
         {Variant(std::int16_t{-32768}), Variant(std::int16_t{0})},
         L"Registro 0 de -32768 registros encontrados.\r\r¿Ir al siguiente?",
         yes_or_no},
        {L"MsjFact_DeseaEditarFacturacion",
         {},
         L"¿Desea editar la facturación generada?",
         yes_or_no},
    };
    return all;
}

class MessagesAnySettings : public testing::TestWithParam<Way> {
 protected:
    Answer call_for(const wchar_t* member, std::vector<Variant> arguments,
                    const std::vector<ExpectedBox>& boxes) {
        return call_in(GetParam(), catalogue_.get(), member, std::move(arguments), boxes);
    }

    void name_the_host(const wchar_t* name) {
        title_ = name;
        put(catalogue_.get(), L"AppOrigen", Variant(name));
    }

    void show_all() {
        for (const Message& message : messages()) {
            for (const int pressed : {IDYES, IDNO}) {
                const bool asks = message.style == yes_or_no;
                if (!asks && pressed == IDNO) continue;
                const Answer answer =
                    call_for(message.member, message.arguments,
                             {{message.text, message.style, title_, asks ? pressed : IDOK}});
                EXPECT_EQ(answer.result, S_OK) << narrow(message.member);
                EXPECT_EQ(shown(answer.value),
                          asks ? "entero32 " + std::to_string(pressed) : "vacío")
                    << narrow(message.member);
            }
        }
    }

    const wchar_t* title_ = L"";
    ComPtr<IDispatch> catalogue_ = create(L"Kovrel.clsMensajes");
};

TEST_P(MessagesAnySettings, EveryOneUnderTheHostsName) {
    name_the_host(L"Gestión de facturas");
    show_all();
}

TEST_P(MessagesAnySettings, WithoutANameTheTitleIsEmpty) {
    call_for(L"MsjProcesoCancelado", {}, {{L"Proceso cancelado.", exclamation, L""}});
    call_for(L"MsjFact_DeseaEditarFacturacion", {},
             {{L"¿Desea editar la facturación generada?", yes_or_no, L"", IDNO}});
    call_for(
        L"MsjBD_ErrorAlAbrirBaseDatos", {Variant(L"x")},
        {{L"No es posible acceder a la base de datos. Intente enlazar la aplicación al fichero "
          L"de base de datos.\r\rx",
          critical, L""}});
}

TEST_P(MessagesAnySettings, ArgumentsAreNotChanged) {
    const Answer answer =
        call_for(L"MsjNoEsPosibleRealizarOperacionConsulteProveeedor", {Variant(L" 0 ")},
                 {{L"No ha sido posible realizar la operación. Consulte al proveedor de la "
                   L"aplicación.",
                   critical, L""}});
    EXPECT_EQ(shown(answer.arguments[0]), "texto  0 ");
}

TEST_P(MessagesAnySettings, ArgumentsThatCannotBeTextFailToTheHost) {
    const auto fails = [&](const Variant& argument, int number, const wchar_t* description) {
        const Answer answer = call_for(L"MsjNoEsPosibleAbrirFormulario_NoDatos", {argument}, {});
        EXPECT_EQ(answer.result, failure(number));
        EXPECT_EQ(narrow(answer.description), narrow(description));
    };
    fails(Variant(create(L"Kovrel.clsFZip")), 438, L"El objeto no admite esta propiedad o método");
    fails(Variant(ComPtr<IDispatch>()), 91, L"Variable de objeto o bloque With no establecido");
    Variant error;
    error.vt = VT_ERROR;
    error.scode = 5;
    fails(error, 13, L"No coinciden los tipos");
    Variant array;
    array.vt = VT_ARRAY | VT_VARIANT;
    array.parray = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    fails(array, 13, L"No coinciden los tipos");
}

TEST_P(MessagesAnySettings, AnObjectStandsForItsDefaultValue) {
    const auto object = ScriptedObject::make();
    object->property(L"Name", Variant()).default_member(L"Name");
    const auto told = [&](Variant value, const std::wstring& text) {
        object->set_value(L"Name", std::move(value));
        const std::wstring whole =
            L"No es posible abrir el formulario en este momento.\r\rNo existe ningún " + text +
            L".";
        const Answer answer = call_for(L"MsjNoEsPosibleAbrirFormulario_NoDatos",
                                       {Variant(ComPtr<IDispatch>(object.get()))},
                                       {{whole.c_str(), exclamation, L""}});
        EXPECT_EQ(answer.result, S_OK);
    };
    told(Variant(L"pagador"), L"pagador");
    told(Variant(12), L"12");
    told(Variant::null(), L"");
    told(Variant(), L"");
    told(Variant(L""), L"");
    // Followed through a second object.
    const auto outer = ScriptedObject::make();
    outer->property(L"Item", Variant(ComPtr<IDispatch>(object.get()))).default_member(L"Item");
    object->set_value(L"Name", Variant(L"contrato"));
    call_for(L"MsjNoEsPosibleAbrirFormulario_NoDatos", {Variant(ComPtr<IDispatch>(outer.get()))},
             {{L"No es posible abrir el formulario en este momento.\r\rNo existe ningún contrato.",
               exclamation, L""}});
}

TEST_P(MessagesAnySettings, AnObjectThatFailsFailsToTheHost) {
    const auto object = ScriptedObject::make();
    object->fails(L"Name", failure(3021, L"No hay registro activo")).default_member(L"Name");
    const Answer answer = call_for(L"MsjNoEsPosibleAbrirFormulario_NoDatos",
                                   {Variant(ComPtr<IDispatch>(object.get()))}, {});
    EXPECT_EQ(answer.result, failure(3021));
    EXPECT_EQ(narrow(answer.description), "No hay registro activo");
    EXPECT_EQ(narrow(answer.source), "Kovrel.clsMensajes");
}

INSTANTIATE_TEST_SUITE_P(All, MessagesAnySettings, testing::ValuesIn(every_way));

int beeps = 0;
std::size_t boxes_at_beep = 0;
const BoxWatcher* watcher = nullptr;

BOOL WINAPI count_beep(UINT /*sound*/) {
    ++beeps;
    boxes_at_beep = watcher->seen().size();
    return TRUE;
}

TEST(Beep, SoundsBeforeTheReopenQuestionOnly) {
    const auto catalogue = create(L"Kovrel.clsMensajes");
    const ImportPatch patch(L"kovrel.dll", "MessageBeep", reinterpret_cast<void*>(&count_beep));
    ASSERT_TRUE(patch.in_place());
    beeps = 0;
    for (const Message& message : messages()) {
        const std::wstring member = message.member;
        const bool sounds = member == L"MsjFormularioEstaAbiertoDeseaVolverAAbrirlo";
        const BoxWatcher boxes({answer(message.style == yes_or_no ? IDNO : IDOK)});
        watcher = &boxes;
        const int before = beeps;
        call_in(Way::values, catalogue.get(), member, message.arguments);
        EXPECT_EQ(beeps - before, sounds ? 1 : 0) << narrow(member);
        if (sounds) {
            EXPECT_EQ(boxes_at_beep, 0U);
        }
    }
}

TEST(MessagesOfTheHost, EveryMemberOfTheCatalogueIsInTheTable) {
    std::set<std::wstring> in_table;
    for (const Message& message : messages()) in_table.insert(message.member);
    const auto catalogue = create(L"Kovrel.clsMensajes");
    const auto info = interface_of(catalogue.get());
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    const UINT count = attributes->cFuncs;
    info->ReleaseTypeAttr(attributes);
    std::set<std::wstring> published;
    for (UINT index = 0; index < count; ++index) {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(info->GetFuncDesc(index, &function), S_OK);
        Bstr name;
        UINT names = 0;
        EXPECT_EQ(info->GetNames(function->memid, name.put(), 1, &names), S_OK);
        info->ReleaseFuncDesc(function);
        if (name.view().starts_with(L"Msj")) published.emplace(name.view());
    }
    EXPECT_EQ(in_table, published);
}

TEST(MessagesOfTheHost, BooleansAreTheUsersWords) {
    const auto catalogue = create(L"Kovrel.clsMensajes");
    for (const Way way : every_way) {
        for (const auto& [value, text] :
             {std::pair{true,
                        L"No es posible abrir el formulario en este momento.\r\rNo existe ningún "
                        L"Verdadero."},
              std::pair{false,
                        L"No es posible abrir el formulario en este momento.\r\rNo existe ningún "
                        L"Falso."}}) {
            call_in(way, catalogue.get(), L"MsjNoEsPosibleAbrirFormulario_NoDatos",
                    {Variant(value)}, {{text, exclamation, L""}});
        }
    }
}

TEST(MessagesOfTheHost, TextsOfNumbersFollowTheUsersSettings) {
    std::array<wchar_t, 8> separator{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator.data(),
                   static_cast<int>(separator.size()));
    const std::wstring text =
        L"No es posible abrir el formulario en este momento.\r\rNo existe "
        L"ningún 12" +
        std::wstring(separator.data()) + L"5.";
    const auto catalogue = create(L"Kovrel.clsMensajes");
    call_in(Way::values, catalogue.get(), L"MsjNoEsPosibleAbrirFormulario_NoDatos", {Variant(12.5)},
            {{text.c_str(), exclamation, L""}});
}

}  // namespace
}  // namespace kovrel::test
