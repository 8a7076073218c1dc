#include "tests/support/scripted_recordset.h"

#include <algorithm>
#include <array>

#include "automation/safe_array.h"
#include "tests/support/table.h"

namespace kovrel::test {

ScriptedRecordset::ScriptedRecordset(std::vector<Row> rows, std::vector<std::wstring> names)
    : rows_(std::move(rows)), names_(std::move(names)) {
    object_->property(L"RecordCount", Variant(static_cast<std::int32_t>(rows_.size())))
        .property(
            L"Bookmark", [this](const auto&) { return Variant(static_cast<double>(position)); },
            [this](const auto& arguments) {
                position = static_cast<std::size_t>(arguments.back().to_int32());
                return Variant();
            })
        .property(L"BOF", Variant(rows_.empty()))
        .property(L"EOF", [this](const auto&) { return Variant(position >= rows_.size()); })
        .method(L"MoveFirst",
                [this](const auto&) {
                    position = 0;
                    return Variant();
                })
        .method(L"MoveNext",
                [this](const auto&) {
                    ++position;
                    return Variant();
                })
        .method(L"GetRows", [this](const auto&) { return get_rows(); })
        .property(L"Fields", [this](const auto&) {
            auto fields = ScriptedObject::make();
            fields
                ->method(L"Item", [this](const auto& arguments) { return field(arguments.at(0)); })
                .default_member(L"Item");
            return Variant(ComPtr<IDispatch>(fields.get()));
        });
}

Variant ScriptedRecordset::field(const Variant& place_or_name) {
    std::size_t place = 0;
    if (place_or_name.vt == VT_BSTR) {
        const auto named = std::find(names_.begin(), names_.end(), place_or_name.to_text());
        if (named == names_.end()) throw failure(3265, L"No existe ese campo");
        place = static_cast<std::size_t>(named - names_.begin());
    } else {
        place = static_cast<std::size_t>(place_or_name.to_int32());
    }
    auto field = ScriptedObject::make();
    field->property(L"Value", [this, place](const auto&) { return rows_.at(position).at(place); });
    return Variant(ComPtr<IDispatch>(field.get()));
}

Variant ScriptedRecordset::get_rows() {
    const std::size_t fields = rows_.front().size();
    Variant table = new_table(static_cast<std::int32_t>(fields),
                              static_cast<std::int32_t>(rows_.size() - position));
    const ArrayAccess<VARIANT> access(table.parray);
    std::size_t next = 0;
    for (; position < rows_.size(); ++position) {
        for (const Variant& value : rows_[position]) {
            access.elements()[next++] = Variant(value).detach();
        }
    }
    return table;
}

ScriptedCombo::ScriptedCombo() {
    object_->property(L"ColumnCount", Variant(std::int32_t{1}))
        .property(L"List", Variant())
        .method(L"Clear",
                [this](const auto&) {
                    items.clear();
                    return Variant();
                })
        .method(L"AddItem", [this](const auto& arguments) {
            if (arguments.front().is_null()) throw failure(94, L"Uso no válido de Null");
            items.push_back(arguments.front().to_text());
            return Variant();
        });
}

std::vector<std::wstring> ScriptedCombo::lines() const {
    const Variant list = object_->value(L"List");
    SAFEARRAY* const array = array_in(list, VT_VARIANT, 2);
    const LONG rows = array_extent(array, 1);
    const LONG columns = array_extent(array, 2);
    std::vector<std::wstring> lines;
    for (LONG row = 0; row < rows; ++row) {
        std::wstring line;
        for (LONG column = 0; column < columns; ++column) {
            std::array<LONG, 2> indexes{row, column};
            Variant cell;
            SafeArrayGetElement(array, indexes.data(), &cell);
            line += (column == 0 ? L"" : L"|") + described(cell);
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace kovrel::test
