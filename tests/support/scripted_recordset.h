// A recordset of a test's own, with the members that ADO's has and a log of the calls made to it.
#pragma once

#include <string>
#include <vector>

#include "tests/support/scripted_object.h"

namespace kovrel::test {

class ScriptedRecordset {
 public:
    using Row = std::vector<Variant>;

    // Standing on its first row. A field is reached by its place or by its name, and has the value
    // of the row on which the recordset stands when it is read.
    explicit ScriptedRecordset(std::vector<Row> rows, std::vector<std::wstring> names = {});
    ScriptedRecordset(const ScriptedRecordset&) = delete;
    ScriptedRecordset& operator=(const ScriptedRecordset&) = delete;

    [[nodiscard]] ScriptedObject& object() const noexcept { return *object_.get(); }
    [[nodiscard]] Variant argument() const { return Variant(ComPtr<IDispatch>(object_.get())); }

    // From 0 on; the number of rows past the last one.
    std::size_t position = 0;

 private:
    // The rows from the present one on, fields first.
    Variant get_rows();
    // Of Fields.Item.
    Variant field(const Variant& place_or_name);

    std::vector<Row> rows_;
    std::vector<std::wstring> names_;
    ComPtr<ScriptedObject> object_ = ScriptedObject::make();
};

// A combo box that keeps what is put into it: AddItem, Clear, ColumnCount and List.
class ScriptedCombo {
 public:
    ScriptedCombo();
    ScriptedCombo(const ScriptedCombo&) = delete;
    ScriptedCombo& operator=(const ScriptedCombo&) = delete;

    [[nodiscard]] ScriptedObject& object() const noexcept { return *object_.get(); }
    [[nodiscard]] Variant argument() const { return Variant(ComPtr<IDispatch>(object_.get())); }
    // The cells of List as texts, one line per row, "|" between columns.
    [[nodiscard]] std::vector<std::wstring> lines() const;

    std::vector<std::wstring> items;  // of AddItem

 private:
    ComPtr<ScriptedObject> object_ = ScriptedObject::make();
};

}  // namespace kovrel::test
