// The standard handler of a procedure: traps every run-time failure, tells the user in the standard
// error box, and lets the procedure end with whatever result it had.
#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include "automation/boundary.h"
#include "runtime/failure.h"

namespace kovrel {

/// What the error box of one procedure says besides the failure.
struct Handler {
    /// Ends the text: ") en procedimiento " and the procedure's name and place.
    std::wstring_view trailing;
    /// The box's title; null: the library's application title.
    const std::wstring* title = nullptr;
};

/// Shows the standard error box. Whatever goes wrong on the way is ignored.
void show_failure(const Failure& failure, const Handler& handler) noexcept;

/// Runs a procedure's body, given as a function and what it works on: the trap is one for all.
void run_guarded(const Handler& handler, void (*body)(void*), void* context) noexcept;

/// Runs a procedure's body.
template <class Body>
void guarded(const Handler& handler, Body&& body) {
    run_guarded(
        handler, [](void* context) { (*static_cast<std::remove_reference_t<Body>*>(context))(); },
        &body);
}

/// Runs a function's body, which assigns its result as it goes. After a failure the result is what
/// it had assigned so far.
template <class Result, class Body>
Result guarded(const Handler& handler, Body&& body) {
    Result result{};
    guarded(handler, [&] { body(result); });
    return result;
}

/// Runs a step whose failure counts for nothing; true when it did not fail.
template <class Body>
bool attempt(Body&& body) noexcept {
    try {
        body();
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace kovrel
