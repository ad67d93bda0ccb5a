// A stand-in for Excel: opens .xls files and answers the cells of the active sheet. COM starts it, one per
// client; it ends when its client holds no object any more, when AutomationServer says so, or when nothing
// happens for long. Usage: mfx_automation_server JOURNAL [fail|die MEMBER CALL] -Embedding
#include "AutomationServer.h"
#include "CrashReport.h"
#include "DispatchObject.h"
#include "XlsSheet.h"

#include <memory>
#include <optional>
#include <regex>

namespace {

constexpr DWORD kIdleMs = 60000;

// Range and sheet of a closed workbook fail, so they hold its cells weakly.
struct Session {
    Journal& journal;
    std::shared_ptr<const XlsCells> pOpen;
};

HRESULT Give(VARIANT& result, Session& session, std::vector<Member> members) {
    V_VT(&result) = VT_DISPATCH;
    V_DISPATCH(&result) = new DispatchObject(session.journal, std::move(members));
    return S_OK;
}

HRESULT Give(VARIANT& result, const XlsCell& cell) {
    VARIANT number;
    V_VT(&number) = VT_R8;
    V_R8(&number) = cell.number;
    if (cell.nType != VT_BSTR && cell.nType != VT_ERROR)
        return VariantChangeType(&result, &number, 0, cell.nType);
    V_VT(&result) = cell.nType;
    if (cell.nType == VT_BSTR)
        V_BSTR(&result) = SysAllocString(cell.text.c_str());
    else
        V_ERROR(&result) = MAKE_SCODE(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<int>(cell.number));
    return S_OK;
}

// Row and column from 0 of an address such as "B12"; none outside of an .xls sheet, which ends at IV65536.
std::optional<XlsCells::key_type> CellAt(const std::wstring& address) {
    static const std::wregex kAddress(L"([A-Za-z]{1,2})([1-9][0-9]{0,4})");
    std::wsmatch match;
    if (!std::regex_match(address, match, kAddress)) return std::nullopt;
    unsigned nColumn = 0;
    for (const wchar_t ch : match.str(1)) nColumn = nColumn * 26 + (ch & 31);
    const unsigned nRow = static_cast<unsigned>(std::stoul(match.str(2)));
    if (nColumn > 256 || nRow > 65536) return std::nullopt;
    return XlsCells::key_type{nRow - 1, nColumn - 1};
}

using Cells = std::weak_ptr<const XlsCells>;

std::vector<Member> Range(const Cells& cells, const XlsCells::key_type& at) {
    return {{L"value", DISPATCH_PROPERTYGET, 0, [=](const std::wstring&, VARIANT& result) {
                 const auto pCells = cells.lock();
                 if (!pCells) return kExcelError;
                 const auto cell = pCells->find(at);
                 return cell == pCells->end() ? S_OK : Give(result, cell->second);
             }}};
}

std::vector<Member> Sheet(Session& session) {
    const Cells cells = session.pOpen;
    return {
        {L"Range", DISPATCH_PROPERTYGET, 1, [&session, cells](const std::wstring& address, VARIANT& result) {
             const auto at = CellAt(address);
             if (!at || cells.expired()) return kExcelError;
             return Give(result, session, Range(cells, *at));
         }}};
}

std::vector<Member> Workbook(Session& session) {
    return {{L"Close", DISPATCH_METHOD, 0, [&session](const std::wstring&, VARIANT&) {
                 session.pOpen.reset();
                 return S_OK;
             }}};
}

std::vector<Member> Workbooks(Session& session) {
    return {{L"Open", DISPATCH_METHOD, 1, [&session](const std::wstring& path, VARIANT& result) {
                 try {
                     session.pOpen = std::make_shared<const XlsCells>(ReadActiveSheet(path));
                 } catch (const std::exception&) {
                     return kExcelError;
                 }
                 return Give(result, session, Workbook(session));
             }}};
}

std::vector<Member> Application(Session& session) {
    return {{L"Workbooks", DISPATCH_PROPERTYGET, 0,
             [&session](const std::wstring&, VARIANT& result) {
                 return Give(result, session, Workbooks(session));
             }},
            {L"ActiveSheet", DISPATCH_PROPERTYGET, 0,
             [&session](const std::wstring&, VARIANT& result) {
                 return session.pOpen ? Give(result, session, Sheet(session)) : kExcelError;
             }},
            {L"Quit", DISPATCH_METHOD, 0, [](const std::wstring&, VARIANT&) { return S_OK; }}};
}

// Lives as long as the program.
class Factory : public IClassFactory {
  public:
    explicit Factory(Session& session) : m_session(session) {}
    virtual ~Factory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** ppObject) override {
        const bool bKnown = iid == IID_IUnknown || iid == IID_IClassFactory;
        *ppObject = bKnown ? this : nullptr;
        return bKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** ppObject) override {
        *ppObject = nullptr;
        if (!m_session.journal.NoteCall(L"Create")) {
            PostQuitMessage(0);
            return E_FAIL;
        }
        auto* const pObject = new DispatchObject(m_session.journal, Application(m_session));
        const HRESULT hResult = pObject->QueryInterface(iid, ppObject);
        pObject->Release();
        return hResult;
    }

  private:
    Session& m_session;
};

// Until the last object is released, the end is told, or nothing comes for long.
void ServeClients(HANDLE hEnd) {
    while (MsgWaitForMultipleObjects(1, &hEnd, FALSE, kIdleMs, QS_ALLINPUT) == WAIT_OBJECT_0 + 1)
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
            if (message.message == WM_QUIT) return;
            DispatchMessageW(&message);
        }
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    if (argc < 3) return 2;
    const bool bFault = argc > 4;
    Journal journal(argv[1], bFault ? argv[2] : L"", bFault ? argv[3] : L"", bFault ? std::stoi(argv[4]) : 0);
    Session session{journal, nullptr};
    Factory factory(session);
    const HANDLE hEnd = CreateEventW(nullptr, TRUE, FALSE, AutomationServer::kEndEvent);
    DWORD dwCookie = 0;
    CoInitialize(nullptr);
    if (FAILED(CoRegisterClassObject(AutomationServer::kClassId, &factory, CLSCTX_LOCAL_SERVER,
                                     REGCLS_SINGLEUSE, &dwCookie)))
        return 1;
    ServeClients(hEnd);
    CoRevokeClassObject(dwCookie);
    journal.Write(DispatchObject::Count());
    CoUninitialize();
    return 0;
}
