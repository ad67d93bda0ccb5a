// Calls of automation objects.
#pragma once

#include <afx.h>
#include <oleauto.h>
#include <wrl/client.h>

// A value that is released with its scope.
class Variant : public VARIANT {
  public:
    Variant() : VARIANT{} {}
    explicit Variant(LPCWSTR pszText) : Variant() { vt = VT_BSTR, bstrVal = SysAllocString(pszText); }
    ~Variant() { VariantClear(this); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    // The object that it holds, or null.
    Microsoft::WRL::ComPtr<IDispatch> Object() const { return vt == VT_DISPATCH ? pdispVal : nullptr; }
};

// A member of one kind of object, by its name. Whoever calls it more than once keeps it: the dispatch id is
// looked up with the first object, which takes as long as the call itself.
struct AutoMember {
    AutoMember(LPCWSTR pszMember) : pszName(pszMember) {}

    LPCWSTR pszName;
    mutable DISPID id = DISPID_UNKNOWN;
};

enum AutoKind : WORD { AutoMethod = DISPATCH_METHOD, AutoPropertyGet = DISPATCH_PROPERTYGET };

// Calls a member, a name or a kept AutoMember, with nArguments arguments of the type VARIANT, which stay the
// caller's. The result, which is empty before, may be null.
HRESULT AutoInvoke(AutoKind kind, VARIANT* pResult, IDispatch* pObject, const AutoMember& member,
                   int nArguments, ...);
