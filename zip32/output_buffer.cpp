#include "output_buffer.h"

#include <algorithm>

namespace kovrel::zip {

OutputBuffer::OutputBuffer(NewFile& file) : file_(file) {
    buffer_.reserve(capacity);
}

void OutputBuffer::write(ByteView bytes) {
    while (!bytes.empty()) {
        const std::size_t count = std::min(bytes.size(), capacity - buffer_.size());
        append_all(buffer_, bytes.first(count));
        bytes = bytes.subspan(count);
        if (buffer_.size() == capacity) flush();
    }
}

void OutputBuffer::overwrite(std::uint64_t offset, ByteView bytes) {
    if (offset < flushed_) {
        const auto count =
            static_cast<std::size_t>(std::min<std::uint64_t>(bytes.size(), flushed_ - offset));
        file_.write_at(offset, bytes.first(count));
        bytes = bytes.subspan(count);
        offset += count;
    }
    if (bytes.empty()) return;
    std::copy(bytes.begin(), bytes.end(),
              buffer_.begin() + static_cast<std::ptrdiff_t>(offset - flushed_));
}

void OutputBuffer::rewind(std::uint64_t offset) {
    if (offset >= flushed_) {
        buffer_.resize(static_cast<std::size_t>(offset - flushed_));
        return;
    }
    buffer_.clear();
    flushed_ = offset;
    file_.set_size(offset);
}

void OutputBuffer::flush() {
    file_.write_at(flushed_, buffer_);
    flushed_ += buffer_.size();
    buffer_.clear();
}

}  // namespace kovrel::zip
