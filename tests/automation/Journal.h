#pragma once

#include <string>

// What clients asked of the server, and the one call that is to go wrong; AutomationServer.h tells the
// format.
class Journal {
  public:
    // File to append to; "fail", "die" or nothing; the member's name and which of its calls.
    Journal(std::wstring path, std::wstring fault, std::wstring member, int nCall);

    void Note(const std::wstring& line) { m_lines += line + L"\n"; }
    // Notes a call. Throws when it is the one to fail, ends the process when it is the one to die at.
    void NoteCall(const std::wstring& member, const std::wstring& argument = L"");
    // Appends the lines, and the number of objects that clients still hold, to the file.
    void Write();

    int m_nObjects = 0;

  private:
    const std::wstring m_path, m_fault, m_member;
    int m_nCallsLeft;
    std::wstring m_lines;
};
