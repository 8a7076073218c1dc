// clsFSQL through the generated header, as compiled programs call it.
#include <array>
#include <gtest/gtest.h>
#include <kovrel.h>

#include "tests/support/box_watcher.h"
#include "tests/support/late.h"

namespace kovrel::test {
namespace {

constexpr std::array early_dialects{Kovrel::diAccess, Kovrel::diSQLServer, Kovrel::diPostgreSQL,
                                    Kovrel::diMySQL,  Kovrel::diSQLite,    Kovrel::diOracle};

class EarlyDialects : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_EQ(CoCreateInstance(__uuidof(Kovrel::clsFSQL), nullptr, CLSCTX_INPROC_SERVER,
                                   __uuidof(Kovrel::_clsFSQL), sql_.put_void()),
                  S_OK);
    }

    using OfValue = HRESULT (__stdcall Kovrel::_clsFSQL::*)(VARIANT, BSTR*);
    using OfText = HRESULT (__stdcall Kovrel::_clsFSQL::*)(BSTR, BSTR*);

    std::string result(OfValue member, const Variant& value) {
        Bstr text;
        EXPECT_EQ((sql_.get()->*member)(value, text.put()), S_OK);
        return narrow(std::wstring(text.view()));
    }
    std::string result(OfText member, const wchar_t* given) {
        Bstr text;
        EXPECT_EQ((sql_.get()->*member)(Bstr(given).get(), text.put()), S_OK);
        return narrow(std::wstring(text.view()));
    }

    const BoxWatcher no_box_;
    ComPtr<Kovrel::_clsFSQL> sql_;
};

TEST_F(EarlyDialects, EveryMemberInEveryDialect) {
    constexpr std::array expected{"True #2024-03-15# [a] ALIKE 'a%' [%]",
                                  "1 '20240315' [a] LIKE N'a%' ESCAPE '!' !%",
                                  "TRUE DATE '2024-03-15' \"a\" LIKE 'a%' ESCAPE '!' !%",
                                  "TRUE DATE '2024-03-15' `a` LIKE 'a%' ESCAPE '!' !%",
                                  "1 '2024-03-15' `a` LIKE 'a%' ESCAPE '!' !%",
                                  "1 DATE '2024-03-15' \"a\" LIKE 'a%' ESCAPE '!' !%"};
    for (std::size_t i = 0; i < early_dialects.size(); ++i) {
        ASSERT_EQ(sql_->put_Dialecto(early_dialects[i]), S_OK);
        auto read = static_cast<Kovrel::eDialecto>(-1);
        EXPECT_EQ(sql_->get_Dialecto(&read), S_OK);
        EXPECT_EQ(read, early_dialects[i]);
        EXPECT_EQ(result(&Kovrel::_clsFSQL::Booleano, Variant(true)) + ' ' +
                      result(&Kovrel::_clsFSQL::Fecha, Variant(Date{45366.5})) + ' ' +
                      result(&Kovrel::_clsFSQL::Nombre, L"a") + ' ' +
                      result(&Kovrel::_clsFSQL::Como, L"a%") + ' ' +
                      result(&Kovrel::_clsFSQL::Patron, L"%"),
                  expected[i]);
    }
    ASSERT_EQ(sql_->put_Dialecto(Kovrel::diSQLite), S_OK);
    EXPECT_EQ(result(&Kovrel::_clsFSQL::Valor, Variant(L"d'Ors")), "'d''Ors'");
    EXPECT_EQ(result(&Kovrel::_clsFSQL::Texto, Variant(L"d'Ors")), "'d''Ors'");
    EXPECT_EQ(result(&Kovrel::_clsFSQL::Numero, Variant(-0.5)), "(-0.5)");
    EXPECT_EQ(result(&Kovrel::_clsFSQL::FechaHora, Variant(Date{45366.5})),
              "'2024-03-15 12:00:00'");
    EXPECT_EQ(result(&Kovrel::_clsFSQL::Bytes, Variant::null()), "NULL");
}

TEST_F(EarlyDialects, FailuresHaveTheirNumber) {
    Bstr text;
    EXPECT_EQ(sql_->put_Dialecto(static_cast<Kovrel::eDialecto>(6)),
              MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 5));
    EXPECT_EQ(sql_->Lista(Variant(1), text.put()),
              MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 13));
    EXPECT_EQ(text.get(), nullptr);
}

}  // namespace
}  // namespace kovrel::test
