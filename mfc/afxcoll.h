#pragma once

#include <vector>

#include "afx.h"

// Doubly linked list of texts.
class MFX_MFC_API CStringList : public CObject {
  public:
    // The block size has no effect: each element is allocated by itself.
    CStringList(INT_PTR nBlockSize = 10);
    ~CStringList() override;

    INT_PTR GetCount() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    // The list must not be empty.
    CString& GetHead();
    const CString& GetHead() const;
    CString& GetTail();
    const CString& GetTail() const;
    CString RemoveHead();
    CString RemoveTail();

    POSITION AddHead(LPCTSTR newElement);
    POSITION AddTail(LPCTSTR newElement);
    void RemoveAll();
    void RemoveAt(POSITION position);

    // Null for an empty list.
    POSITION GetHeadPosition() const { return m_pHead; }
    POSITION GetTailPosition() const { return m_pTail; }

    // The element at rPosition, which moves on and becomes null behind the last (first) element.
    CString& GetNext(POSITION& rPosition);
    const CString& GetNext(POSITION& rPosition) const;
    CString& GetPrev(POSITION& rPosition);
    const CString& GetPrev(POSITION& rPosition) const;
    CString& GetAt(POSITION position);
    const CString& GetAt(POSITION position) const;

    // First equal text behind startAfter, or from the head on; null if there is none.
    POSITION Find(LPCTSTR searchValue, POSITION startAfter = NULL) const;

  private:
    struct CNode : mfx::CListPosition {
        CNode* pPrev;
        CNode* pNext;
        CString text;
    };

    static CNode* NodeAt(POSITION position);
    CNode* Link(CNode* pPrev, CNode* pNext, LPCTSTR text);

    CNode* m_pHead = nullptr;
    CNode* m_pTail = nullptr;
    INT_PTR m_nCount = 0;
};

// Growable array of texts. Access outside of the array throws std::out_of_range.
class MFX_MFC_API CStringArray : public CObject {
  public:
    CStringArray() = default;

    INT_PTR GetCount() const { return static_cast<INT_PTR>(m_texts.size()); }
    INT_PTR GetSize() const { return GetCount(); }
    INT_PTR GetUpperBound() const { return GetCount() - 1; }
    BOOL IsEmpty() const { return m_texts.empty(); }
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1);  // the growth step has no effect
    void RemoveAll() { m_texts.clear(); }

    const CString& GetAt(INT_PTR nIndex) const { return m_texts.at(static_cast<size_t>(nIndex)); }
    void SetAt(INT_PTR nIndex, LPCTSTR newElement) { ElementAt(nIndex) = newElement; }
    CString& ElementAt(INT_PTR nIndex) { return m_texts.at(static_cast<size_t>(nIndex)); }
    const CString& operator[](INT_PTR nIndex) const { return GetAt(nIndex); }
    CString& operator[](INT_PTR nIndex) { return ElementAt(nIndex); }
    const CString* GetData() const { return m_texts.empty() ? nullptr : m_texts.data(); }
    CString* GetData() { return m_texts.empty() ? nullptr : m_texts.data(); }

    // Index of the (first) added element.
    INT_PTR Add(LPCTSTR newElement);
    INT_PTR Append(const CStringArray& src);
    void Copy(const CStringArray& src) { m_texts = src.m_texts; }

    // An index behind the end fills the gap with empty texts.
    void SetAtGrow(INT_PTR nIndex, LPCTSTR newElement);
    void InsertAt(INT_PTR nIndex, LPCTSTR newElement, INT_PTR nCount = 1);
    void InsertAt(INT_PTR nStartIndex, CStringArray* pNewArray);
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1);

  private:
    std::vector<CString>::iterator MakePlace(INT_PTR nIndex);

    std::vector<CString> m_texts;
};
