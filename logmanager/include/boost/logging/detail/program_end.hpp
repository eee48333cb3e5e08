// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_DETAIL_PROGRAM_END_HPP
#define BOOST_LOGGING_DETAIL_PROGRAM_END_HPP

#include "boost/logging/detail/export.hpp"

namespace boost {
namespace logging {
namespace detail {

/// Every source that includes the log manager has one, just as every one that includes <iostream> has a
/// std::ios_base::Init, so that the last one of a program is destroyed after all its static objects that log. Windows
/// ends the threads of a process before its libraries learn of the end, but destroys objects of the program itself
/// earlier. So the last one lets the threads of the log manager finish. Does nothing on Linux or in a library.
class program_end {
 public:
  BOOST_LOGGING_API program_end() noexcept;
  BOOST_LOGGING_API ~program_end();
  program_end(const program_end&) = delete;
  program_end& operator=(const program_end&) = delete;
};

static const program_end end_of_program;

}  // namespace detail
}  // namespace logging
}  // namespace boost

#endif
