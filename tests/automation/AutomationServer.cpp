#include "AutomationServer.h"

#include "support/Process.h"

#include <tlhelp32.h>

#include <chrono>
#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace {

constexpr wchar_t kProgram[] = L"mfx_automation_server.exe";
constexpr wchar_t kApplicationKey[] = L"Software\\Classes\\Excel.Application";
constexpr DWORD kEndMs = 10000;

std::wstring ClassText() {
    wchar_t szClass[39];
    StringFromGUID2(AutomationServer::kClassId, szClass, 39);
    return szClass;
}

std::wstring ClassKey() {
    return L"Software\\Classes\\CLSID\\" + ClassText();
}

void SetDefault(const std::wstring& key, const std::wstring& text) {
    const DWORD dwBytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    if (RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, text.c_str(), dwBytes) !=
        ERROR_SUCCESS)
        throw std::runtime_error("the automation server can't be registered");
}

// Excel itself, or nothing, may be registered; only the latter is ours to change.
bool IsExcelInstalled() {
    wchar_t szClass[64] = L"";
    DWORD dwBytes = sizeof szClass;
    const LSTATUS status =
        RegGetValueW(HKEY_LOCAL_MACHINE, (std::wstring(kApplicationKey) + L"\\CLSID").c_str(), nullptr,
                     RRF_RT_REG_SZ, nullptr, szClass, &dwBytes);
    return status != ERROR_FILE_NOT_FOUND && szClass != ClassText();
}

std::vector<HANDLE> OpenServers() {
    std::vector<HANDLE> processes;
    const HANDLE hList = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL bMore = Process32FirstW(hList, &entry); bMore; bMore = Process32NextW(hList, &entry))
        if (lstrcmpiW(entry.szExeFile, kProgram) == 0)
            if (const HANDLE h = OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, entry.th32ProcessID))
                processes.push_back(h);
    CloseHandle(hList);
    return processes;
}

}  // namespace

AutomationServer::AutomationServer()
    : m_hMutex(CreateMutexW(nullptr, FALSE, L"mfx_automation_server")),
      m_hEnd(CreateEventW(nullptr, TRUE, FALSE, kEndEvent)) {
    WaitForSingleObject(m_hMutex, INFINITE);
    if (IsExcelInstalled()) throw std::runtime_error("Excel is installed here");
    EndServers();  // of a test that crashed
    Register(L"");
}

AutomationServer::~AutomationServer() {
    Unregister();
    EndServers();
    CloseHandle(m_hEnd);
    ReleaseMutex(m_hMutex);
    CloseHandle(m_hMutex);
}

void AutomationServer::Register(const std::wstring& fault) {
    const std::wstring quote = L"\"";
    SetDefault(ClassKey() + L"\\LocalServer32", quote + ProgramFolder() + L"\\" + kProgram + L"\" \"" +
                                                    m_folder.Path(L"journal") + L"\" " + fault);
    SetDefault(std::wstring(kApplicationKey) + L"\\CLSID", ClassText());
}

void AutomationServer::Unregister() {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kApplicationKey);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, ClassKey().c_str());
}

std::size_t AutomationServer::Running() const {
    const std::vector<HANDLE> processes = OpenServers();
    std::size_t nRunning = 0;
    for (const HANDLE hProcess : processes) {
        if (WaitForSingleObject(hProcess, 0) == WAIT_TIMEOUT) ++nRunning;
        CloseHandle(hProcess);
    }
    return nRunning;
}

void AutomationServer::EndServers() {
    SetEvent(m_hEnd);
    for (const HANDLE hProcess : OpenServers()) {
        if (WaitForSingleObject(hProcess, kEndMs) != WAIT_OBJECT_0) TerminateProcess(hProcess, 1);
        WaitForSingleObject(hProcess, kEndMs);
        CloseHandle(hProcess);
    }
    ResetEvent(m_hEnd);
}

std::vector<std::string> AutomationServer::Journal() {
    EndServers();
    std::vector<std::string> lines;
    if (!std::filesystem::exists(m_folder.Path(L"journal"))) return lines;
    std::istringstream text(m_folder.Read(L"journal"));
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    std::filesystem::remove(m_folder.Path(L"journal"));
    return lines;
}
