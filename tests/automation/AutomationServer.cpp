#include "AutomationServer.h"

#include <filesystem>
#include <fstream>
#include <future>
#include <sstream>
#include <stdexcept>

namespace {

constexpr CLSID kClassId = {0x19D4B5AB, 0xCC0E, 0x4750, {0x95, 0xAA, 0x0A, 0x79, 0x8D, 0x7D, 0x37, 0x60}};
constexpr wchar_t kApplicationKey[] = L"Software\\Classes\\Excel.Application";
constexpr WORD kMethod = DISPATCH_METHOD, kProperty = DISPATCH_PROPERTYGET, kPut = DISPATCH_PROPERTYPUT;

enum class Kind { None, Application, Workbooks, Workbook, Sheet, Range };

// A member of an object; its id is its place in the table, from 1.
constexpr struct Member {
    Kind owner;
    const wchar_t* pszName;
    WORD nInvokeKind;
    unsigned nArguments;
    Kind result = Kind::None;
} kMembers[] = {
    {Kind::Application, L"DisplayAlerts", kPut, 1},
    {Kind::Application, L"AutomationSecurity", kPut, 1},
    {Kind::Application, L"Workbooks", kProperty, 0, Kind::Workbooks},
    {Kind::Application, L"ActiveSheet", kProperty, 0, Kind::Sheet},
    {Kind::Application, L"Quit", kMethod, 0},
    {Kind::Workbooks, L"Open", kMethod, 1, Kind::Workbook},
    {Kind::Workbook, L"Close", kMethod, 0},
    {Kind::Sheet, L"Range", kProperty, 1, Kind::Range},
    {Kind::Sheet, L"Name", kProperty, 0},
    {Kind::Range, L"value", kProperty, 0},
};

_variant_t CellValue(const std::string& cell) {
    if (cell.empty()) return {};
    _variant_t value(std::filesystem::path(std::u8string(cell.begin(), cell.end())).c_str());
    constexpr LCID kEnglish = 0x409;
    VariantChangeTypeEx(&value, &value, kEnglish, 0, VT_R8);  // or it stays a text
    return value;
}

std::vector<std::vector<_variant_t>> ReadCells(const std::wstring& path) {
    std::ifstream file{std::filesystem::path(path)};
    if (!file) throw std::runtime_error("the workbook can't be opened");
    std::vector<std::vector<_variant_t>> rows;
    for (std::string line; std::getline(file, line);) {
        std::istringstream cells(line);
        rows.emplace_back();
        for (std::string cell; std::getline(cells, cell, '|');) rows.back().push_back(CellValue(cell));
    }
    return rows;
}

// An object that clients drive by the names of its members, in any case of letters.
class ExcelObject : public IDispatch {
  public:
    // The argument is that of the call which gave the object.
    ExcelObject(AutomationSession& session, Kind kind, const std::wstring& argument = L"")
        : m_session(session), m_kind(kind), m_argument(argument) {
        ++m_session.nObjects;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
        *object = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_nReferences; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG nReferences = --m_nReferences;
        if (nReferences == 0) delete this;
        return nReferences;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const HRESULT noted = m_session.Note(L"id", names[0]);
        if (FAILED(noted)) return noted;
        *ids = 0;
        for (const Member& member : kMembers) {
            ++*ids;
            if (member.owner == m_kind && lstrcmpiW(names[0], member.pszName) == 0) return S_OK;
        }
        return DISP_E_UNKNOWNNAME;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD nKinds, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        const Member& member = kMembers[id - 1];
        if (member.owner != m_kind || !(member.nInvokeKind & nKinds)) return DISP_E_MEMBERNOTFOUND;
        if (arguments->cArgs != member.nArguments) return DISP_E_BADPARAMCOUNT;
        const bool bNamesValue =
            arguments->cNamedArgs == 1 && arguments->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
        if (bNamesValue != (member.nInvokeKind == kPut)) return DISP_E_PARAMNOTFOUND;
        try {
            const _variant_t first = member.nArguments ? _variant_t(arguments->rgvarg[0]) : _variant_t(L"");
            const std::wstring argument(static_cast<_bstr_t>(first));
            const HRESULT noted = m_session.Note(member.pszName, argument);
            if (FAILED(noted)) return noted;
            _variant_t value = Call(member, argument);
            if (result) *result = value.Detach();
            return S_OK;
        } catch (...) {
            return kExcelError;
        }
    }

