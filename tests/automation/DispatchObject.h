#pragma once

#include "Journal.h"

#include <windows.h>
#include <comdef.h>

#include <functional>
#include <string>
#include <vector>

struct Member {
    std::wstring name;
    WORD nKind;           // DISPATCH_METHOD or DISPATCH_PROPERTYGET
    unsigned nArguments;  // none or a text
    // Throws whatever it likes when the call is to fail.
    std::function<_variant_t(const std::wstring& argument)> call;
};

// An object that clients drive by the names of its members, in any case of letters. It notes lookups and
// calls in the journal. Starts with one reference; the last object to go ends the message loop.
class DispatchObject : public IDispatch {
  public:
    DispatchObject(Journal& journal, std::vector<Member> members);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** ppObject) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_nReferences; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* ppszNames, UINT nNames, LCID,
                                            DISPID* pIds) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID nId, REFIID, LCID, WORD nKinds, DISPPARAMS* pArguments,
                                     VARIANT* pResult, EXCEPINFO*, UINT*) override;

  private:
    virtual ~DispatchObject();

    Journal& m_journal;
    const std::vector<Member> m_members;  // a member's id is its place, from 1
    ULONG m_nReferences = 1;
};
