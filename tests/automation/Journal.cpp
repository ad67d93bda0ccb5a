#include "Journal.h"

#include "DispatchObject.h"
#include "support/Process.h"

#include <filesystem>
#include <fstream>

Journal::Journal(std::wstring path, std::wstring outcome, std::wstring member, int nCall)
    : m_path(std::move(path)),
      m_outcome(std::move(outcome)),
      m_member(std::move(member)),
      m_nCallsLeft(nCall) {}

bool Journal::NoteCall(const std::wstring& member, const std::wstring& argument) {
    Note(argument.empty() ? member : member + L" " + argument);
    if (member != m_member || --m_nCallsLeft != 0) return true;
    if (m_outcome == L"die") {
        Write(DispatchObject::Count());
        TerminateProcess(GetCurrentProcess(), 1);
    }
    return false;
}

void Journal::Write(int nObjects) {
    Note(L"objects " + std::to_wstring(nObjects));
    std::ofstream(std::filesystem::path(m_path), std::ios::app | std::ios::binary) << Utf8(m_lines);
}
