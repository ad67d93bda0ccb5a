#include "MfxArray.h"

#include <gmock/gmock.h>

#include <memory>

TEST(MfxArrayTest, GrowsByItsPolicy) {
    const struct {
        int nCapacity, nGrowBy, nNewCapacity, nNewGrowBy;
    } cases[] = {{3, 10, 13, 12},   {3, 9, 12, 12}, {3, 7, 10, 10}, {3, 12, 15, 14}, {0, 1, 1, 4},
                 {3, 99, 102, 118}, {3, 0, 6, 6},   {3, -5, 6, 6},  {0, 0, 3, 6}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "capacity " << c.nCapacity << ", step " << c.nGrowBy);
        MfxArray<int> array(c.nCapacity, c.nGrowBy);
        for (int i = 0; i <= c.nCapacity; ++i) array.Add(i + 1);
        EXPECT_EQ(array.m_nCapacity, c.nNewCapacity);
        EXPECT_EQ(array.m_nGrowBy, c.nNewGrowBy);
        for (int i = 0; i < array.m_nCapacity; ++i) EXPECT_EQ(array.m_pData[i], i <= c.nCapacity ? i + 1 : 0);
    }
}

TEST(MfxArrayTest, RemovesCopiesAndMovesElements) {
    MfxArray<std::shared_ptr<int>> array(3, 5);
    for (int i = 0; i < 3; ++i) array.Add(std::make_shared<int>(i));
    const std::weak_ptr<int> first(array[0]), second(array[1]);
    array.RemoveAt(1);
    ASSERT_EQ(array.GetCount(), 2);
    EXPECT_EQ(*array[1], 2);
    EXPECT_TRUE(second.expired());

    MfxArray<std::shared_ptr<int>> copy(array);
    EXPECT_EQ(copy.m_nCapacity, 3);
    EXPECT_EQ(copy.m_nGrowBy, 5);
    for (int i = 0; i < 2; ++i) copy.Add(copy[0]);
    EXPECT_EQ(copy[3], array[0]) << "an element of its own survives the growth";
    EXPECT_EQ(first.use_count(), 4);
    const auto* const pBlock = copy.m_pData;
    MfxArray<std::shared_ptr<int>> moved(std::move(copy));
    array = std::move(moved);
    EXPECT_EQ(array.m_pData, pBlock);
    EXPECT_EQ(array.m_nGrowBy, 8);

    array.RemoveAll();
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(array.m_nCapacity, 8);
    for (const int n : {5, 7}) array.SetFirst(std::make_shared<int>(n));
    ASSERT_EQ(array.GetCount(), 1);
    EXPECT_EQ(*array[0], 7);
}
