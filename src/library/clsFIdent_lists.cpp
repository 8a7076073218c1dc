// clsFIdent: whole lists and recordsets.
#include <optional>
#include <string>
#include <vector>

#include "automation/host_object.h"
#include "automation/safe_array.h"
#include "automation/variant_argument.h"
#include "library/clsFIdent.h"
#include "library/host_progress.h"
#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

/// The host's progress window, told when another hundredth is done.
class Progress {
 public:
    Progress(const ComPtr<IDispatch>& general, std::int64_t total)
        : window_(total > 0 ? general : nullptr), total_(static_cast<std::uint64_t>(total)) {}

    void report(std::int64_t done) {
        if (!window_.has_window() || !window_.advances(static_cast<std::uint64_t>(done), total_)) {
            return;
        }
        window_.show(concat({L"Comprobados ", decimal_text(done), L" de ",
                             decimal_text(static_cast<std::int64_t>(total_))}));
    }

 private:
    HostProgress window_;
    std::uint64_t total_;
};

IdentifierFault fault_of(Identifier kind, BSTR text) {
    return identifier_fault(kind, text_of(text));
}

/// A value that cannot be read as a text is no identifier of any kind.
IdentifierFault fault_of(Identifier kind, const VARIANT& value) {
    if (value.vt == VT_BSTR) return fault_of(kind, value.bstrVal);
    try {
        Variant content;
        const HRESULT copied = copy_followed(content, value);
        if (FAILED(copied)) throw_conversion_failure(copied);
        return identifier_fault(kind, content.to_text_or_empty());
    } catch (const Failure&) {
        return IdentifierFault::characters;
    }
}

/// Where the elements of a column stand.
struct Column {
    SAFEARRAYBOUND rows;
    std::size_t first = 0;
    std::size_t step = 1;
};

Column column_of(const SAFEARRAY& table, std::int32_t index) {
    // The bounds of the last dimension stand first.
    if (table.cDims == 1 && index == 0) return {.rows = table.rgsabound[0]};
    if (table.cDims != 2) throw Failure(FailureNumber::subscript_out_of_range);
    const SAFEARRAYBOUND columns = table.rgsabound[1];
    const std::int64_t place = std::int64_t{index} - columns.lLbound;
    if (place < 0 || place >= std::int64_t{columns.cElements}) {
        throw Failure(FailureNumber::subscript_out_of_range);
    }
    return {table.rgsabound[0], static_cast<std::size_t>(place), columns.cElements};
}

/// The lists stay locked: what the host does while it is told of the progress can change their
/// elements, not their size.
template <class Element>
Variant faults_of(Identifier kind, SAFEARRAY* list, std::int32_t index,
                  const ComPtr<IDispatch>& general) {
    const ArrayAccess<const Element> given(list);
    const Column column = column_of(*list, index);
    Variant result = new_variant_array(column.rows);
    const ArrayAccess<VARIANT> faults(result.parray);
    Progress progress(general, column.rows.cElements);
    const auto values = given.elements();
    std::size_t place = column.first;
    std::int64_t done = 0;
    for (VARIANT& fault : faults.elements()) {
        fault.lVal = static_cast<LONG>(fault_of(kind, values[place]));
        fault.vt = VT_I4;
        place += column.step;
        progress.report(++done);
    }
    return result;
}

Variant list_of(const std::vector<std::int32_t>& numbers) {
    Variant result = new_variant_array({static_cast<ULONG>(numbers.size()), 0});
    const ArrayAccess<VARIANT> access(result.parray);
    auto number = numbers.begin();
    for (VARIANT& element : access.elements()) {
        element.lVal = *number++;
        element.vt = VT_I4;
    }
    return result;
}

/// One field of all records of a recordset, which goes back to where it was if it has bookmarks.
class Records {
 public:
    Records(const ComPtr<IDispatch>& recordset, std::wstring_view field)
        : recordset_(recordset),
          field_(HostObject(recordset_.get(L"Fields")).get(L"Item", {Variant(field)})) {
        is_empty_ = recordset_.get(L"BOF").to_bool() && recordset_.get(L"EOF").to_bool();
        if (is_empty_) return;
        try {
            bookmark_ = recordset_.get(L"Bookmark");
        } catch (const Failure&) {
            // It has none, or is at no record.
        }
        recordset_.call(L"MoveFirst");
    }

    [[nodiscard]] std::int64_t count() const {
        return static_cast<std::int64_t>(recordset_.get(L"RecordCount").to_double());
    }
    [[nodiscard]] bool is_at_end() const { return is_empty_ || recordset_.get(L"EOF").to_bool(); }
    [[nodiscard]] Variant value() const { return field_.get(L"Value"); }
    void move_next() const { recordset_.call(L"MoveNext"); }
    void go_back() const {
        if (bookmark_) recordset_.put(L"Bookmark", *bookmark_);
    }

 private:
    HostObject recordset_;
    HostObject field_;  ///< gives the value of the record that the recordset is at
    bool is_empty_ = false;
    std::optional<Variant> bookmark_;
};

}  // namespace

Variant clsFIdent::CompruebaLista(eIdentificador Tipo, ValueArgument Lista, std::int32_t Columna,
                                  ComPtr<IDispatch> Progreso) const {
    const Identifier kind = rule_of(Tipo);
    const GivenArray list = array_of(Lista.value());
    switch (list.element) {
        case VT_BSTR:
            return faults_of<BSTR>(kind, list.array, Columna, Progreso);
        case VT_VARIANT:
            return faults_of<VARIANT>(kind, list.array, Columna, Progreso);
        default:
            throw Failure(FailureNumber::type_mismatch);
    }
}

std::int32_t clsFIdent::CompruebaRecordset(eIdentificador Tipo, ComPtr<IDispatch> rsRecordset,
                                           std::wstring_view Campo, Variant& Posiciones,
                                           ComPtr<IDispatch> Progreso) const {
    const Identifier kind = rule_of(Tipo);
    const Records records(rsRecordset, Campo);
    Progress progress(Progreso, Progreso ? records.count() : 0);
    std::vector<std::int32_t> wrong;
    std::int32_t place = 0;
    for (; !records.is_at_end(); records.move_next()) {
        ++place;
        if (fault_of(kind, records.value()) != IdentifierFault::none) wrong.push_back(place);
        progress.report(place);
    }
    records.go_back();
    Posiciones = list_of(wrong);
    return static_cast<std::int32_t>(wrong.size());
}

}  // namespace kovrel
