// clsFIdent, as hosts call it: single texts, lists and recordsets, and never a box.
#include <gtest/gtest.h>
#include <set>

#include "automation/host_object.h"
#include "automation/safe_array.h"
#include "tests/support/every_way.h"
#include "tests/support/scripted_recordset.h"
#include "tests/support/table.h"

namespace kovrel::test {
namespace {

constexpr int id_nif = 1;
constexpr int id_dni = 2;
constexpr int id_ccc = 6;
constexpr int id_iban = 7;
constexpr int id_last = 17;
constexpr int reason_empty = 1;
constexpr int reason_characters = 2;
constexpr int reason_length = 3;
constexpr int reason_control = 5;
constexpr int reason_last = 8;

using Numbers = std::vector<int>;

class Identifiers : public testing::Test {
 protected:
    std::wstring text_of_call(const wchar_t* member, const std::vector<LateArgument>& arguments) {
        return text_of_result(call(identifiers_.get(), member, arguments));
    }

    Answer check(Way way, int kind, const wchar_t* text) {
        return call_in(way, identifiers_.get(), L"Comprueba",
                       {Variant(kind), Variant(text), Variant(-1)});
    }

    HRESULT failure_of(const std::wstring& member, const std::vector<LateArgument>& arguments) {
        return call(identifiers_.get(), member, arguments).error;
    }

    static Numbers numbers_in(const Variant& array) {
        Numbers numbers;
        const ArrayAccess<VARIANT> access(array_in(array, VT_VARIANT, 1));
        for (const VARIANT& element : access.elements()) {
            EXPECT_EQ(element.vt, VT_I4);
            numbers.push_back(element.lVal);
        }
        return numbers;
    }

    Numbers check_list(int kind, const Variant& list, int column = 0) {
        const auto checked =
            call(identifiers_.get(), L"CompruebaLista", {Variant(kind), list, Variant(column)});
        EXPECT_EQ(checked.result, S_OK);
        return SUCCEEDED(checked.result) ? numbers_in(checked.value) : Numbers{};
    }

