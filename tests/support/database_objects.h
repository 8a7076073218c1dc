// Automation objects with the members that ADO's have, over a real database behind ODBC.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "examples/ficha/database.h"
#include "tests/support/scripted_object.h"

namespace kovrel::test {

/// A Connection, with its Errors: those of the last statement that failed.
class DatabaseConnection {
 public:
    /// Throws ficha::DatabaseFailure.
    explicit DatabaseConnection(const std::wstring& connection);
    DatabaseConnection(const DatabaseConnection&) = delete;
    DatabaseConnection& operator=(const DatabaseConnection&) = delete;

    [[nodiscard]] Variant argument() const { return to_variant(object_); }

    /// Runs a statement with its values. These functions throw ObjectFailure, as all members of
    /// the objects do when the database refuses.
    void execute(const std::wstring& statement, const std::vector<Variant>& values = {});
    [[nodiscard]] ficha::Statement open(const std::wstring& statement);
    bool next(ficha::Statement& rows);
    Variant value(const ficha::Statement& rows, std::size_t column);

 private:
    template <class Task>
    auto reported(Task task);

    ficha::Database database_;
    std::vector<ficha::DatabaseFailure> errors_;
    ComPtr<ScriptedObject> object_ = ScriptedObject::make();
};

/// Where the rows are while they are gone over.
enum class Cursor {
    client,  // here, all of them
    keyset,  // in the database, which says how many they are; each comes when it is stood on
    server,  // in the database; one after the other, never back, and their number is unknown
};

class DatabaseRecordset {
 public:
    DatabaseRecordset(DatabaseConnection& connection, const std::wstring& query,
                      Cursor cursor = Cursor::client);
    DatabaseRecordset(const DatabaseRecordset&) = delete;
    DatabaseRecordset& operator=(const DatabaseRecordset&) = delete;

    [[nodiscard]] Variant argument() const { return to_variant(object_); }
    [[nodiscard]] Variant field(const std::wstring& name) { return field(Variant(name)); }
    /// From 1 on.
    void go_to(std::size_t row) { move_to(row - 1); }
    [[nodiscard]] std::size_t row() const { return position_ + 1; }

    /// Writes what was put into fields of the present row into that table, whose key is the first
    /// field.
    void update(const std::wstring& table);

 private:
    using Row = std::vector<Variant>;

    void add_moves();
    [[nodiscard]] bool is_past_last() const;
    Row& present();
    bool read_one();
    void move_to(std::size_t position);
    Variant get_rows();
    [[nodiscard]] std::size_t place_of(const Variant& place_or_name) const;
    Variant field(const Variant& place_or_name);
    void append_chunk(std::size_t column, const Variant& bytes);
    Variant next_chunk(std::size_t column, std::size_t size);

    DatabaseConnection& connection_;
    const Cursor cursor_;
    std::optional<ficha::Statement> statement_;
    std::vector<std::wstring> names_;
    std::size_t count_ = 0;                 // of a server's cursor: of the rows read
    std::vector<Row> rows_;                 // of a server's cursor the present one alone
    std::size_t position_ = 0;              // from 0 on
    std::optional<ObjectFailure> failure_;  // of reading, which then goes no further
    std::set<std::size_t> changed_;         // columns of the present row
    std::optional<std::size_t> appended_to_;
    std::string appended_;  // by chunks, to that column; its value with update()
    std::size_t chunk_start_ = 0;
    ComPtr<ScriptedObject> object_ = ScriptedObject::make();
};

}  // namespace kovrel::test
