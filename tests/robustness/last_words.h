// What a test program says when the library brings it down: what it was doing, and where in the
// library it happened.
#pragma once

#include <string>

namespace kovrel::test {

/// From now on a crash, a trap, an abort, or something announced that takes longer than forty
/// seconds prints what was announced and ends the process.
void install_last_words();

/// What is being done, for the case that it does not come to its end; nothing when empty.
void announce(std::string doing);

}  // namespace kovrel::test
