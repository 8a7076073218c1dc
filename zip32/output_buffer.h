// Sequential writing to a new file in large pieces, with places written before open to correction.
#pragma once

#include "file_access.h"

namespace kovrel::zip {

class OutputBuffer {
 public:
    explicit OutputBuffer(NewFile& file);

    [[nodiscard]] std::uint64_t position() const noexcept { return flushed_ + buffer_.size(); }
    void write(ByteView bytes);
    /// Replaces bytes written before; `offset` + their count is at most position().
    void overwrite(std::uint64_t offset, ByteView bytes);
    /// Takes back everything from `offset` on; at most position().
    void rewind(std::uint64_t offset);
    void flush();

 private:
    NewFile& file_;
    std::uint64_t flushed_ = 0;
    Bytes buffer_;
};

}  // namespace kovrel::zip
