#include "DispatchObject.h"

int DispatchObject::s_nObjects = 0;

DispatchObject::DispatchObject(Journal& journal, std::vector<Member> members)
    : m_journal(journal), m_members(std::move(members)) {
    ++s_nObjects;
}

DispatchObject::~DispatchObject() {
    if (--s_nObjects == 0) PostQuitMessage(0);
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

HRESULT DispatchObject::GetTypeInfoCount(UINT* pnInfos) {
    *pnInfos = 0;
    return S_OK;
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
                               VARIANT* pResult, EXCEPINFO* pException, UINT*) {
    const auto nMember = static_cast<std::size_t>(nId) - 1;
    if (nMember >= m_members.size() || !(m_members[nMember].nKind & nKinds)) return DISP_E_MEMBERNOTFOUND;
    const Member& member = m_members[nMember];
    if (pArguments->cArgs != member.nArguments) return DISP_E_BADPARAMCOUNT;
    std::wstring argument;
    if (member.nArguments == 1) {
        const VARIANT& text = pArguments->rgvarg[0];
        if (V_VT(&text) != VT_BSTR) return DISP_E_TYPEMISMATCH;
        argument.assign(V_BSTR(&text), SysStringLen(V_BSTR(&text)));
    }
    VARIANT result;
    VariantInit(&result);
    const HRESULT hResult =
        m_journal.NoteCall(member.name, argument) ? member.call(argument, result) : kExcelError;
    if (pResult)
        *pResult = result;
    else
        VariantClear(&result);
    if (FAILED(hResult) && pException) {
        *pException = {};
        pException->scode = hResult;
    }
    return FAILED(hResult) ? DISP_E_EXCEPTION : S_OK;
}
