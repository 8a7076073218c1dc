// clsADODBServices and the disk: names of the temporary files, and the boxes shown and the files
// left when a file or a field fails.
#include <windows.h>
#include <winioctl.h>

#include "tests/automation/disk_failures.h"
#include "tests/automation/images.h"

namespace kovrel::test {
namespace {

/// Stops the library's clock.
class StoppedClock {
 public:
    StoppedClock() { now = {2026, 11, 6, 21, 12, 34, 56, 100}; }
    [[nodiscard]] bool in_place() const { return patch_.in_place(); }
    static void tick() { ++now.wMilliseconds; }

 private:
    static inline SYSTEMTIME now{};
    static void WINAPI tell(SYSTEMTIME* time) { *time = now; }

    const ImportPatch patch_{L"kovrel.dll", "GetLocalTime", reinterpret_cast<void*>(&tell)};
};

constexpr std::int64_t past_32_bits = (std::int64_t{1} << 32) + 1000;

/// Sets the size of a file; the part added is sparse.
bool resize_sparse(const std::filesystem::path& path, std::int64_t size) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                              nullptr, OPEN_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD returned = 0;
    DeviceIoControl(file, FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &returned, nullptr);
    LARGE_INTEGER end{};
    end.QuadPart = size;
    const bool done = SetFilePointerEx(file, end, nullptr, FILE_BEGIN) && SetEndOfFile(file);
    CloseHandle(file);
    return done;
}

class ImageFiles : public Images {
 protected:
    Variant picture_of(const wchar_t* name) {
        Field field;
        field.object_->property(L"Value", bytes_of(content_of(picture_file(name))));
        const auto picture = load(field.argument()).query<IDispatch>();
        EXPECT_TRUE(picture);
        return Variant(picture);
    }
    void store_picture(const Variant& field, const Variant& picture) {
        EXPECT_EQ(call(services_.get(), L"PutPictureInField", {field, picture}).result, S_OK);
    }
    ComPtr<IPicture> load_large(const Field& field) {
        return load(field.argument(), L"GetLargeImageFromField");
    }

    static std::string own_box(const std::wstring& number_and_text) {
        return narrow(L"0|kovrel|ERROR  " + number_and_text + L"|1");
    }
    static constexpr std::pair<long, long> photo_size{320, 240};
};

TEST_F(ImageFiles, HaveTheSameNameWithinOneClockTick) {
    BoxWatcher no_box;
    const StoppedClock clock;
    ASSERT_TRUE(clock.in_place());
    const Variant large = picture_of(L"photo.bmp");
    const Variant small = picture_of(L"small.bmp");
    Field first;
    Field second;
    store_picture(first.argument(), large);
    const Paths files = temporary_files();
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(content_of(files[0]), first.value());
    // The second picture overwrites the first one's file, which is truncated.
    store_picture(second.argument(), small);
    EXPECT_EQ(temporary_files(), files);
    EXPECT_EQ(content_of(files[0]), second.value());
    EXPECT_LT(second.value().size(), first.value().size());
    EXPECT_EQ(size_of(load(second.argument())), (std::pair<long, long>{16, 12}));
    // Loading used the same name and deleted the file.
    EXPECT_EQ(temporary_files(), Paths{});

    store_picture(first.argument(), large);
    EXPECT_EQ(temporary_files(), files);
    StoppedClock::tick();
    store_picture(second.argument(), small);
    EXPECT_EQ(temporary_files().size(), 2U);
    EXPECT_EQ(content_of(files[0]), first.value());
}

TEST_F(ImageFiles, NestedLoadsWithinOneClockTick) {
    const StoppedClock clock;
    ASSERT_TRUE(clock.in_place());
    Field inner;
    inner.object_->property(L"Value", bytes_of(content_of(picture_file(L"small.bmp"))));
    Field outer;
    outer.object_->property(L"Value", [&](const auto&) {
        EXPECT_FALSE(load(inner.argument()));
        return bytes_of(content_of(picture_file(L"photo.jpg")));
    });
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(size_of(load(outer.argument())), photo_size);
    // The inner call cannot delete the file that the outer one has open.
    EXPECT_EQ(lines_of(boxes), Lines{own_box(L"70: Permiso denegado")});
    EXPECT_EQ(temporary_files(), Paths{});
}

TEST_F(ImageFiles, AFieldThatRefusesAPictureIsReportedByPutImageInField) {
    const StoppedClock clock;
    ASSERT_TRUE(clock.in_place());
    const Variant picture = picture_of(L"photo.bmp");
    Field good;
    store_picture(good.argument(), picture);
    remove_temporary_files();

    const auto without_value = ScriptedObject::make();
    Field read_only;
    read_only.object_->fails(L"Value", failure(3251, L"El campo es de solo lectura"));
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK)});
    std::size_t calls = 0;
    for (const Variant& field :
         {to_variant(without_value), read_only.argument(), Variant{ComPtr<IDispatch>()}}) {
        StoppedClock::tick();
        store_picture(field, picture);
        // Each call leaves its file, complete and closed.
        const Paths files = temporary_files();
        EXPECT_EQ(files.size(), ++calls);
        for (const auto& file : files) EXPECT_EQ(content_of(file), good.value());
    }
    const std::wstring procedure = L"PutImageInField";
    EXPECT_EQ(
        lines_of(boxes),
        (Lines{
            failure_line(L"438\\r (El objeto no admite esta propiedad o método", procedure),
            failure_line(L"3251\\r (El campo es de solo lectura", procedure),
            failure_line(L"91\\r (Variable de objeto o bloque With no establecido", procedure)}));
    EXPECT_EQ(without_value->references(), 1U);
    for (const auto& file : temporary_files()) EXPECT_TRUE(std::filesystem::remove(file));
}

