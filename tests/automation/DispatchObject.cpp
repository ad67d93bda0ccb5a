#include "DispatchObject.h"

HRESULT CallLog::Note(const std::wstring& member, const std::wstring& argument) {
    lines.push_back(argument.empty() ? member : member + L" " + argument);
    if (fault.nCall > 0 && member == fault.member) --fault.nCall;
    if (fault.nCall > 0 || fault.nTimes == 0) return S_OK;
    --fault.nTimes;
    return fault.result;
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
    const HRESULT noted = m_log.Note(L"id", ppszNames[0]);
    if (FAILED(noted)) return noted;
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
    try {
        const _variant_t argument = member.nArguments ? _variant_t(pArguments->rgvarg[0]) : _variant_t(L"");
        const HRESULT noted = m_log.Note(member.name, static_cast<LPCWSTR>(_bstr_t(argument)));
        if (FAILED(noted)) return noted;
        _variant_t result = member.call(argument);
        if (pResult) *pResult = result.Detach();
        return S_OK;
    } catch (...) {
        return kExcelError;
    }
}
