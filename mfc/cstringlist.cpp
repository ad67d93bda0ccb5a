#include <memory>

#include "afxcoll.h"

CStringList::CStringList(INT_PTR /*nBlockSize*/) {}

CStringList::~CStringList() {
    RemoveAll();
}

CStringList::CNode* CStringList::NodeAt(POSITION position) {
    ASSERT(position);
    return static_cast<CNode*>(position);
}

CStringList::CNode* CStringList::Link(CNode* pPrev, CNode* pNext, LPCTSTR text) {
    CNode* const node = new CNode{{}, pPrev, pNext, text};
    (pPrev ? pPrev->pNext : m_pHead) = node;
    (pNext ? pNext->pPrev : m_pTail) = node;
    ++m_nCount;
    return node;
}

CString& CStringList::GetHead() {
    return NodeAt(m_pHead)->text;
}

const CString& CStringList::GetHead() const {
    return NodeAt(m_pHead)->text;
}

CString& CStringList::GetTail() {
    return NodeAt(m_pTail)->text;
}

const CString& CStringList::GetTail() const {
    return NodeAt(m_pTail)->text;
}

CString CStringList::RemoveHead() {
    const CString text = GetHead();
    RemoveAt(m_pHead);
    return text;
}

CString CStringList::RemoveTail() {
    const CString text = GetTail();
    RemoveAt(m_pTail);
    return text;
}

POSITION CStringList::AddHead(LPCTSTR newElement) {
    return Link(nullptr, m_pHead, newElement);
}

POSITION CStringList::AddTail(LPCTSTR newElement) {
    return Link(m_pTail, nullptr, newElement);
}

void CStringList::RemoveAll() {
    while (m_pHead) RemoveAt(m_pHead);
}

void CStringList::RemoveAt(POSITION position) {
    const std::unique_ptr<CNode> node(NodeAt(position));
    (node->pPrev ? node->pPrev->pNext : m_pHead) = node->pNext;
    (node->pNext ? node->pNext->pPrev : m_pTail) = node->pPrev;
    --m_nCount;
}

CString& CStringList::GetNext(POSITION& rPosition) {
    CNode* const node = NodeAt(rPosition);
    rPosition = node->pNext;
    return node->text;
}

const CString& CStringList::GetNext(POSITION& rPosition) const {
    const CNode* const node = NodeAt(rPosition);
    rPosition = node->pNext;
    return node->text;
}

CString& CStringList::GetPrev(POSITION& rPosition) {
    CNode* const node = NodeAt(rPosition);
    rPosition = node->pPrev;
    return node->text;
}

const CString& CStringList::GetPrev(POSITION& rPosition) const {
    const CNode* const node = NodeAt(rPosition);
    rPosition = node->pPrev;
    return node->text;
}

CString& CStringList::GetAt(POSITION position) {
    return NodeAt(position)->text;
}

const CString& CStringList::GetAt(POSITION position) const {
    return NodeAt(position)->text;
}

POSITION CStringList::Find(LPCTSTR searchValue, POSITION startAfter) const {
    CNode* node = startAfter ? NodeAt(startAfter)->pNext : m_pHead;
    while (node && node->text != searchValue) node = node->pNext;
    return node;
}
