// Replacements for the C++ run time's terminate handler and std::__throw_ functions. The originals
// compose messages that no host sees, with two string implementations, a formatter and a demangler
// that make up a tenth of the library's size. The linker substitutes them by name (--wrap, see
// CMakeLists.txt), so no symbol is defined twice.
#include <cstdlib>
#include <functional>
#include <new>

#include "runtime/failure.h"

// --wrap=symbol calls __wrap_symbol instead.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

/// __gnu_cxx::__verbose_terminate_handler
[[noreturn]] void __wrap__ZN9__gnu_cxx27__verbose_terminate_handlerEv() {
    std::abort();
}

// A length error means a container larger than the address space: memory exhaustion.
[[noreturn]] void __wrap__ZSt17__throw_bad_allocv() {
    throw std::bad_alloc();
}
[[noreturn]] void __wrap__ZSt28__throw_bad_array_new_lengthv() {
    throw std::bad_alloc();
}
[[noreturn]] void __wrap__ZSt20__throw_length_errorPKc(const char* /*message*/) {
    throw std::bad_alloc();
}
[[noreturn]] void __wrap__ZSt19__throw_logic_errorPKc(const char* /*message*/) {
    throw kovrel::Failure(kovrel::FailureNumber::invalid_argument);
}
[[noreturn]] void __wrap__ZSt20__throw_out_of_rangePKc(const char* /*message*/) {
    throw kovrel::Failure(kovrel::FailureNumber::invalid_argument);
}
[[noreturn]] void __wrap__ZSt24__throw_out_of_range_fmtPKcz(const char* /*message*/, ...) {
    throw kovrel::Failure(kovrel::FailureNumber::invalid_argument);
}
[[noreturn]] void __wrap__ZSt25__throw_bad_function_callv() {
    throw kovrel::Failure(kovrel::FailureNumber::invalid_argument);
}

#ifdef __i386__
/// The 32-bit run time unregisters its exception frames in DLL_PROCESS_DETACH. A host may call
/// objects after that, and a failing member throws, so they stay registered.
void* __wrap___deregister_frame_info(const void* /*frames*/) {
    return nullptr;
}
#endif

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
