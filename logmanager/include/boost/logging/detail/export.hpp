// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_DETAIL_EXPORT_HPP
#define BOOST_LOGGING_DETAIL_EXPORT_HPP

// BOOST_LOGGING_API marks what the log manager exports. The library itself is compiled with BOOST_LOGGING_BUILDING; a
// program that links the objects instead of the shared library (the manager's own tests) with BOOST_LOGGING_STATIC.

#if defined(_WIN32)
#if defined(BOOST_LOGGING_STATIC)
#define BOOST_LOGGING_API
#elif defined(BOOST_LOGGING_BUILDING)
#define BOOST_LOGGING_API __declspec(dllexport)
#else
#define BOOST_LOGGING_API __declspec(dllimport)
#endif
#else
#define BOOST_LOGGING_API __attribute__((visibility("default")))
#endif

#endif
