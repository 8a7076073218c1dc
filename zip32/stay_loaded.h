// For the entry points of zip32.dll.
#pragma once

namespace kovrel::zip {

/// Pins the DLL: the run-time library in it leaks a thread-local slot each time that it is unloaded
/// after a throw, and hosts that load and unload it often would run out of them.
void stay_loaded() noexcept;

}  // namespace kovrel::zip
