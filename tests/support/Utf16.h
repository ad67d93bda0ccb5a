#pragma once

#include <string>
#include <string_view>

// ASCII as UTF-16, with a byte order mark or without.
inline std::string ToUtf16(std::string_view ascii, bool bBig, bool bMark) {
    std::string wide = bMark ? bBig ? "\xFE\xFF" : "\xFF\xFE" : "";
    for (const char ch : ascii) wide.append({bBig ? '\0' : ch, bBig ? ch : '\0'});
    return wide;
}
