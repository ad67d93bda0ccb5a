#include "AutoInvoke.h"

#include <cstdarg>
#include <vector>

// Excel refuses the user's locale when the language pack for it is missing. It never refuses English, the
// locale of its type library.
constexpr LCID kEnglish = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

// Excel says the last one while its user edits a cell.
static bool IsBusy(HRESULT result) {
    constexpr auto kExcelIgnores = static_cast<HRESULT>(0x800AC472);
    return result == RPC_E_SERVERCALL_RETRYLATER || result == RPC_E_CALL_REJECTED || result == kExcelIgnores;
}

template <class Call>
static HRESULT CallWhenReady(Call&& call) {
    constexpr ULONGLONG kMostMs = 5000;
    constexpr DWORD kPauseMs = 100;
    for (const ULONGLONG startMs = GetTickCount64();;) {
        const HRESULT result = call();
        if (!IsBusy(result) || GetTickCount64() - startMs > kMostMs) return result;
        Sleep(kPauseMs);
    }
}

HRESULT AutoInvoke(AutoKind kind, VARIANT* result, IDispatch* object, const AutoMember& member,
                   int argumentCount, ...) {
    if (!object) return E_POINTER;
    if (member.id == DISPID_UNKNOWN) {
        auto* name = const_cast<LPOLESTR>(member.pszName);  // only read, whatever its type
        DISPID id = DISPID_UNKNOWN;                         // a failing call may leave anything in it
        const HRESULT found =
            CallWhenReady([&] { return object->GetIDsOfNames(IID_NULL, &name, 1, kEnglish, &id); });
        if (FAILED(found)) return found;
        member.id = id;
    }
    std::vector<VARIANT> reversed(static_cast<std::size_t>(argumentCount));
    va_list arguments;
    va_start(arguments, argumentCount);
    for (auto argument = reversed.rbegin(); argument != reversed.rend(); ++argument)
        *argument = va_arg(arguments, VARIANT);
    va_end(arguments);
    DISPID newValue = DISPID_PROPERTYPUT;
    const UINT namedCount = kind == AutoPropertyPut ? 1 : 0;
    DISPPARAMS parameters{reversed.data(), namedCount ? &newValue : nullptr, static_cast<UINT>(argumentCount),
                          namedCount};
    return CallWhenReady([&] {
        return object->Invoke(member.id, IID_NULL, kEnglish, kind, &parameters, result, nullptr, nullptr);
    });
}
