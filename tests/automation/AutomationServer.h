#pragma once

#include "support/TempFolder.h"

#include <windows.h>

#include <string>
#include <vector>

// Stands in for Excel while it lives: registers mfx_automation_server.exe, from the test program's folder,
// for "Excel.Application", for the whole machine (Wine reads no other classes). One at a time in all test
// programs: the constructor waits for the others. A test program that is killed leaves the registration
// behind. Members throw std::runtime_error.
class AutomationServer {
  public:
    AutomationServer();
    // Ends what still runs and takes the registration back.
    ~AutomationServer();
    AutomationServer(const AutomationServer&) = delete;
    AutomationServer& operator=(const AutomationServer&) = delete;

    // In servers started from now on, the n-th call of "Create", "Workbooks", "Open", "ActiveSheet", "Range",
    // "value", "Close" or "Quit" fails, or ends the process instead.
    void FailAt(const std::wstring& member, int nCall = 1) {
        Register(L"fail " + member + L" " + std::to_wstring(nCall));
    }
    void DieAt(const std::wstring& member, int nCall = 1) {
        Register(L"die " + member + L" " + std::to_wstring(nCall));
    }

    // From now on there is no Excel on the machine.
    void Unregister();

    // Ends the servers that still run and returns what was noted since the last time, a line each: "Create",
    // calls with their argument ("Open C:\a.xls", "Range A1", "value"), "id NAME" for the lookup of a name,
    // and at a server's end "objects N", those that its client had not released.
    std::vector<std::string> Journal();

    // For the server.
    static constexpr wchar_t kClassId[] = L"{19D4B5AB-CC0E-4750-95AA-0A798D7D3760}";
    static constexpr wchar_t kEndEvent[] = L"mfx_automation_server.end";

  private:
    void Register(const std::wstring& fault = L"");
    void EndServers();

    const TempFolder m_folder;
    HANDLE m_hMutex, m_hEnd;
};
