// clsADODBServices: files in fields and pictures loaded from them, with the sizes of every chunk.
#include "tests/automation/images.h"

#include <utility>

namespace kovrel::test {
namespace {

TEST_F(Images, AWholeFileIsStored) {
    BoxWatcher no_box;
    Field field;
    for (const std::size_t size : {1U, 1000U, 1024U, 70'001U}) {
        const std::string content = content_of_size(size);
        store(field.argument(), folder_.write(L"año.bin", content));
        EXPECT_EQ(field.value(), content);
    }
    EXPECT_EQ(field.object_->log().back(), L"put Value = [70001]");
    EXPECT_EQ(field.object_->references(), 1U);
}

TEST_F(Images, AnEmptyFileIsAnEmptyArray) {
    BoxWatcher no_box;
    Field field;
    store(field.argument(), folder_.write(L"vacío.bin"));
    EXPECT_EQ(field.object_->log(), (Log{L"put Value = [0]"}));
    EXPECT_EQ(field.object_->value(L"Value").vt, VT_ARRAY | VT_UI1);
}

TEST_F(Images, AFileThatCannotBeOpenedIsAFailureWithItsNumber) {
    Field field;
    const std::wstring used = folder_.write(L"en uso.bin", "x");
    HANDLE lock = CreateFileW(used.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(lock, INVALID_HANDLE_VALUE);
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK), answer(IDOK), answer(IDOK)});
    store(field.argument(), folder_ / L"falta.bin");
    store(field.argument(), folder_ / L"falta\\falta.bin");
    store(field.argument(), folder_.path());
    store(field.argument(), used);
    store_large(field.argument(), folder_ / L"falta.bin");
    CloseHandle(lock);
    const std::wstring procedure = L"PutImageInField";
    EXPECT_EQ(lines_of(boxes),
              (Lines{failure_line(L"53\\r (No se encontró el archivo", procedure),
                     failure_line(L"76\\r (No se encontró la ruta de acceso", procedure),
                     failure_line(L"75\\r (Error de acceso a la ruta o al archivo", procedure),
                     failure_line(L"70\\r (Permiso denegado", procedure),
                     failure_line(L"53\\r (No se encontró el archivo", L"PutLargeImageInField")}));
    EXPECT_EQ(field.object_->log(), Log{});
    EXPECT_FALSE(std::filesystem::exists(folder_ / L"falta.bin"));
    EXPECT_EQ(content_of(used), "x");
}

TEST_F(Images, FieldsThatFail) {
    const std::wstring file = folder_.write(L"a.bin", "contenido");
    auto without_value = ScriptedObject::make();
    Field failing;
    failing.object_->fails(L"Value", failure(3251, L"El campo es de solo lectura"))
        .fails(L"AppendChunk", bare_failure(E_NOTIMPL));
    const Variant nothing{ComPtr<IDispatch>()};
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK), answer(IDOK)});
    store(to_variant(without_value), file);
    store(failing.argument(), file);
    store(nothing, file);
    store_large(failing.argument(), file);
    const Lines lines = lines_of(boxes);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0], failure_line(L"438\\r (El objeto no admite esta propiedad o método",
                                     L"PutImageInField"));
    EXPECT_EQ(lines[1], failure_line(L"3251\\r (El campo es de solo lectura", L"PutImageInField"));
    EXPECT_EQ(lines[2], failure_line(L"91\\r (Variable de objeto o bloque With no establecido",
                                     L"PutImageInField"));
    EXPECT_EQ(lines[3],
              failure_line(L"445\\r (El objeto no admite esta acción", L"PutLargeImageInField"));
    EXPECT_EQ(without_value->references(), 1U);
    // The file has been closed.
    EXPECT_TRUE(std::filesystem::remove(file));
}

