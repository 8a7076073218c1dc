// clsADODBServices: pictures in the BLOB columns of a database. The script that starts this program
// compares what is in the table with the files afterwards, by other means.
#include <fstream>

#include "tests/automation/images.h"
#include "tests/database/database.h"

namespace kovrel::test {
namespace {

class DatabaseImages : public DatabaseTest {
 protected:
    DatabaseImages() { put(services_.get(), L"AppOrigen", Variant(L"Gestión")); }

    /// The row of that name in the table of pictures.
    static std::wstring row_of(const std::wstring& name) {
        return L"SELECT nombre, imagen FROM fotos WHERE nombre = '" + name + L"'";
    }
    /// Stores a file in the row of that name.
    void store(const wchar_t* member, const std::wstring& name, const std::wstring& file) {
        DatabaseRecordset records(connection_, row_of(name));
        const Outcome outcome =
            call(services_.get(), member, {records.field(L"imagen"), Variant(file)});
        EXPECT_EQ(outcome.result, S_OK);
        records.update(L"fotos");
    }
    /// Whether the row holds a picture.
    bool has_picture(const wchar_t* member, const std::wstring& name) {
        DatabaseRecordset records(connection_, row_of(name), Cursor::keyset);
        const Outcome outcome = call(services_.get(), member, {records.field(L"imagen")});
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_DISPATCH);
        return outcome.value.pdispVal != nullptr;
    }

    static std::string failure(const std::wstring& number_and_text, const wchar_t* member) {
        return failure_line(L"Gestión", number_and_text, member, L"clsADODBServices");
    }

    ComPtr<IDispatch> services_ = create(L"Kovrel.clsADODBServices");
    TestFolder folder_;
};

TEST_F(DatabaseImages, OfEveryKind) {
    BoxWatcher no_box;
    for (const auto& [name, type] : every_kind) {
        SCOPED_TRACE(narrow(name));
        store(L"PutImageInField", name, picture_file(name));
        EXPECT_TRUE(has_picture(L"GetImageFromField", name));
        EXPECT_TRUE(has_picture(L"GetLargeImageFromField", name));
    }
}

TEST_F(DatabaseImages, OfTwoAndAHalfMegabytes) {
    BoxWatcher no_box;
    store(L"PutImageInField", L"large.bmp", picture_file(L"large.bmp"));
    EXPECT_TRUE(has_picture(L"GetImageFromField", L"large.bmp"));
    EXPECT_TRUE(has_picture(L"GetLargeImageFromField", L"large.bmp"));
}

// By chunks the field gets some bytes more than the file has.
TEST_F(DatabaseImages, StoredByChunks) {
    BoxWatcher no_box;
    store(L"PutLargeImageInField", L"chunks", picture_file(L"large.bmp"));
    EXPECT_TRUE(has_picture(L"GetImageFromField", L"chunks"));
    EXPECT_TRUE(has_picture(L"GetLargeImageFromField", L"chunks"));
}

TEST_F(DatabaseImages, OfNoBytesAndNull) {
    std::ofstream(std::filesystem::path(folder_ / L"empty")).close();
    store(L"PutImageInField", L"empty", folder_ / L"empty");
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK)});
    EXPECT_FALSE(has_picture(L"GetImageFromField", L"empty"));
    EXPECT_FALSE(has_picture(L"GetImageFromField", L"null"));
    EXPECT_FALSE(has_picture(L"GetLargeImageFromField", L"null"));
    EXPECT_EQ(lines_of(boxes),
              (Lines{narrow(L"0|kovrel|ERROR  481: Imagen no válida|1"),
                     narrow(L"0|kovrel|ERROR  94: Uso no válido de Null|1"),
                     failure(L"94\\r (Uso no válido de Null", L"GetLargeImageFromField")}));
}

TEST_F(DatabaseImages, ADatabaseThatIsLostMeanwhile) {
    const FailingDatabase database;
    DatabaseConnection own(database.connection());
    DatabaseRecordset records(own, row_of(L"photo.jpg"), Cursor::keyset);
    const Variant field = records.field(L"imagen");
    database.lose(4096);
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK)});
    call(services_.get(), L"GetImageFromField", {field});
    call(services_.get(), L"GetLargeImageFromField", {field});
    call(services_.get(), L"PutImageInField", {field, Variant(picture_file(L"photo.jpg"))});
    const std::wstring lost = std::wstring(L"-2147467259\\r (") + FailingDatabase::failure;
    EXPECT_EQ(lines_of(boxes),
              (Lines{narrow(std::wstring(L"0|kovrel|ERROR  -2147467259: ") +
                            FailingDatabase::failure + L"|1"),
                     failure(lost, L"GetLargeImageFromField"), failure(lost, L"PutImageInField")}));
}

TEST_F(DatabaseImages, WhereTheRecordStands) {
    DatabaseRecordset records(connection_, customers(10));
    records.go_to(3);
    EXPECT_EQ(text_of_result(call(services_.get(), L"RecordLocation",
                                  {records.argument(), Variant(L"Registro ")})),
              L"Registro 3 de 10");
    DatabaseRecordset unknown(connection_, customers(10), Cursor::server);
    EXPECT_EQ(text_of_result(call(services_.get(), L"RecordLocation",
                                  {unknown.argument(), Variant(L"Registro ")})),
              L"Registro -1 de -1");
    DatabaseRecordset none(connection_, customers(0));
    EXPECT_EQ(text_of_result(call(services_.get(), L"RecordLocation", {none.argument()})), L"");
}

}  // namespace
}  // namespace kovrel::test
