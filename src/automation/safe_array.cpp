#include "automation/safe_array.h"

#include <array>
#include <limits>
#include <new>

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

}  // namespace

Variant new_byte_array(std::uint64_t size) {
    if (size > std::uint64_t{std::numeric_limits<LONG>::max()}) throw std::bad_alloc();
    return owning(SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(size)), VT_UI1);
}

Variant new_table(std::int32_t rows, std::int32_t columns) {
    if (rows < 0 || columns < 0) throw Failure(FailureNumber::subscript_out_of_range);
    std::array bounds{SAFEARRAYBOUND{static_cast<ULONG>(rows), 0},
                      SAFEARRAYBOUND{static_cast<ULONG>(columns), 0}};
    return owning(SafeArrayCreate(VT_VARIANT, static_cast<UINT>(bounds.size()), bounds.data()),
                  VT_VARIANT);
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

}  // namespace kovrel
