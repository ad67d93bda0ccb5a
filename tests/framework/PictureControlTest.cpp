#include "PictureControl.h"
#include "PixelScaling.h"
#include "support/GuiObjects.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

TEST(PixelScalingTest, TakesTheMeanOfTheAreaThatAPixelCovers) {
    const Pixels lines{
        4, 2, {0xFFFFFF, 0x000000, 0xFF0000, 0x0000FF, 0xFFFFFF, 0x000000, 0xFF0000, 0x0000FF}};
    EXPECT_THAT(ScalePixels(lines, 2, 1).values, ElementsAre(0x808080, 0x800080))
        << "thin lines stay visible";
    EXPECT_THAT(ScalePixels(lines, 4, 2).values, testing::ElementsAreArray(lines.values));
    const Pixels two{2, 1, {0x000000, 0xFFFFFF}};
    EXPECT_THAT(ScalePixels(two, 4, 1).values, ElementsAre(0x000000, 0x000000, 0xFFFFFF, 0xFFFFFF))
        << "edges stay sharp";
    EXPECT_THAT(ScalePixels(lines, 1, 1).values, ElementsAre(0x804080));
}

namespace {

const COLORREF kRed = RGB(255, 0, 0);

HBITMAP CreateRedBitmap(int nWidth, int nHeight) {
    const std::vector<std::uint32_t> pixels(static_cast<std::size_t>(nWidth * nHeight), 0xFF0000);
    return CreateBitmap(nWidth, nHeight, 1, 32, pixels.data());
}

COLORREF ColourAt(const CWnd& window, int x, int y) {
    const HDC hDC = GetDC(window.m_hWnd);
    const COLORREF colour = GetPixel(hDC, x, y);
    ReleaseDC(window.m_hWnd, hDC);
    return colour;
}

}  // namespace

TEST(PictureControlTest, ShowsItsBitmapInTheMiddleAndOwnsIt) {
    const auto show = [] {
        CWnd parent;
        parent.CreateEx(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 120, 120), nullptr, 0);
        PictureControl picture;
        picture.Create(L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 100), &parent, 1);
        picture.UpdateWindow();
        EXPECT_EQ(ColourAt(picture, 50, 50), GetSysColor(COLOR_3DFACE)) << "no bitmap yet";
        for (const CSize size : {CSize(10, 5), CSize(400, 200)}) {
            picture.SetBitmap(CreateRedBitmap(size.cx, size.cy));
            picture.UpdateWindow();
            EXPECT_EQ(ColourAt(picture, 1, 50), kRed);
            EXPECT_EQ(ColourAt(picture, 98, 27), kRed);
            EXPECT_EQ(ColourAt(picture, 50, 20), GetSysColor(COLOR_3DFACE)) << "its proportions are kept";
        }
        picture.MoveWindow(CRect(0, 0, 20, 100));
        picture.UpdateWindow();
        EXPECT_EQ(ColourAt(picture, 10, 50), kRed);
        EXPECT_EQ(ColourAt(picture, 10, 60), GetSysColor(COLOR_3DFACE));
        parent.DestroyWindow();
    };
    show();
    const GuiObjects before = CountGuiObjects();
    for (int i = 0; i < 5; ++i) show();
    EXPECT_EQ(CountGuiObjects(), before);
}
