#include "dbimages/picture_file.h"

#include <olectl.h>

#include <limits>
#include <new>
#include <random>
#include <vector>

#include "automation/module.h"
#include "dbimages/image_field.h"
#include "runtime/failure.h"
#include "services/clock.h"
#include "services/file_system.h"

namespace kovrel {
namespace {

/// In [0, 1), seeded by the time of day.
double random_number() {
    const auto milliseconds = static_cast<std::uint32_t>(seconds_since_midnight() * 1000);
    std::mt19937 generator(milliseconds);
    return static_cast<double>(generator()) / (std::mt19937::max() + 1.0);
}

ComPtr<IStream> new_stream() {
    ComPtr<IStream> stream;
    if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, stream.put()))) throw std::bad_alloc();
    return stream;
}

void rewind(IStream& stream) {
    stream.Seek({}, STREAM_SEEK_SET, nullptr);
}

}  // namespace

std::wstring temporary_picture_file() {
    return temporary_file_name(own_module_folder(), random_number());
}

ComPtr<IPictureDisp> load_picture(const std::wstring& path) {
    BinaryFile file = BinaryFile::open(path);
    const std::uint64_t size = file.size();
    if (size == 0) throw Failure(FailureNumber::invalid_picture);
    if (size > static_cast<std::uint64_t>(std::numeric_limits<LONG>::max())) throw std::bad_alloc();
    std::vector<std::uint8_t> content(static_cast<std::size_t>(size));
    file.read(content.data(), content.size());
    file.close();
    const ComPtr<IStream> stream = new_stream();
    if (FAILED(stream->Write(content.data(), static_cast<ULONG>(size), nullptr))) {
        throw std::bad_alloc();
    }
    rewind(*stream.get());
    ComPtr<IPictureDisp> picture;
    const HRESULT result = OleLoadPicture(stream.get(), static_cast<LONG>(size), FALSE,
                                          IID_IPictureDisp, picture.put_void());
    if (result == E_OUTOFMEMORY) throw std::bad_alloc();
    if (FAILED(result) || !picture) throw Failure(FailureNumber::invalid_picture);
    return picture;
}

void save_picture(const ComPtr<IPictureDisp>& picture, const std::wstring& path) {
    if (!picture) throw Failure(FailureNumber::object_not_set);
    const auto image = picture.query<IPicture>();
    short type = PICTYPE_UNINITIALIZED;
    if (!image || FAILED(image->get_Type(&type)) || type == PICTYPE_NONE ||
        type == PICTYPE_UNINITIALIZED) {
        throw Failure(FailureNumber::invalid_picture);
    }
    const ComPtr<IStream> stream = new_stream();
    LONG size = 0;
    const HRESULT result = image->SaveAsFile(stream.get(), TRUE, &size);
    if (result == E_OUTOFMEMORY) throw std::bad_alloc();
    STATSTG statistics{};
    if (FAILED(result) || FAILED(stream->Stat(&statistics, STATFLAG_NONAME))) {
        throw Failure(FailureNumber::invalid_picture);
    }
    std::vector<std::uint8_t> content(static_cast<std::size_t>(statistics.cbSize.QuadPart));
    rewind(*stream.get());
    if (FAILED(stream->Read(content.data(), static_cast<ULONG>(content.size()), nullptr))) {
        throw Failure(FailureNumber::invalid_picture);
    }
    BinaryFile::create(path).write(content.data(), content.size());
}

}  // namespace kovrel
