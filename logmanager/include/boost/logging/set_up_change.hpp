// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_SET_UP_CHANGE_HPP
#define BOOST_LOGGING_SET_UP_CHANGE_HPP

/// @file
/// Set-up calls that take effect together. Included by boost/logging/logging.hpp.

#include <cstddef>

#include "boost/logging/detail/export.hpp"

namespace boost {
namespace logging {

class default_log_manager;

namespace detail {

struct NotedCalls;

}  // namespace detail

/// Makes set-up calls take effect together.
///
/// @code
/// bl::set_up_change change(manager);
/// bl::enable_logs(manager, "*", bl::level_off);
/// bl::enable_logs(manager, "App.error", bl::level_on);
/// change.apply();
/// @endcode
///
/// While one is alive, the add, delete and enable calls that its thread makes on the manager are noted, and so is a
/// call of flush_log_cache that comes after them. A statement of any thread sees its log as it was before all of them
/// or as it is after all of them, even if the log is created meanwhile. A log that ends up as it was is never touched:
/// "App.error" above, if it was on, loses no message. Changes of several threads are applied one after the other.
///
/// An object is used and destroyed by the thread that made it. One made while another of the thread is alive joins it:
/// its apply leaves its calls to the other one's, and it is destroyed first.
class set_up_change {
 public:
  /// Begins to note calls. @param _manager the manager that they are made on.
  BOOST_LOGGING_API explicit set_up_change(default_log_manager& _manager);

  /// Carries out what was noted, the flush last. Later calls are noted again.
  /// @throws std::bad_alloc when memory is short: nothing has changed then, and all is still noted.
  BOOST_LOGGING_API void apply();

  /// Forgets what was noted and not applied.
  BOOST_LOGGING_API ~set_up_change();

  set_up_change(const set_up_change&) = delete;
  set_up_change& operator=(const set_up_change&) = delete;

 private:
  void keep();

  detail::NotedCalls* noted_;
  std::size_t kept_ = 0;
  bool keepsFlush_ = false;
};

}  // namespace logging
}  // namespace boost

#endif
