// clsFGen's validators over controls that are bound to the fields of a record.
#include "automation/host_object.h"
#include "runtime/failure.h"
#include "tests/database/database.h"

namespace kovrel::test {
namespace {

class DatabaseFields : public DatabaseTest {
 protected:
    /// A control that shows a field, as bound controls do.
    static ComPtr<ScriptedObject> bound_to(const Variant& field, const wchar_t* tag) {
        auto control = ScriptedObject::make();
        const HostObject source(field.to_object());
        control
            ->property(
                L"Value",
                [source](const auto&) {
                    try {
                        return source.get(L"Value");
                    } catch (const Failure& failure) {
                        throw ObjectFailure{failure.number(), std::wstring(failure.description())};
                    }
                })
            .property(L"Tag", Variant(tag))
            .property(L"MaxLength", Variant(std::int32_t{14}))
            .method(L"SetFocus");
        control->default_member(L"Value");
        return control;
    }
    bool fails(const wchar_t* member, const ComPtr<ScriptedObject>& control) {
        const Outcome outcome = call(general_.get(), member, {to_variant(control)});
        EXPECT_EQ(outcome.result, S_OK);
        return outcome.value.to_bool();
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
    DatabaseRecordset records_{connection_,
                               L"SELECT id, nombre, alta FROM clientes WHERE id <= 3 ORDER BY id"};
};

TEST_F(DatabaseFields, ARequiredField) {
    const auto name = bound_to(records_.field(L"nombre"), L"Nombre");
    {
        BoxWatcher no_box;
        EXPECT_FALSE(fails(L"Requerido", name));
    }
    records_.go_to(2);  // whose name is null
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_TRUE(fails(L"Requerido", name));
    EXPECT_EQ(lines_of(boxes),
              (Lines{narrow(L"48||El dato  \"Nombre\" no puede quedar vacío.|1")}));
}

TEST_F(DatabaseFields, ADate) {
    const auto since = bound_to(records_.field(L"alta"), L"Alta");
    {
        BoxWatcher no_box;
        EXPECT_FALSE(fails(L"FechaCorrecta", since));
    }
    records_.go_to(3);  // whose date is a text that is none
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_TRUE(fails(L"FechaCorrecta", since));
    EXPECT_EQ(lines_of(boxes), (Lines{narrow(L"48||Escriba la fecha correctamente.|1")}));
}

TEST_F(DatabaseFields, ARowThatTheDatabaseCannotGive) {
    const FailingDatabase database;
    DatabaseConnection own(database.connection());
    DatabaseRecordset records(own, customers(100'000), Cursor::keyset);
    records.go_to(300);
    const auto name = bound_to(records.field(L"nombre"), L"Nombre");
    database.lose(8192);
    EXPECT_THROW(records.go_to(100'000), ObjectFailure);
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_FALSE(fails(L"Requerido", name));
    EXPECT_EQ(
        lines_of(boxes),
        (Lines{failure_line(L"kovrel", std::wstring(L"-2147467259\\r (") + FailingDatabase::failure,
                            L"Requerido", L"clsFGen")}));
}

}  // namespace
}  // namespace kovrel::test
