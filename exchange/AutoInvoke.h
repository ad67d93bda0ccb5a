// Calls of automation objects.
#pragma once

#include <afx.h>
#include <oleauto.h>
#include <wrl/client.h>

// A value that is released with its scope.
class Variant : public VARIANT {
  public:
    Variant() : VARIANT{} {}
    explicit Variant(LPCWSTR text) : Variant() { vt = VT_BSTR, bstrVal = SysAllocString(text); }
    ~Variant() { VariantClear(this); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    // The object that it holds, or null.
    Microsoft::WRL::ComPtr<IDispatch> Object() const { return vt == VT_DISPATCH ? pdispVal : nullptr; }
};

// A member of automation objects, by its name. The first call looks up its dispatch id, which takes as long
// as the call itself. Later calls use that id again, so keep the member, but only for objects of one kind.
struct AutoMember {
    AutoMember(LPCWSTR pszMember) : pszName(pszMember) {}

    LPCWSTR pszName;
    mutable DISPID id = DISPID_UNKNOWN;
};

enum AutoKind : WORD {
    AutoMethod = DISPATCH_METHOD,
    AutoPropertyGet = DISPATCH_PROPERTYGET,
    AutoPropertyPut = DISPATCH_PROPERTYPUT,  // the last argument is the new value
};

// Calls a member, given by name or as an AutoMember that is kept. The arguments, argumentCount of them, have
// the type VARIANT and stay the caller's. The result may be null; what it points to is empty before the call.
// A call that the object's program rejects because it is busy is tried again for five seconds.
HRESULT AutoInvoke(AutoKind kind, VARIANT* result, IDispatch* object, const AutoMember& member,
                   int argumentCount, ...);