  private:
    virtual ~ExcelObject() { --m_session.nObjects; }

    _variant_t Call(const Member& member, const std::wstring& argument) {
        if (m_kind == Kind::Range) return ValueAt(m_argument);
        if (member.result == Kind::Range) ValueAt(argument);
        if (member.result == Kind::Workbook) m_session.cells = ReadCells(argument);
        if (m_kind == Kind::Sheet && member.result == Kind::None) return L"Sheet of Excel";
        if (member.result == Kind::None) return {};
        return {new ExcelObject(m_session, member.result, argument), false};
    }

    // The value at an address such as "B12". Throws where the sheet has no such cell.
    _variant_t ValueAt(const std::wstring& address) const {
        const std::size_t column = address.at(0) - L'A', row = std::stoul(address.substr(1)) - 1;
        const auto& cells = m_session.cells;
        return row < cells.size() && column < cells[row].size() ? cells[row][column] : _variant_t();
    }

    AutomationSession& m_session;
    const Kind m_kind;
    const std::wstring m_argument;
    ULONG m_nReferences = 1;
};

// Lives as long as the thread of the server.
class Factory : public IClassFactory {
  public:
    explicit Factory(AutomationSession& session) : m_session(session) {}
    virtual ~Factory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override {
        *object = nullptr;
        const HRESULT noted = m_session.Note(L"Create");
        if (FAILED(noted)) return noted;
        const _variant_t application(new ExcelObject(m_session, Kind::Application), false);
        return application.pdispVal->QueryInterface(iid, object);
    }

  private:
    AutomationSession& m_session;
};

// Answers clients until the thread is told to quit. The promise is the thread's id, once clients may call.
void Serve(AutomationSession& session, std::promise<DWORD> threadId) {
    Factory factory(session);
    DWORD cookie = 0;
    CoInitialize(nullptr);
    CoRegisterClassObject(kClassId, &factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTI_SEPARATE, &cookie);
    threadId.set_value(GetCurrentThreadId());
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) DispatchMessageW(&message);
    CoRevokeClassObject(cookie);
    CoUninitialize();
}

}  // namespace

HRESULT AutomationSession::Note(const std::wstring& member, const std::wstring& argument) {
    calls.push_back(argument.empty() ? member : member + L" " + argument);
    if (fault.nCall > 0 && member == fault.member) --fault.nCall;
    if (fault.nCall > 0 || fault.nTimes == 0) return S_OK;
    --fault.nTimes;
    return fault.result;
}

AutomationServer::AutomationServer() : m_hMutex(CreateMutexW(nullptr, FALSE, L"mfx_automation_server")) {
    WaitForSingleObject(m_hMutex, INFINITE);
    CLSID id;
    if (SUCCEEDED(CLSIDFromProgID(L"Excel.Application", &id)) && id != kClassId)
        throw std::runtime_error("Excel is installed here");
    wchar_t idText[40];
    const int length = StringFromGUID2(kClassId, idText, static_cast<int>(std::size(idText)));
    if (RegSetKeyValueW(HKEY_LOCAL_MACHINE, (std::wstring(kApplicationKey) + L"\\CLSID").c_str(), nullptr,
                        REG_SZ, idText, static_cast<DWORD>(length) * sizeof(wchar_t)) != ERROR_SUCCESS)
        throw std::runtime_error("the automation server can't be registered");
    std::promise<DWORD> threadId;
    std::future<DWORD> ready = threadId.get_future();
    m_thread = std::thread(Serve, std::ref(m_session), std::move(threadId));
    m_dwThreadId = ready.get();
}

AutomationServer::~AutomationServer() {
    Unregister();
    PostThreadMessageW(m_dwThreadId, WM_QUIT, 0, 0);
    m_thread.join();
    ReleaseMutex(m_hMutex);
    CloseHandle(m_hMutex);
}

void AutomationServer::Unregister() {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kApplicationKey);
}
