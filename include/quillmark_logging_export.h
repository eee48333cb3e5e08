/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_EXPORT_H
#define QUILLMARK_LOGGING_EXPORT_H

/* What differs between the platforms in the public header, and nothing else: the export macro and the handle types.
 *
 * QMRK_LOG_API marks what the library exports. The library itself is compiled with QMRK_LOG_BUILDING; a program that
 * links the objects instead of the shared library (the library's own tests) with QMRK_LOG_STATIC. */

#include <cstdint>

#if defined(_WIN32)
#if defined(QMRK_LOG_STATIC)
#define QMRK_LOG_API
#elif defined(QMRK_LOG_BUILDING)
#define QMRK_LOG_API __declspec(dllexport)
#else
#define QMRK_LOG_API __declspec(dllimport)
#endif
#else
#define QMRK_LOG_API __attribute__((visibility("default")))
#endif

namespace Quillmark_logging {

/* A DWORD: unsigned long where that is the system's 32-bit type, else std::uint32_t. */
#if defined(_WIN32)
using dword = unsigned long;
#else
using dword = std::uint32_t;
#endif

/* A handle of the system: a pointer-sized value that is never dereferenced. */
using handle = void*;

}  // namespace Quillmark_logging

#endif
