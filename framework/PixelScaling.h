#pragma once

#include <cstdint>
#include <vector>

// A picture as rows from the top, a pixel as 0x00RRGGBB.
struct Pixels {
    int nWidth = 0;
    int nHeight = 0;
    std::vector<std::uint32_t> values;  // nWidth * nHeight
};

// The picture in another size, at least 1 by 1. Each new pixel is the mean of the area that it covers, so
// that lines neither vanish when a picture shrinks nor blur when it grows.
Pixels ScalePixels(const Pixels& source, int nWidth, int nHeight);
