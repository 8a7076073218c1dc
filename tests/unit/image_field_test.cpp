#include "dbimages/image_field.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kovrel {
namespace {

TEST(RecordLocation, PutsTheTextInFront) {
    EXPECT_EQ(record_location(L"Registro ", 3, 10), L"Registro 3 de 10");
    EXPECT_EQ(record_location(L"", 1, -1), L"1 de -1");
}

TEST(Chunks, StoringTakesAByteMoreEach) {
    EXPECT_EQ(storing_chunks(0), (ChunkPlan{1, 0, 1025}));
    EXPECT_EQ(storing_chunks(1000), (ChunkPlan{1001, 0, 1025}));
    EXPECT_EQ(storing_chunks(1023), (ChunkPlan{1024, 0, 1025}));
    EXPECT_EQ(storing_chunks(1024), (ChunkPlan{1, 1, 1025}));
    EXPECT_EQ(storing_chunks(2048), (ChunkPlan{1, 2, 1025}));
    EXPECT_EQ(storing_chunks(2049), (ChunkPlan{2, 2, 1025}));
}

TEST(Chunks, StoringMakesTheWholeFileAndOneByteForEachChunk) {
    for (std::int64_t length = 0; length < 5000; ++length) {
        const auto plan = storing_chunks(length);
        ASSERT_EQ(plan.first + plan.count * plan.size, length + plan.count + 1);
    }
}

TEST(Chunks, ReadingTakesAllBytesOnce) {
    EXPECT_EQ(reading_chunks(0), (ChunkPlan{0, 0, 1024}));
    EXPECT_EQ(reading_chunks(2048), (ChunkPlan{0, 2, 1024}));
    for (std::int64_t length = 0; length < 5000; ++length) {
        const auto plan = reading_chunks(length);
        ASSERT_EQ(plan.first + plan.count * plan.size, length);
    }
}

TEST(TemporaryFileName, HasEightDigits) {
    EXPECT_EQ(temporary_file_name(L"C:\\lib", 0), L"C:\\lib\\00000000.tmp");
    EXPECT_EQ(temporary_file_name(L"C:\\lib\\", 0.7055475), L"C:\\lib\\00705548.tmp");
    EXPECT_EQ(temporary_file_name(L"C:\\", std::nextafter(1.0, 0.0)), L"C:\\01000000.tmp");
    EXPECT_EQ(temporary_file_name(L"", 0.25), L"\\00250000.tmp");
}

TEST(PictureFailure, IsAPlainBox) {
    EXPECT_EQ(picture_failure(481, L"Imagen no válida"),
              (Notice{L"ERROR  481: Imagen no válida", NoticeStyle::plain, std::nullopt, 481}));
    EXPECT_EQ(picture_failure(-2147467259, L"").text, L"ERROR  -2147467259: ");
}

}  // namespace
}  // namespace kovrel
