// SPDX-License-Identifier: MIT
#pragma once

// Everything that calls the operating system. Nothing outside platform/ calls it directly, except through the C++ and
// Boost libraries with a path from nativePath().
//
// Strings are narrow 8-bit strings in the process code page (on Linux the bytes of the file system). Path strings keep
// backslashes; every function here translates them when it calls the system. Errors are Windows error codes on both
// platforms (errors.h). Any threads may call all functions at once; none throws anything but std::bad_alloc.

#include "platform/access.h"
#include "platform/all_signals_blocked.h"
#include "platform/append_file.h"
#include "platform/clock.h"
#include "platform/console.h"
#include "platform/directory.h"
#include "platform/environment.h"
#include "platform/errors.h"
#include "platform/fork_handlers.h"
#include "platform/handle.h"
#include "platform/module_version.h"
#include "platform/named_event.h"
#include "platform/native_path.h"
#include "platform/positioned_file.h"
#include "platform/process.h"
#include "platform/shell_folder.h"
#include "platform/standard_error.h"
#include "platform/system_version.h"
#include "platform/text_file.h"
#include "platform/thread.h"
#include "platform/word_wait.h"