TEST_F(ImageFiles, AFileThatCannotBeReadAgainStays) {
    const Variant picture = picture_of(L"photo.bmp");
    Field field;
    field.object_->property(L"Value", bytes_of(content_of(picture_file(L"photo.jpg"))));
    field.stored = content_of(picture_file(L"photo.jpg"));
    field.object_->clear_log();
    const RefusedOpening in_use(GENERIC_READ, ERROR_SHARING_VIOLATION);
    ASSERT_TRUE(in_use.in_place());
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK)});
    store_picture(field.argument(), picture);
    EXPECT_EQ(field.object_->log(), Log{});
    EXPECT_EQ(temporary_files().size(), 1U);
    remove_temporary_files();
    EXPECT_FALSE(load(field.argument()));
    EXPECT_EQ(temporary_files(), Paths{});
    EXPECT_FALSE(load_large(field));
    EXPECT_EQ(temporary_files().size(), 1U);
    EXPECT_EQ(lines_of(boxes),
              (Lines{failure_line(L"70\\r (Permiso denegado", L"PutImageInField"),
                     own_box(L"70: Permiso denegado"),
                     failure_line(L"70\\r (Permiso denegado", L"GetLargeImageFromField")}));
}

TEST_F(ImageFiles, AFolderThatCannotBeWrittenIsReportedBeforeTheFieldIsRead) {
    const Variant picture = picture_of(L"photo.bmp");
    Field field;
    const RefusedOpening read_only(GENERIC_WRITE, ERROR_ACCESS_DENIED);
    ASSERT_TRUE(read_only.in_place());
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK)});
    store_picture(field.argument(), picture);
    EXPECT_FALSE(load(field.argument()));
    EXPECT_FALSE(load_large(field));
    const std::wstring text = L"75\\r (Error de acceso a la ruta o al archivo";
    EXPECT_EQ(lines_of(boxes), (Lines{failure_line(text, L"PutPictureInField"),
                                      own_box(L"75: Error de acceso a la ruta o al archivo"),
                                      failure_line(text, L"GetLargeImageFromField")}));
    EXPECT_EQ(field.object_->log(), Log{});
    EXPECT_EQ(temporary_files(), Paths{});
}

template <class Disk>
class ImageFilesOnAFullDisk : public ImageFiles {};

using FullDisks = testing::Types<FullDisk, StubbornDisk>;
TYPED_TEST_SUITE(ImageFilesOnAFullDisk, FullDisks);

