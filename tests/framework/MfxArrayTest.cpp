#include "MfxArray.h"

#include <gmock/gmock.h>

#include <memory>

namespace {

// An element that keeps the size of a giant block that was asked for, and gets no such block.
struct Giant {
    static void* operator new[](std::size_t nSize) {
        if (nSize < 1000) return ::operator new[](nSize);
        s_nAsked = nSize;
        throw std::bad_alloc();
    }
    static inline std::size_t s_nAsked = 0;
    char content = 0;
};

}  // namespace

TEST(MfxArrayTest, GrowsByItsPolicy) {
    // Capacity and step before and after.
    constexpr int kCases[][4] = {{3, 10, 13, 12}, {3, 9, 12, 12}, {3, 7, 10, 10},
                                 {3, 12, 15, 14}, {0, 1, 1, 4},   {3, 99, 102, 118},
                                 {3, 0, 6, 6},    {3, -5, 6, 6},  {0, 0, 3, 6}};
    for (const auto& [nCapacity, nGrowBy, nNewCapacity, nNewGrowBy] : kCases) {
        SCOPED_TRACE(testing::Message() << "capacity " << nCapacity << ", step " << nGrowBy);
        MfxArray<int> array(nCapacity, nGrowBy);
        for (int i = 0; i <= nCapacity; ++i) array.Add(i + 1);
        EXPECT_TRUE(array.m_nCapacity == nNewCapacity && array.m_nGrowBy == nNewGrowBy) << array.m_nCapacity;
        for (int i = 0; i < nNewCapacity; ++i) EXPECT_EQ(array.m_pData[i], i <= nCapacity ? i + 1 : 0);
    }
}

TEST(MfxArrayTest, GrowthStopsAtTheLargestNumber) {
    MfxArray<Giant> full;
    full.m_nCount = full.m_nCapacity = INT_MAX - 5;
    full.m_nGrowBy = 10;
    EXPECT_THROW(full.Add({}), std::bad_alloc);
    EXPECT_EQ(std::exchange(Giant::s_nAsked, 0u), static_cast<std::size_t>(INT_MAX));
    EXPECT_TRUE(full.m_nCapacity == INT_MAX - 5 && full.m_nGrowBy == 10) << "a failed growth changes nothing";
    full.m_nCount = full.m_nCapacity = INT_MAX;
    EXPECT_THROW(full.Add({}), std::bad_alloc);
    EXPECT_EQ(Giant::s_nAsked, 0u);

    MfxArray<int> steep;
    steep.m_nCapacity = -1'999'999'990;
    const volatile int nSteepStep = 2'000'000'000;  // or the compiler calculates the overflow, by other rules
    steep.m_nGrowBy = nSteepStep;
    steep.Add(1);
    EXPECT_EQ(steep.m_nGrowBy, INT_MAX);
}

TEST(MfxArrayTest, RemovesCopiesAndMovesElements) {
    MfxArray<std::shared_ptr<int>> array(3, 5);
    for (int i = 0; i < 3; ++i) array.Add(std::make_shared<int>(i));
    const std::weak_ptr<int> first(array[0]), second(array[1]), last(array[2]);
    array.RemoveAt(1);
    EXPECT_TRUE(array.GetCount() == 2 && *array[1] == 2 && second.expired());

    MfxArray<std::shared_ptr<int>> copy(array);
    EXPECT_TRUE(copy.m_nCapacity == 3 && copy.m_nGrowBy == 5);
    copy.Add(copy[0]);
    copy.Add(copy[0]);
    EXPECT_EQ(copy[3], array[0]) << "an element of its own survives the growth";
    EXPECT_TRUE(array.GetCount() == 2 && first.use_count() == 4);
    const auto* const pBlock = copy.m_pData;
    MfxArray<std::shared_ptr<int>> moved(std::move(copy));
    array = std::move(moved);
    EXPECT_TRUE(array.m_pData == pBlock && array.GetCount() == 4 && array.m_nGrowBy == 8);

    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty() && array.m_nCapacity == 8 && array.m_nGrowBy == 8 && first.expired());
    for (const int n : {5, 7}) array.SetFirst(std::make_shared<int>(n));
    EXPECT_TRUE(array.GetCount() == 1 && *array[0] == 7);
}
