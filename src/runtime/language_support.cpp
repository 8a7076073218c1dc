// What the language's run time and the standard library do in their last resorts. Their own
// versions compose messages that no host ever sees, and bring a tenth of the library's size with
// them: two implementations of strings, a formatter and a demangler. The linker puts these in their
// place (--wrap, see CMakeLists.txt), so that nothing is defined twice whatever else a run time's
// object files hold.
#include <cstdlib>
#include <functional>
#include <new>

#include "runtime/failure.h"

// The linker's names for them: "__wrap_" and the name of what is replaced, as it is linked.
extern "C" {

/// __gnu_cxx::__verbose_terminate_handler
[[noreturn]] void __wrap__ZN9__gnu_cxx27__verbose_terminate_handlerEv() {
    std::abort();
}

// std::__throw_ and the rest. No address space holds what is longer than a container takes.
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
/// The 32-bit run time takes away, when the module is told of the process's end, what it needs to
/// find handlers of exceptions. Objects may be called after that, and a failing member throws: it
/// stays, as the module does.
void* __wrap___deregister_frame_info(const void* /*frames*/) {
    return nullptr;
}
#endif

}  // extern "C"
