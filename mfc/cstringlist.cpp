#include "afxcoll.h"

#include <utility>

CStringList::CStringList(INT_PTR /*nBlockSize*/) {}

CStringList::~CStringList() {
    RemoveAll();
}

POSITION CStringList::AddTail(LPCTSTR newElement) {
    auto* const node = new CNode{{}, newElement};
    (m_pTail ? m_pTail->pNext : m_pHead) = node;
    m_pTail = node;
    ++m_nCount;
    return node;
}

void CStringList::RemoveAll() {
    while (m_pHead) delete std::exchange(m_pHead, m_pHead->pNext);
    m_pTail = nullptr;
    m_nCount = 0;
}

const CString& CStringList::GetNext(POSITION& rPosition) const {
    const CNode* const node = static_cast<CNode*>(rPosition);
    rPosition = node->pNext;
    return node->text;
}
