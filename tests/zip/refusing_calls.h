// The system's file calls, any one of which can be made to fail. The linker replaces them by these
// in the program that holds this (its --wrap option).
#pragma once

#include <cstddef>
#include <string>

namespace kovrel::zip::test {

/// From now on the calls are counted, and the n-th (from 1) fails with that error, like errno.
void refuse_call(std::size_t n, int error);

/// Ends it: the name of the call that was refused; empty if there were not so many.
[[nodiscard]] std::string stop_refusing();

}  // namespace kovrel::zip::test