TEST_F(Images, LargeFilesAreStoredInChunksOf1025Bytes) {
    BoxWatcher no_box;
    const auto expect_chunks = [&](std::size_t size, const Log& calls, std::size_t stored) {
        SCOPED_TRACE(size);
        Field field;
        const std::string content = content_of_size(size);
        store_large(field.argument(), folder_.write(L"grande.bin", content));
        EXPECT_EQ(field.object_->log(), calls);
        EXPECT_EQ(field.stored.size(), stored);
        EXPECT_EQ(field.stored.substr(0, size), content);
        // The bytes past the end of the file are left over from the chunk before.
        const std::string extra = field.stored.substr(size);
        const bool one_read = calls.size() <= 2;
        EXPECT_EQ(extra, one_read ? std::string(stored - size, '\0')
                                  : field.stored.substr(size - 1025, stored - size));
    };
    expect_chunks(0, {L"AppendChunk([1])"}, 1);
    expect_chunks(1000, {L"AppendChunk([1001])"}, 1001);
    expect_chunks(1023, {L"AppendChunk([1024])"}, 1024);
    expect_chunks(1024, {L"AppendChunk([1])", L"AppendChunk([1025])"}, 1026);
    expect_chunks(2047, {L"AppendChunk([1024])", L"AppendChunk([1025])"}, 2049);
    expect_chunks(2048, {L"AppendChunk([1])", L"AppendChunk([1025])", L"AppendChunk([1025])"},
                  2051);
}

TEST_F(Images, LargeFieldsAreReadInChunks) {
    const std::string photo = content_of(picture_file(L"photo.jpg"));
    ASSERT_GT(photo.size(), 4096U);
    const auto expect_reads = [&](std::size_t padding) {
        SCOPED_TRACE(padding);
        Field field;
        field.stored = photo + std::string(padding, '\0');
        EXPECT_EQ(size_of(load(field.argument(), L"GetLargeImageFromField")),
                  (std::pair<long, long>{320, 240}));
        const std::size_t size = field.stored.size();
        Log expected{L"get ActualSize", L"GetChunk(" + std::to_wstring(size % 1024) + L")"};
        expected.resize(2 + size / 1024, L"GetChunk(1024)");
        EXPECT_EQ(field.object_->log(), expected);
        EXPECT_EQ(field.read, size);
    };
    BoxWatcher no_box;
    expect_reads(0);
    // With a whole number of chunks the first read asks for 0 bytes.
    expect_reads(1024 - photo.size() % 1024);
    EXPECT_TRUE(temporary_files().empty());
}

TEST_F(Images, AFieldMayReturnNothingForZeroBytes) {
    BoxWatcher no_box;
    Field field;
    const std::string photo = content_of(picture_file(L"photo.jpg"));
    field.stored = photo + std::string(1024 - photo.size() % 1024, '\0');
    field.object_->method(L"GetChunk", [&](const auto& arguments) {
        const auto size = static_cast<std::size_t>(arguments.at(0).to_int32());
        if (size == 0) return Variant::null();
        Variant chunk = bytes_of(std::string_view(field.stored).substr(field.read, size));
        field.read += size;
        return chunk;
    });
    EXPECT_EQ(size_of(load(field.argument(), L"GetLargeImageFromField")),
              (std::pair<long, long>{320, 240}));
}

TEST_F(Images, APhotographRoundTripsThroughBothPairs) {
    BoxWatcher no_box;
    const std::wstring file = picture_file(L"photo.jpg");
    const std::string photo = content_of(file);
    Field field;
    store(field.argument(), file);
    EXPECT_EQ(field.value(), photo);
    EXPECT_EQ(size_of(load(field.argument())), (std::pair<long, long>{320, 240}));
    store_large(field.argument(), file);
    EXPECT_EQ(field.stored.size(), photo.size() + photo.size() / 1024 + 1);
    EXPECT_EQ(field.stored.substr(0, photo.size()), photo);
    EXPECT_EQ(size_of(load(field.argument(), L"GetLargeImageFromField")),
              (std::pair<long, long>{320, 240}));
    EXPECT_TRUE(temporary_files().empty());
    RecordProperty("photo_bytes", static_cast<int>(photo.size()));
    RecordProperty("large_bytes", static_cast<int>(field.stored.size()));
}

TEST_F(Images, EveryKindOfPictureIsLoaded) {
    BoxWatcher no_box;
    for (const auto& [name, type] : every_kind) {
        SCOPED_TRACE(narrow(name));
        Field field;
        store(field.argument(), picture_file(name));
        const auto picture = load(field.argument());
        ASSERT_TRUE(picture);
        short its_type = PICTYPE_NONE;
        EXPECT_EQ(picture->get_Type(&its_type), S_OK);
        EXPECT_EQ(its_type, type);
    }
    EXPECT_TRUE(temporary_files().empty());
}

