#pragma once

#include <windows.h>

class CSize : public tagSIZE {
  public:
    CSize(int initCX, int initCY) : tagSIZE{initCX, initCY} {}
};

class CPoint : public tagPOINT {
  public:
    CPoint(int initX, int initY) : tagPOINT{initX, initY} {}
    // Two signed 16-bit coordinates, as mouse messages have them.
    CPoint(LPARAM dwPoint)
        : tagPOINT{static_cast<short>(LOWORD(dwPoint)), static_cast<short>(HIWORD(dwPoint))} {}
};

class CRect : public tagRECT {
  public:
    CRect() : tagRECT{} {}
    CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}

    operator LPCRECT() const { return this; }
    operator LPRECT() { return this; }

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    BOOL IsRectEmpty() const { return ::IsRectEmpty(this); }
    // Without it two rectangles would be compared by their addresses, as LPRECT.
    BOOL operator==(const RECT& rect) const { return ::EqualRect(this, &rect); }

    void InflateRect(int x, int y) { ::InflateRect(this, x, y); }
};
