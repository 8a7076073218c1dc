// The sample host with its customers in a database: what was saved is there whatever happens then.
#include <optional>

#include "tests/database/database.h"
#include "tests/windows/ficha_form.h"

namespace kovrel::test {
namespace {

class FichaDatabase : public testing::Test {
 protected:
    FichaDatabase() { std::filesystem::remove(file_); }
    ~FichaDatabase() override {
        form_.reset();
        std::filesystem::remove(file_);
    }

    void open() {
        form_.emplace(L"\"" + folder_.path() + L"\" \"" + connection_ + L"\"",
                      L"Ficha de cliente (" + setting(L"KOVREL_DATABASE_FOLDER") + L"/ficha.db)");
    }
    /// A customer with that name and tax id, typed into an empty form.
    void fill(const std::wstring& name, const std::wstring& tax_id) {
        form_->type(IDC_NAME, name);
        form_->leave_to(IDC_TAX_ID);
        form_->type(IDC_TAX_ID, tax_id);
        press_key('A', Modifier::alt);
        form_->type(IDC_START, L"15/03/2024");
        press_key('D', Modifier::alt);
        form_->type(IDC_PAYMENT, L"Contado");
    }
    void save(const std::wstring& name, const std::wstring& tax_id) {
        fill(name, tax_id);
        press_key(VK_RETURN);
        form_->shows(IDC_STATUS, L"Cliente guardado.");
    }
    void close() {
        press_key(VK_ESCAPE);
        EXPECT_TRUE(wait_until_closed(form_->handle()));
        form_.reset();
    }
    /// A key together with Alt, from a field of the form.
    void press_alt(char key) { press_key(static_cast<WORD>(key), Modifier::alt); }

    const std::wstring connection_ = connection_text(L"ficha.db");
    const std::filesystem::path file_ = L"Z:" + setting(L"KOVREL_DATABASE_FOLDER") + L"/ficha.db";
    TestFolder folder_{L"Ficha de la base"};
    std::optional<FichaForm> form_;
};

TEST_F(FichaDatabase, CustomersAreThereAgain) {
    open();
    save(L"Íñigo Peña", L"12345678Z");
    press_alt('V');
    form_->shows(IDC_STATUS, L"Cliente nuevo.");
    save(L"Ana Sanz", L"A58818501");
    close();

    open();  // in the order of their names
    form_->shows(IDC_NAME, L"Ana Sanz");
    form_->shows(IDC_TAX_ID, L"A58818501");
    press_alt('T');
    form_->shows(IDC_NAME, L"Íñigo Peña");
    form_->shows(IDC_START, L"15/03/2024");
    form_->shows(IDC_PAYMENT, L"Contado");
    press_alt('T');
    form_->shows(IDC_STATUS, L"No hay más clientes.");
    press_alt('O');
    form_->shows(IDC_NAME, L"Ana Sanz");
    close();
}

TEST_F(FichaDatabase, ChangesAreNotLostBetweenCustomers) {
    open();
    save(L"Ana Sanz", L"12345678Z");
    press_alt('N');
    form_->type(IDC_NAME, L"Ana Sanz Pérez");
    const std::string told =
        "48|Clientes|Antes de realizar la operación \"Guarde\" o \"Deshaga\" los cambios "
        "realizados "
        "en el registro.|1";
    for (const char key : {'T', 'O', 'V', 'C'}) {
        press_alt(key);
        EXPECT_EQ(form_->answer_box_of(L"Clientes"), told) << key;
        form_->shows(IDC_NAME, L"Ana Sanz Pérez");
    }
    press_alt('H');
    form_->shows(IDC_NAME, L"Ana Sanz");
    close();
}

TEST_F(FichaDatabase, AKilledProgramHasSavedWhatItSaidItHad) {
    open();
    save(L"Ana Sanz", L"12345678Z");
    form_->end();
    form_.reset();
    open();
    form_->shows(IDC_NAME, L"Ana Sanz");
    close();
}

TEST_F(FichaDatabase, ALockedDatabaseLeavesTheFormAsItIs) {
    open();
    fill(L"Ana Sanz", L"12345678Z");
    DatabaseConnection other(connection_);
    other.execute(L"BEGIN EXCLUSIVE");
    press_key(VK_RETURN);
    EXPECT_EQ(
        form_->answer_box_of(L"Clientes"),
        "16|Clientes|No es posible realizar la operación.\\r\\r[SQLite]database is locked (5)|1");
    form_->shows(IDC_NAME, L"Ana Sanz");
    form_->shows(IDC_STATUS, L"");
    other.execute(L"ROLLBACK");
    press_key(VK_RETURN);
    form_->shows(IDC_STATUS, L"Cliente guardado.");
    close();
}

TEST_F(FichaDatabase, ATaxIdThatAnotherCustomerHas) {
    open();
    save(L"Ana Sanz", L"12345678Z");
    press_alt('V');
    fill(L"Otra", L"12345678Z");
    press_key(VK_RETURN);
    EXPECT_EQ(form_->answer_box_of(L"Clientes"),
              "16|Clientes|No es posible realizar la operación.\\r\\r[SQLite]UNIQUE constraint "
              "failed: clientes.NIF (19)|1");
    press_alt('H');
    close();
}

}  // namespace
}  // namespace kovrel::test
