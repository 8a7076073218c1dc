// clsADODBServices: files and pictures in the binary fields of a recordset.
#include <algorithm>
#include <exception>
#include <vector>

#include "automation/host_object.h"
#include "automation/safe_array.h"
#include "dbimages/image_field.h"
#include "dbimages/picture_file.h"
#include "library/clsADODBServices.h"
#include "runtime/failure.h"
#include "services/file_system.h"
#include "services/guarded.h"
#include "services/message_box.h"

namespace kovrel {
namespace {

Variant file_bytes(const std::wstring& path) {
    BinaryFile file = BinaryFile::open(path);
    Variant bytes = new_byte_array(file.size());
    const ArrayAccess<std::uint8_t> access(bytes.parray);
    file.read(access.elements().data(), access.elements().size());
    return bytes;
}

/// The next bytes of a file as an array. At the file's end the rest of the array keeps the bytes of
/// the previous one, which `buffer` holds.
Variant next_chunk(BinaryFile& file, std::vector<std::uint8_t>& buffer) {
    file.read(buffer.data(), buffer.size());
    Variant chunk = new_byte_array(buffer.size());
    const ArrayAccess<std::uint8_t> access(chunk.parray);
    std::copy(buffer.begin(), buffer.end(), access.elements().begin());
    return chunk;
}

void write_bytes(BinaryFile& file, const Variant& bytes) {
    const ArrayAccess<std::uint8_t> access(array_in(bytes, VT_UI1, 1));
    file.write(access.elements().data(), access.elements().size());
}

/// Copies a field's bytes to a file, chunk by chunk. A first chunk of 0 bytes may come as Empty, or
/// as Null when more chunks follow.
void copy_chunks(const HostObject& field, const ChunkPlan& plan, BinaryFile& file) {
    const auto next = [&](std::int64_t size) {
        return field.get(L"GetChunk", {Variant(static_cast<std::int32_t>(size))});
    };
    const Variant first = next(plan.first);
    const bool has_more = plan.count > 0;
    const bool is_nothing = first.is_empty() || (first.is_null() && has_more);
    if (plan.first != 0 || !is_nothing) write_bytes(file, first);
    for (std::int64_t chunk = 0; chunk < plan.count; ++chunk) write_bytes(file, next(plan.size));
}

std::int64_t whole_number(const HostObject& object, std::wstring_view member) {
    return object.get(member).as(VT_I8).llVal;
}

}  // namespace

void clsADODBServices::PutImageInField(const ComPtr<IDispatch>& f, const std::wstring& File) {
    const Handler handler{
        L") en procedimiento PutImageInField del Módulo de clase clsADODBServices.", &app_origen()};
    guarded(handler, [&] {
        const Variant bytes = file_bytes(File);
        HostObject(f).put(L"Value", bytes);
    });
}

ComPtr<IPictureDisp> clsADODBServices::GetImageFromField(const ComPtr<IDispatch>& f) {
    ComPtr<IPictureDisp> picture;
    std::wstring path;
    // Runs a step and shows its failure. False when that ends the procedure without a picture: all
    // but an invalid picture do.
    const auto goes_on_after = [&](auto&& step) {
        try {
            step();
            return true;
        } catch (...) {
            const Failure failure = current_failure();
            attempt([&] { show(picture_failure(failure.number(), failure.description())); });
            if (failure.is(FailureNumber::invalid_picture)) return true;
            attempt([&] { delete_file(path); });
            picture = nullptr;
            return false;
        }
    };
    if (goes_on_after([&] {
            path = temporary_picture_file();
            BinaryFile file = BinaryFile::create(path);
            write_bytes(file, HostObject(f).get(L"Value"));
        }) &&
        goes_on_after([&] { picture = load_picture(path); })) {
        goes_on_after([&] { delete_file(path); });
    }
    return picture;
}

void clsADODBServices::PutLargeImageInField(const ComPtr<IDispatch>& f, const std::wstring& File) {
    const Handler handler{
        L") en procedimiento PutLargeImageInField del Módulo de clase clsADODBServices.",
        &app_origen()};
    guarded(handler, [&] {
        BinaryFile file = BinaryFile::open(File);
        const HostObject field(f);
        const ChunkPlan plan = storing_chunks(static_cast<std::int64_t>(file.size()));
        std::vector<std::uint8_t> buffer(static_cast<std::size_t>(plan.first));
        field.call(L"AppendChunk", {next_chunk(file, buffer)});
        buffer.assign(static_cast<std::size_t>(plan.size), 0);
        for (std::int64_t chunk = 0; chunk < plan.count; ++chunk) {
            field.call(L"AppendChunk", {next_chunk(file, buffer)});
        }
    });
}

ComPtr<IPictureDisp> clsADODBServices::GetLargeImageFromField(const ComPtr<IDispatch>& f) {
    const Handler handler{
        L") en procedimiento GetLargeImageFromField del Módulo de clase clsADODBServices.",
        &app_origen()};
    return guarded<ComPtr<IPictureDisp>>(handler, [&](ComPtr<IPictureDisp>& picture) {
        const std::wstring path = temporary_picture_file();
        BinaryFile file = BinaryFile::create(path);
        const HostObject field(f);
        copy_chunks(field, reading_chunks(whole_number(field, L"ActualSize")), file);
        file.close();
        picture = load_picture(path);
        delete_file(path);
    });
}

Variant clsADODBServices::RecordLocation(const ComPtr<IDispatch>& adoRs,
                                         const std::wstring& Title) {
    try {
        const HostObject records(adoRs);
        const bool at_end = records.get(L"EOF").to_bool();
        const bool at_beginning = records.get(L"BOF").to_bool();
        if (at_end || at_beginning) return Variant(L"");
        const std::int64_t position = whole_number(records, L"AbsolutePosition");
        return Variant(record_location(Title, position, whole_number(records, L"RecordCount")));
    } catch (const std::exception&) {
        return Variant(unknown_record_location);
    }
}

void clsADODBServices::PutPictureInField(const ComPtr<IDispatch>& f,
                                         const ComPtr<IPictureDisp>& pic) {
    const Handler handler{
        L") en procedimiento PutPictureInField del Módulo de clase clsADODBServices.",
        &app_origen()};
    guarded(handler, [&] {
        const std::wstring path = temporary_picture_file();
        save_picture(pic, path);
        PutImageInField(f, path);
    });
}

}  // namespace kovrel
