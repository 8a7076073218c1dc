// clsFSQL: literals, names and patterns for each database, the same whatever the user's settings.
#include <array>
#include <gtest/gtest.h>
#include <limits>

#include "automation/safe_array.h"
#include "tests/support/every_way.h"
#include "tests/support/scripted_object.h"

namespace kovrel::test {
namespace {

constexpr int dialect_count = 6;
constexpr int ms_access = 0;
constexpr int postgresql = 2;
constexpr int sqlite = 4;
constexpr int oracle = 5;
constexpr double afternoon = 45366 + 18.5 / 24;

/// What each database is given, in the order of the enumeration.
using Texts = std::array<const char*, dialect_count>;

Variant byte_array(const std::vector<std::uint8_t>& values) {
    Variant array = new_byte_array(values.size());
    const ArrayAccess<std::uint8_t> elements(array.parray);
    std::copy(values.begin(), values.end(), elements.elements().begin());
    return array;
}

Variant list_with(const std::vector<Variant>& values, LONG first = 0) {
    Variant array = new_variant_array({static_cast<ULONG>(values.size()), first});
    const ArrayAccess<VARIANT> elements(array.parray);
    for (std::size_t i = 0; i < values.size(); ++i) {
        elements.elements()[i] = Variant(values[i]).detach();
    }
    return array;
}

/// A list of a type of its own.
template <class Element>
Variant list_of_type(VARTYPE type, const std::vector<Element>& values) {
    Variant array;
    array.parray = SafeArrayCreateVector(type, 1, static_cast<ULONG>(values.size()));
    array.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    const ArrayAccess<Element> elements(array.parray);
    std::copy(values.begin(), values.end(), elements.elements().begin());
    return array;
}

template <class Value>
Variant of_type(VARTYPE type, Value VARIANT::*field, Value value) {
    Variant result;
    result.vt = type;
    result.*field = value;
    return result;
}

class DialectsAnySettings : public testing::TestWithParam<Way> {
 protected:
    void choose(int dialect) {
        EXPECT_EQ(put(sql_.get(), L"Dialecto", Variant(dialect)).result, S_OK);
    }

    Answer answer_of(const wchar_t* member, const Variant& argument) {
        return call_in(GetParam(), sql_.get(), member, {argument}, {});
    }

    std::string text_of_call(const wchar_t* member, const Variant& argument) {
        const Answer answer = answer_of(member, argument);
        EXPECT_EQ(answer.result, S_OK) << narrow(answer.description);
        return answer.value.vt == VT_BSTR ? narrow(answer.value.to_text()) : shown(answer.value);
    }

    void expect(const wchar_t* member, const Variant& argument, const Texts& expected) {
        for (int dialect = 0; dialect < dialect_count; ++dialect) {
            choose(dialect);
            EXPECT_EQ(text_of_call(member, argument), expected[static_cast<std::size_t>(dialect)])
                << "dialect " << dialect;
        }
    }

    void expect_everywhere(const wchar_t* member, const Variant& argument, const char* expected) {
        Texts texts;
        texts.fill(expected);
        expect(member, argument, texts);
    }

    void expect_failure(const wchar_t* member, const Variant& argument, int number) {
        const Answer answer = answer_of(member, argument);
        EXPECT_EQ(answer.result, failure(number)) << narrow(member);
        EXPECT_EQ(narrow(answer.source), "Kovrel.clsFSQL");
    }

