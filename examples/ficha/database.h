// A database behind ODBC: statements with their values, and the rows that they give.
#pragma once

#include <windows.h>

#include <memory>
#include <sql.h>
#include <string>
#include <vector>

#include "automation.h"

namespace ficha {

/// What the driver says of a failure.
struct DatabaseFailure : Failure {
    std::wstring state;       ///< five characters; "42S02" is a table that is not there
    std::int32_t number = 0;  ///< the engine's own
};

struct HandleCloser {
    SQLSMALLINT kind = SQL_HANDLE_STMT;
    void operator()(SQLHANDLE handle) const noexcept;
};
using DatabaseHandle = std::unique_ptr<void, HandleCloser>;

/// A connection; what is not committed when it is closed is undone.
class Database {
 public:
    /// `connection`: what ODBC calls a connection text, "DRIVER=…;Database=…". Throws
    /// DatabaseFailure, without a driver of that name too.
    explicit Database(const std::wstring& connection);

    [[nodiscard]] SQLHDBC handle() const noexcept { return connection_.get(); }

 private:
    DatabaseHandle environment_;
    DatabaseHandle connection_;
};

/// A statement that has been run, standing before its first row. Its functions throw
/// DatabaseFailure.
class Statement {
 public:
    /// A value for each "?" of the text: texts, numbers, booleans, dates, arrays of bytes, Null.
    Statement(const Database& database, const std::wstring& text,
              const std::vector<Value>& values = {});

    [[nodiscard]] std::size_t columns() const noexcept { return columns_.size(); }
    [[nodiscard]] const std::wstring& name(std::size_t column) const {
        return columns_.at(column).name;
    }
    /// Goes to the next row; false past the last one.
    bool next();
    /// A column of the row; each once, from the first on. Whole numbers, other numbers, arrays of
    /// bytes and Null come as such, all else as text.
    [[nodiscard]] Value value(std::size_t column) const;
    /// The rows that the statement has inserted, changed or deleted.
    [[nodiscard]] std::int32_t rows_changed() const;

 private:
    struct Column {
        std::wstring name;
        SQLSMALLINT type = 0;
    };

    void describe_columns();
    [[nodiscard]] std::string content(SQLUSMALLINT place, SQLSMALLINT type, bool& is_null) const;

    DatabaseHandle statement_;
    std::vector<Column> columns_;
};

}  // namespace ficha
