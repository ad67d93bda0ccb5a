#pragma once

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <utility>

#include "afx.h"

// Growable array. TYPE needs a default constructor and assignment from itself and from ARG_TYPE. Access
// outside of the array throws std::out_of_range. Storage is a plain array, not a std::vector, so that TYPE
// can be bool.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
  public:
    CArray() = default;

    INT_PTR GetCount() const { return m_nCount; }
    INT_PTR GetSize() const { return m_nCount; }
    INT_PTR GetUpperBound() const { return m_nCount - 1; }
    BOOL IsEmpty() const { return m_nCount == 0; }
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1);  // new elements are value-initialised
    void RemoveAll() { SetSize(0); }

    TYPE& GetAt(INT_PTR nIndex) { return ElementAt(nIndex); }
    const TYPE& GetAt(INT_PTR nIndex) const { return ElementAt(nIndex); }
    void SetAt(INT_PTR nIndex, ARG_TYPE newElement) { ElementAt(nIndex) = newElement; }
    TYPE& ElementAt(INT_PTR nIndex) { return m_pData[Checked(nIndex)]; }
    const TYPE& ElementAt(INT_PTR nIndex) const { return m_pData[Checked(nIndex)]; }
    TYPE& operator[](INT_PTR nIndex) { return ElementAt(nIndex); }
    const TYPE& operator[](INT_PTR nIndex) const { return ElementAt(nIndex); }
    const TYPE* GetData() const { return m_nCount ? m_pData.get() : nullptr; }
    TYPE* GetData() { return m_nCount ? m_pData.get() : nullptr; }

    // Index of the (first) added element.
    INT_PTR Add(ARG_TYPE newElement);
    INT_PTR Append(const CArray& src);
    void Copy(const CArray& src);

    // An index behind the end fills the gap with value-initialised elements.
    void SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement);
    void InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount = 1);
    void InsertAt(INT_PTR nStartIndex, CArray* pNewArray);
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1);

  private:
    static constexpr INT_PTR s_nSmallestCapacity = 4;

    static void Require(bool condition) {
        if (!condition) throw std::out_of_range("CArray: index or size");
    }
    INT_PTR Checked(INT_PTR nIndex) const {
        Require(nIndex >= 0 && nIndex < m_nCount);
        return nIndex;
    }
    void Reserve(INT_PTR nCapacity);
    TYPE* OpenGap(INT_PTR nIndex, INT_PTR nCount);

    std::unique_ptr<TYPE[]> m_pData;  // m_nCapacity elements; those from m_nCount on are value-initialised
    INT_PTR m_nCount = 0;
    INT_PTR m_nCapacity = 0;
    INT_PTR m_nGrowBy = 0;  // 0: the capacity doubles
};

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Reserve(INT_PTR nCapacity) {
    if (nCapacity <= m_nCapacity) return;
    const INT_PTR step = m_nGrowBy > 0 ? m_nGrowBy : (std::max)(m_nCapacity, s_nSmallestCapacity);
    const INT_PTR capacity = (std::max)(nCapacity, m_nCapacity + step);
    auto data = std::make_unique<TYPE[]>(static_cast<size_t>(capacity));
    std::move(m_pData.get(), m_pData.get() + m_nCount, data.get());
    m_pData = std::move(data);
    m_nCapacity = capacity;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetSize(INT_PTR nNewSize, INT_PTR nGrowBy) {
    Require(nNewSize >= 0);
    if (nGrowBy >= 0) m_nGrowBy = nGrowBy;
    Reserve(nNewSize);
    // What falls out of the array gives up what it holds now, not when its place is used again.
    for (INT_PTR i = nNewSize; i < m_nCount; ++i) m_pData[i] = TYPE();
    m_nCount = nNewSize;
}

// Makes room for nCount elements at nIndex and returns the first, still holding what was there.
template <class TYPE, class ARG_TYPE>
TYPE* CArray<TYPE, ARG_TYPE>::OpenGap(INT_PTR nIndex, INT_PTR nCount) {
    const INT_PTR oldCount = (std::max)(m_nCount, nIndex);
    SetSize(oldCount + nCount);
    TYPE* const gap = m_pData.get() + nIndex;
    std::move_backward(gap, m_pData.get() + oldCount, m_pData.get() + m_nCount);
    return gap;
}

template <class TYPE, class ARG_TYPE>
INT_PTR CArray<TYPE, ARG_TYPE>::Add(ARG_TYPE newElement) {
    const INT_PTR index = m_nCount;
    SetAtGrow(index, newElement);
    return index;
}

template <class TYPE, class ARG_TYPE>
INT_PTR CArray<TYPE, ARG_TYPE>::Append(const CArray& src) {
    const INT_PTR first = m_nCount;
    const INT_PTR count = src.m_nCount;
    SetSize(first + count);
    std::copy_n(src.m_pData.get(), count, m_pData.get() + first);
    return first;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Copy(const CArray& src) {
    if (&src == this) return;
    SetSize(src.m_nCount);
    std::copy_n(src.m_pData.get(), m_nCount, m_pData.get());
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement) {
    Require(nIndex >= 0);
    // Copied first: the argument may be an element of this array, which moves when the array grows.
    TYPE element{};
    element = newElement;
    if (nIndex >= m_nCount) SetSize(nIndex + 1);
    m_pData[nIndex] = std::move(element);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount) {
    Require(nIndex >= 0 && nCount >= 0);
    if (nCount == 0) return;
    TYPE element{};
    element = newElement;
    std::fill_n(OpenGap(nIndex, nCount), nCount, element);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(INT_PTR nStartIndex, CArray* pNewArray) {
    Require(nStartIndex >= 0 && pNewArray != this);
    if (!pNewArray->IsEmpty())
        std::copy_n(pNewArray->GetData(), pNewArray->m_nCount, OpenGap(nStartIndex, pNewArray->m_nCount));
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::RemoveAt(INT_PTR nIndex, INT_PTR nCount) {
    Require(nIndex >= 0 && nCount >= 0 && nIndex <= m_nCount && nCount <= m_nCount - nIndex);
    // Moving an element onto itself would empty it.
    if (nCount == 0) return;
    TYPE* const data = m_pData.get();
    std::move(data + nIndex + nCount, data + m_nCount, data + nIndex);
    SetSize(m_nCount - nCount);
}
