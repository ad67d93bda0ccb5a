#pragma once

#include "afx.h"

// List of texts.
class MFX_MFC_API CStringList : public CObject {
  public:
    // The block size has no effect: each element is allocated by itself.
    CStringList(INT_PTR nBlockSize = 10);
    ~CStringList() override;

    INT_PTR GetCount() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    // The list must not be empty.
    const CString& GetHead() const { return m_pHead->text; }
    const CString& GetTail() const { return m_pTail->text; }

    POSITION AddTail(LPCTSTR newElement);
    void RemoveAll();

    // Null for an empty list.
    POSITION GetHeadPosition() const { return m_pHead; }

    // The element at rPosition, which moves on and becomes null behind the last element.
    const CString& GetNext(POSITION& rPosition) const;

  private:
    struct CNode : mfx::CListPosition {
        CString text;
        CNode* pNext = nullptr;
    };

    CNode* m_pHead = nullptr;
    CNode* m_pTail = nullptr;
    INT_PTR m_nCount = 0;
};
