// clsMensajes: the report of a connection's errors, and the library's version and file.
#include <gtest/gtest.h>
#include <memory>

#include "tests/support/box_lines.h"
#include "tests/support/early.h"
#include "tests/support/import_patch.h"
#include "tests/support/library_module.h"
#include "tests/support/scripted_object.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {
namespace {

using Descriptions = std::vector<std::pair<std::int32_t, std::wstring>>;

ComPtr<ScriptedObject> make_errors(const Descriptions& descriptions) {
    auto errors = ScriptedObject::make();
    errors->property(L"Count", Variant(static_cast<std::int32_t>(descriptions.size())))
        .method(L"Item", [descriptions](const auto& arguments) {
            const auto& [number, description] =
                descriptions.at(static_cast<std::size_t>(arguments.at(0).to_int32()));
            auto error = ScriptedObject::make();
            error->property(L"Number", Variant(number))
                .property(L"Description", Variant(description));
            return to_variant(error);
        });
    return errors;
}

class DatabaseReport : public testing::Test {
 protected:
    DatabaseReport() { put(messages_.get(), L"AppOrigen", Variant(L"Gestión")); }

    void report(const Variant& errors) {
        EXPECT_EQ(call(messages_.get(), L"MensajeErroresADO", {L"Ha fallado.", errors}).result,
                  S_OK);
    }
    std::int32_t count(const LateArgument& connection, bool tell) {
        const Outcome outcome = call(messages_.get(), L"ExistenErroresADO", {connection, tell});
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_I2);
        return outcome.value.iVal;
    }

    static std::string report_failure(const std::wstring& number_and_text) {
        return narrow(L"16|Gestión|Error " + number_and_text +
                      L") en procedimiento MensajeErroresADO de Módulo de clase clsMensajes.|1");
    }
    static std::string count_failure(const std::wstring& number_and_text) {
        return narrow(L"16|Gestión|Error " + number_and_text +
                      L") en procedimiento ExistenErroresADO del Módulo de clase clsMensajes.|1");
    }

    ComPtr<ScriptedObject> connection(const ComPtr<ScriptedObject>& errors) {
        auto made = ScriptedObject::make();
        made->property(L"Errors", to_variant(errors));
        return made;
    }

    ComPtr<IDispatch> messages_ = create(L"Kovrel.clsMensajes");
};

TEST_F(DatabaseReport, ListsEveryErrorOnALineOfItsOwn) {
    const auto errors = make_errors({{-2147217900, L"Error de sintaxis"}, {3021, L""}});
    BoxWatcher boxes({answer(IDOK)});
    report(to_variant(errors));
    EXPECT_EQ(lines_of(boxes),
              (Lines{narrow(L"16|Gestión|Ha fallado.\\r\\rNº Errores: 2\\r\t-2147217900 - Error de "
                            L"sintaxis\\r\t3021 - |1")}));
    EXPECT_EQ(errors->log(),
              (Log{L"get Count", L"Item(0)", L"Item(0)", L"Item(1)", L"Item(1)", L"get Count"}));
    EXPECT_EQ(errors->references(), 1U);
}

TEST_F(DatabaseReport, AnEmptyCollectionHasACountAlone) {
    BoxWatcher boxes({answer(IDOK)});
    report(to_variant(make_errors({})));
    EXPECT_EQ(lines_of(boxes), (Lines{narrow(L"16|Gestión|Ha fallado.\\r\\rNº Errores: 0|1")}));
}

TEST_F(DatabaseReport, CountsTheErrorsOfAConnection) {
    const auto errors = make_errors({{1, L"uno"}, {2, L"dos"}});
    const auto database = connection(errors);
    {
        BoxWatcher no_box;
        EXPECT_EQ(count(to_variant(database), false), 2);
        EXPECT_EQ(call(messages_.get(), L"ExistenErroresADO", {to_variant(database)}).value.iVal,
                  2);
    }
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    EXPECT_EQ(count(to_variant(database), true), 2);
    EXPECT_EQ(count(to_variant(database), true), 2);
    const std::string box = narrow(
        L"16|Gestión|Errores al acceder a la Base de Datos.\\r\\rNº Errores: 2\\r\t1 - uno\\r\t2 - "
        L"dos|1");
    EXPECT_EQ(lines_of(boxes), (Lines{box, box}));
    EXPECT_EQ(errors->references(), 2U);  // the test's and the connection's
    EXPECT_EQ(database->references(), 1U);
}

