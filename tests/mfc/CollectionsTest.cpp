#include <afxcoll.h>
#include <afxtempl.h>

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

// Both ways through the list, so that a link that is right in one direction only is seen.
CString Listed(const CStringList& list) {
    CString forth, back;
    for (POSITION pos = list.GetHeadPosition(); pos;) forth += list.GetNext(pos) + L',';
    for (POSITION pos = list.GetTailPosition(); pos;) back = list.GetPrev(pos) + L',' + back;
    EXPECT_EQ(forth, back);
    return forth;
}

template <typename Array>
CString Listed(const Array& array) {
    CString text;
    for (INT_PTR i = 0; i < array.GetCount(); ++i) text += array[i] + L',';
    return text;
}

}  // namespace

TEST(CollectionsTest, ListKeepsOrderAndLinks) {
    CStringList list(1);
    EXPECT_FALSE(list.GetHeadPosition() || list.GetTailPosition());
    const POSITION first = list.AddTail(L"x");
    list.AddTail(L"y");
    const POSITION second = list.AddTail(L"x");
    list.AddHead(L"a");
    EXPECT_TRUE(list.Find(L"x") == first && list.Find(L"x", first) == second);
    EXPECT_FALSE(list.Find(L"x", second) || list.Find(L"X"));
    list.RemoveAt(list.Find(L"y"));
    EXPECT_EQ(Listed(list), L"a,x,x,");
    EXPECT_EQ(list.RemoveHead(), L"a");
    list.GetHead() += L"1";
    EXPECT_EQ(list.RemoveTail(), L"x");
    EXPECT_EQ(list.RemoveTail(), L"x1");
    list.AddTail(L"again");
    EXPECT_EQ(Listed(list), L"again,");
    list.RemoveAll();
    EXPECT_TRUE(list.IsEmpty() && !list.GetHeadPosition());
}

template <typename Array>
static void TestArray() {
    Array array, other;
    EXPECT_TRUE(!array.GetData() && array.GetUpperBound() == -1 && array.Add(L"a") == 0);
    array.SetAtGrow(2, L"d");
    array.InsertAt(1, L"x", 2);
    array.InsertAt(6, array[4]);
    EXPECT_EQ(Listed(array), L"a,x,x,,d,,d,");
    array.RemoveAt(1, 2);
    array.Append(array);
    EXPECT_EQ(Listed(array), L"a,,d,,d,a,,d,,d,");
    array.SetSize(1);
    array.SetSize(2);
    EXPECT_EQ(Listed(array), L"a,,") << "a place that is used again starts empty";
    EXPECT_THROW(array.GetAt(2), std::out_of_range);
    EXPECT_THROW(array.SetAtGrow(-1, L"b"), std::out_of_range);
    EXPECT_THROW(array.InsertAt(-1, L"b"), std::out_of_range);
    EXPECT_THROW(array.RemoveAt(1, 2), std::out_of_range);
    other.Copy(array);
    other[0] = L"o";
    array.InsertAt(0, &other);
    EXPECT_EQ(Listed(array), L"o,,a,,");
}

TEST(CollectionsTest, ArraysGrowInsertRemoveAndCopy) {
    TestArray<CStringArray>();
    TestArray<CArray<CString, LPCTSTR>>();
    CArray<bool> flags;
    flags.SetSize(3, 2);
    bool& last = flags.ElementAt(2);
    last = flags[1] = true;
    const bool* const data = flags.GetData();
    EXPECT_TRUE(!data[0] && data[1] && data[2]) << "elements with an address";
}
