// Waits that keep the thread's windows alive: they spin, letting pending events run, and never
// sleep.
#pragma once

namespace kovrel {

/// Spins until so many seconds have passed, with the hourglass as the thread's mouse pointer. There
/// is no correction for midnight: a wait that reaches it never ends.
void wait_with_hourglass(float seconds);

}  // namespace kovrel