TEST_F(DatabaseReport, AConnectionWithoutErrorsShowsNothing) {
    BoxWatcher no_box;
    const auto database = connection(make_errors({}));
    EXPECT_EQ(count(to_variant(database), true), 0);
    EXPECT_EQ(count(to_variant(database), false), 0);
}

TEST_F(DatabaseReport, ObjectsThatLackAMemberAreReported) {
    const auto empty = ScriptedObject::make();
    auto half = make_errors({{1, L"x"}});
    half->remove(L"Item");
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK), answer(IDOK)});
    report(to_variant(empty));
    report(to_variant(half));
    EXPECT_EQ(count(to_variant(empty), true), 0);
    // The count has been read before; only the report fails.
    EXPECT_EQ(count(to_variant(connection(half)), true), 1);
    const std::wstring text = L"438\\r (El objeto no admite esta propiedad o método";
    EXPECT_EQ(lines_of(boxes), (Lines{report_failure(text), report_failure(text),
                                      count_failure(text), report_failure(text)}));
    EXPECT_EQ(empty->references(), 1U);
}

TEST_F(DatabaseReport, FailuresOfTheObjectsKeepTheirNumbers) {
    auto errors = ScriptedObject::make();
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK), answer(IDOK), answer(IDOK)});
    errors->fails(L"Count", {-2147217843, L"Sin permiso", DISP_E_EXCEPTION, 0});
    report(to_variant(errors));
    errors->fails(L"Count", {0, L"Código", DISP_E_EXCEPTION, 3704});
    report(to_variant(errors));
    errors->property(L"Count", Variant(L"muchos"));
    report(to_variant(errors));
    errors->property(L"Count", Variant(std::int32_t{40000}));
    report(to_variant(errors));
    EXPECT_EQ(count(to_variant(connection(errors)), false), 0);
    EXPECT_EQ(
        lines_of(boxes),
        (Lines{report_failure(L"-2147217843\\r (Sin permiso"), report_failure(L"3704\\r (Código"),
               report_failure(L"13\\r (No coinciden los tipos"),
               report_failure(L"6\\r (Desbordamiento"), count_failure(L"6\\r (Desbordamiento")}));
}

/// A collection whose count grows by one at each reading, from 1 on.
ComPtr<ScriptedObject> make_growing_errors() {
    auto errors = make_errors({{1, L"uno"}, {2, L"dos"}, {3, L"tres"}});
    const auto count = std::make_shared<std::int32_t>(0);
    errors->property(L"Count", [count](const auto&) { return Variant(++*count); });
    return errors;
}

TEST_F(DatabaseReport, TheCountIsReadAgain) {
    {
        BoxWatcher boxes({answer(IDOK)});
        report(to_variant(make_growing_errors()));
        EXPECT_EQ(lines_of(boxes),
                  (Lines{narrow(L"16|Gestión|Ha fallado.\\r\\rNº Errores: 2\\r\t1 - uno|1")}));
    }
    BoxWatcher no_box;
    EXPECT_EQ(count(to_variant(connection(make_growing_errors())), false), 2);
}

TEST_F(DatabaseReport, ACountReadBeforeAFailureIsTheResult) {
    const auto errors = make_errors({{1, L"uno"}});
    auto database = ScriptedObject::make();
    int reads = 0;
    database->property(L"Errors", [&](const auto&) {
        if (++reads > 2) throw failure(3709, L"La conexión está cerrada");
        return to_variant(errors);
    });
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(count(to_variant(database), true), 1);
    EXPECT_EQ(lines_of(boxes), Lines{count_failure(L"3709\\r (La conexión está cerrada")});
    EXPECT_EQ(errors->references(), 1U);
}

