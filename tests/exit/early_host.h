// A host's module that is loaded before the library, so that the library is told of the end of the
// process first, and that still uses its objects when its own turn comes.
#pragma once

#include <windows.h>
#include <oleauto.h>

#ifdef KOVREL_EARLY_HOST
#define EARLY_HOST extern "C" __declspec(dllexport)
#else
#define EARLY_HOST extern "C" __declspec(dllimport)
#endif

/// Keeps the instances, one reference of each, to the end of the process. What it then does with
/// them is written to the standard output, a line for each step.
EARLY_HOST void keep_to_the_end(IDispatch* dates, IDispatch* literals, IDispatch* general);
