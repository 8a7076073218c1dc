// What the language's run time and the standard library do in their last resorts. Their own
// versions compose messages that no host ever sees, and bring a tenth of the library's size with
// them: two implementations of strings, a formatter and a demangler.
#include <cstdlib>
#include <functional>
#include <new>

#include "runtime/failure.h"

namespace __gnu_cxx {

void __verbose_terminate_handler() {
    std::abort();
}

}  // namespace __gnu_cxx

namespace std {

// No address space holds what is longer than a container takes.
void __throw_bad_alloc() {
    throw bad_alloc();
}
void __throw_bad_array_new_length() {
    throw bad_alloc();
}
void __throw_length_error(const char* /*message*/) {
    throw bad_alloc();
}
void __throw_logic_error(const char* /*message*/) {
    throw kovrel::Failure(kovrel::FailureNumber::invalid_argument);
}
void __throw_out_of_range(const char* /*message*/) {
    throw kovrel::Failure(kovrel::FailureNumber::invalid_argument);
}
void __throw_out_of_range_fmt(const char* /*message*/, ...) {
    throw kovrel::Failure(kovrel::FailureNumber::invalid_argument);
}
void __throw_bad_function_call() {
    throw kovrel::Failure(kovrel::FailureNumber::invalid_argument);
}

}  // namespace std
