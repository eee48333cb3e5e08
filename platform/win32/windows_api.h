// SPDX-License-Identifier: MIT
#pragma once

// windows.h without its macros min and max and without unused parts. Only sources of this folder include it.

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif

#include <windows.h>
