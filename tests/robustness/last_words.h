// What a test program prints when it crashes or hangs: what it was doing, and where in the library.
#pragma once

#include <string>

namespace kovrel::test {

/// From now on a crash, a trap, an abort, or an announced action that takes longer than forty
/// seconds prints what was announced and ends the process.
void install_last_words();

/// Announces what is being done; empty: nothing.
void announce(std::string doing);

}  // namespace kovrel::test