TEST_F(DatabaseReport, ValuesThatAreNotObjectsAreReported) {
    auto database = ScriptedObject::make();
    database->property(L"Errors", Variant(L"ninguno"));
    auto errors = make_errors({{1, L"uno"}});
    errors->method(L"Item", [](const auto&) { return Variant(std::int32_t{7}); });
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    EXPECT_EQ(count(to_variant(database), true), 0);
    report(to_variant(errors));
    const std::wstring text = L"424\\r (Se requiere un objeto";
    EXPECT_EQ(lines_of(boxes), (Lines{count_failure(text), report_failure(text)}));
}

TEST_F(DatabaseReport, TheIndexOfAnErrorHasSixteenBits) {
    auto errors = make_errors({{1, L"uno"}});
    std::vector<VARTYPE> types;
    errors->method(L"Item", [&](const auto& arguments) {
        for (const Variant& argument : arguments) types.push_back(argument.vt);
        auto error = ScriptedObject::make();
        // The number has 32 bits; the description may be missing.
        error->property(L"Number", Variant(-2147483647.0))
            .property(L"Description", Variant::null());
        return to_variant(error);
    });
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(call(messages_.get(), L"MensajeErroresADO", {L"", to_variant(errors)}).result, S_OK);
    EXPECT_EQ(types, (std::vector<VARTYPE>{VT_I2, VT_I2}));
    EXPECT_EQ(lines_of(boxes),
              (Lines{narrow(L"16|Gestión|\\r\\rNº Errores: 1\\r\t-2147483647 - |1")}));
}

TEST_F(DatabaseReport, AHostWithoutANameHasBoxesWithoutATitle) {
    put(messages_.get(), L"AppOrigen", Variant(L""));
    const auto errors = make_errors({{1, L"uno"}});
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK)});
    EXPECT_EQ(count(to_variant(connection(errors)), true), 1);
    errors->remove(L"Count");
    report(to_variant(errors));
    EXPECT_EQ(count(to_variant(connection(errors)), true), 0);
    const std::wstring text =
        L"16||Error 438\\r (El objeto no admite esta propiedad o método) en procedimiento ";
    EXPECT_EQ(
        lines_of(boxes),
        (Lines{narrow(L"16||Errores al acceder a la Base de Datos.\\r\\rNº Errores: 1\\r\t1 - "
                      L"uno|1"),
               narrow(text + L"MensajeErroresADO de Módulo de clase clsMensajes.|1"),
               narrow(text + L"ExistenErroresADO del Módulo de clase clsMensajes.|1")}));
}

TEST_F(DatabaseReport, ArchiInformacionKeepsNoReference) {
    const HMODULE module = GetModuleHandleW(L"kovrel.dll");
    ASSERT_NE(module, nullptr);
    for (int call = 0; call < 3; ++call) get(messages_.get(), L"ArchiInformacion");
    EXPECT_EQ(can_unload(module), S_FALSE);
    messages_ = nullptr;
    EXPECT_EQ(can_unload(module), S_OK);
}

TEST_F(DatabaseReport, NoObjectAtAll) {
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    const Variant nothing{ComPtr<IDispatch>()};
    report(nothing);
    EXPECT_EQ(count(nothing, true), 0);
    const std::wstring text = L"91\\r (Variable de objeto o bloque With no establecido";
    EXPECT_EQ(lines_of(boxes), (Lines{report_failure(text), count_failure(text)}));
}

