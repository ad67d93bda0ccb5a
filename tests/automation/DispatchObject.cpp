#include "DispatchObject.h"

DispatchObject::DispatchObject(Journal& journal, std::vector<Member> members)
    : m_journal(journal), m_members(std::move(members)) {
    ++m_journal.m_nObjects;
}

DispatchObject::~DispatchObject() {
    if (--m_journal.m_nObjects == 0) PostQuitMessage(0);
}

HRESULT DispatchObject::QueryInterface(REFIID iid, void** ppObject) {
    const bool bKnown = iid == IID_IUnknown || iid == IID_IDispatch;
    *ppObject = bKnown ? this : nullptr;
    if (bKnown) AddRef();
    return bKnown ? S_OK : E_NOINTERFACE;
}

ULONG DispatchObject::Release() {
    const ULONG nReferences = --m_nReferences;
    if (nReferences == 0) delete this;
    return nReferences;
}

HRESULT DispatchObject::GetIDsOfNames(REFIID, LPOLESTR* ppszNames, UINT nNames, LCID, DISPID* pIds) {
    m_journal.Note(std::wstring(L"id ") + ppszNames[0]);
    for (std::size_t i = 0; i < m_members.size() && nNames == 1; ++i)
        if (lstrcmpiW(ppszNames[0], m_members[i].name.c_str()) == 0) {
            pIds[0] = static_cast<DISPID>(i + 1);
            return S_OK;
        }
    return DISP_E_UNKNOWNNAME;
}

HRESULT DispatchObject::Invoke(DISPID nId, REFIID, LCID, WORD nKinds, DISPPARAMS* pArguments,
                               VARIANT* pResult, EXCEPINFO*, UINT*) {
    const auto nMember = static_cast<std::size_t>(nId) - 1;
    if (nMember >= m_members.size() || !(m_members[nMember].nKind & nKinds)) return DISP_E_MEMBERNOTFOUND;
    const Member& member = m_members[nMember];
    if (pArguments->cArgs != member.nArguments) return DISP_E_BADPARAMCOUNT;
    const VARIANT* const pText = member.nArguments ? pArguments->rgvarg : nullptr;
    if (pText && V_VT(pText) != VT_BSTR) return DISP_E_TYPEMISMATCH;
    try {
        const std::wstring argument(pText ? V_BSTR(pText) : L"", pText ? SysStringLen(V_BSTR(pText)) : 0);
        m_journal.NoteCall(member.name, argument);
        _variant_t result = member.call(argument);
        if (pResult) *pResult = result.Detach();
        return S_OK;
    } catch (...) {
        return static_cast<HRESULT>(0x800A03EC);  // as Excel says for whatever goes wrong in it
    }
}
