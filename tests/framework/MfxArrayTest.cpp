#include "MfxArray.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

// An element whose blocks are never allocated: the size that was asked for is kept instead.
struct Giant {
    static void* operator new[](std::size_t nSize) {
        s_nAsked = nSize;
        throw std::bad_alloc();
    }
    static void operator delete[](void*) {}
    static inline std::size_t s_nAsked = 0;
    char content = 0;
};

// Every object counts, so that a lost or doubly deleted block shows.
struct Counted {
    Counted() { ++s_nAlive; }
    Counted(const Counted& other) : value(other.value) { ++s_nAlive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --s_nAlive; }
    static inline int s_nAlive = 0;
    std::string value;
};

Counted Named(const char* pszName) {
    Counted element;
    element.value = pszName;
    return element;
}

}  // namespace

TEST(MfxArrayTest, GrowsByItsPolicy) {
    const struct {
        int nCapacity, nGrowBy, nNewCapacity, nNewGrowBy;
    } cases[] = {
        {3, 10, 13, 12}, {3, 9, 12, 12}, {3, 7, 10, 10},   {3, 12, 15, 14},
        {3, 1, 4, 4},    {0, 1, 1, 4},   {3, 99, 102, 118},
        {3, 0, 6, 6},    // no room by the step 0, then by 3
        {3, -5, 6, 6},   {0, 0, 3, 6},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "capacity " << c.nCapacity << ", step " << c.nGrowBy);
        MfxArray<int> array(c.nCapacity, c.nGrowBy);
        for (int i = 0; i < c.nCapacity; ++i) array.Add(i + 1);
        EXPECT_EQ(array.m_nGrowBy, c.nGrowBy) << "a place that is free needs no growth";
        array.Add(77);
        EXPECT_EQ(array.m_nCapacity, c.nNewCapacity);
        EXPECT_EQ(array.m_nGrowBy, c.nNewGrowBy);
        EXPECT_EQ(array.GetCount(), c.nCapacity + 1);
        for (int i = 0; i < c.nNewCapacity; ++i) {
            const int nExpected = i < c.nCapacity ? i + 1 : i == c.nCapacity ? 77 : 0;
            EXPECT_EQ(array.m_pData[i], nExpected) << i;
        }
    }
}

TEST(MfxArrayTest, GrowthStopsAtTheLargestCapacity) {
    MfxArray<Giant> full;
    full.m_nCount = full.m_nCapacity = INT_MAX - 5;
    full.m_nGrowBy = 10;
    EXPECT_THROW(full.Add({}), std::bad_alloc);
    EXPECT_EQ(Giant::s_nAsked, static_cast<std::size_t>(INT_MAX));
    EXPECT_EQ(full.m_nCapacity, INT_MAX - 5) << "a failed growth changes nothing";
    EXPECT_EQ(full.m_nGrowBy, 10);

    Giant::s_nAsked = 0;
    full.m_nCount = full.m_nCapacity = INT_MAX;
    EXPECT_THROW(full.Add({}), std::bad_alloc);
    EXPECT_EQ(Giant::s_nAsked, 0u);

    MfxArray<int> steep(-1'999'999'990, 2'000'000'000);
    steep.Add(1);
    EXPECT_EQ(steep.m_nCapacity, 10);
    EXPECT_EQ(steep.m_nGrowBy, INT_MAX);
}

TEST(MfxArrayTest, RemovesAndSetsElements) {
    MfxArray<std::shared_ptr<int>> array;
    std::vector<std::weak_ptr<int>> elements;
    for (int i = 0; i < 3; ++i) {
        array.Add(std::make_shared<int>(i));
        elements.push_back(array[i]);
    }
    array.RemoveAt(1);
    ASSERT_EQ(array.GetCount(), 2);
    EXPECT_EQ(*array[0] + 10 * *array[1], 20);
    EXPECT_TRUE(elements[1].expired());
    array.RemoveAt(1);
    EXPECT_TRUE(elements[2].expired()) << "no copy stays behind the end";

    const int nCapacity = array.m_nCapacity, nGrowBy = array.m_nGrowBy;
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty() && elements[0].expired());
    EXPECT_EQ(array.m_nCapacity, nCapacity);
    EXPECT_EQ(array.m_nGrowBy, nGrowBy);

    array.SetFirst(std::make_shared<int>(5));
    array.Add(std::make_shared<int>(6));
    array.SetFirst(std::make_shared<int>(7));
    ASSERT_EQ(array.GetCount(), 2);
    EXPECT_EQ(*array[0] * 10 + *array[1], 76);
}

TEST(MfxArrayTest, CopiesAndMoves) {
    {
        MfxArray<Counted> array(2, 5);
        array.Add(Named("a"));
        MfxArray<Counted> copy(array);
        copy[0].value = "b";
        copy.Add(Named("c"));
        EXPECT_EQ(array[0].value, "a");
        EXPECT_EQ(array.GetCount(), 1);
        copy.Add(copy[0]);
        EXPECT_EQ(copy[2].value, "b") << "an element of its own survives the growth";
        EXPECT_EQ(copy.m_nCapacity, 7) << "the copy had the room and the step of the original";

        const Counted* const pBlock = copy.m_pData;
        MfxArray<Counted> moved(std::move(copy));
        EXPECT_EQ(moved.m_pData, pBlock);
        array = std::move(moved);
        EXPECT_EQ(array.m_pData, pBlock);
        array = *&array;
        ASSERT_EQ(array.GetCount(), 3);
        EXPECT_EQ(array[1].value, "c");
        EXPECT_EQ(array.m_nGrowBy, 8);
        array = MfxArray<Counted>();
        EXPECT_EQ(array.begin(), array.end());
    }
    EXPECT_EQ(Counted::s_nAlive, 0);
}
