// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_DETAIL_EXPORT_HPP
#define BOOST_LOGGING_DETAIL_EXPORT_HPP

// BOOST_LOGGING_API marks what the log manager exports. The library itself is compiled with BOOST_LOGGING_BUILDING; a
// program that links the objects instead of the shared library (the manager's own tests) with BOOST_LOGGING_STATIC.
//
// BOOST_LOGGING_TYPE marks a class whose type information programs need, for a dynamic_cast or a sanitizer's check; on
// Windows every module has its own.

#if defined(_WIN32)
#define BOOST_LOGGING_TYPE
#if defined(BOOST_LOGGING_STATIC)
#define BOOST_LOGGING_API
#elif defined(BOOST_LOGGING_BUILDING)
#define BOOST_LOGGING_API __declspec(dllexport)
#else
#define BOOST_LOGGING_API __declspec(dllimport)
#endif
#else
#define BOOST_LOGGING_TYPE __attribute__((visibility("default")))
#define BOOST_LOGGING_API __attribute__((visibility("default")))
#endif

#endif
