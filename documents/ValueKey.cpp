#include "ValueKey.h"

#include <algorithm>
#include <charconv>
#include <cctype>

namespace {

constexpr std::string_view kNoName = "%";

bool IsAmbiguous(std::string_view name) {
    return name == "status" || name == "severity" ||
           std::ranges::all_of(name, [](unsigned char ch) { return std::isdigit(ch); });
}

std::string Escaped(char ch) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    const auto code = static_cast<unsigned char>(ch);
    return {'%', kDigits[code >> 4], kDigits[code & 15]};
}

}  // namespace

std::string KeyOfName(std::string_view name) {
    if (name.empty()) return std::string(kNoName);
    std::string key;
    for (const char ch : name) {
        const bool isControl = static_cast<unsigned char>(ch) < 0x20 || ch == 0x7F;
        const bool isFirst = key.empty() && IsAmbiguous(name);
        key += isControl || isFirst || std::string_view("/#%=").find(ch) != std::string_view::npos
                   ? Escaped(ch)
                   : std::string(1, ch);
    }
    return key;
}

std::string NameOfKey(std::string_view key) {
    std::string name;
    while (!key.empty()) {
        unsigned code = 0;
        const bool isEscape = key.size() >= 3 && key[0] == '%' &&
                              std::from_chars(key.data() + 1, key.data() + 3, code, 16).ptr == key.data() + 3;
        if (isEscape || key != kNoName) name += isEscape ? static_cast<char>(code) : key[0];
        key.remove_prefix(isEscape ? 3 : 1);
    }
    return name;
}
