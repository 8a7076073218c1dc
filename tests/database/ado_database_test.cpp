// SQL of the library's through the system's own ADO into a database.
#include "automation/host_object.h"
#include "tests/database/database.h"

namespace kovrel::test {
namespace {

TEST(DatabaseAdo, LiteralsOfTheDialectPassThroughAdo) {
    const ComPtr<IDispatch> sql = create(L"Kovrel.clsFSQL");
    put(sql.get(), L"Dialecto", Variant(std::int32_t{4}));  // diSQLite
    const auto literal = [&](const wchar_t* member, const LateArgument& value) {
        return text_of_result(call(sql.get(), member, {value}));
    };
    const std::wstring name = L"O'Donnell \"Peña\" -- # /* \\' \x6F22";
    const std::wstring values = L"700001, " + literal(L"Texto", Variant(name)) + L", " +
                                literal(L"Numero", Variant(-0.1)) + L", " +
                                literal(L"Fecha", Variant(Date{45366}));
    const ComPtr<IDispatch> ado = create(L"ADODB.Connection");
    const Outcome opened =
        call(ado.get(), L"Open", {Variant(L"Provider=MSDASQL;Data Source=kovrel_prueba")});
    EXPECT_EQ(opened.result, S_OK) << narrow(opened.description);
    const Outcome inserted =
        call(ado.get(), L"Execute",
             {Variant(L"INSERT INTO clientes (id, nombre, saldo, alta) VALUES (" + values + L")")});
    EXPECT_EQ(inserted.result, S_OK) << narrow(inserted.description);

    DatabaseConnection connection(connection_text());
    DatabaseRecordset stored(connection,
                             L"SELECT id, nombre, saldo, alta FROM clientes WHERE id = 700001");
    const auto value = [&](const wchar_t* field) {
        return HostObject(stored.field(field).to_object()).get(L"Value");
    };
    EXPECT_EQ(value(L"nombre").to_text(), name);
    EXPECT_EQ(value(L"saldo").to_double(), -0.1);
    EXPECT_EQ(value(L"alta").to_text(), L"2024-03-15");
    connection.execute(L"DELETE FROM clientes WHERE id = 700001");
}

}  // namespace
}  // namespace kovrel::test
