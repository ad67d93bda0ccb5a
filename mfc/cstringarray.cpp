#include <stdexcept>

#include "afxcoll.h"

void CStringArray::SetSize(INT_PTR nNewSize, INT_PTR /*nGrowBy*/) {
    if (nNewSize < 0) throw std::out_of_range("CStringArray: negative size");
    m_texts.resize(static_cast<size_t>(nNewSize));
}

INT_PTR CStringArray::Add(LPCTSTR newElement) {
    m_texts.emplace_back(newElement);
    return GetUpperBound();
}

INT_PTR CStringArray::Append(const CStringArray& src) {
    const INT_PTR first = GetCount();
    const size_t count = src.m_texts.size();
    // With the room made beforehand an array can be appended to itself.
    m_texts.reserve(m_texts.size() + count);
    for (size_t i = 0; i < count; ++i) m_texts.push_back(src.m_texts[i]);
    return first;
}

void CStringArray::SetAtGrow(INT_PTR nIndex, LPCTSTR newElement) {
    const CString text = newElement;
    if (nIndex >= GetCount()) SetSize(nIndex + 1);
    ElementAt(nIndex) = text;
}

std::vector<CString>::iterator CStringArray::MakePlace(INT_PTR nIndex) {
    if (nIndex < 0) throw std::out_of_range("CStringArray: negative index");
    if (nIndex > GetCount()) SetSize(nIndex);
    return m_texts.begin() + nIndex;
}

void CStringArray::InsertAt(INT_PTR nIndex, LPCTSTR newElement, INT_PTR nCount) {
    const CString text = newElement;
    if (nCount > 0) m_texts.insert(MakePlace(nIndex), static_cast<size_t>(nCount), text);
}

void CStringArray::InsertAt(INT_PTR nStartIndex, CStringArray* pNewArray) {
    const std::vector<CString> texts = pNewArray->m_texts;
    if (!texts.empty()) m_texts.insert(MakePlace(nStartIndex), texts.begin(), texts.end());
}

void CStringArray::RemoveAt(INT_PTR nIndex, INT_PTR nCount) {
    if (nIndex < 0 || nCount < 0 || nIndex > GetCount() || nCount > GetCount() - nIndex)
        throw std::out_of_range("CStringArray: elements to remove");
    const auto first = m_texts.begin() + nIndex;
    m_texts.erase(first, first + nCount);
}