TYPED_TEST(ImageFilesOnAFullDisk, IsTold) {
    const Variant picture = this->picture_of(L"photo.bmp");
    Field field;
    field.object_->property(L"Value", bytes_of(content_of(picture_file(L"photo.jpg"))));
    field.stored = content_of(picture_file(L"photo.jpg"));
    field.object_->clear_log();
    const TypeParam disk;
    ASSERT_TRUE(disk.in_place());
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK)});
    EXPECT_FALSE(this->load(field.argument()));
    EXPECT_EQ(temporary_files(), Paths{});
    EXPECT_FALSE(this->load_large(field));
    EXPECT_EQ(temporary_files().size(), 1U);
    field.object_->clear_log();
    this->store_picture(field.argument(), picture);
    EXPECT_EQ(field.object_->log(), Log{});
    EXPECT_EQ(lines_of(boxes),
              (Lines{this->own_box(L"61: Disco lleno"),
                     this->failure_line(L"61\\r (Disco lleno", L"GetLargeImageFromField"),
                     this->failure_line(L"61\\r (Disco lleno", L"PutPictureInField")}));
}

TEST_F(ImageFiles, AFileThatCannotBeReadStoresNothing) {
    const std::wstring file = folder_.write(L"a.bin", content_of_size(3000));
    Field field;
    const DamagedDisk disk;
    ASSERT_TRUE(disk.in_place());
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    store(field.argument(), file);
    store_large(field.argument(), file);
    const std::wstring text = L"57\\r (Error de E/S de dispositivo";
    EXPECT_EQ(lines_of(boxes), (Lines{failure_line(text, L"PutImageInField"),
                                      failure_line(text, L"PutLargeImageInField")}));
    EXPECT_EQ(field.object_->log(), Log{});
    EXPECT_TRUE(std::filesystem::remove(file));
}

TEST_F(ImageFiles, AFailedLargeReadLeavesItsPartialFile) {
    const std::string photo = content_of(picture_file(L"photo.jpg"));
    const std::size_t first = photo.size() % 1024;
    Field field;
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK)});
    const auto expect_left = [&](const std::string& content) {
        EXPECT_FALSE(load_large(field));
        const Paths files = temporary_files();
        ASSERT_EQ(files.size(), 1U);
        EXPECT_EQ(content_of(files[0]), content);
        EXPECT_TRUE(std::filesystem::remove(files[0]));
    };
    // All of it when the content is not a picture.
    field.stored = content_of_size(5000);
    expect_left(field.stored);
    // The chunks before a failing one.
    field.stored = photo;
    field.read = 0;
    field.object_->method(L"GetChunk", [&](const auto& arguments) {
        if (field.read > first) throw failure(3021, L"No hay registro activo");
        const auto size = static_cast<std::size_t>(arguments.at(0).to_int32());
        Variant chunk = bytes_of(std::string_view(photo).substr(field.read, size));
        field.read += size;
        return chunk;
    });
    expect_left(photo.substr(0, first + 1024));
    field.object_->remove(L"ActualSize");
    expect_left("");
    const std::wstring procedure = L"GetLargeImageFromField";
    EXPECT_EQ(
        lines_of(boxes),
        (Lines{failure_line(L"481\\r (Imagen no válida", procedure),
               failure_line(L"3021\\r (No hay registro activo", procedure),
               failure_line(L"438\\r (El objeto no admite esta propiedad o método", procedure)}));
    EXPECT_EQ(field.object_->references(), 1U);
}

