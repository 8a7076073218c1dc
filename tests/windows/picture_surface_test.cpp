// The picture surface, drawn on by member name as hosts do.
#include "ui/picture_surface.h"

#include <gtest/gtest.h>
#include <limits>

#include "tests/support/late.h"

namespace kovrel::test {
namespace {

constexpr HRESULT invalid_argument = static_cast<HRESULT>(0x800A0005);

class Surface : public testing::Test {
 protected:
    void SetUp() override { picture_.surface->resize(100, 40, Scale(96)); }

    Outcome set(const wchar_t* member, const Variant& value) const {
        return put(picture_.object.get(), member, value);
    }
    double number(const wchar_t* member) const {
        return get(picture_.object.get(), member).value.to_double();
    }
    Outcome line(std::int16_t options, float x1, float y1, float x2, float y2,
                 std::int32_t color = 0) const {
        return call(picture_.object.get(), L"Line", {options, x1, y1, x2, y2, color});
    }
    COLORREF pixel(int x, int y) const { return GetPixel(picture_.surface->context(), x, y); }

    PictureObject picture_ = make_picture();
};

TEST_F(Surface, IsInitiallyWhiteAndInTwips) {
    EXPECT_EQ(number(L"ScaleWidth"), 1500);
    EXPECT_EQ(number(L"ScaleHeight"), 600);
    EXPECT_EQ(number(L"DrawMode"), 13);
    EXPECT_EQ(number(L"ForeColor"), 0);
    EXPECT_FALSE(get(picture_.object.get(), L"AutoRedraw").value.to_bool());
    EXPECT_EQ(pixel(0, 0), RGB(255, 255, 255));
    EXPECT_EQ(pixel(99, 39), RGB(255, 255, 255));
}

TEST_F(Surface, WidthAndHeightHaveTheirOwnScales) {
    set(L"ScaleWidth", Variant(std::int16_t{100}));
    EXPECT_EQ(number(L"ScaleWidth"), 100);
    EXPECT_EQ(number(L"ScaleHeight"), 600);
    picture_.surface->resize(200, 80, Scale(192));
    EXPECT_EQ(number(L"ScaleWidth"), 100);
    EXPECT_EQ(number(L"ScaleHeight"), 600);
}

TEST_F(Surface, RefusesInvalidScalesAndModes) {
    for (const float length :
         {0.0F, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
        EXPECT_EQ(set(L"ScaleWidth", Variant(length)).error, invalid_argument);
        EXPECT_EQ(set(L"ScaleHeight", Variant(length)).error, invalid_argument);
    }
    for (const int mode : {0, -1, 17, 32767}) {
        EXPECT_EQ(set(L"DrawMode", Variant(static_cast<std::int16_t>(mode))).error,
                  invalid_argument);
    }
    EXPECT_EQ(number(L"ScaleWidth"), 1500);
    EXPECT_EQ(number(L"DrawMode"), 13);
}

TEST_F(Surface, AFilledBoxReachesFromEdgeToEdge) {
    set(L"ScaleWidth", Variant(100.0F));
    set(L"ScaleHeight", Variant(40.0F));
    line(36, 10, 5, 20, 15, RGB(255, 0, 0));
    EXPECT_EQ(pixel(9, 5), RGB(255, 255, 255));
    EXPECT_EQ(pixel(10, 5), RGB(255, 0, 0));
    EXPECT_EQ(pixel(19, 14), RGB(255, 0, 0));
    EXPECT_EQ(pixel(20, 14), RGB(255, 255, 255));
    EXPECT_EQ(pixel(19, 15), RGB(255, 255, 255));
    EXPECT_EQ(number(L"CurrentX"), 20);
    EXPECT_EQ(number(L"CurrentY"), 15);
}

TEST_F(Surface, BoxesAndLines) {
    set(L"ScaleWidth", Variant(100.0F));
    set(L"ScaleHeight", Variant(40.0F));
    set(L"ForeColor", Variant(std::int32_t{RGB(0, 0, 255)}));
    line(4, 10, 10, 30, 30);
    EXPECT_EQ(pixel(10, 20), RGB(0, 0, 255));
    EXPECT_EQ(pixel(20, 20), RGB(255, 255, 255));
    line(0, 50, 20, 70, 20);
    EXPECT_EQ(pixel(60, 20), RGB(0, 0, 255));
    EXPECT_EQ(pixel(60, 21), RGB(255, 255, 255));
}

TEST_F(Surface, TheNotXorPenTwiceChangesNothing) {
    set(L"DrawMode", Variant(std::int16_t{10}));
    set(L"ForeColor", Variant(std::int32_t{RGB(10, 20, 30)}));
    line(36, 0, 0, 1500, 600);
    EXPECT_EQ(pixel(50, 20), RGB(10, 20, 30));
    line(36, 0, 0, 1500, 600);
    EXPECT_EQ(pixel(50, 20), RGB(255, 255, 255));
}

TEST_F(Surface, SystemAndInvalidColours) {
    set(L"ForeColor",
        Variant(static_cast<std::int32_t>(0x80000000U | static_cast<unsigned>(COLOR_HIGHLIGHT))));
    line(36, 0, 0, 1500, 600);
    EXPECT_EQ(pixel(50, 20), GetSysColor(COLOR_HIGHLIGHT));
    for (const float rubbish : {std::numeric_limits<float>::quiet_NaN(),
                                std::numeric_limits<float>::infinity(), -1e30F, 1e30F}) {
        EXPECT_EQ(line(36, rubbish, rubbish, -rubbish, rubbish, 0x7F123456).result, S_OK);
        set(L"CurrentX", Variant(rubbish));
        EXPECT_EQ(call(picture_.object.get(), L"Print", {L"texto"}).result, S_OK);
    }
}

TEST_F(Surface, TextsAreMeasuredInTheScaleAndMoveToTheNextLine) {
    const Outcome twips = call(picture_.object.get(), L"TextWidth", {L"Texto"});
    set(L"ScaleWidth", Variant(100.0F));
    const Outcome percent = call(picture_.object.get(), L"TextWidth", {L"Texto"});
    EXPECT_NEAR(twips.value.to_double(), percent.value.to_double() * 15, 0.01);
    EXPECT_EQ(call(picture_.object.get(), L"TextWidth", {L""}).value.to_double(), 0);
    const double height = call(picture_.object.get(), L"TextHeight", {L"Texto"}).value.to_double();
    EXPECT_GT(height, 100);
    call(picture_.object.get(), L"Print", {L"Texto"});
    EXPECT_EQ(number(L"CurrentX"), 0);
    EXPECT_NEAR(number(L"CurrentY"), height, 0.01);
    call(picture_.object.get(), L"Cls");
    EXPECT_EQ(number(L"CurrentY"), 0);
}

}  // namespace
}  // namespace kovrel::test