    const BoxWatcher no_box_;
    ComPtr<IDispatch> sql_ = create(L"Kovrel.clsFSQL");
};

TEST_P(DialectsAnySettings, AccessIsTheFirstDialect) {
    EXPECT_EQ(get(sql_.get(), L"Dialecto").value.to_int32(), ms_access);
    EXPECT_EQ(text_of_call(L"Booleano", Variant(true)), "True");
    choose(oracle);
    EXPECT_EQ(get(sql_.get(), L"Dialecto").value.to_int32(), oracle);
    for (const int wrong : {-1, dialect_count, 1 << 30}) {
        EXPECT_EQ(put(sql_.get(), L"Dialecto", Variant(wrong)).error, failure(5));
    }
    EXPECT_EQ(get(sql_.get(), L"Dialecto").value.to_int32(), oracle);
    put(sql_.get(), L"AppOrigen", Variant(L"Facturas"));
    EXPECT_EQ(narrow(get(sql_.get(), L"AppOrigen").value.to_text()), "Facturas");
}

TEST_P(DialectsAnySettings, Texts) {
    const Texts expected{"'d''Ors'", "N'd''Ors'", "'d''Ors'", "'d''Ors'", "'d''Ors'", "'d''Ors'"};
    expect(L"Texto", Variant(L"d'Ors"), expected);
    expect(L"Valor", Variant(L"d'Ors"), expected);
    expect(L"Texto", Variant(L"a\\b"),
           {"'a\\b'", "N'a\\b'", "E'a\\\\b'", "_utf8mb4 X'615C62'", "'a\\b'", "'a\\b'"});
    expect(L"Texto", Variant(L"€|"),
           {"('€' & Chr(124))", "N'€|'", "'€|'", "'€|'", "'€|'", "UNISTR('\\20AC|')"});
    expect(L"Texto", Variant(28001),
           {"'28001'", "N'28001'", "'28001'", "'28001'", "'28001'", "'28001'"});
    Variant none;
    none.vt = VT_BSTR;  // a null BSTR is an empty text
    expect(L"Texto", none, {"''", "N''", "''", "''", "''", "''"});
}

TEST_P(DialectsAnySettings, TextsThatADatabaseCannotHoldAreRefused) {
    const Variant nul(std::wstring_view(L"a\0b", 3));
    choose(sqlite);
    EXPECT_EQ(text_of_call(L"Texto", nul), "('a' || (char(0) || 'b'))");
    choose(postgresql);
    const Answer refused = answer_of(L"Valor", nul);
    EXPECT_EQ(refused.result, failure(5));
    EXPECT_EQ(
        narrow(refused.description),
        "Llamada a procedimiento o argumento no válidos: PostgreSQL no admite el carácter nulo "
        "en un texto");
    for (int dialect = 0; dialect < dialect_count; ++dialect) {
        choose(dialect);
        expect_failure(L"Texto", Variant(L"\xD83D"), 5);
        expect_failure(L"Nombre", Variant(L"\xDE00"), 5);
        expect_failure(L"Como", Variant(L"\xDE00%"), 5);
        EXPECT_EQ(text_of_call(L"Patron", Variant(L"ñ")), "ñ");
    }
}

TEST_P(DialectsAnySettings, Numbers) {
    const double third = 1.0 / 3;
    for (const wchar_t* const member : {L"Numero", L"Valor"}) {
        expect_everywhere(member, Variant(0), "0");
        expect_everywhere(member, Variant(-5), "(-5)");
        expect_everywhere(member, Variant(std::uint8_t{255}), "255");
        expect_everywhere(member, Variant(1234.5), "1234.5");
        expect_everywhere(member, Variant(third), "0.3333333333333333");
        expect_everywhere(member, Variant(0.1F), "0.1");
        expect_everywhere(member, Variant(1e15), "1000000000000000");
        expect_everywhere(member, Variant(1e20), "1E+20");
        expect_everywhere(member, of_type(VT_UI4, &VARIANT::ulVal, ULONG{4294967295U}),
                          "4294967295");
        expect_everywhere(member,
                          of_type(VT_I8, &VARIANT::llVal, std::numeric_limits<LONGLONG>::min()),
                          "(-9223372036854775808)");
        expect_everywhere(member, of_type(VT_UI8, &VARIANT::ullVal, ~ULONGLONG{0}),
                          "18446744073709551615");
        CY most;
        most.int64 = std::numeric_limits<LONGLONG>::max();
        expect_everywhere(member, of_type(VT_CY, &VARIANT::cyVal, most), "922337203685477.5807");
    }
    expect(L"Numero", Variant(-1e200),
           {"(-1E+200)", "(-1E+200)", "(-1E+200)", "(-1E+200)", "(-1E+200)", "(-1E+200d)"});
    // In the user's settings, with all the digits.
    expect_everywhere(L"Numero", Variant(Variant(12.5).to_text()), "12.5");
    expect_everywhere(L"Numero", Variant(L"-12345678901234567890"), "(-12345678901234567890)");
    expect_everywhere(L"Numero", Variant(true), "(-1)");
}

TEST_P(DialectsAnySettings, WhatIsNoNumberIsRefused) {
    for (const Variant& value :
         {Variant(L""), Variant(L"doce"), Variant(L"1; DROP TABLE a"), Variant(Date{45366})}) {
        expect_failure(L"Numero", value, 13);
    }
    for (const double value :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        expect_failure(L"Numero", Variant(value), 6);
        expect_failure(L"Valor", Variant(value), 6);
    }
}

TEST_P(DialectsAnySettings, Dates) {
    const Texts day{"#2024-03-15#",      "'20240315'",   "DATE '2024-03-15'",
                    "DATE '2024-03-15'", "'2024-03-15'", "DATE '2024-03-15'"};
    const Texts moment{"#2024-03-15 18:30:00#",
                       "'2024-03-15T18:30:00'",
                       "TIMESTAMP '2024-03-15 18:30:00'",
                       "TIMESTAMP '2024-03-15 18:30:00'",
                       "'2024-03-15 18:30:00'",
                       "TO_DATE('2024-03-15 18:30:00', 'YYYY-MM-DD HH24:MI:SS')"};
    expect(L"Fecha", Variant(Date{afternoon}), day);
    expect(L"FechaHora", Variant(Date{afternoon}), moment);
    expect(L"Valor", Variant(Date{afternoon}), moment);
    expect(L"Valor", Variant(Date{45366}), day);
    // Texts that are this date in any order of day, month and year.
    expect(L"Fecha", Variant(L"2024-03-15"), day);
    expect(L"FechaHora", Variant(L"2024-03-15 18:30"), moment);
    for (const wchar_t* const member : {L"Fecha", L"FechaHora"}) {
        for (const Variant& value :
             {Variant(L"mañana"), Variant(L""), Variant(45366), Variant(1.5), Variant(true)}) {
            expect_failure(member, value, 13);
        }
        for (const double beyond :
             {1e9, -1e9, 2958466.0, std::numeric_limits<double>::quiet_NaN()}) {
            expect_failure(member, Variant(Date{beyond}), 5);
        }
    }
}

TEST_P(DialectsAnySettings, BooleansAndBytes) {
    expect(L"Booleano", Variant(true), {"True", "1", "TRUE", "TRUE", "1", "1"});
    expect(L"Valor", Variant(false), {"False", "0", "FALSE", "FALSE", "0", "0"});
    expect(L"Booleano", Variant(5), {"True", "1", "TRUE", "TRUE", "1", "1"});
    expect_failure(L"Booleano", Variant(L"quizás"), 13);
    const Variant some = byte_array({0, 0x27, 0xFF});
    const Texts expected{"0x0027FF",  "0x0027FF",  "decode('0027FF', 'hex')",
                         "X'0027FF'", "X'0027FF'", "HEXTORAW('0027FF')"};
    expect(L"Bytes", some, expected);
    expect(L"Valor", some, expected);
    expect(L"Bytes", byte_array({}),
           {"0x", "0x", "decode('', 'hex')", "X''", "X''", "HEXTORAW('')"});
    expect_failure(L"Bytes", Variant(L"abc"), 13);
    expect_failure(L"Bytes", list_with({Variant(1)}), 13);
    expect_failure(L"Valor", list_with({Variant(1)}), 13);
    for (const wchar_t* const member : {L"Texto", L"Numero", L"Fecha", L"FechaHora", L"Booleano"}) {
        expect_failure(member, some, 13);
    }
}

TEST_P(DialectsAnySettings, WhatIsNotThereIsNull) {
    for (const wchar_t* const member :
         {L"Valor", L"Texto", L"Numero", L"Fecha", L"FechaHora", L"Booleano", L"Bytes"}) {
        expect_everywhere(member, Variant::null(), "NULL");
        expect_everywhere(member, Variant(), "NULL");
    }
}

TEST_P(DialectsAnySettings, Lists) {
    expect(L"Lista", list_with({Variant(1), Variant(-2), Variant(L"d'Ors"), Variant(true)}),
           {"(1, (-2), 'd''Ors', True)", "(1, (-2), N'd''Ors', 1)", "(1, (-2), 'd''Ors', TRUE)",
            "(1, (-2), 'd''Ors', TRUE)", "(1, (-2), 'd''Ors', 1)", "(1, (-2), 'd''Ors', 1)"});
    choose(sqlite);
    EXPECT_EQ(text_of_call(L"Lista", list_with({Variant(L"a")}, 5)), "('a')");
    EXPECT_EQ(text_of_call(L"Lista", list_of_type<std::int32_t>(VT_I4, {1, 2})), "(1, 2)");
    EXPECT_EQ(text_of_call(L"Lista", list_of_type<double>(VT_R8, {0.5, -1})), "(0.5, (-1))");
    EXPECT_EQ(text_of_call(L"Lista", list_of_type<double>(VT_DATE, {45366})), "('2024-03-15')");
    EXPECT_EQ(text_of_call(L"Lista", byte_array({1, 2})), "(1, 2)");
    expect_failure(L"Lista", list_with({}), 5);
    expect_failure(L"Lista", list_with({Variant(1), Variant::null()}), 94);
    expect_failure(L"Lista", list_with({Variant()}), 94);
    expect_failure(L"Lista", Variant(L"1, 2"), 13);
    expect_failure(L"Lista", Variant(), 13);
}

TEST_P(DialectsAnySettings, Names) {
    expect(L"Nombre", Variant(L"Año de alta"),
           {"[Año de alta]", "[Año de alta]", "\"Año de alta\"", "`Año de alta`", "`Año de alta`",
            "\"Año de alta\""});
    choose(ms_access);
    expect_failure(L"Nombre", Variant(L"a]; DROP TABLE b"), 5);
    for (int dialect = 0; dialect < dialect_count; ++dialect) {
        choose(dialect);
        expect_failure(L"Nombre", Variant(L""), 5);
    }
}

TEST_P(DialectsAnySettings, Patterns) {
    expect(
        L"Patron", Variant(L"50%_[*!"),
        {"50[%][_][[][*]!", "50!%!_![*!!", "50!%!_[*!!", "50!%!_[*!!", "50!%!_[*!!", "50!%!_[*!!"});
    expect(L"Como", Variant(L"d'%"),
           {"ALIKE 'd''%'", "LIKE N'd''%' ESCAPE '!'", "LIKE 'd''%' ESCAPE '!'",
            "LIKE 'd''%' ESCAPE '!'", "LIKE 'd''%' ESCAPE '!'", "LIKE 'd''%' ESCAPE '!'"});
}

TEST_P(DialectsAnySettings, AnObjectStandsForItsDefaultValue) {
    const auto field = ScriptedObject::make();
    field->property(L"Value", Variant(L"d'Ors")).default_member(L"Value");
    const Variant given{ComPtr<IDispatch>(field.get())};
    choose(sqlite);
    EXPECT_EQ(text_of_call(L"Valor", given), "'d''Ors'");
    EXPECT_EQ(text_of_call(L"Texto", given), "'d''Ors'");
    EXPECT_EQ(text_of_call(L"Lista", list_with({given})), "('d''Ors')");
    expect_failure(L"Numero", given, 13);
    const auto blob = ScriptedObject::make();
    blob->property(L"Value", byte_array({1})).default_member(L"Value");
    EXPECT_EQ(text_of_call(L"Valor", Variant(ComPtr<IDispatch>(blob.get()))), "X'01'");
    EXPECT_EQ(text_of_call(L"Bytes", Variant(ComPtr<IDispatch>(blob.get()))), "X'01'");
    expect_failure(L"Valor", Variant(ComPtr<IDispatch>()), 91);
}

INSTANTIATE_TEST_SUITE_P(All, DialectsAnySettings, testing::ValuesIn(every_way));

TEST(Dialects, DecimalsKeepAllTheirDigits) {
    const auto sql = create(L"Kovrel.clsFSQL");
    Variant number;
    number.decVal.scale = 9;
    number.decVal.sign = DECIMAL_NEG;
    number.decVal.Hi32 = 0xFFFFFFFF;
    number.decVal.Lo64 = ~ULONGLONG{0};
    number.vt = VT_DECIMAL;
    EXPECT_EQ(narrow(text_of_result(call(sql.get(), L"Numero", {number}))),
              "(-79228162514264337593.543950335)");
    Variant reference;
    reference.vt = VT_BYREF | VT_DECIMAL;
    reference.pdecVal = &number.decVal;
    EXPECT_EQ(narrow(text_of_result(call(sql.get(), L"Valor", {reference}))),
              "(-79228162514264337593.543950335)");
    reference.vt = VT_EMPTY;
}

TEST(Dialects, MissingValuesAreNullAndErrorsAreRefused) {
    const auto sql = create(L"Kovrel.clsFSQL");
    EXPECT_EQ(narrow(text_of_result(call(sql.get(), L"Valor", {LateArgument::missing()}))), "NULL");
    const auto error = of_type(VT_ERROR, &VARIANT::scode, SCODE{E_FAIL});
    EXPECT_EQ(call(sql.get(), L"Valor", {error}).error, failure(13));
    EXPECT_EQ(call(sql.get(), L"Valor", {}).result, DISP_E_BADPARAMCOUNT);
}

TEST(Dialects, ArraysOfOtherShapesAreRefused) {
    const auto sql = create(L"Kovrel.clsFSQL");
    std::array<SAFEARRAYBOUND, 2> bounds{{{2, 0}, {2, 0}}};
    for (const VARTYPE type : {VARTYPE{VT_VARIANT}, VARTYPE{VT_UI1}}) {
        Variant table;
        table.parray = SafeArrayCreate(type, 2, bounds.data());
        table.vt = static_cast<VARTYPE>(VT_ARRAY | type);
        EXPECT_EQ(call(sql.get(), L"Lista", {table}).error, failure(9));
        EXPECT_EQ(call(sql.get(), L"Bytes", {table}).error, failure(type == VT_UI1 ? 9 : 13));
    }
    Variant none;
    none.vt = VT_ARRAY | VT_UI1;
    EXPECT_EQ(call(sql.get(), L"Bytes", {none}).error, failure(9));
    EXPECT_EQ(call(sql.get(), L"Lista", {none}).error, failure(9));
}

TEST(Dialects, TextsAreReadByTheUsersSettings) {
    const auto sql = create(L"Kovrel.clsFSQL");
    const auto text = [&](const wchar_t* member, const wchar_t* argument) {
        return narrow(text_of_result(call(sql.get(), member, {Variant(argument)})));
    };
    EXPECT_EQ(text(L"Numero", L"1.234,50"), "1234.5");
    EXPECT_EQ(text(L"Numero", L"-0,10"), "(-0.1)");
    EXPECT_EQ(text(L"Fecha", L"1/2/2024"), "#2024-02-01#");
    EXPECT_EQ(text(L"FechaHora", L"15/03/2024 18:30"), "#2024-03-15 18:30:00#");
    EXPECT_EQ(text(L"Booleano", L"True"), "True");
}

}  // namespace
}  // namespace kovrel::test
