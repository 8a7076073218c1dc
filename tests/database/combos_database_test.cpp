// clsFGen's combo loaders over the customers of a database.
#include "tests/database/database.h"
#include "tests/support/scripted_recordset.h"

namespace kovrel::test {
namespace {

class DatabaseCombos : public DatabaseTest {
 protected:
    bool load(const wchar_t* member, DatabaseRecordset& records) {
        const Outcome outcome =
            call(general_.get(), member, {combo_.argument(), records.argument()});
        EXPECT_EQ(outcome.result, S_OK);
        return outcome.value.to_bool();
    }
    bool load_columns(DatabaseRecordset& records) {
        return load(L"cargaComboMSFormsDeRecordset", records);
    }
    bool load_items(DatabaseRecordset& records) { return load(L"CargaComboDeRecordset", records); }

    static std::string failure(const std::wstring& number_and_text, const wchar_t* member) {
        return failure_line(L"kovrel", number_and_text, member, L"clsFGen");
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
    ScriptedCombo combo_;
};

TEST_F(DatabaseCombos, AThousandCustomers) {
    BoxWatcher no_box;
    for (const Cursor cursor : {Cursor::client, Cursor::keyset}) {
        DatabaseRecordset records(connection_, customers(1000), cursor);
        records.go_to(5);
        EXPECT_TRUE(load_columns(records));
        EXPECT_EQ(records.row(), 5U);
        const auto lines = combo_.lines();
        ASSERT_EQ(lines.size(), 1000U);
        EXPECT_EQ(lines.front(), L"1|Íñigo Peña 1|0,25");
        EXPECT_EQ(lines.at(1), L"2|null|0,5");
        EXPECT_EQ(lines.back(), L"1000|null|250");

        combo_.items = {L"anterior"};
        EXPECT_TRUE(load_items(records));
        EXPECT_EQ(records.row(), 5U);
        ASSERT_EQ(combo_.items.size(), 1000U);
        EXPECT_EQ(combo_.items.front(), L"1");
        EXPECT_EQ(combo_.items.back(), L"1000");
    }
}

TEST_F(DatabaseCombos, AHundredThousandCustomers) {
    BoxWatcher no_box;
    DatabaseRecordset records(connection_, customers(100'000));
    EXPECT_TRUE(load_columns(records));
    const auto lines = combo_.lines();
    ASSERT_EQ(lines.size(), 100'000U);
    EXPECT_EQ(lines.back(), L"100000|null|25000");
    EXPECT_TRUE(load_items(records));
    ASSERT_EQ(combo_.items.size(), 100'000U);
    EXPECT_EQ(combo_.items.back(), L"100000");
}

TEST_F(DatabaseCombos, OneCustomerAndNone) {
    BoxWatcher no_box;
    for (const Cursor cursor : {Cursor::client, Cursor::keyset}) {
        DatabaseRecordset one(connection_, customers(1), cursor);
        EXPECT_TRUE(load_columns(one));
        EXPECT_EQ(combo_.lines(), (std::vector<std::wstring>{L"1|Íñigo Peña 1|0,25"}));
        EXPECT_TRUE(load_items(one));
        EXPECT_EQ(combo_.items, (std::vector<std::wstring>{L"1"}));

        DatabaseRecordset none(connection_, customers(0), cursor);
        EXPECT_FALSE(load_items(none));
        EXPECT_EQ(combo_.items, (std::vector<std::wstring>{L"1"}));
        EXPECT_TRUE(load_columns(none));
        EXPECT_TRUE(combo_.items.empty());
    }
}

// A server's cursor does not know how many rows it has, which counts as none.
TEST_F(DatabaseCombos, CustomersOfUnknownNumber) {
    BoxWatcher no_box;
    DatabaseRecordset records(connection_, customers(1000), Cursor::server);
    combo_.items = {L"anterior"};
    EXPECT_FALSE(load_items(records));
    EXPECT_EQ(combo_.items, (std::vector<std::wstring>{L"anterior"}));
    EXPECT_TRUE(load_columns(records));
    EXPECT_TRUE(combo_.items.empty());
    EXPECT_EQ(records.row(), 1U);
}

TEST_F(DatabaseCombos, ARowThatTheDatabaseCannotGive) {
    const std::wstring query =
        L"SELECT CASE WHEN id = 700 THEN abs(id - 9223372036854775807 - 701) ELSE id END AS id "
        L"FROM clientes WHERE id <= 1000";
    const std::wstring overflow = L"-2147467259\\r ([SQLite]integer overflow (1)";
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    DatabaseRecordset columns(connection_, query, Cursor::keyset);
    EXPECT_FALSE(load_columns(columns));
    EXPECT_EQ(columns.row(), 700U);
    DatabaseRecordset items(connection_, query, Cursor::keyset);
    EXPECT_FALSE(load_items(items));
    EXPECT_EQ(combo_.items.size(), 699U);
    EXPECT_EQ(items.row(), 700U);
    EXPECT_EQ(lines_of(boxes), (Lines{failure(overflow, L"cargaComboMSFormsDeRecordset"),
                                      failure(overflow, L"CargaComboDeRecordset")}));
}

TEST_F(DatabaseCombos, ADatabaseThatIsLostMeanwhile) {
    const std::wstring lost = std::wstring(L"-2147467259\\r (") + FailingDatabase::failure;
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    for (const wchar_t* const member :
         {L"cargaComboMSFormsDeRecordset", L"CargaComboDeRecordset"}) {
        const FailingDatabase database;
        DatabaseConnection own(database.connection());
        DatabaseRecordset records(own, customers(100'000), Cursor::keyset);
        records.go_to(300);
        database.lose(8192);
        EXPECT_FALSE(load(member, records));
        EXPECT_GT(records.row(), 300U);
        EXPECT_LT(records.row(), 100'000U);
    }
    EXPECT_GE(combo_.items.size(), 300U);
    EXPECT_EQ(lines_of(boxes), (Lines{failure(lost, L"cargaComboMSFormsDeRecordset"),
                                      failure(lost, L"CargaComboDeRecordset")}));
}

}  // namespace
}  // namespace kovrel::test
