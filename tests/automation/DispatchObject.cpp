#include "DispatchObject.h"

HRESULT CallLog::Note(const std::wstring& member, const std::wstring& argument) {
    lines.push_back(argument.empty() ? member : member + L" " + argument);
    if (fault.nCall > 0 && member == fault.member) --fault.nCall;
    if (fault.nCall > 0 || fault.nTimes == 0) return S_OK;
    --fault.nTimes;
    return fault.result;
}

HRESULT DispatchObject::QueryInterface(REFIID iid, void** object) {
    const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
    *object = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

ULONG DispatchObject::Release() {
    const ULONG references = --m_nReferences;
    if (references == 0) delete this;
    return references;
}

HRESULT DispatchObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT nameCount, LCID, DISPID* ids) {
    const HRESULT noted = m_log.Note(L"id", names[0]);
    if (FAILED(noted)) return noted;
    for (std::size_t i = 0; i < m_members.size() && nameCount == 1; ++i)
        if (lstrcmpiW(names[0], m_members[i].name.c_str()) == 0) {
            ids[0] = static_cast<DISPID>(i + 1);
            return S_OK;
        }
    return DISP_E_UNKNOWNNAME;
}

HRESULT DispatchObject::Invoke(DISPID id, REFIID, LCID, WORD kinds, DISPPARAMS* arguments, VARIANT* result,
                               EXCEPINFO*, UINT*) {
    const auto index = static_cast<std::size_t>(id) - 1;
    if (index >= m_members.size() || !(m_members[index].nKind & kinds)) return DISP_E_MEMBERNOTFOUND;
    const Member& member = m_members[index];
    if (arguments->cArgs != member.nArguments) return DISP_E_BADPARAMCOUNT;
    const bool bNamesValue =
        arguments->cNamedArgs == 1 && arguments->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    if (bNamesValue != (member.nKind == DISPATCH_PROPERTYPUT)) return DISP_E_PARAMNOTFOUND;
    try {
        const _variant_t argument = member.nArguments ? _variant_t(arguments->rgvarg[0]) : _variant_t(L"");
        const HRESULT noted = m_log.Note(member.name, static_cast<LPCWSTR>(_bstr_t(argument)));
        if (FAILED(noted)) return noted;
        _variant_t value = member.call(argument);
        if (result) *result = value.Detach();
        return S_OK;
    } catch (...) {
        return kExcelError;
    }
}
