#include "CsvReader.h"

#include "Text.h"

#include <algorithm>

namespace {

constexpr int kEnd = -1;
constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

// Of a record; one with a quotation mark left open would else take in the rest of the file.
constexpr std::size_t kMostBytes = 1 << 16;

[[noreturn]] void ThrowUnreadable(const CString& path) {
    throw CsvError(ToUtf8(path) + ": can't be read: " + WindowsErrorText(GetLastError()));
}

// Of its own, so that closing it leaves standard input open.
HANDLE OpenStandardInput() {
    HANDLE file = INVALID_HANDLE_VALUE;
    const HANDLE process = GetCurrentProcess();
    if (!DuplicateHandle(process, GetStdHandle(STD_INPUT_HANDLE), process, &file, 0, FALSE,
                         DUPLICATE_SAME_ACCESS))
        return INVALID_HANDLE_VALUE;
    return file;
}

HANDLE OpenFileOf(const CString& path) {
    if (path == L"-") return OpenStandardInput();
    return CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                       OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
}

bool IsUtf8(const std::string& text) {
    if (std::ranges::all_of(text, [](char ch) { return static_cast<unsigned char>(ch) < 0x80; })) return true;
    return MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), static_cast<int>(text.size()),
                               nullptr, 0) > 0;
}

}  // namespace

CsvReader::CsvReader(const CString& path) : m_path(path), m_file(OpenFileOf(path)), m_buffer(1 << 16) {
    LARGE_INTEGER size{};
    const bool isOpen = m_file.get() != INVALID_HANDLE_VALUE;
    if (!isOpen || (!GetFileSizeEx(m_file.get(), &size) && path != L"-")) ThrowUnreadable(path);
    m_bytesOfFile = static_cast<std::uint64_t>(size.QuadPart);
    Fill();
    if (std::string_view(m_buffer.data(), m_filled).starts_with(kByteOrderMark))
        m_position = std::size(kByteOrderMark) - 1;
}

bool CsvReader::Next() {
    while (Peek() == '\r' || Peek() == '\n') m_nextLine += Take() == '\n';
    if (Peek() == kEnd) return false;
    m_line = m_nextLine;
    m_fields.clear();
    m_recordSize = 0;
    m_flaw.clear();
    ReadRecord();
    CheckRecord();
    return true;
}

void CsvReader::ReadRecord() {
    do {
        m_fields.emplace_back();
        if (Peek() == '"')
            ReadQuotedField();
        else
            ReadPlainField();
    } while (!EndRecord());
}

void CsvReader::ReadQuotedField() {
    Take();
    for (;;) {
        const int ch = Take();
        if (ch == kEnd) return SetFlaw("a quotation mark is left open");
        if (ch == '\n') ++m_nextLine;
        if (ch == '"' && Peek() != '"') break;
        if (ch == '"') Take();  // two of them stand for one
        Append(ch);
    }
    if (Peek() != ',' && Peek() != '\r' && Peek() != '\n' && Peek() != kEnd)
        SetFlaw("a text goes on behind its closing quotation mark");
}

void CsvReader::ReadPlainField() {
    for (int ch = Peek(); ch != ',' && ch != '\n' && ch != '\r' && ch != kEnd; ch = Peek()) {
        if (ch == '"') SetFlaw("a quotation mark stands in a text without them");
        Append(Take());
    }
}

// Goes behind the field. After a flaw the rest of the line is passed over.
bool CsvReader::EndRecord() {
    while (!m_flaw.empty() && Peek() != '\n' && Peek() != kEnd) Take();
    int ch = Take();
    if (ch == ',') return false;
    if (ch == '\r') ch = Peek() == '\n' ? Take() : ch;
    if (ch == '\r') {
        SetFlaw("a carriage return stands without a line feed");
        return EndRecord();
    }
    if (ch == '\n') ++m_nextLine;
    return true;
}

void CsvReader::Append(int ch) {
    if (++m_recordSize > kMostBytes)
        throw CsvError(LinePrefix(m_path, static_cast<int>(m_line)) +
                       "the line is longer than 64 KB, or a quotation mark is left open");
    m_fields.back() += static_cast<char>(ch);
}

void CsvReader::SetFlaw(const char* flaw) {
    if (m_flaw.empty()) m_flaw = flaw;
}

void CsvReader::CheckRecord() {
    for (const std::string& field : m_fields) {
        if (field.find('\0') != field.npos) SetFlaw("a text has a NUL character");
        if (!IsUtf8(field)) SetFlaw("a text is not UTF-8");
    }
}

int CsvReader::Peek() {
    if (m_position == m_filled && !Fill()) return kEnd;
    return static_cast<unsigned char>(m_buffer[m_position]);
}

int CsvReader::Take() {
    const int ch = Peek();
    if (ch != kEnd) ++m_position;
    return ch;
}

bool CsvReader::Fill() {
    DWORD read = 0;
    const bool isRead =
        ReadFile(m_file.get(), m_buffer.data(), static_cast<DWORD>(m_buffer.size()), &read, nullptr);
    if (!isRead && GetLastError() != ERROR_BROKEN_PIPE) ThrowUnreadable(m_path);  // a pipe ends so
    m_bytesRead += read;
    m_filled = read;
    m_position = 0;
    return read > 0;
}
