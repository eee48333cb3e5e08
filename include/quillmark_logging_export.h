/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_EXPORT_H
#define QUILLMARK_LOGGING_EXPORT_H

/// @file
/// What differs between the platforms in the public headers, and nothing else: the export macro and the handle types.

#include <cstdint>

/// @def QMRK_LOG_API
/// Marks what the library exports. The library itself is compiled with QMRK_LOG_BUILDING; a program that links the
/// objects instead of the shared library (the library's own tests), with QMRK_LOG_STATIC.
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

#if defined(_WIN32)
/// A DWORD, the system's unsigned 32-bit type.
using dword = unsigned long;
#else
/// A DWORD, the system's unsigned 32-bit type.
using dword = std::uint32_t;
#endif

/// A handle of the system: a pointer-sized value that is never dereferenced.
using handle = void*;

}  // namespace Quillmark_logging

#endif
