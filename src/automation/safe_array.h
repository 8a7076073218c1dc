// SAFEARRAYs in VARIANTs.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <cstddef>
#include <cstdint>
#include <span>

#include "automation/variant.h"

namespace kovrel {

/// A new array of zero bytes, indexed from 0. bad_alloc past 2 GB, the limit of a SAFEARRAY.
[[nodiscard]] Variant new_byte_array(std::uint64_t size);

/// A new array of empty VARIANTs.
[[nodiscard]] Variant new_variant_array(SAFEARRAYBOUND bounds);

/// A host's array, given as such or by reference.
struct GivenArray {
    SAFEARRAY* array;
    VARTYPE element;
};

/// Failure 13 for anything but an array, 9 for one without dimensions yet.
[[nodiscard]] GivenArray array_of(const VARIANT& value);

/// The array in a value, which remains its owner. Failure 94 for a null, 13 for anything but an
/// array of that element type, 9 for another number of dimensions.
[[nodiscard]] SAFEARRAY* array_in(const Variant& value, VARTYPE element, UINT dimensions);

/// The number of elements of one dimension (from 1 on). An array that is not indexed from 0 has no
/// element 0: failure 9.
[[nodiscard]] std::int32_t array_extent(SAFEARRAY* array, UINT dimension);

/// Exchanges the dimensions of a two-dimensional array of VARIANT with their elements, in the
/// memory that it has: the system takes longer to give fresh memory than this takes to move the
/// elements. Failure 9 where an index does not begin with 0.
void exchange_dimensions(SAFEARRAY* table);

/// Removes the elements past an extent of the last dimension. Failure 9 for a negative one.
void limit_last_dimension(SAFEARRAY* table, std::int32_t extent);

/// Locks an array and gives its elements, the first index varying fastest.
template <class Element>
class ArrayAccess {
 public:
    explicit ArrayAccess(SAFEARRAY* array) : array_(array) {
        void* data = nullptr;
        const HRESULT result = SafeArrayAccessData(array, &data);
        if (FAILED(result)) throw_conversion_failure(result);
        data_ = static_cast<Element*>(data);
    }
    ArrayAccess(const ArrayAccess&) = delete;
    ArrayAccess& operator=(const ArrayAccess&) = delete;
    ~ArrayAccess() { SafeArrayUnaccessData(array_); }

    [[nodiscard]] std::span<Element> elements() const noexcept {
        std::size_t count = 1;
        for (USHORT dimension = 0; dimension < array_->cDims; ++dimension) {
            count *= array_->rgsabound[dimension].cElements;
        }
        return {data_, count};
    }

 private:
    SAFEARRAY* array_;
    Element* data_;
};

}  // namespace kovrel
