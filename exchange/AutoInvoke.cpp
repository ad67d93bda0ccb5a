#include "AutoInvoke.h"

#include <cstdarg>
#include <vector>

// Excel refuses the user's locale when the language pack for it is missing. It never refuses English, the
// locale of its type library.
constexpr LCID kEnglish = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

HRESULT AutoInvoke(AutoKind kind, VARIANT* result, IDispatch* object, const AutoMember& member,
                   int argumentCount, ...) {
    if (!object) return E_POINTER;
    if (member.id == DISPID_UNKNOWN) {
        auto* name = const_cast<LPOLESTR>(member.pszName);  // only read, whatever its type
        DISPID id = DISPID_UNKNOWN;                         // a failing call may leave anything in it
        const HRESULT found = object->GetIDsOfNames(IID_NULL, &name, 1, kEnglish, &id);
        if (FAILED(found)) return found;
        member.id = id;
    }
    std::vector<VARIANT> reversed(static_cast<std::size_t>(argumentCount));
    va_list arguments;
    va_start(arguments, argumentCount);
    for (auto argument = reversed.rbegin(); argument != reversed.rend(); ++argument)
        *argument = va_arg(arguments, VARIANT);
    va_end(arguments);
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(argumentCount), 0};
    return object->Invoke(member.id, IID_NULL, kEnglish, kind, &parameters, result, nullptr, nullptr);
}
