// clsMensajes: the errors that an engine leaves in its connection.
#include "tests/database/database.h"

namespace kovrel::test {
namespace {

class DatabaseErrors : public DatabaseTest {
 protected:
    DatabaseErrors() { put(messages_.get(), L"AppOrigen", Variant(L"Gestión")); }

    /// Runs a statement that the database refuses, and has its errors shown.
    std::string box_after(const std::wstring& statement) {
        EXPECT_THROW(connection_.execute(statement), ObjectFailure);
        BoxWatcher boxes({answer(IDOK)});
        const Outcome outcome =
            call(messages_.get(), L"ExistenErroresADO", {connection_.argument(), true});
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.iVal, 1);
        const Lines lines = lines_of(boxes);
        return lines.size() == 1 ? lines.front() : std::string();
    }
    static std::string report_of(const std::wstring& error) {
        return narrow(
            L"16|Gestión|Errores al acceder a la Base de Datos.\\r\\rNº Errores: "
            L"1\\r\t-2147467259 - " +
            error + L"|1");
    }

    ComPtr<IDispatch> messages_ = create(L"Kovrel.clsMensajes");
};

TEST_F(DatabaseErrors, ATableThatIsNotThere) {
    EXPECT_EQ(box_after(L"SELECT * FROM facturas"),
              report_of(L"[SQLite]no such table: facturas (1)"));
}

TEST_F(DatabaseErrors, ABrokenConstraint) {
    EXPECT_EQ(box_after(L"INSERT INTO clientes (id, nombre) VALUES (1, 'otro')"),
              report_of(L"[SQLite]UNIQUE constraint failed: clientes.id (19)"));
}

TEST_F(DatabaseErrors, ALockedDatabase) {
    DatabaseConnection other(connection_text());
    other.execute(L"BEGIN EXCLUSIVE");
    EXPECT_EQ(box_after(L"UPDATE clientes SET saldo = 0 WHERE id = 1"),
              report_of(L"[SQLite]database is locked (5)"));
    other.execute(L"ROLLBACK");
}

TEST_F(DatabaseErrors, NoneWhereAllWentWell) {
    BoxWatcher no_box;
    connection_.execute(L"UPDATE clientes SET saldo = saldo WHERE id = 1");
    EXPECT_EQ(
        call(messages_.get(), L"ExistenErroresADO", {connection_.argument(), true}).value.iVal, 0);
}

}  // namespace
}  // namespace kovrel::test
