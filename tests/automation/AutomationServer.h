#pragma once

#include "CellFile.h"
#include "DispatchObject.h"

#include <thread>
#include <utility>

// Stands in for Excel while it lives: a COM server on a thread of this program. It is registered as
// "Excel.Application" for the whole machine, since Wine reads no other classes. The workbooks that it opens
// are files of cells (CellFile.h); its sheet has the columns A to Z. There is one at a time in all test
// programs: the constructor waits for the others, and throws std::runtime_error when it can't register. A
// test program that is killed leaves the registration behind. Members are called while no client calls.
class AutomationServer {
  public:
    AutomationServer();
    // Takes the registration back.
    ~AutomationServer();
    AutomationServer(const AutomationServer&) = delete;
    AutomationServer& operator=(const AutomationServer&) = delete;

    // As many calls fail as told, of whatever member. The first is the n-th call from now on of "Create",
    // "DisplayAlerts", "AutomationSecurity", "Workbooks", "Open", "ActiveSheet", "Range", "value", "Close",
    // "Quit" or "id" (the look-up of a name).
    void FailAt(const std::wstring& member, int nCall = 1, HRESULT result = kExcelError, int nTimes = 1) {
        m_log.fault = {member, nCall, nTimes, result};
    }

    // From now on there is no Excel on the machine.
    void Unregister();

    // The calls since the last time, each with its argument: "Create", "id Open", "Open C:\a.xls", "value".
    // Before them "Alert", where Excel asked its user something.
    std::vector<std::wstring> TakeCalls() { return std::exchange(m_log.lines, {}); }
    // Objects that clients have not released.
    int ObjectsInUse() const { return m_log.nObjects; }

  private:
    const HANDLE m_hMutex;
    CallLog m_log;
    std::thread m_thread;
    DWORD m_dwThreadId = 0;
};
