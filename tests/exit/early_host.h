// A module of the host that is loaded before the library, so that it is detached after it, and that
// still uses its objects then.
#pragma once

#include <windows.h>
#include <oleauto.h>

#ifdef KOVREL_EARLY_HOST
#define EARLY_HOST extern "C" __declspec(dllexport)
#else
#define EARLY_HOST extern "C" __declspec(dllimport)
#endif

/// Keeps one reference to each instance until the process ends. What it does with them then is
/// written to the standard output, a line for each step.
EARLY_HOST void keep_to_the_end(IDispatch* dates, IDispatch* literals, IDispatch* general);
