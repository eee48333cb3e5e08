// SPDX-License-Identifier: MIT
// The log manager without the set-up library: a line in app.log, in the current folder.

#include <boost/logging/logging.hpp>

int main() {
  namespace bl = boost::logging;
  bl::default_log_manager& manager = bl::get_default_log_manager();
  bl::add_modifier(manager, "*", bl::append_enter, "line end", 100);
  bl::add_appender(manager, "App", bl::write_to_file("app.log", false), "file", 100);
  bl::flush_log_cache();  // write what was logged so far; from here on, messages are not kept

  const bl::logger errors("App.error");
  QMRK_LOG(errors) << "disk " << 3 << " failed";
}
