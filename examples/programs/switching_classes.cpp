// SPDX-License-Identifier: MIT
// Set-up calls that take effect together: no other thread sees the moment at which everything is off.

#include <boost/logging/logging.hpp>

namespace bl = boost::logging;

int main() {
  bl::default_log_manager& manager = bl::get_default_log_manager();
  bl::add_modifier(manager, "*", bl::append_enter, "line end", 100);
  bl::add_appender(manager, "*", bl::write_to_cout, "console", 100);
  bl::flush_log_cache();

  bl::set_up_change change(manager);
  bl::enable_logs(manager, "*", bl::level_off);
  bl::enable_logs(manager, "App.error", bl::level_on);
  change.apply();

  QMRK_LOG(bl::logger("App.error")) << "this is written";
  QMRK_LOG(bl::logger("App.info")) << "this is not";
}
