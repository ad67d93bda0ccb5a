#include "BandRows.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::int64_t kPair = 1;        // any two rows
constexpr std::int64_t kSameValue = 10;  // for each value that both have
constexpr std::int64_t kSameBounds = 1 << 20;
constexpr std::size_t kMostPairs = 4'000'000;  // of rows that are compared

bool IsBound(const RuleValue& value) {
    return !value.column.starts_with("angle") && value.column != std::to_string(kThicknessId);
}

const RuleValue* FindColumn(const BandRow& row, const std::string& column) {
    const auto found = std::ranges::find(row, column, &RuleValue::column);
    return found != row.end() ? &*found : nullptr;
}

bool IsGiven(const RuleValue& value) {
    return !std::holds_alternative<std::monostate>(value.content);
}

bool HaveSameBounds(const BandRow& left, const BandRow& right) {
    return std::ranges::all_of(left, [&](const RuleValue& value) {
        const RuleValue* other = FindColumn(right, value.column);
        return !IsBound(value) || (other && IsSameValue(value, *other));
    });
}

std::int64_t Likeness(const BandRow& left, const BandRow& right) {
    std::int64_t likeness = kPair + (HaveSameBounds(left, right) ? kSameBounds : 0);
    for (const RuleValue& value : left) {
        const RuleValue* other = FindColumn(right, value.column);
        if (other && IsGiven(value) && IsSameValue(value, *other)) likeness += kSameValue;
    }
    return likeness;
}

// Aligns the rows from "begin" up to the last ones; finds the pairs with the largest sum of likenesses.
class Aligner {
  public:
    Aligner(const std::vector<BandRow>& left, const std::vector<BandRow>& right)
        : m_left(left), m_right(right), m_leftEnd(left.size()), m_rightEnd(right.size()) {}

    std::vector<RowPair> Align() {
        while (m_begin < std::min(m_leftEnd, m_rightEnd) && HaveSameBounds(m_left[m_begin], m_right[m_begin]))
            ++m_begin;
        while (std::min(m_leftEnd, m_rightEnd) > m_begin &&
               HaveSameBounds(m_left[m_leftEnd - 1], m_right[m_rightEnd - 1]))
            --m_leftEnd, --m_rightEnd;
        for (std::size_t i = 0; i < m_begin; ++i) Add(i + 1, i + 1);
        if ((m_leftEnd - m_begin) * (m_rightEnd - m_begin) > kMostPairs)
            PairInOrder();
        else
            PairByLikeness();
        for (; m_leftEnd < m_left.size(); ++m_leftEnd, ++m_rightEnd) Add(m_leftEnd + 1, m_rightEnd + 1);
        return std::move(m_pairs);
    }

  private:
    void Add(std::size_t left, std::size_t right) {
        m_pairs.push_back({static_cast<int>(left), static_cast<int>(right)});
    }

    void PairInOrder() {
        for (std::size_t i = m_begin; i < std::max(m_leftEnd, m_rightEnd); ++i)
            Add(i < m_leftEnd ? i + 1 : 0, i < m_rightEnd ? i + 1 : 0);
    }

    // Of the rows from these two on.
    std::int64_t& Best(std::size_t left, std::size_t right) {
        return m_best[(left - m_begin) * (m_rightEnd - m_begin + 1) + right - m_begin];
    }

    void PairByLikeness() {
        m_best.assign((m_leftEnd - m_begin + 1) * (m_rightEnd - m_begin + 1), 0);
        for (std::size_t i = m_leftEnd; i-- > m_begin;)
            for (std::size_t j = m_rightEnd; j-- > m_begin;)
                Best(i, j) = std::max(
                    {Best(i + 1, j), Best(i, j + 1), Best(i + 1, j + 1) + Likeness(m_left[i], m_right[j])});
        std::size_t i = m_begin, j = m_begin;
        while (i < m_leftEnd || j < m_rightEnd) {
            if (i < m_leftEnd && j < m_rightEnd &&
                Best(i, j) == Best(i + 1, j + 1) + Likeness(m_left[i], m_right[j]))
                Add(++i, ++j);
            else if (i < m_leftEnd && (j == m_rightEnd || Best(i, j) == Best(i + 1, j)))
                Add(++i, 0);
            else
                Add(0, ++j);
        }
    }

    const std::vector<BandRow>& m_left;
    const std::vector<BandRow>& m_right;
    std::size_t m_begin = 0, m_leftEnd, m_rightEnd;  // of the rows between those that are alike anyway
    std::vector<std::int64_t> m_best;
    std::vector<RowPair> m_pairs;
};

}  // namespace

std::map<std::string, std::vector<BandRow>> TablesOf(const std::vector<RuleValue>& values) {
    std::map<std::string, std::vector<BandRow>> tables;
    for (const RuleValue& value : values) {
        if (value.table.empty()) continue;
        std::vector<BandRow>& rows = tables[value.table];
        rows.resize(std::max(rows.size(), static_cast<std::size_t>(value.row)));
        rows[static_cast<std::size_t>(value.row - 1)].push_back(value);
    }
    return tables;
}

std::vector<RuleValue> BoundsOf(const BandRow& row) {
    std::vector<RuleValue> bounds;
    std::ranges::copy_if(row, std::back_inserter(bounds), IsBound);
    return bounds;
}

std::vector<RowPair> AlignRows(const std::vector<BandRow>& left, const std::vector<BandRow>& right) {
    return Aligner(left, right).Align();
}
