#include "PixelScaling.h"

#include <algorithm>
#include <cmath>

namespace {

// How much of a source row or column a new one takes.
struct Share {
    int nSource;
    double weight;
};

std::vector<Share> SharesOf(int nTarget, int nTargetSize, int nSourceSize) {
    const double scale = static_cast<double>(nSourceSize) / nTargetSize;
    const double from = nTarget * scale;
    const double to = std::min(from + scale, static_cast<double>(nSourceSize));
    std::vector<Share> shares;
    for (int i = static_cast<int>(from); i < nSourceSize && i < to; ++i)
        shares.push_back({i, (std::min(i + 1.0, to) - std::max<double>(i, from)) / (to - from)});
    return shares;
}

std::uint32_t MeanOf(const Pixels& source, const std::vector<Share>& rows,
                     const std::vector<Share>& columns) {
    double red = 0.0, green = 0.0, blue = 0.0;
    for (const Share& row : rows)
        for (const Share& column : columns) {
            const std::uint32_t pixel =
                source
                    .values[static_cast<std::size_t>(row.nSource) * static_cast<std::size_t>(source.nWidth) +
                            static_cast<std::size_t>(column.nSource)];
            const double weight = row.weight * column.weight;
            red += weight * (pixel >> 16 & 0xFF);
            green += weight * (pixel >> 8 & 0xFF);
            blue += weight * (pixel & 0xFF);
        }
    const auto round = [](double value) { return static_cast<std::uint32_t>(std::lround(value)); };
    return round(red) << 16 | round(green) << 8 | round(blue);
}

}  // namespace

Pixels ScalePixels(const Pixels& source, int nWidth, int nHeight) {
    Pixels scaled{nWidth, nHeight, {}};
    scaled.values.reserve(static_cast<std::size_t>(nWidth) * static_cast<std::size_t>(nHeight));
    std::vector<std::vector<Share>> columns;
    columns.reserve(static_cast<std::size_t>(nWidth));
    for (int x = 0; x < nWidth; ++x) columns.push_back(SharesOf(x, nWidth, source.nWidth));
    for (int y = 0; y < nHeight; ++y) {
        const std::vector<Share> rows = SharesOf(y, nHeight, source.nHeight);
        for (const std::vector<Share>& column : columns)
            scaled.values.push_back(MeanOf(source, rows, column));
    }
    return scaled;
}
