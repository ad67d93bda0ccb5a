// A stand-in for Excel: opens .xls files and answers the cells of the active sheet. COM starts it, one per
// client; it ends when its client holds no object any more, when AutomationServer says so, or when nothing
// happens for long. Usage: mfx_automation_server JOURNAL [fail|die MEMBER CALL] -Embedding
#include "AutomationServer.h"
#include "CrashReport.h"
#include "DispatchObject.h"
#include "XlsSheet.h"

#include <memory>
#include <regex>
#include <stdexcept>

namespace {

constexpr DWORD kIdleMs = 60000;
constexpr WORD kMethod = DISPATCH_METHOD, kProperty = DISPATCH_PROPERTYGET;

using Members = std::vector<Member>;
// Sheets and ranges do not keep the cells of a workbook that is closed; calling them then throws.
using Cells = std::weak_ptr<const XlsCells>;

struct Session {
    Journal& journal;
    std::shared_ptr<const XlsCells> pOpen;
};

_variant_t NewObject(Session& session, Members members) {
    return {new DispatchObject(session.journal, std::move(members)), false};
}

// Row and column from 0 of an address such as "B12". Throws when an .xls sheet, which ends at IV65536, has no
// such cell.
XlsCells::key_type CellAt(const std::wstring& address) {
    static const std::wregex kAddress(L"([A-Za-z]{1,2})([1-9][0-9]{0,4})");
    std::wsmatch match;
    if (!std::regex_match(address, match, kAddress)) throw std::invalid_argument("address");
    unsigned nColumn = 0;
    for (const wchar_t ch : match.str(1)) nColumn = nColumn * 26 + (ch & 31);
    const unsigned nRow = static_cast<unsigned>(std::stoul(match.str(2)));
    if (nColumn > 256 || nRow > 65536) throw std::out_of_range("address");
    return {nRow - 1, nColumn - 1};
}

Members Range(const Cells& cells, const XlsCells::key_type& at) {
    return {{L"value", kProperty, 0, [=](const auto&) {
                 const std::shared_ptr pCells(cells);
                 const auto cell = pCells->find(at);
                 return cell == pCells->end() ? _variant_t() : cell->second;
             }}};
}

Members Sheet(Session& session) {
    return {{L"Range", kProperty, 1, [&session, cells = Cells(session.pOpen)](const auto& address) {
                 const std::shared_ptr pCells(cells);
                 return NewObject(session, Range(pCells, CellAt(address)));
             }}};
}

Members Workbook(Session& session) {
    return {{L"Close", kMethod, 0, [&session](const auto&) {
                 session.pOpen.reset();
                 return _variant_t();
             }}};
}

Members Workbooks(Session& session) {
    return {{L"Open", kMethod, 1, [&session](const auto& path) {
                 session.pOpen = std::make_shared<const XlsCells>(ReadActiveSheet(path));
                 return NewObject(session, Workbook(session));
             }}};
}

Members Application(Session& session) {
    return {{L"Workbooks", kProperty, 0, [&](const auto&) { return NewObject(session, Workbooks(session)); }},
            {L"ActiveSheet", kProperty, 0, [&](const auto&) { return NewObject(session, Sheet(session)); }},
            {L"Quit", kMethod, 0, [](const auto&) { return _variant_t(); }}};
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
        try {
            m_session.journal.NoteCall(L"Create");
            const _variant_t application = NewObject(m_session, Application(m_session));
            return application.pdispVal->QueryInterface(iid, ppObject);
        } catch (...) {
            PostQuitMessage(0);
            return E_FAIL;
        }
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
    CLSID id;
    DWORD dwCookie = 0;
    CoInitialize(nullptr);
    CLSIDFromString(AutomationServer::kClassId, &id);
    if (FAILED(CoRegisterClassObject(id, &factory, CLSCTX_LOCAL_SERVER, REGCLS_SINGLEUSE, &dwCookie)))
        return 1;
    ServeClients(CreateEventW(nullptr, TRUE, FALSE, AutomationServer::kEndEvent));
    CoRevokeClassObject(dwCookie);
    journal.Write();
    CoUninitialize();
    return 0;
}
