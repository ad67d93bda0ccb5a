#include <afxcoll.h>
#include <afxtempl.h>

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

// Both ways through the list, so that a link that is right in one direction only is seen.
CString Listed(const CStringList& list) {
    CString forth;
    for (POSITION pos = list.GetHeadPosition(); pos;) forth += list.GetNext(pos) + L' ';
    CString back;
    for (POSITION pos = list.GetTailPosition(); pos;) back = list.GetPrev(pos) + L' ' + back;
    EXPECT_EQ(forth, back);
    return forth.TrimRight();
}

template <typename Array>
CString Listed(const Array& array) {
    CString text;
    for (INT_PTR i = 0; i < array.GetCount(); ++i) text += array[i] + L',';
    return text;
}

// The operations that both kinds of array have to do alike.
template <typename Array>
class ArrayTest : public ::testing::Test {
  protected:
    Array m_array;
};

using Arrays = ::testing::Types<CStringArray, CArray<CString>, CArray<CString, LPCTSTR>>;
TYPED_TEST_SUITE(ArrayTest, Arrays);

}  // namespace

TEST(StringListTest, KeepsOrderAndLinks) {
    CStringList list(1);
    EXPECT_FALSE(list.GetHeadPosition());
    EXPECT_FALSE(list.GetTailPosition());
    list.AddTail(L"b");
    list.AddTail(L"c");
    list.AddHead(L"a");
    EXPECT_EQ(Listed(list), L"a b c");

    list.RemoveAt(list.Find(L"b"));
    EXPECT_EQ(Listed(list), L"a c");
    EXPECT_EQ(list.RemoveHead(), L"a");
    EXPECT_EQ(list.GetHead(), L"c");
    EXPECT_EQ(list.RemoveTail(), L"c");
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(Listed(list), L"");

    list.AddTail(L"again");
    list.GetAt(list.GetTailPosition()) += L"!";
    EXPECT_EQ(Listed(list), L"again!");
    list.RemoveAll();
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_FALSE(list.GetHeadPosition());
}

TEST(StringListTest, FindContinuesBehindAPlace) {
    CStringList list;
    const POSITION first = list.AddTail(L"x");
    list.AddTail(L"y");
    const POSITION second = list.AddTail(L"x");
    EXPECT_EQ(list.Find(L"x"), first);
    EXPECT_EQ(list.Find(L"x", first), second);
    EXPECT_FALSE(list.Find(L"x", second));
    EXPECT_FALSE(list.Find(L"X"));
}

TYPED_TEST(ArrayTest, GrowsInsertsAndRemoves) {
    TypeParam& array = this->m_array;
    EXPECT_EQ(array.GetData(), nullptr);
    EXPECT_EQ(array.GetUpperBound(), -1);
    EXPECT_EQ(array.Add(L"a"), 0);
    EXPECT_EQ(array.Add(L"b"), 1);
    array.SetAtGrow(3, L"d");
    EXPECT_EQ(Listed(array), L"a,b,,d,");
    array.InsertAt(1, L"x", 2);
    EXPECT_EQ(Listed(array), L"a,x,x,b,,d,");
    array.InsertAt(7, L"end");
    EXPECT_EQ(Listed(array), L"a,x,x,b,,d,,end,");
    array.InsertAt(0, L"none", 0);
    array.RemoveAt(3, 0);
    array.RemoveAt(1, 2);
    array.RemoveAt(4, 2);
    EXPECT_EQ(Listed(array), L"a,b,,d,");
    array.SetSize(1);
    array.SetSize(2);
    EXPECT_EQ(Listed(array), L"a,,") << "a place that is used again starts empty";
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetData(), nullptr);
}

TYPED_TEST(ArrayTest, TakesItsOwnElements) {
    TypeParam& array = this->m_array;
    array.Add(L"an element too long for a small buffer");
    const CString first = array[0];
    for (int i = 0; i < 20; ++i) array.Add(array[0]);
    array.InsertAt(0, array[20]);
    array.Append(array);
    ASSERT_EQ(array.GetSize(), 44);
    for (INT_PTR i = 0; i < 44; ++i) EXPECT_EQ(array[i], first) << i;

    TypeParam other;
    other.Add(L"o");
    array.RemoveAt(1, 43);
    EXPECT_EQ(array.Append(other), 1);
    array.InsertAt(0, &other);
    array.Copy(array);
    EXPECT_EQ(Listed(array), L"o," + first + L",o,");
    other.Copy(array);
    other[0] = L"changed";
    EXPECT_EQ(array[0], L"o");
}

TYPED_TEST(ArrayTest, RefusesPlacesOutside) {
    TypeParam& array = this->m_array;
    array.Add(L"a");
    EXPECT_THROW(array.GetAt(1), std::out_of_range);
    EXPECT_THROW(array.SetAt(-1, L"b"), std::out_of_range);
    EXPECT_THROW(array.SetAtGrow(-1, L"b"), std::out_of_range);
    EXPECT_THROW(array.InsertAt(-1, L"b"), std::out_of_range);
    EXPECT_THROW(array.RemoveAt(0, 2), std::out_of_range);
    EXPECT_THROW(array.RemoveAt(2, 0), std::out_of_range);
    EXPECT_THROW(array.SetSize(-1), std::out_of_range);
    EXPECT_EQ(Listed(array), L"a,");
}

TEST(ArrayOfTest, BoolsAreElementsWithAnAddress) {
    CArray<bool> flags;
    flags.SetSize(3, 2);
    flags[1] = true;
    bool& last = flags.ElementAt(2);
    last = true;
    const bool* const data = flags.GetData();
    EXPECT_EQ(data[0], false);
    EXPECT_EQ(data[1], true);
    EXPECT_EQ(data[2], true);
    flags.Add(true);
    EXPECT_TRUE(flags[3]);
}
