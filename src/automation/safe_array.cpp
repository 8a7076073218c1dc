#include "automation/safe_array.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>
#include <vector>

#include "runtime/failure.h"

namespace kovrel {
namespace {

Variant owning(SAFEARRAY* array, VARTYPE element) {
    if (array == nullptr) throw std::bad_alloc();
    Variant result;
    result.vt = VT_ARRAY | element;
    result.parray = array;
    return result;
}

/// Copies a matrix of `rows` rows of `columns` cells column by column.
void copy_columns(const VARIANT* cells, std::size_t rows, std::size_t columns, VARIANT* target) {
    for (std::size_t column = 0; column < columns; ++column) {
        for (std::size_t row = 0; row < rows; ++row) *target++ = cells[row * columns + column];
    }
}

/// Moves pieces of `size` cells that lie row by row, `columns` in each of `rows` rows, so that they
/// lie column by column. `spare` has room for one, which leaves a gap for another, and so on until
/// it fits the last gap itself.
void reorder_pieces(VARIANT* cells, std::size_t rows, std::size_t columns, std::size_t size,
                    VARIANT* spare) {
    std::vector<char> done(rows * columns);
    for (std::size_t start = 0; start < done.size(); ++start) {
        if (done[start] != 0) continue;
        std::copy_n(cells + start * size, size, spare);
        std::size_t gap = start;
        for (bool is_last = false; !is_last;) {
            done[gap] = 1;
            const std::size_t next = gap % rows * columns + gap / rows;
            is_last = next == start;
            std::copy_n(is_last ? spare : cells + next * size, size, cells + gap * size);
            gap = next;
        }
    }
}

/// Transposes a matrix of `rows` rows in place: in blocks of rows that fit the processor's cache,
/// whose columns are then put together.
void transpose(VARIANT* cells, std::size_t rows, std::size_t columns) {
    constexpr std::size_t block_cells = 1024;
    const std::size_t height = std::max<std::size_t>(block_cells / columns, 1);
    const std::size_t size = height * columns;
    const std::size_t rest = rows % height;
    const std::size_t even = rows - rest;
    std::vector<VARIANT> spare(size + rest * columns);
    VARIANT* const block = spare.data();
    VARIANT* const last = block + size;
    copy_columns(cells + even * columns, rest, columns, last);
    for (std::size_t row = 0; row < even; row += height) {
        VARIANT* const place = cells + row * columns;
        copy_columns(place, height, columns, block);
        std::copy_n(block, size, place);
    }
    reorder_pieces(cells, even / height, columns, height, block);
    for (std::size_t column = columns; column-- > 0;) {
        VARIANT* const place = cells + column * rows;
        std::copy_backward(cells + column * even, cells + (column + 1) * even, place + even);
        std::copy_n(last + column * rest, rest, place + even);
    }
}

}  // namespace

Variant new_byte_array(std::uint64_t size) {
    if (size > std::uint64_t{std::numeric_limits<LONG>::max()}) throw std::bad_alloc();
    return owning(SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(size)), VT_UI1);
}

Variant new_variant_array(SAFEARRAYBOUND bounds) {
    return owning(SafeArrayCreate(VT_VARIANT, 1, &bounds), VT_VARIANT);
}

GivenArray array_of(const VARIANT& value) {
    if ((value.vt & VT_ARRAY) == 0) throw Failure(FailureNumber::type_mismatch);
    SAFEARRAY* const array = (value.vt & VT_BYREF) != 0 ? *value.pparray : value.parray;
    if (array == nullptr) throw Failure(FailureNumber::subscript_out_of_range);
    return {array, static_cast<VARTYPE>(value.vt & VT_TYPEMASK)};
}

SAFEARRAY* array_in(const Variant& value, VARTYPE element, UINT dimensions) {
    if (value.is_null()) throw Failure(FailureNumber::invalid_use_of_null);
    if (value.vt != (VT_ARRAY | element) || value.parray == nullptr) {
        throw Failure(FailureNumber::type_mismatch);
    }
    if (SafeArrayGetDim(value.parray) != dimensions) {
        throw Failure(FailureNumber::subscript_out_of_range);
    }
    return value.parray;
}

std::int32_t array_extent(SAFEARRAY* array, UINT dimension) {
    LONG lower = 0;
    LONG upper = 0;
    if (FAILED(SafeArrayGetLBound(array, dimension, &lower)) ||
        FAILED(SafeArrayGetUBound(array, dimension, &upper)) || lower != 0) {
        throw Failure(FailureNumber::subscript_out_of_range);
    }
    return upper + 1;
}

void exchange_dimensions(SAFEARRAY* table) {
    const auto columns = static_cast<std::size_t>(array_extent(table, 1));
    const auto rows = static_cast<std::size_t>(array_extent(table, 2));
    const ArrayAccess<VARIANT> access(table);
    if (!access.elements().empty()) transpose(access.elements().data(), rows, columns);
    std::swap(table->rgsabound[0], table->rgsabound[1]);
}

void limit_last_dimension(SAFEARRAY* table, std::int32_t extent) {
    if (extent < 0) throw Failure(FailureNumber::subscript_out_of_range);
    SAFEARRAYBOUND bound{static_cast<ULONG>(extent), 0};
    const HRESULT result = SafeArrayRedim(table, &bound);
    if (FAILED(result)) throw_conversion_failure(result);
}

}  // namespace kovrel
