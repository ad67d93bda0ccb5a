#pragma once

#include <windows.h>

class CSize : public tagSIZE {
  public:
    CSize() : tagSIZE{} {}
    CSize(int initCX, int initCY) : tagSIZE{initCX, initCY} {}
    CSize(SIZE initSize) : tagSIZE(initSize) {}
    BOOL operator==(SIZE size) const { return cx == size.cx && cy == size.cy; }
};

class CPoint : public tagPOINT {
  public:
    CPoint() : tagPOINT{} {}
    CPoint(int initX, int initY) : tagPOINT{initX, initY} {}
    CPoint(POINT initPt) : tagPOINT(initPt) {}
    // Two signed 16-bit coordinates, as mouse messages have them.
    CPoint(LPARAM dwPoint)
        : tagPOINT{static_cast<short>(LOWORD(dwPoint)), static_cast<short>(HIWORD(dwPoint))} {}

    BOOL operator==(POINT point) const { return x == point.x && y == point.y; }
};

class CRect : public tagRECT {
  public:
    CRect() : tagRECT{} {}
    CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
    CRect(const RECT& srcRect) : tagRECT(srcRect) {}
    CRect(LPCRECT lpSrcRect) : tagRECT(*lpSrcRect) {}
    CRect(POINT point, SIZE size) : tagRECT{point.x, point.y, point.x + size.cx, point.y + size.cy} {}

    operator LPCRECT() const { return this; }
    operator LPRECT() { return this; }

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    BOOL IsRectEmpty() const { return ::IsRectEmpty(this); }
    BOOL PtInRect(POINT point) const { return ::PtInRect(this, point); }
    BOOL operator==(const RECT& rect) const { return ::EqualRect(this, &rect); }

    void OffsetRect(int x, int y) { ::OffsetRect(this, x, y); }
    void InflateRect(int x, int y) { ::InflateRect(this, x, y); }
    void DeflateRect(int x, int y) { ::InflateRect(this, -x, -y); }
};
