// Sequential writing to a new file through a buffer; earlier bytes can still be corrected.
#pragma once

#include "file_access.h"

namespace kovrel::zip {

class OutputBuffer {
 public:
    explicit OutputBuffer(NewFile& file);

    [[nodiscard]] std::uint64_t position() const noexcept { return flushed_ + buffer_.size(); }
    void write(ByteView bytes);
    /// Replaces earlier bytes, none of them past position().
    void overwrite(std::uint64_t offset, ByteView bytes);
    /// Discards everything from `offset` on, which is at most position().
    void rewind(std::uint64_t offset);
    void flush();

 private:
    static constexpr std::size_t capacity = std::size_t{512} * 1024;

    NewFile& file_;
    std::uint64_t flushed_ = 0;
    Bytes buffer_;
};

}  // namespace kovrel::zip
