// SQLite's handles, each with an owner. Failures are DatabaseError.
#pragma once

#include <afx.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

// An open database file.
class Connection {
  public:
    // By SQLite's flags. A path that begins with "file:" is a URI.
    Connection(const CString& path, const std::string& nameOrUri, int flags);

    const CString& GetPath() const { return m_path; }
    sqlite3* Get() const { return m_handle.get(); }

    // Runs statements that give no rows.
    void Execute(const std::string& sql) const;

    // Throws what SQLite last said of this connection.
    [[noreturn]] void ThrowLastError() const;

  private:
    struct Closer {
        void operator()(sqlite3* handle) const;
    };
    CString m_path;
    std::unique_ptr<sqlite3, Closer> m_handle;
};

// A prepared statement. Parameters and columns are counted from 0.
class Statement {
  public:
    Statement(const Connection& connection, std::string_view sql);

    // Binds the values from the first parameter on. The texts have to live until the statement has run.
    template <class... Values>
    Statement& Bind(const Values&... values) {
        int parameter = 0;
        (BindValue(++parameter, values), ...);
        return *this;
    }

    // Whether there is a next row. After the last one the statement can be bound and run again.
    bool Step();

    // Runs a statement that gives no rows. Returns how many rows it has changed.
    std::int64_t Run();

    std::int64_t Integer(int column) const;
    std::optional<double> Real(int column) const;  // nothing for NULL
    CString Text(int column) const;
    std::string_view Utf8(int column) const;  // until the next step

  private:
    struct Finalizer {
        void operator()(sqlite3_stmt* handle) const;
    };
    void BindValue(int parameter, std::int64_t value);
    void BindValue(int parameter, std::optional<double> value);
    void BindValue(int parameter, std::string_view value);
    void BindValue(int parameter, const CString& value);
    void Check(int code) const;

    const Connection& m_connection;
    std::unique_ptr<sqlite3_stmt, Finalizer> m_handle;
};

// Undoes everything since its start unless it is committed.
class Transaction {
  public:
    // Of Writing, no other program writes meanwhile. Of temporary tables alone, nothing is locked.
    enum class Kind { Writing, Temporary };

    explicit Transaction(const Connection& connection, Kind kind = Kind::Writing);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

  private:
    const Connection* m_connection;
};
