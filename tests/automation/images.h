// Fields of a recordset that hold pictures, the library's temporary files, and an instance that
// moves pictures between them.
#pragma once

#include <windows.h>
#include <olectl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <ocidl.h>
#include <utility>
#include <vector>

#include "tests/support/box_lines.h"
#include "tests/support/bytes.h"
#include "tests/support/every_way.h"
#include "tests/support/library_module.h"
#include "tests/support/scripted_object.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {

/// A field of a recordset that keeps what is stored in it, whole or by chunks.
struct Field {
    Field() {
        object_->property(L"Value", Variant::null())
            .property(
                L"ActualSize",
                [this](const auto&) { return Variant(static_cast<std::int32_t>(stored.size())); })
            .method(L"AppendChunk",
                    [this](const auto& arguments) {
                        stored += content_in(arguments.at(0));
                        return Variant();
                    })
            .method(L"GetChunk", [this](const auto& arguments) {
                const auto size = static_cast<std::size_t>(arguments.at(0).to_int32());
                Variant chunk = bytes_of(std::string_view(stored).substr(read, size));
                read += size;
                return chunk;
            });
    }
    [[nodiscard]] Variant argument() const { return to_variant(object_); }
    [[nodiscard]] std::string value() const { return content_in(object_->value(L"Value")); }

    ComPtr<ScriptedObject> object_ = ScriptedObject::make();
    std::string stored;
    std::size_t read = 0;
};

inline std::wstring picture_file(const wchar_t* name) {
    return std::wstring(KOVREL_TEST_PICTURES L"\\") + name;
}

inline std::vector<std::filesystem::path> temporary_files() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(library_file().parent_path())) {
        if (entry.path().extension() == L".tmp") files.push_back(entry.path());
    }
    return files;
}

inline void remove_temporary_files() {
    for (const auto& file : temporary_files()) std::filesystem::remove(file);
}

/// Bytes without a short period.
inline std::string content_of_size(std::size_t size) {
    std::string content(size, '\0');
    for (std::size_t index = 0; index < size; ++index) {
        content[index] = static_cast<char>((index * 31 + index / 251) % 255 + 1);
    }
    return content;
}

inline constexpr std::array every_kind{
    std::pair{L"photo.jpg", PICTYPE_BITMAP}, std::pair{L"photo.gif", PICTYPE_BITMAP},
    std::pair{L"photo.bmp", PICTYPE_BITMAP}, std::pair{L"icon.ico", PICTYPE_ICON}};

class Images : public testing::Test {
 protected:
    Images() {
        put(services_.get(), L"AppOrigen", Variant(L"Gestión"));
        remove_temporary_files();
    }
    ~Images() override { remove_temporary_files(); }

    void store(const Variant& field, const std::wstring& file) {
        EXPECT_EQ(call(services_.get(), L"PutImageInField", {field, file}).result, S_OK);
    }
    void store_large(const Variant& field, const std::wstring& file) {
        EXPECT_EQ(call(services_.get(), L"PutLargeImageInField", {field, file}).result, S_OK);
    }
    ComPtr<IPicture> load(const Variant& field, const wchar_t* member = L"GetImageFromField") {
        const Outcome outcome = call(services_.get(), member, {field});
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_DISPATCH);
        return ComPtr<IDispatch>(outcome.value.pdispVal).query<IPicture>();
    }
    std::wstring location(const Variant& records) {
        return text_of_result(call(services_.get(), L"RecordLocation", {records, L"Registro "}));
    }

    /// Width and height in pixels, rounded from HIMETRIC.
    static std::pair<long, long> size_of(const ComPtr<IPicture>& picture) {
        OLE_XSIZE_HIMETRIC width = 0;
        OLE_YSIZE_HIMETRIC height = 0;
        if (picture) {
            picture->get_Width(&width);
            picture->get_Height(&height);
        }
        const auto pixels = [](long himetric) { return std::lround(himetric * 96 / 2540.0); };
        return {pixels(width), pixels(height)};
    }

    static std::string failure_line(const std::wstring& number_and_text,
                                    const std::wstring& procedure) {
        return narrow(L"16|Gestión|Error " + number_and_text + L") en procedimiento " + procedure +
                      L" del Módulo de clase clsADODBServices.|1");
    }

    TestFolder folder_;
    ComPtr<IDispatch> services_ = create(L"Kovrel.clsADODBServices");
};

}  // namespace kovrel::test