TEST_F(DatabaseReport, ObjectsThatReleaseThemselvesOrCallBack) {
    const int before = ScriptedObject::alive();
    auto errors = make_errors({});
    ScriptedObject* const raw = errors.get();
    errors->property(L"Count", [&](const auto&) {
        errors = nullptr;
        return Variant(std::int32_t{0});
    });
    {
        BoxWatcher boxes({answer(IDOK)});
        Variant argument = to_variant(ComPtr<ScriptedObject>(raw));
        report(argument);
        argument = Variant();
    }
    EXPECT_EQ(ScriptedObject::alive(), before);

    auto calling_back = make_errors({});
    int depth = 0;
    calling_back->property(L"Count", [&](const auto&) {
        if (++depth == 1) report(to_variant(make_errors({})));
        return Variant(std::int32_t{0});
    });
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    report(to_variant(calling_back));
    EXPECT_EQ(boxes.seen().size(), 2U);
    EXPECT_EQ(calling_back->references(), 1U);
}

TEST_F(DatabaseReport, EarlyBound) {
    using Report = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*, IDispatch**);
    using Count = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch**, VARIANT_BOOL*, SHORT*);
    const auto errors = make_errors({{7, L"siete"}});
    const auto database = connection(errors);
    IDispatch* raw_errors = errors.get();
    IDispatch* raw_database = database.get();
    BSTR text = SysAllocString(L"Aviso");
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    EXPECT_EQ(
        early<Report>(messages_.get(), L"MensajeErroresADO")(messages_.get(), &text, &raw_errors),
        S_OK);
    SysFreeString(text);
    VARIANT_BOOL tell = VARIANT_TRUE;
    SHORT result = 0;
    EXPECT_EQ(early<Count>(messages_.get(), L"ExistenErroresADO")(messages_.get(), &raw_database,
                                                                  &tell, &result),
              S_OK);
    EXPECT_EQ(result, 1);
    EXPECT_EQ(lines_of(boxes),
              (Lines{narrow(L"16|Gestión|Aviso\\r\\rNº Errores: 1\\r\t7 - siete|1"),
                     narrow(L"16|Gestión|Errores al acceder a la Base de Datos.\\r\\rNº Errores: "
                            L"1\\r\t7 - siete|1")}));
}

TEST_F(DatabaseReport, VersionAndFileOfTheLibrary) {
    BoxWatcher no_box;
    EXPECT_EQ(text_of_result(get(messages_.get(), L"ArchiVersion")), L"1.1.0");
    const std::wstring folder = library_file().parent_path().wstring();
    EXPECT_EQ(narrow(text_of_result(get(messages_.get(), L"ArchiInformacion"))),
              narrow(L"kovrel - Versión: 1.1.0 (" + folder + L"\\kovrel.dll)"));
    using Get = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*);
    Bstr text;
    EXPECT_EQ(early<Get>(messages_.get(), L"ArchiVersion", INVOKE_PROPERTYGET)(messages_.get(),
                                                                               text.put()),
              S_OK);
    EXPECT_EQ(text.view(), L"1.1.0");
    EXPECT_EQ(put(messages_.get(), L"ArchiVersion", Variant(L"2")).result, DISP_E_MEMBERNOTFOUND);
}

bool fails_next = false;

BSTR WINAPI fail_once(const OLECHAR* text, UINT length) {
    return std::exchange(fails_next, false) ? nullptr : SysAllocStringLen(text, length);
}

TEST_F(DatabaseReport, AFailureOfArchiInformacionShowsItsErrorBox) {
    using Get = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*);
    const std::string box = narrow(
        L"16|kovrel|Error 7\\r (Memoria insuficiente) en procedimiento ArchiInformacion del Módulo "
        L"de clase clsMensajes.|1");
    const ImportPatch patch(L"kovrel.dll", "SysAllocStringLen",
                            reinterpret_cast<void*>(&fail_once));
    ASSERT_TRUE(patch.in_place());
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    fails_next = true;
    EXPECT_EQ(text_of_result(get(messages_.get(), L"ArchiInformacion")), L"");
    fails_next = true;
    Bstr text(L"antes");
    EXPECT_EQ(early<Get>(messages_.get(), L"ArchiInformacion", INVOKE_PROPERTYGET)(messages_.get(),
                                                                                   text.put()),
              S_OK);
    EXPECT_EQ(text.view(), L"");
    EXPECT_EQ(lines_of(boxes), (Lines{box, box}));
}

}  // namespace
}  // namespace kovrel::test
