#include "AutoInvoke.h"

#include <cstdarg>
#include <vector>

// Excel refuses the user's locale where its language pack is missing; that of its type library it always
// takes.
constexpr LCID kEnglish = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

HRESULT AutoInvoke(AutoKind kind, VARIANT* pResult, IDispatch* pObject, const AutoMember& member,
                   int nArguments, ...) {
    if (!pObject) return E_POINTER;
    if (member.id == DISPID_UNKNOWN) {
        auto* pszName = const_cast<LPOLESTR>(member.pszName);  // only read, whatever its type
        DISPID id = DISPID_UNKNOWN;                            // a failing call may leave anything in it
        const HRESULT result = pObject->GetIDsOfNames(IID_NULL, &pszName, 1, kEnglish, &id);
        if (FAILED(result)) return result;
        member.id = id;
    }
    std::vector<VARIANT> reversed(static_cast<std::size_t>(nArguments));
    va_list arguments;
    va_start(arguments, nArguments);
    for (auto argument = reversed.rbegin(); argument != reversed.rend(); ++argument)
        *argument = va_arg(arguments, VARIANT);
    va_end(arguments);
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(nArguments), 0};
    return pObject->Invoke(member.id, IID_NULL, kEnglish, kind, &parameters, pResult, nullptr, nullptr);
}
