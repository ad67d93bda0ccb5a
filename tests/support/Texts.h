#pragma once

#include <stdexcept>
#include <string>

inline std::string Repeated(const std::string& text, std::size_t nTimes) {
    std::string all;
    for (; nTimes > 0; --nTimes) all += text;
    return all;
}

// The text with the first occurrence of a part replaced, which has to be there.
inline std::string Replaced(std::string text, const std::string& part, const std::string& by) {
    const std::size_t nAt = text.find(part);
    if (nAt == std::string::npos) throw std::runtime_error("nothing to replace: " + part);
    return text.replace(nAt, part.size(), by);
}
