#pragma once

#include "CellFile.h"
#include "DispatchObject.h"

#include <climits>
#include <thread>
#include <utility>

// Stands in for Excel while it lives: a COM server on a thread of this program, which is registered as
// "Excel.Application" for the whole machine (Wine reads no other classes). What it opens are files of cells
// (CellFile.h). Its sheet has the columns A to Z.
// One at a time in all test programs: the constructor waits for the others. A test program that is killed
// leaves the registration behind. Members are called while no client calls, and throw std::runtime_error.
class AutomationServer {
  public:
    AutomationServer();
    // Takes the registration back.
    ~AutomationServer();
    AutomationServer(const AutomationServer&) = delete;
    AutomationServer& operator=(const AutomationServer&) = delete;

    // The n-th call from now on of "Create", "Workbooks", "Open", "ActiveSheet", "Range", "value", "Close",
    // "Quit" or "id" (the look-up of a name) fails, and so do the calls after it until as many as told have
    // failed.
    void FailAt(const std::wstring& member, int nCall = 1, HRESULT result = kExcelError, int nTimes = 1) {
        m_log.fault = {member, nCall, nTimes, result};
    }
    // As if the process of the server ended in that call.
    void DieAt(const std::wstring& member, int nCall = 1) {
        FailAt(member, nCall, HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), INT_MAX);
    }

    // From now on there is no Excel on the machine.
    void Unregister();

    // The calls since the last time, each with its argument: "Create", "id Open", "Open C:\a.xls", "Range
    // A1".
    std::vector<std::wstring> TakeCalls() { return std::exchange(m_log.lines, {}); }
    // Objects that clients have not released.
    int ObjectsInUse() const { return m_log.nObjects; }

  private:
    const HANDLE m_hMutex;
    CallLog m_log;
    std::thread m_thread;
    DWORD m_dwThreadId = 0;
};
