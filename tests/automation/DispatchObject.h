#pragma once

#include <windows.h>
#include <comdef.h>

#include <functional>
#include <string>
#include <vector>

// As Excel says for whatever goes wrong in it.
constexpr HRESULT kExcelError = static_cast<HRESULT>(0x800A03EC);

// What clients asked of the objects of a server, and which of their calls go wrong.
struct CallLog {
    // Notes a call and returns what has to come of it.
    HRESULT Note(const std::wstring& member, const std::wstring& argument = L"");

    std::vector<std::wstring> lines;
    int nObjects = 0;  // that clients hold

    // Calls that go wrong, of whatever member: the first is the nCall-th of the member named.
    struct {
        std::wstring member;
        int nCall = 0;
        int nTimes = 0;
        HRESULT result = S_OK;
    } fault;
};

// A member of an object, with one argument or none.
struct Member {
    std::wstring name;
    WORD nKind;  // DISPATCH_METHOD, DISPATCH_PROPERTYGET or DISPATCH_PROPERTYPUT
    unsigned nArguments;
    // Throws whatever it likes when the call is to fail.
    std::function<_variant_t(const _variant_t& argument)> call;
};

// An object that clients drive by the names of its members, in any case of letters. Look-ups of names are
// noted as calls of "id". Starts with one reference.
class DispatchObject : public IDispatch {
  public:
    DispatchObject(CallLog& log, std::vector<Member> members) : m_log(log), m_members(std::move(members)) {
        ++m_log.nObjects;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_nReferences; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT nameCount, LCID,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kinds, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO*, UINT*) override;

  private:
    virtual ~DispatchObject() { --m_log.nObjects; }

    CallLog& m_log;
    const std::vector<Member> m_members;  // a member's id is its place, from 1
    ULONG m_nReferences = 1;
};
