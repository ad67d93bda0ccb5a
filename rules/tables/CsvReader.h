#pragma once

#include <afx.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

// A file of comma-separated values can't be read; the text is English, in UTF-8, and names the file.
class CsvError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Reads a file of comma-separated values by RFC 4180, record by record, in memory that does not depend on its
// length. A byte-order mark and empty lines are passed over.
class CsvReader {
  public:
    // "-" is standard input. Throws CsvError when the file can't be opened or read.
    explicit CsvReader(const CString& path);

    // Goes to the next record; false at the end of the file.
    bool Next();

    // What is wrong with the record, in words; empty when nothing is. Its fields then count for nothing.
    const std::string& Flaw() const { return m_flaw; }

    // The fields of the record, in UTF-8.
    const std::vector<std::string>& Fields() const { return m_fields; }

    // The line on which the record begins, from 1.
    std::uint64_t Line() const { return m_line; }

    std::uint64_t BytesRead() const { return m_bytesRead; }
    std::uint64_t BytesOfFile() const { return m_bytesOfFile; }

  private:
    struct HandleCloser {
        using pointer = HANDLE;
        void operator()(HANDLE handle) const { CloseHandle(handle); }
    };

    // The next byte; kEnd at the end of the file.
    int Peek();
    int Take();
    bool Fill();

    void ReadRecord();
    void ReadQuotedField();
    void ReadPlainField();
    void Append(int ch);
    void SetFlaw(const char* flaw);
    void CheckRecord();
    bool EndRecord();

    CString m_path;
    std::unique_ptr<HANDLE, HandleCloser> m_file;
    std::vector<char> m_buffer;
    std::size_t m_position = 0, m_filled = 0;
    std::uint64_t m_bytesRead = 0, m_bytesOfFile = 0;

    std::vector<std::string> m_fields;
    std::size_t m_recordSize = 0;
    std::string m_flaw;
    std::uint64_t m_line = 0, m_nextLine = 1;
};
