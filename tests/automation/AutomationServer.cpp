#include "AutomationServer.h"

#include <future>
#include <stdexcept>

namespace {

constexpr CLSID kClassId = {0x19D4B5AB, 0xCC0E, 0x4750, {0x95, 0xAA, 0x0A, 0x79, 0x8D, 0x7D, 0x37, 0x60}};
constexpr wchar_t kApplicationKey[] = L"Software\\Classes\\Excel.Application";
constexpr WORD kMethod = DISPATCH_METHOD, kProperty = DISPATCH_PROPERTYGET, kPut = DISPATCH_PROPERTYPUT;

using Members = std::vector<Member>;

struct Session {
    CallLog& log;
    CellRows rows;  // of the open workbook
    bool bAlerts = true;

    // What every workbook does when it is opened and closed.
    void Ask() {
        if (bAlerts) log.lines.push_back(L"Alert");
    }
};

_variant_t NewObject(Session& session, Members members) {
    return {new DispatchObject(session.log, std::move(members)), false};
}

// The value at an address such as "B12". Throws where the sheet has no such cell.
_variant_t ValueAt(const CellRows& rows, const std::wstring& address) {
    const std::size_t column = address.at(0) - L'A', row = std::stoul(address.substr(1)) - 1;
    return row < rows.size() && column < rows[row].size() ? rows[row][column] : _variant_t();
}

Members Range(Session& session, const std::wstring& address) {
    ValueAt(session.rows, address);
    return {{L"value", kProperty, 0, [=, &session](const auto&) { return ValueAt(session.rows, address); }}};
}

Members Sheet(Session& session) {
    return {{L"Range", kProperty, 1,
             [&session](const auto& address) { return NewObject(session, Range(session, address.bstrVal)); }},
            {L"Name", kProperty, 0, [](const auto&) { return _variant_t(L"Sheet of Excel"); }}};
}

Members Workbook(Session& session) {
    return {{L"Close", kMethod, 0, [&session](const auto&) {
                 session.Ask();
                 session.rows.clear();
                 return _variant_t();
             }}};
}

Members Workbooks(Session& session) {
    return {{L"Open", kMethod, 1, [&session](const auto& path) {
                 session.Ask();
                 session.rows = ReadCellFile(path.bstrVal);
                 return NewObject(session, Workbook(session));
             }}};
}

Members Application(Session& session) {
    return {{L"DisplayAlerts", kPut, 1,
             [&](const auto& value) {
                 session.bAlerts = value;
                 return _variant_t();
             }},
            {L"AutomationSecurity", kPut, 1, [](const auto&) { return _variant_t(); }},
            {L"Workbooks", kProperty, 0, [&](const auto&) { return NewObject(session, Workbooks(session)); }},
            {L"ActiveSheet", kProperty, 0, [&](const auto&) { return NewObject(session, Sheet(session)); }},
            {L"Quit", kMethod, 0, [](const auto&) { return _variant_t(); }}};
}

// Lives as long as the thread of the server.
class Factory : public IClassFactory {
  public:
    explicit Factory(CallLog& log) : m_session{log, {}} {}
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
        const HRESULT noted = m_session.log.Note(L"Create");
        if (FAILED(noted)) return noted;
        const _variant_t application = NewObject(m_session, Application(m_session));
        return application.pdispVal->QueryInterface(iid, object);
    }

  private:
    Session m_session;
};

// Answers clients until the thread is told to quit. The promise is the thread's id, once clients may call.
void Serve(CallLog& log, std::promise<DWORD> threadId) {
    Factory factory(log);
    DWORD cookie = 0;
    CoInitialize(nullptr);
    CoRegisterClassObject(kClassId, &factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTI_SEPARATE, &cookie);
    threadId.set_value(GetCurrentThreadId());
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) DispatchMessageW(&message);
    CoRevokeClassObject(cookie);
    CoUninitialize();
}

}  // namespace

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
    m_thread = std::thread(Serve, std::ref(m_log), std::move(threadId));
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
