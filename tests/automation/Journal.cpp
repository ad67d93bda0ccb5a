#include "Journal.h"

#include "support/Process.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

Journal::Journal(std::wstring path, std::wstring fault, std::wstring member, int nCall)
    : m_path(std::move(path)), m_fault(std::move(fault)), m_member(std::move(member)), m_nCallsLeft(nCall) {}

void Journal::NoteCall(const std::wstring& member, const std::wstring& argument) {
    Note(argument.empty() ? member : member + L" " + argument);
    if (lstrcmpiW(member.c_str(), m_member.c_str()) != 0 || --m_nCallsLeft != 0) return;
    if (m_fault == L"fail") throw std::runtime_error("the call that is to fail");
    Write();
    TerminateProcess(GetCurrentProcess(), 1);
}

void Journal::Write() {
    Note(L"objects " + std::to_wstring(m_nObjects));
    std::ofstream(std::filesystem::path(m_path), std::ios::app | std::ios::binary) << Utf8(m_lines);
}
