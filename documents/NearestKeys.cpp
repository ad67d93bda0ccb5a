#include "NearestKeys.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

// How many characters have to be added, removed or replaced to make one text of the other.
std::size_t EditDistance(const std::string& first, const std::string& second) {
    std::vector<std::size_t> row(second.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= first.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i);
        for (std::size_t j = 1; j <= second.size(); ++j) {
            const std::size_t replaced = diagonal + (first[i - 1] != second[j - 1]);
            diagonal = std::exchange(row[j], std::min({row[j] + 1, row[j - 1] + 1, replaced}));
        }
    }
    return row.back();
}

}  // namespace

std::string NearestKeys(const std::vector<std::string>& keys, const std::string& key) {
    constexpr std::size_t kMost = 3;
    std::vector<std::pair<std::size_t, std::string>> sorted;
    for (const std::string& candidate : keys) sorted.emplace_back(EditDistance(candidate, key), candidate);
    const std::size_t count = std::min(kMost, sorted.size());
    std::ranges::partial_sort(sorted, sorted.begin() + static_cast<std::ptrdiff_t>(count));
    std::string nearest;
    for (std::size_t i = 0; i < count; ++i) nearest += (i ? ", " : "") + sorted[i].second;
    return nearest;
}
