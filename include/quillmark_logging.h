/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_H
#define QUILLMARK_LOGGING_H

/// @file
/// The logging set-up library. This header includes all of it but the constants of quillmark_logging_names.h.
///
/// @code
/// #include <quillmark_logging.h>
/// #include <boost/logging/logging.hpp>
///
/// static boost::logging::logger info("Demo.App.info");  // a handle on a named log; usable at any time
///
/// int main() {
///   // Default logs: the CA of the environment variable DEFAULT_CA_NR, else the generic one; false: no console.
///   if (!Quillmark_logging::initDefaultLogs("demo", false)) return 1;  // the file qmrk.info says why
///
///   QMRK_LOG(info) << "started with " << 3 << " workers";
/// }
/// @endcode
///
/// An application sets up its logs once, then logs through the log manager (boost/logging/logging.hpp). The library
/// itself writes one log line only, which describes the operating system.
///
/// **Configuration.** Files decide what is set up. They belong to a customer adaptation ("CA", such as "CA12", or "GE"
/// for the generic one), whose letter case does not matter. They are read at every use: an edited file counts from the
/// next call on.
///
/// **Strings** are narrow 8-bit strings in the process code page; on Linux, the bytes of the file system. Paths have
/// backslashes on every platform; see Quillmark_logging::nativePath.
///
/// **Failures.** Unless a function says otherwise, it returns true when everything was done, reports failures by its
/// result only, leaves its output arguments untouched on failure, and throws nothing but std::bad_alloc.
///
/// **Threads.** A function may be called on any thread and takes no lock, unless it says otherwise. The functions that
/// change the log manager (initDefaultLogs, createApplicationSpecificLogFile and those of quillmark_logging_levels.h)
/// must not run at the same time as each other; other threads may log meanwhile.

/* IWYU pragma: begin_exports */
#include "quillmark_logging_environment.h"
#include "quillmark_logging_event_handler.h"
#include "quillmark_logging_levels.h"
#include "quillmark_logging_setup.h"
#include "quillmark_logging_stamps.h"
#include "quillmark_logging_version.h"
/* IWYU pragma: end_exports */

#endif