TEST_F(Images, ContentsThatAreNotAPictureHaveTheirOwnBox) {
    Field field;
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    field.object_->property(L"Value", bytes_of("esto no es una imagen"));
    EXPECT_FALSE(load(field.argument()));
    field.object_->property(L"Value", bytes_of(""));
    EXPECT_FALSE(load(field.argument()));
    const std::string box = narrow(L"0|kovrel|ERROR  481: Imagen no válida|1");
    EXPECT_EQ(lines_of(boxes), (Lines{box, box}));
    EXPECT_TRUE(temporary_files().empty());
}

TEST_F(Images, OtherLoadFailuresLeaveNoFileEither) {
    auto empty = ScriptedObject::make();
    Field field;
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK), answer(IDOK), answer(IDOK)});
    EXPECT_FALSE(load(field.argument()));
    field.object_->property(L"Value", Variant(L"texto"));
    EXPECT_FALSE(load(field.argument()));
    field.object_->fails(L"Value", failure(3021, L"No hay registro activo"));
    EXPECT_FALSE(load(field.argument()));
    EXPECT_FALSE(load(to_variant(empty)));
    EXPECT_FALSE(load(Variant{ComPtr<IDispatch>()}));
    EXPECT_EQ(
        lines_of(boxes),
        (Lines{narrow(L"0|kovrel|ERROR  94: Uso no válido de Null|1"),
               narrow(L"0|kovrel|ERROR  13: No coinciden los tipos|1"),
               narrow(L"0|kovrel|ERROR  3021: No hay registro activo|1"),
               narrow(L"0|kovrel|ERROR  438: El objeto no admite esta propiedad o método|1"),
               narrow(L"0|kovrel|ERROR  91: Variable de objeto o bloque With no establecido|1")}));
    EXPECT_TRUE(temporary_files().empty());
    EXPECT_EQ(empty->references(), 1U);
}

TEST_F(Images, AFieldThatFailsWith481IsStillLoaded) {
    Field field;
    field.object_->fails(L"Value", failure(481, L"Foto dañada"));
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    EXPECT_FALSE(load(field.argument()));
    // After the first box the load continues with the empty file.
    EXPECT_EQ(lines_of(boxes), (Lines{narrow(L"0|kovrel|ERROR  481: Foto dañada|1"),
                                      narrow(L"0|kovrel|ERROR  481: Imagen no válida|1")}));
    EXPECT_TRUE(temporary_files().empty());
}

TEST_F(Images, ALargeFieldThatFailsEndsInTheStandardBox) {
    Field field;
    field.stored = "esto no es una imagen";
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK)});
    EXPECT_FALSE(load(field.argument(), L"GetLargeImageFromField"));
    field.object_->method(L"GetChunk", [](const auto&) { return Variant::null(); });
    EXPECT_FALSE(load(field.argument(), L"GetLargeImageFromField"));
    field.object_->remove(L"ActualSize");
    EXPECT_FALSE(load(field.argument(), L"GetLargeImageFromField"));
    const std::wstring procedure = L"GetLargeImageFromField";
    EXPECT_EQ(
        lines_of(boxes),
        (Lines{failure_line(L"481\\r (Imagen no válida", procedure),
               failure_line(L"94\\r (Uso no válido de Null", procedure),
               failure_line(L"438\\r (El objeto no admite esta propiedad o método", procedure)}));
}

TEST_F(Images, ANullFieldFailsTheSameInBothLoads) {
    Field field;  // its value is a null
    field.object_->method(L"GetChunk", [](const auto&) { return Variant::null(); });
    for (const Way way : every_way) {
        const auto read = [&](const wchar_t* member, const ExpectedBox& box) {
            const Answer answer = call_in(way, services_.get(), member, {field.argument()}, {box});
            EXPECT_EQ(answer.result, S_OK);
            EXPECT_EQ(answer.value.pdispVal, nullptr);
        };
        read(L"GetImageFromField", {L"ERROR  94: Uso no válido de Null", 0, L"kovrel"});
        read(L"GetLargeImageFromField",
             {L"Error 94\r (Uso no válido de Null) en procedimiento GetLargeImageFromField del "
              L"Módulo de clase clsADODBServices.",
              16, L"Gestión"});
    }
}

}  // namespace
}  // namespace kovrel::test
