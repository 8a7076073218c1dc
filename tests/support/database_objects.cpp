#include "tests/support/database_objects.h"

#include <algorithm>

#include "tests/support/bytes.h"
#include "tests/support/table.h"

namespace kovrel::test {
namespace {

constexpr HRESULT cannot_fetch_backwards = static_cast<HRESULT>(0x80040E24);

ObjectFailure refusal(const std::wstring& description) {
    return {E_FAIL, description, DISP_E_EXCEPTION, 0};
}

Variant count_of(std::size_t count) {
    return Variant(static_cast<std::int32_t>(count));
}

}  // namespace

DatabaseConnection::DatabaseConnection(const std::wstring& connection) : database_(connection) {
    object_->property(L"Errors", [this](const auto&) {
        auto errors = ScriptedObject::make();
        errors->property(L"Count", [this](const auto&) { return count_of(errors_.size()); })
            .method(L"Item", [this](const auto& arguments) {
                const auto& error =
                    errors_.at(static_cast<std::size_t>(arguments.front().to_int32()));
                auto item = ScriptedObject::make();
                item->property(L"Number", Variant(std::int32_t{E_FAIL}))
                    .property(L"NativeError", Variant(error.number))
                    .property(L"SQLState", Variant(error.state))
                    .property(L"Description", Variant(error.description));
                return to_variant(item);
            });
        errors->default_member(L"Item");
        return to_variant(errors);
    });
}

template <class Task>
auto DatabaseConnection::reported(Task task) {
    try {
        return task();
    } catch (const ficha::DatabaseFailure& failure) {
        errors_ = {failure};
        throw refusal(failure.description);
    }
}

void DatabaseConnection::execute(const std::wstring& statement,
                                 const std::vector<Variant>& values) {
    std::vector<ficha::Value> given;
    given.reserve(values.size());
    for (const Variant& value : values) given.emplace_back(static_cast<const VARIANT&>(value));
    reported([&] { return ficha::Statement(database_, statement, given).rows_changed(); });
}

ficha::Statement DatabaseConnection::open(const std::wstring& statement) {
    return reported([&] { return ficha::Statement(database_, statement); });
}

bool DatabaseConnection::next(ficha::Statement& rows) {
    return reported([&] { return rows.next(); });
}

Variant DatabaseConnection::value(const ficha::Statement& rows, std::size_t column) {
    VARIANT value = reported([&] { return rows.value(column).detach(); });
    return Variant::attach(value);
}

DatabaseRecordset::DatabaseRecordset(DatabaseConnection& connection, const std::wstring& query,
                                     Cursor cursor)
    : connection_(connection), cursor_(cursor) {
    if (cursor_ == Cursor::keyset) {
        ficha::Statement counted = connection.open(L"SELECT count(*) FROM (" + query + L")");
        connection.next(counted);
        count_ = static_cast<std::size_t>(connection.value(counted, 0).to_int32());
    }
    statement_.emplace(connection.open(query));
    for (std::size_t column = 0; column < statement_->columns(); ++column) {
        names_.push_back(statement_->name(column));
    }
    if (cursor_ == Cursor::client) {
        while (read_one()) ++count_;
    } else if (cursor_ == Cursor::server && read_one()) {
        count_ = 1;
    }
    add_moves();
    object_->method(L"GetRows", [this](const auto&) { return get_rows(); })
        .property(L"Fields", [this](const auto&) {
            auto fields = ScriptedObject::make();
            fields->property(L"Count", count_of(names_.size()))
                .method(L"Item",
                        [this](const auto& arguments) { return this->field(arguments.front()); });
            fields->default_member(L"Item");
            return to_variant(fields);
        });
}

void DatabaseRecordset::add_moves() {
    const bool is_server = cursor_ == Cursor::server;
    object_->property(L"RecordCount", is_server ? Variant(std::int32_t{-1}) : count_of(count_))
        .property(L"BOF", Variant(count_ == 0))
        .property(L"EOF", [this](const auto&) { return Variant(is_past_last()); })
        .property(L"AbsolutePosition",
                  [this, is_server](const auto&) {
                      return is_server ? Variant(std::int32_t{-1}) : count_of(row());
                  })
        .method(L"MoveFirst",
                [this](const auto&) {
                    move_to(0);
                    return Variant();
                })
        .method(L"MoveNext", [this](const auto&) {
            move_to(position_ + 1);
            return Variant();
        });
    if (is_server) {
        object_->fails(L"Bookmark",
                       failure(3251, L"El conjunto de registros actual no admite marcadores."));
        return;
    }
    object_->property(
        L"Bookmark", [this](const auto&) { return Variant(static_cast<double>(position_)); },
        [this](const auto& arguments) {
            move_to(static_cast<std::size_t>(arguments.back().to_int32()));
            return Variant();
        });
}

bool DatabaseRecordset::is_past_last() const {
    return position_ >= count_;
}

// The statement's next row; false past the last one.
bool DatabaseRecordset::read_one() {
    if (failure_) throw ObjectFailure(*failure_);
    try {
        if (!connection_.next(*statement_)) return false;
        Row row;
        for (std::size_t column = 0; column < names_.size(); ++column) {
            row.push_back(connection_.value(*statement_, column));
        }
        rows_.push_back(std::move(row));
    } catch (const ObjectFailure& failure) {
        failure_ = failure;
        throw;
    }
    return true;
}

void DatabaseRecordset::move_to(std::size_t position) {
    chunk_start_ = 0;
    if (cursor_ != Cursor::server) {
        position_ = position;
        while (!is_past_last() && rows_.size() <= position && read_one()) {
        }
        return;
    }
    if (position < position_) {
        throw ObjectFailure{cannot_fetch_backwards,
                            L"El conjunto de filas no admite la recuperación hacia atrás.",
                            DISP_E_EXCEPTION, 0};
    }
    while (position_ < position && !is_past_last()) {
        rows_.clear();
        if (read_one()) ++count_;
        ++position_;
    }
}

DatabaseRecordset::Row& DatabaseRecordset::present() {
    if (is_past_last()) throw failure(3021, L"No hay ningún registro activo.");
    const std::size_t place = cursor_ == Cursor::server ? 0 : position_;
    if (place >= rows_.size()) read_one();
    return rows_.at(place);
}

Variant DatabaseRecordset::get_rows() {
    std::vector<Row> rows;
    for (; !is_past_last(); move_to(position_ + 1)) rows.push_back(present());
    Variant table =
        new_table(static_cast<std::int32_t>(names_.size()), static_cast<std::int32_t>(rows.size()));
    const ArrayAccess<VARIANT> access(table.parray);
    auto next = access.elements().begin();
    for (Row& row : rows) {
        for (Variant& value : row) *next++ = value.detach();
    }
    return table;
}

std::size_t DatabaseRecordset::place_of(const Variant& place_or_name) const {
    if (place_or_name.vt != VT_BSTR) return static_cast<std::size_t>(place_or_name.to_int32());
    const auto named = std::find(names_.begin(), names_.end(), place_or_name.to_text());
    if (named == names_.end()) {
        throw failure(3265, L"No se encontró el elemento en la colección.");
    }
    return static_cast<std::size_t>(named - names_.begin());
}

Variant DatabaseRecordset::field(const Variant& place_or_name) {
    const std::size_t column = place_of(place_or_name);
    auto field = ScriptedObject::make();
    field
        ->property(
            L"Value", [this, column](const auto&) { return present().at(column); },
            [this, column](const auto& arguments) {
                present().at(column) = arguments.back();
                changed_.insert(column);
                return Variant();
            })
        .property(L"ActualSize",
                  [this, column](const auto&) {
                      const Variant& value = present().at(column);
                      return count_of(value.is_null() ? 0 : content_in(value).size());
                  })
        .method(L"AppendChunk",
                [this, column](const auto& arguments) {
                    append_chunk(column, arguments.front());
                    return Variant();
                })
        .method(L"GetChunk", [this, column](const auto& arguments) {
            return next_chunk(column, static_cast<std::size_t>(arguments.front().to_int32()));
        });
    field->default_member(L"Value");
    return to_variant(field);
}

// The first chunk takes the place of what the field held.
void DatabaseRecordset::append_chunk(std::size_t column, const Variant& bytes) {
    if (changed_.insert(column).second) appended_.clear();
    appended_ += content_in(bytes);
    present().at(column) = Variant();
    appended_to_ = column;
}

Variant DatabaseRecordset::next_chunk(std::size_t column, std::size_t size) {
    const Variant& value = present().at(column);
    if (value.is_null()) return Variant::null();
    const ArrayAccess<std::uint8_t> access(array_in(value, VT_UI1, 1));
    const auto rest = access.elements().subspan(chunk_start_);
    const auto part = rest.first(std::min(size, rest.size()));
    chunk_start_ += part.size();
    return bytes_of({reinterpret_cast<const char*>(part.data()), part.size()});
}

void DatabaseRecordset::update(const std::wstring& table) {
    if (appended_to_) present().at(*appended_to_) = bytes_of(appended_);
    std::wstring assignments;
    std::vector<Variant> values;
    for (const std::size_t column : changed_) {
        assignments += (assignments.empty() ? L"\"" : L", \"") + names_.at(column) + L"\" = ?";
        values.push_back(present().at(column));
    }
    values.push_back(present().front());
    connection_.execute(
        L"UPDATE \"" + table + L"\" SET " + assignments + L" WHERE \"" + names_.front() + L"\" = ?",
        values);
    changed_.clear();
    appended_to_.reset();
}

}  // namespace kovrel::test
