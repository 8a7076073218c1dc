#include "automation/boundary.h"

#include <new>

#include "automation/com_ptr.h"
#include "automation/floating_point.h"

namespace kovrel {

Failure current_failure() noexcept {
    try {
        throw;
    } catch (const Failure& failure) {
        return failure;
    } catch (const std::bad_alloc&) {
        return Failure(FailureNumber::out_of_memory);
    } catch (...) {
        return Failure(FailureNumber::invalid_argument);
    }
}

HRESULT hresult_of(const Failure& failure) noexcept {
    const std::int32_t number = failure.number();
    if (number < 0) return number;
    if (number == 0 || number > 0xFFFF) return E_FAIL;
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

void set_error_object(const Failure& failure, const wchar_t* source,
                      const GUID& interface_id) noexcept {
    ComPtr<ICreateErrorInfo> creator;
    if (FAILED(CreateErrorInfo(creator.put()))) return;
    creator->SetGUID(interface_id);
    creator->SetSource(const_cast<wchar_t*>(source));
    creator->SetDescription(const_cast<wchar_t*>(failure.description().data()));
    if (const auto info = creator.query<IErrorInfo>()) SetErrorInfo(0, info.get());
}

HRESULT run_at_boundary(const wchar_t* source, const GUID& interface_id, void (*body)(void*),
                        void* context) noexcept {
    const DefaultFloatingPoint floating_point;
    try {
        body(context);
        return S_OK;
    } catch (...) {
        const Failure failure = current_failure();
        set_error_object(failure, source, interface_id);
        return hresult_of(failure);
    }
}

}  // namespace kovrel
