#pragma once

#include <windows.h>
#include <comdef.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

// As Excel says for whatever goes wrong in it.
constexpr HRESULT kExcelError = static_cast<HRESULT>(0x800A03EC);

// What clients do with the server, and which of their calls go wrong.
struct AutomationSession {
    // Notes a call and returns what has to come of it.
    HRESULT Note(const std::wstring& member, const std::wstring& argument = L"");

    std::vector<std::wstring> calls;
    int nObjects = 0;                            // that clients hold
    std::vector<std::vector<_variant_t>> cells;  // of the open workbook, row by row

    // Calls that go wrong, of whatever member: the first is the nCall-th of the member named.
    struct {
        std::wstring member;
        int nCall = 0;
        int nTimes = 0;
        HRESULT result = S_OK;
    } fault;
};

// Stands in for Excel while it lives: a COM server on a thread of this program. It is registered as
// "Excel.Application" for the whole machine, since Wine reads no other classes. The workbooks that it opens
// are text files: UTF-8, a line per row, cells divided by "|", each a number, a text or empty. Its sheet has
// the columns A to Z. There is one at a time in all test programs: the constructor waits for the others, and
// throws std::runtime_error when it can't register. A test program that is killed leaves the registration
// behind. Members are called while no client calls.
class AutomationServer {
  public:
    AutomationServer();
    // Takes the registration back.
    ~AutomationServer();
    AutomationServer(const AutomationServer&) = delete;
    AutomationServer& operator=(const AutomationServer&) = delete;

    // As many calls fail as told, of whatever member. The first is the n-th call from now on of "Create",
    // "id" (the look-up of a name) or the member named.
    void FailAt(const std::wstring& member, int nCall = 1, HRESULT result = kExcelError, int nTimes = 1) {
        m_session.fault = {member, nCall, nTimes, result};
    }

    // From now on there is no Excel on the machine.
    void Unregister();

    // The calls since the last time, each with its argument: "Create", "id Open", "Open C:\a.xls", "value".
    std::vector<std::wstring> TakeCalls() { return std::exchange(m_session.calls, {}); }
    // Objects that clients have not released.
    int ObjectsInUse() const { return m_session.nObjects; }

  private:
    const HANDLE m_hMutex;
    AutomationSession m_session;
    std::thread m_thread;
    DWORD m_dwThreadId = 0;
};