    const BoxWatcher no_box_;
    ComPtr<IDispatch> identifiers_ = create(L"Kovrel.clsFIdent");
};

Variant variants(const std::vector<Variant>& values, LONG first = 0) {
    Variant list = new_variant_array({static_cast<ULONG>(values.size()), first});
    const ArrayAccess<VARIANT> access(list.parray);
    for (std::size_t i = 0; i < values.size(); ++i)
        access.elements()[i] = Variant(values[i]).detach();
    return list;
}

Variant texts(const std::vector<const wchar_t*>& values) {
    Variant list;
    list.parray = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(values.size()));
    list.vt = VT_ARRAY | VT_BSTR;
    const ArrayAccess<BSTR> access(list.parray);
    for (std::size_t i = 0; i < values.size(); ++i) {
        access.elements()[i] = values[i] == nullptr ? nullptr : SysAllocString(values[i]);
    }
    return list;
}

TEST_F(Identifiers, AreCheckedWithTheirReasonInEveryWay) {
    for (const Way way : every_way) {
        SCOPED_TRACE(name_of(way));
        EXPECT_EQ(shown(check(way, id_nif, L"12345678-z").value), "booleano Verdadero");
        EXPECT_EQ(shown(check(way, id_nif, L"12345678A").value), "booleano Falso");
        EXPECT_EQ(shown(check(way, id_iban, L"ES91 2100 0418 4502 0005 1332").value),
                  "booleano Verdadero");
    }
    for (const Way way : ways_that_write_back) {
        SCOPED_TRACE(name_of(way));
        EXPECT_EQ(check(way, id_nif, L"12345678Z").arguments[2].to_int32(), 0);
        EXPECT_EQ(check(way, id_nif, L"12345678A").arguments[2].to_int32(), reason_control);
        EXPECT_EQ(check(way, id_nif, L"").arguments[2].to_int32(), reason_empty);
        EXPECT_EQ(check(way, id_ccc, L"2100").arguments[2].to_int32(), reason_length);
    }
    EXPECT_EQ(call(identifiers_.get(), L"Comprueba", {Variant(id_nif), Variant(L"12345678Z")})
                  .value.to_bool(),
              true);
}

TEST_F(Identifiers, AreNormalizedFormattedAndCorrected) {
    EXPECT_EQ(text_of_call(L"Normaliza", {Variant(id_iban), Variant(L"iban es91-2100 0418 4502 "
                                                                    L"0005 1332")}),
              L"ES9121000418450200051332");
    EXPECT_EQ(text_of_call(L"Formatea", {Variant(id_iban), Variant(L"es9121000418450200051332")}),
              L"ES91 2100 0418 4502 0005 1332");
    EXPECT_EQ(text_of_call(L"Corrige", {Variant(id_dni), Variant(L"12345678")}), L"12345678Z");
    EXPECT_EQ(text_of_call(L"Corrige", {Variant(id_dni), Variant(L"rubbish")}), L"");
    EXPECT_EQ(text_of_call(L"CCCaIBAN", {Variant(L"2100 0418 45 0200051332")}),
              L"ES9121000418450200051332");
    EXPECT_EQ(text_of_call(L"CCCaIBAN", {Variant(L"2100 0418 46 0200051332")}), L"");
    EXPECT_EQ(text_of_call(L"IBANaCCC", {Variant(L"ES91 2100 0418 4502 0005 1332")}),
              L"21000418450200051332");
    EXPECT_EQ(text_of_call(L"IBANaCCC", {Variant(L"GB29NWBK60161331926819")}), L"");
}

TEST_F(Identifiers, AreRecognizedAndNamed) {
    const auto kind_of = [&](const wchar_t* text) {
        return call(identifiers_.get(), L"TipoDe", {Variant(text)}).value.to_int32();
    };
    EXPECT_EQ(kind_of(L"12345678Z"), id_dni);
    EXPECT_EQ(kind_of(L"ES91 2100 0418 4502 0005 1332"), id_iban);
    EXPECT_EQ(kind_of(L"hola"), 0);
    EXPECT_NE(text_of_call(L"Titular", {Variant(L"A28015865")}), L"");
    EXPECT_EQ(text_of_call(L"Titular", {Variant(L"A28015866")}), L"");
}

TEST_F(Identifiers, EveryKindAndReasonHasItsWords) {
    std::set<std::wstring> words;
    for (int kind = 1; kind <= id_last; ++kind) {
        words.insert(text_of_call(L"TextoTipo", {Variant(kind)}));
    }
    for (int reason = 0; reason <= reason_last; ++reason) {
        words.insert(text_of_call(L"TextoMotivo", {Variant(reason)}));
    }
    EXPECT_EQ(words.size(), std::size_t{id_last + reason_last + 1});
    EXPECT_EQ(words.count(L""), 0U);
}

TEST_F(Identifiers, KindsAndReasonsThatAreNoneFail) {
    for (const int kind : {-1, 0, id_last + 1, 1 << 30}) {
        for (const wchar_t* const member :
             {L"Comprueba", L"MotivoDe", L"Normaliza", L"Formatea", L"Corrige"}) {
            SCOPED_TRACE(narrow(member));
            EXPECT_EQ(failure_of(member, {Variant(kind), Variant(L"12345678Z")}), failure(5));
        }
        EXPECT_EQ(failure_of(L"TextoTipo", {Variant(kind)}), failure(5));
        EXPECT_EQ(failure_of(L"CompruebaLista", {Variant(kind), texts({L"x"})}), failure(5));
    }
    EXPECT_EQ(failure_of(L"TextoMotivo", {Variant(-1)}), failure(5));
    EXPECT_EQ(failure_of(L"TextoMotivo", {Variant(reason_last + 1)}), failure(5));
}

TEST_F(Identifiers, ListsOfTextsAndOfValues) {
    const Numbers expected{0, reason_control, reason_empty};
    EXPECT_EQ(check_list(id_nif, texts({L"12345678Z", L"12345678A", nullptr})), expected);
    EXPECT_EQ(check_list(id_nif,
                         variants({Variant(L"12345678Z"), Variant(L"12345678A"), Variant::null()})),
              expected);
    EXPECT_EQ(
        check_list(id_nif, variants({Variant(12345678), Variant(1.5), Variant(identifiers_)})),
        (Numbers{reason_length, reason_characters, reason_characters}));
    EXPECT_EQ(check_list(id_nif, variants({})), Numbers{});
    // Variables, as lists of a procedure's arguments hold them.
    Variant text(L"12345678Z");
    Variant null = Variant::null();
    std::vector<Variant> references(2);
    for (Variant& reference : references) reference.vt = VT_BYREF | VT_VARIANT;
    references[0].pvarVal = &text;
    references[1].pvarVal = &null;
    EXPECT_EQ(check_list(id_nif, variants(references)), (Numbers{0, reason_empty}));
}

TEST_F(Identifiers, AListKeepsItsBounds) {
    const auto checked =
        call(identifiers_.get(), L"CompruebaLista",
             {Variant(id_nif), variants({Variant(L"12345678Z"), Variant(L"")}, 1)});
    ASSERT_EQ(checked.result, S_OK);
    LONG lower = 0;
    LONG upper = 0;
    SafeArrayGetLBound(checked.value.parray, 1, &lower);
    SafeArrayGetUBound(checked.value.parray, 1, &upper);
    EXPECT_EQ(lower, 1);
    EXPECT_EQ(upper, 2);
}

TEST_F(Identifiers, OneColumnOfFetchedRows) {
    const Variant table = new_table(2, 3);  // fields, rows
    const ArrayAccess<VARIANT> access(table.parray);
    std::size_t next = 0;
    for (const wchar_t* const text :
         {L"12345678Z", L"a", L"12345678A", L"ES91 2100 0418 4502 0005 1332", L"", L"b"}) {
        access.elements()[next++] = Variant(text).detach();
    }
    EXPECT_EQ(check_list(id_nif, table), (Numbers{0, reason_control, reason_empty}));
    EXPECT_EQ(check_list(id_iban, table, 1)[1], 0);
    EXPECT_EQ(failure_of(L"CompruebaLista", {Variant(id_nif), table, Variant(2)}), failure(9));
    EXPECT_EQ(failure_of(L"CompruebaLista", {Variant(id_nif), table, Variant(-1)}), failure(9));
}

TEST_F(Identifiers, AListIsReadWhereItIs) {
    Variant list = texts({L"12345678Z", L"12345678A"});
    const Numbers expected{0, reason_control};
    Variant variable;
    variable.vt = VT_BYREF | VT_ARRAY | VT_BSTR;
    variable.pparray = &list.parray;
    EXPECT_EQ(check_list(id_nif, variable), expected);
    variable.vt = VT_BYREF | VT_VARIANT;
    variable.pvarVal = &list;
    EXPECT_EQ(check_list(id_nif, variable), expected);
    // As compilers call it.
    const Answer early =
        call_in(Way::early, identifiers_.get(), L"CompruebaLista", {Variant(id_nif), list});
    EXPECT_EQ(early.result, S_OK) << narrow(early.description);
    EXPECT_EQ(numbers_in(early.value), expected);
    EXPECT_EQ(list.parray->cLocks, 0U);
}

TEST_F(Identifiers, WhatIsNoListFails) {
    SAFEARRAY* none = nullptr;
    Variant unset;
    unset.vt = VT_BYREF | VT_ARRAY | VT_BSTR;
    unset.pparray = &none;
    EXPECT_EQ(failure_of(L"CompruebaLista", {Variant(id_nif), unset}), failure(9));
    unset.vt = VT_EMPTY;
    EXPECT_EQ(failure_of(L"CompruebaLista", {Variant(id_nif), new_byte_array(3)}), failure(13));
    for (const Variant& value :
         {Variant(L"12345678Z"), Variant(5), Variant(), Variant::null(), Variant(identifiers_)}) {
        EXPECT_EQ(failure_of(L"CompruebaLista", {Variant(id_nif), value}), failure(13));
    }
    EXPECT_EQ(failure_of(L"CompruebaLista", {Variant(id_nif), texts({L"x"}), Variant(1)}),
              failure(9));
}

TEST_F(Identifiers, OfARecordset) {
    ScriptedRecordset records({{Variant(L"12345678Z")},
                               {Variant(L"12345678A")},
                               {Variant::null()},
                               {Variant(L"X1234567L")}},
                              {L"nif"});
    records.position = 3;
    for (const Way way : ways_that_write_back) {
        SCOPED_TRACE(name_of(way));
        const Answer checked =
            call_in(way, identifiers_.get(), L"CompruebaRecordset",
                    {Variant(id_nif), records.argument(), Variant(L"nif"), Variant()});
        EXPECT_EQ(checked.result, S_OK) << narrow(checked.description);
        EXPECT_EQ(shown(checked.value), "entero32 2");
        EXPECT_EQ(numbers_in(checked.arguments[3]), (Numbers{2, 3}));
        EXPECT_EQ(records.position, 3U);
    }
    records.object().fails(L"Bookmark", failure(std::uint16_t{3251}, L"sin marcadores"));
    const auto checked = call(identifiers_.get(), L"CompruebaRecordset",
                              {Variant(id_nif), records.argument(), Variant(L"nif")});
    EXPECT_EQ(checked.value.to_int32(), 2);
    EXPECT_EQ(records.position, 4U);
}

TEST_F(Identifiers, OfAnEmptyRecordset) {
    const ScriptedRecordset records({}, {L"nif"});
    const Answer checked =
        call_in(Way::variant_references, identifiers_.get(), L"CompruebaRecordset",
                {Variant(id_nif), records.argument(), Variant(L"nif"), Variant()});
    EXPECT_EQ(checked.value.to_int32(), 0);
    EXPECT_EQ(numbers_in(checked.arguments[3]), Numbers{});
    EXPECT_EQ(records.object().calls_of(L"MoveFirst()"), 0U);
}

TEST_F(Identifiers, OfARecordsetOfTheSystem) {
    const auto records = create(L"ADODB.Recordset");
    const HostObject recordset(records);
    constexpr std::int32_t wide_text = 202;  // adVarWChar
    const HostObject fields(recordset.get(L"Fields"));
    fields.call(L"Append", {Variant(L"nif"), Variant(wide_text), Variant(20)});
    recordset.call(L"Open");
    for (const wchar_t* const text : {L"12345678Z", L"12345678A", L"B12345674"}) {
        recordset.call(L"AddNew");
        HostObject(fields.get(L"Item", {Variant(L"nif")})).put(L"Value", Variant(text));
    }
    const Answer checked =
        call_in(Way::variant_references, identifiers_.get(), L"CompruebaRecordset",
                {Variant(id_nif), Variant(records), Variant(L"nif"), Variant()});
    EXPECT_EQ(checked.result, S_OK);
    EXPECT_EQ(numbers_in(checked.arguments[3]), Numbers{2});
}

TEST_F(Identifiers, ARecordsetThatIsNoneOrLacksTheFieldFails) {
    const ScriptedRecordset records({{Variant(L"12345678Z")}}, {L"nif"});
    const Variant object = records.argument();
    EXPECT_EQ(failure_of(L"CompruebaRecordset",
                         {Variant(id_nif), Variant(ComPtr<IDispatch>()), Variant(L"nif")}),
              failure(91));
    EXPECT_EQ(failure_of(L"CompruebaRecordset", {Variant(id_nif), object, Variant(L"otro")}),
              failure(3265));
    EXPECT_EQ(records.object().calls_of(L"MoveFirst()"), 0U);
    EXPECT_EQ(failure_of(L"CompruebaRecordset",
                         {Variant(id_nif), Variant(identifiers_), Variant(L"nif")}),
              failure(438));
}

TEST_F(Identifiers, TheProgressIsToldOnceAHundredth) {
    const auto general = ScriptedObject::make();
    general->method(L"BarraProgresoActualiza");
    std::vector<const wchar_t*> many(1000, L"12345678Z");
    const auto checked =
        call(identifiers_.get(), L"CompruebaLista",
             {Variant(id_nif), texts(many), Variant(0), Variant(ComPtr<IDispatch>(general.get()))});
    EXPECT_EQ(checked.result, S_OK);
    ASSERT_EQ(general->log().size(), 101U);
    EXPECT_EQ(general->log().front(), L"BarraProgresoActualiza(0, Comprobados 1 de 1000)");
    EXPECT_EQ(general->log().back(), L"BarraProgresoActualiza(100, Comprobados 1000 de 1000)");

    // The hundredths are whole: 29 of 100 is not a little less than 29.
    general->clear_log();
    many.resize(100);
    call(identifiers_.get(), L"CompruebaLista",
         {Variant(id_nif), texts(many), Variant(0), Variant(ComPtr<IDispatch>(general.get()))});
    ASSERT_EQ(general->log().size(), 100U);
    EXPECT_EQ(general->log()[28], L"BarraProgresoActualiza(29, Comprobados 29 de 100)");

    general->clear_log();
    const ScriptedRecordset records({{Variant(L"12345678Z")}, {Variant(L"x")}}, {L"nif"});
    call(identifiers_.get(), L"CompruebaRecordset",
         {Variant(id_nif), records.argument(), Variant(L"nif"), Variant(),
          Variant(ComPtr<IDispatch>(general.get()))});
    EXPECT_EQ(general->log(), (Log{L"BarraProgresoActualiza(50, Comprobados 1 de 2)",
                                   L"BarraProgresoActualiza(100, Comprobados 2 de 2)"}));
}

TEST_F(Identifiers, AListSurvivesWhatTheHostDoesMeanwhile) {
    Variant list = texts({L"12345678Z", L"12345678A", L"12345678Z"});
    const auto general = ScriptedObject::make();
    general->method(L"BarraProgresoActualiza", [&](const auto&) {
        EXPECT_EQ(SafeArrayDestroy(list.parray), DISP_E_ARRAYISLOCKED);
        const ArrayAccess<BSTR> access(list.parray);
        SysFreeString(access.elements()[2]);
        access.elements()[2] = nullptr;
        return Variant();
    });
    Variant variable;
    variable.vt = VT_BYREF | VT_ARRAY | VT_BSTR;
    variable.pparray = &list.parray;
    const auto checked =
        call(identifiers_.get(), L"CompruebaLista",
             {Variant(id_nif), variable, Variant(0), Variant(ComPtr<IDispatch>(general.get()))});
    EXPECT_EQ(numbers_in(checked.value), (Numbers{0, reason_control, reason_empty}));
    variable.vt = VT_EMPTY;
}

}  // namespace
}  // namespace kovrel::test
