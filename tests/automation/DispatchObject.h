#pragma once

#include "Journal.h"

#include <windows.h>
#include <oaidl.h>

#include <functional>
#include <string>
#include <vector>

// Excel's own code for whatever goes wrong in it.
constexpr HRESULT kExcelError = static_cast<HRESULT>(0x800A03EC);

struct Member {
    std::wstring name;
    WORD nKind;           // DISPATCH_METHOD or DISPATCH_PROPERTYGET
    unsigned nArguments;  // none or a text
    std::function<HRESULT(const std::wstring& argument, VARIANT& result)> call;
};

// An object that clients drive by the names of its members, in any case of letters. Lookups and calls are
// noted in the journal. Starts with one reference.
class DispatchObject : public IDispatch {
  public:
    DispatchObject(Journal& journal, std::vector<Member> members);

    // Objects that clients hold; when there are none any more, the message loop ends.
    static int Count() { return s_nObjects; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** ppObject) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_nReferences; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pnInfos) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* ppszNames, UINT nNames, LCID,
                                            DISPID* pIds) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID nId, REFIID, LCID, WORD nKinds, DISPPARAMS* pArguments,
                                     VARIANT* pResult, EXCEPINFO* pException, UINT*) override;

  private:
    virtual ~DispatchObject();

    static int s_nObjects;
    Journal& m_journal;
    const std::vector<Member> m_members;  // a member's id is its place, from 1
    ULONG m_nReferences = 1;
};
