#include "AutomationServer.h"

#include "support/Process.h"

#include <tlhelp32.h>

#include <filesystem>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace {

constexpr wchar_t kProgram[] = L"mfx_automation_server.exe";
constexpr DWORD kEndMs = 10000;

const std::wstring kApplicationKey = L"Software\\Classes\\Excel.Application";
const std::wstring kClassKey = std::wstring(L"Software\\Classes\\CLSID\\") + AutomationServer::kClassId;

void SetDefault(const std::wstring& key, const std::wstring& text) {
    const DWORD dwBytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    if (RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, text.c_str(), dwBytes) !=
        ERROR_SUCCESS)
        throw std::runtime_error("the automation server can't be registered");
}

using Handle = std::unique_ptr<void, decltype(&CloseHandle)>;

std::vector<Handle> Servers() {
    std::vector<Handle> processes;
    const Handle list(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0), CloseHandle);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL bMore = Process32FirstW(list.get(), &entry); bMore; bMore = Process32NextW(list.get(), &entry))
        if (lstrcmpiW(entry.szExeFile, kProgram) == 0)
            if (void* pProcess = OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, entry.th32ProcessID))
                processes.emplace_back(pProcess, CloseHandle);
    return processes;
}

}  // namespace

AutomationServer::AutomationServer()
    : m_hMutex(CreateMutexW(nullptr, FALSE, L"mfx_automation_server")),
      m_hEnd(CreateEventW(nullptr, TRUE, FALSE, kEndEvent)) {
    WaitForSingleObject(m_hMutex, INFINITE);
    CLSID id, ownId;
    CLSIDFromString(kClassId, &ownId);
    if (SUCCEEDED(CLSIDFromProgID(L"Excel.Application", &id)) && id != ownId)
        throw std::runtime_error("Excel is installed here");
    EndServers();  // of a test that crashed
    Register();
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
    SetDefault(kClassKey + L"\\LocalServer32", quote + ProgramFolder() + L"\\" + kProgram + L"\" \"" +
                                                   m_folder.Path(L"journal") + L"\" " + fault);
    SetDefault(kApplicationKey + L"\\CLSID", kClassId);
}

void AutomationServer::Unregister() {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kApplicationKey.c_str());
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kClassKey.c_str());
}

void AutomationServer::EndServers() {
    SetEvent(m_hEnd);
    for (const Handle& process : Servers())
        if (WaitForSingleObject(process.get(), kEndMs) != WAIT_OBJECT_0) TerminateProcess(process.get(), 1);
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
