// Bytes written through the buffer, and corrected while they are in it or already in the file.
#include "output_buffer.h"

#include <gtest/gtest.h>

#include "tests/zip/test_folder.h"

namespace kovrel::zip {
namespace {

constexpr std::size_t capacity = 524'288;

class ZipOutputBuffer : public testing::Test {
 protected:
    void write(const std::string& text) { output.write(as_bytes(text)); }
    void overwrite(std::uint64_t offset, const std::string& text) {
        output.overwrite(offset, as_bytes(text));
    }
    /// How many bytes have come to the file so far. Windows lets nobody else open it.
    std::uintmax_t in_file() {
        const std::vector<std::string> names = *folder_names(test::utf8(folder.path()));
        return std::filesystem::file_size(folder.path() / names.at(0));
    }
    std::string result() {
        output.flush();
        file.replace_target();
        return folder.read("f");
    }

    test::TestFolder folder;
    NewFile file{folder / "f"};
    OutputBuffer output{file};
};

TEST_F(ZipOutputBuffer, WritesOnceItIsFull) {
    const std::string text = test::incompressible(3 * capacity + 7, 1);
    write(text.substr(0, capacity - 1));
    EXPECT_EQ(in_file(), 0U);
    EXPECT_EQ(output.position(), capacity - 1);
    write(text.substr(capacity - 1, 1));
    EXPECT_EQ(in_file(), capacity);
    write(text.substr(capacity));
    EXPECT_EQ(in_file(), 3 * capacity);
    EXPECT_EQ(output.position(), text.size());
    write("");
    EXPECT_TRUE(result() == text);
}

TEST_F(ZipOutputBuffer, CorrectsBytesWhereverTheyAre) {
    std::string text = test::incompressible(capacity + 100, 2);
    write(text);
    for (const std::size_t offset :
         {std::size_t{0}, capacity - 9, capacity - 3, capacity, capacity + 5, capacity + 97}) {
        const std::string other = std::to_string(offset + 100).substr(0, 3);
        overwrite(offset, other);
        text.replace(offset, 3, other);
    }
    EXPECT_EQ(output.position(), text.size());
    overwrite(capacity - 2, "cinco");  // partly in the file
    text.replace(capacity - 2, 5, "cinco");
    EXPECT_TRUE(result() == text);
}

TEST_F(ZipOutputBuffer, GoesBackWithinTheBufferAndTheFile) {
    const std::string text = test::incompressible(capacity + 100, 3);
    write(text);
    output.rewind(capacity + 50);
    EXPECT_EQ(output.position(), capacity + 50);
    write("uno");
    EXPECT_EQ(in_file(), capacity);
    output.rewind(capacity);
    EXPECT_EQ(output.position(), capacity);
    write("dos");
    output.rewind(10);
    EXPECT_EQ(output.position(), 10U);
    EXPECT_EQ(in_file(), 10U);
    write("tres");
    EXPECT_EQ(result(), text.substr(0, 10) + "tres");
}

}  // namespace
}  // namespace kovrel::zip
