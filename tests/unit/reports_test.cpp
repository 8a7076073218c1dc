#include "messages/reports.h"

#include <gtest/gtest.h>

namespace kovrel {
namespace {

TEST(DatabaseReport, EachErrorHasALineWithATab) {
    const std::vector<DatabaseError> errors{{-2147467259, L"No se encuentra el archivo."},
                                            {3021, L""}};
    EXPECT_EQ(database_error_report(L"Facturas", database_access_errors, errors, 2),
              (Notice{L"Errores al acceder a la Base de Datos.\r\rNº Errores: 2"
                      L"\r\t-2147467259 - No se encuentra el archivo."
                      L"\r\t3021 - ",
                      NoticeStyle::critical, L"Facturas"}));
}

TEST(DatabaseReport, AnEmptyCollectionEndsWithItsCount) {
    EXPECT_EQ(database_error_report(L"", L"Texto", {}, 0),
              (Notice{L"Texto\r\rNº Errores: 0", NoticeStyle::critical, L""}));
}

TEST(DatabaseReport, ShowsTheCountThatWasReadLast) {
    EXPECT_EQ(database_error_report(L"", L"", {{1, L"a"}}, 3).text, L"\r\rNº Errores: 3\r\t1 - a");
}

TEST(VersionText, HasNoLeadingZeros) {
    EXPECT_EQ(version_text(1, 0, 12), L"1.0.12");
    EXPECT_EQ(version_text(1, 0, 0), L"1.0.0");
}

TEST(IdentificationText, PutsABackslashBehindTheFolder) {
    EXPECT_EQ(identification_text(L"T", version_text(2, 1, 5), L"D:\\lib", L"x"),
              L"T - Versión: 2.1.5 (D:\\lib\\x.dll)");
    EXPECT_EQ(identification_text(L"T", L"2.1.5", L"D:\\", L"x"),
              L"T - Versión: 2.1.5 (D:\\x.dll)");
    EXPECT_EQ(identification_text(L"", L"", L"", L""), L" - Versión:  (.dll)");
}

}  // namespace
}  // namespace kovrel