TEST_F(ImageFiles, AFileThatCannotBeDeletedIsReported) {
    Field field;
    field.object_->property(L"Value", bytes_of(content_of(picture_file(L"photo.jpg"))));
    field.stored = content_of(picture_file(L"photo.jpg"));
    for (const auto& [error, number, description] :
         {std::tuple{DWORD{ERROR_SHARING_VIOLATION}, L"70", L"Permiso denegado"},
          std::tuple{DWORD{ERROR_ACCESS_DENIED}, L"75",
                     L"Error de acceso a la ruta o al archivo"}}) {
        const RefusedDeletion refused(error);
        ASSERT_TRUE(refused.in_place());
        BoxWatcher boxes({answer(IDOK), answer(IDOK)});
        // Its error handler tries once more without a box and returns no picture.
        EXPECT_FALSE(load(field.argument()));
        const Paths files = temporary_files();
        ASSERT_EQ(files.size(), 1U);
        EXPECT_EQ(RefusedDeletion::asked, (Paths{files[0], files[0]}));
        remove_temporary_files();

        // GetLargeImageFromField returns the picture all the same.
        field.read = 0;
        EXPECT_EQ(size_of(load_large(field)), photo_size);
        EXPECT_EQ(temporary_files().size(), 1U);
        EXPECT_EQ(RefusedDeletion::asked.size(), 3U);
        remove_temporary_files();
        EXPECT_EQ(lines_of(boxes),
                  (Lines{own_box(std::wstring(number) + L": " + description),
                         failure_line(std::wstring(number) + L"\\r (" + description,
                                      L"GetLargeImageFromField")}));
    }
}

TEST_F(ImageFiles, AFileOfMoreThanFourGigabytesIsOutOfMemory) {
    const std::wstring file = folder_ / L"enorme.bin";
    ASSERT_TRUE(resize_sparse(file, past_32_bits));
    ASSERT_EQ(std::filesystem::file_size(file), static_cast<std::uintmax_t>(past_32_bits));
    Field field;
    // Ends the call after three chunks.
    field.object_->method(L"AppendChunk", [&](const auto&) {
        if (field.object_->log().size() < 3) return Variant();
        throw failure(3001, L"Basta");
    });
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    store(field.argument(), file);
    EXPECT_EQ(field.object_->log(), Log{});
    store_large(field.argument(), file);
    EXPECT_EQ(field.object_->log(),
              (Log{L"AppendChunk([1001])", L"AppendChunk([1025])", L"AppendChunk([1025])"}));
    EXPECT_EQ(lines_of(boxes),
              (Lines{failure_line(L"7\\r (Memoria insuficiente", L"PutImageInField"),
                     failure_line(L"3001\\r (Basta", L"PutLargeImageInField")}));
    EXPECT_TRUE(std::filesystem::remove(file));
}

TEST_F(ImageFiles, AFieldOfMoreThanFourGigabytesIsReadByItsWholeSize) {
    Field field;
    field.object_->property(L"ActualSize", Variant(static_cast<double>(past_32_bits)))
        .method(L"GetChunk", [&](const auto&) {
            if (field.object_->log().size() < 4) return bytes_of("x");
            throw failure(3001, L"Basta");
        });
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_FALSE(load_large(field));
    EXPECT_EQ(field.object_->log(),
              (Log{L"get ActualSize", L"GetChunk(1000)", L"GetChunk(1024)", L"GetChunk(1024)"}));
    EXPECT_EQ(lines_of(boxes), Lines{failure_line(L"3001\\r (Basta", L"GetLargeImageFromField")});
}

TEST_F(ImageFiles, APictureOfMoreThanTwoGigabytesIsOutOfMemory) {
    Field field;
    field.stored = content_of(picture_file(L"small.bmp"));
    const auto growing = [&](const Variant& content) {
        const Paths files = temporary_files();
        EXPECT_EQ(files.size(), 1U);
        for (const auto& file : files) EXPECT_TRUE(resize_sparse(file, past_32_bits));
        return content;
    };
    field.object_->method(L"GetChunk", [&](const auto&) { return growing(bytes_of(field.stored)); })
        .property(L"Value", [&](const auto&) { return growing(bytes_of(field.stored)); });
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    EXPECT_FALSE(load(field.argument()));
    EXPECT_EQ(temporary_files(), Paths{});
    EXPECT_FALSE(load_large(field));
    EXPECT_EQ(lines_of(boxes),
              (Lines{own_box(L"7: Memoria insuficiente"),
                     failure_line(L"7\\r (Memoria insuficiente", L"GetLargeImageFromField")}));
}

}  // namespace
}  // namespace kovrel::test
